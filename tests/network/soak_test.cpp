// Whole games between two copies over a folder that fails in every way that can be survived, beside
// a record of every published turn.
#include <cstdlib>
#include <iostream>
#include <random>

#include "network/copies.h"
#include "play/reach.h"

namespace falanges {

namespace {

unsigned fromEnvironment(const char* name, unsigned otherwise) {
  const char* const value = std::getenv(name);
  return value ? static_cast<unsigned>(std::stoul(value)) : otherwise;
}

const std::string Armies[] = {"gb..i/ic.../...../...CI/I..BG", "b.e.i/.c.i./...../.I.C./I.E.B",
                              "b.c..b/.iegi./....../....../.IGEI./B..C.B"};

// A copy, and what is known of it apart from its own memory.
struct Seat {
  int player;
  std::unique_ptr<Copy> copy{};
  std::string held{};   // the text that it took or published last
  bool begun = false;   // it has been in turn on that text and not published since
  bool answers = false; // it was not started anew since the turn that it published last
  std::string slow{};   // a text whose writing takes its time
  int slowTicks = 0;

  bool inTurn() const { return copy && copy->app.enJuego.JugadorActual == player; }
  bool finished() const { return copy && !copy->principal.JuegoEnRed; }
};

} // namespace

class Soak : public Network {
protected:
  unsigned below(std::size_t bound) { return static_cast<unsigned>(random() % bound); }
  bool chance(unsigned percent) { return below(100) < percent; }
  Seat& other(const Seat& seat) { return seats[2 - seat.player]; }

  // The copy lives, knows the newest text and brings it back, whatever happens to the file.
  bool keeps(const Seat& seat) {
    return seat.copy && seat.slow.empty() && seat.held == record.back() &&
           (seat.inTurn() || (seat.copy->principal.TurnoPublicado &&
                              (seat.answers || other(seat).held == seat.held)));
  }
  // Nothing is lost for good with the copy.
  bool mayDie(const Seat& seat) {
    return keeps(other(seat)) || (other(seat).slow.empty() && file() == record.back());
  }

  void enter(Seat& seat) {
    seat = {seat.player, std::make_unique<Copy>(seat.player, path, options)};
    seat.copy->join();
    take(seat);
  }
  void kill(Seat& seat) {
    seat = {seat.player};
    ++figures["copies killed"];
  }
  void take(Seat& seat) {
    seat.held = seat.copy->position();
    seat.begun = seat.inTurn();
    EXPECT_TRUE(!seat.begun || seat.held == record.back())
        << "a published turn is lost, doubled or rolled back: " << seat.held;
  }
  // A text of this copy stands in the file.
  void wrote(Seat& seat, const std::string& text) {
    EXPECT_TRUE(seat.begun ? seat.held == record.back() : seat.held == text);
    if (seat.begun)
      record.push_back(text);
    seat.answers = seat.answers || seat.begun;
    seat.begun = false;
    seat.held = text;
  }

  void tick(Seat& seat) {
    if (!seat.slow.empty()) {
      if (--seat.slowTicks < 0 && gone == 0) {
        put(seat.slow);
        wrote(seat, std::exchange(seat.slow, ""));
      }
      return;
    }
    Copy& copy = *seat.copy;
    const bool looks = copy.caption() == Lost || copy.principal.SegundosRestantes == 0;
    if (won && looks && gone == 0 && !seat.finished())
      copy.screen.expectBox(defeat(std::to_string(won)));
    const std::string before = looks ? file() : "";
    copy.screen.tick();
    if (!looks || won)
      return;
    const std::string text = file();
    const bool published = seat.begun && !seat.inTurn() && copy.principal.TurnoPublicado;
    if (!published && text == before) {
      if (!seat.begun)
        take(seat);
      return;
    }
    // An older text that comes late is known as such only to who has played since.
    const bool mayBeSlow = published || text == record.back() || other(seat).answers;
    if (!mayBeSlow || !other(seat).slow.empty() || !chance(25))
      return wrote(seat, text);
    put(text.substr(0, below(text.size())));
    if (keeps(other(seat)) && chance(30))
      return kill(seat);
    seat.slow = text;
    seat.slowTicks = static_cast<int>(below(3 * Interval));
    ++figures["slow writings"];
  }

  void play(Seat& seat) {
    Copy& copy = *seat.copy;
    if (copy.principal.MovRealizados == 0)
      left.clear();
    std::vector<std::pair<int, int>> moves; // none back to where a move of this turn came from
    for (int n = 1; n <= copy.principal.NumCasillas; ++n)
      if (copy.principal.Casillas(n).Jugador == seat.player)
        for (const int target : reach(copy.principal, n, seat.player))
          if (!left.contains(target))
            moves.emplace_back(n, target);
    over = moves.empty();
    if (over)
      return;
    const auto [from, to] = moves[below(moves.size())];
    const Victory victory = victoryOfMove(copy.principal, seat.player, to);
    if (victory != Victory::None) {
      // After the end nobody looks after the file any more.
      if (gone > 0 || !other(seat).slow.empty())
        return;
      won = seat.player;
      copy.screen.expectBox(victoryText(victory, won));
    }
    left.insert(from);
    copy.move(from, to);
    if (won)
      wrote(seat, file());
  }

  void strike() {
    if (gone > 0 && --gone == 0)
      away(false);
    if (gone > 0)
      return;
    for (Seat& seat : seats)
      if (seat.copy && below(300) == 0 && mayDie(seat))
        kill(seat);
    if (!won && chance(1) && (keeps(seats[0]) || keeps(seats[1]))) {
      put(chance(50) ? std::nullopt : std::optional(file().substr(0, below(file().size()))));
      ++figures["files destroyed"];
    }
    if (chance(1)) {
      away(true);
      gone = 1 + static_cast<int>(below(4 * Interval));
    }
  }

  std::mt19937 random{fromEnvironment("FALANGES_SOAK_SEED", 1)};
  std::vector<std::string> record; // each text published in this game, the first one before all
  Seat seats[2]{{1}, {2}};
  std::string options;
  std::set<int> left; // squares that the moves of this turn came from
  int gone = 0;       // seconds until the folder comes back
  int won = 0;
  bool over = false;
  std::map<std::string, unsigned> figures;
};

TEST_F(Soak, NoPublishedTurnIsLostDoubledOrRolledBack) {
  const unsigned wanted = fromEnvironment("FALANGES_SOAK_TURNS", 2000);
  while (figures["turns"] < wanted && !HasFailure()) {
    SCOPED_TRACE("game " + std::to_string(++figures["games"]));
    options = (chance(50) ? "0;0;5;" : "1;0;5;") + std::to_string(1 + below(3)) + ";\r\n";
    record = {gameFile(Armies[below(std::size(Armies))], std::to_string(1 + below(2)) + "\r\n")};
    put(record.back());
    won = 0;
    over = false;
    // A game ends when both know it, or when no unit can move; what goes on then comes to its end.
    for (int calm = 0, seconds = 0; calm < 10 * Interval && !HasFailure(); ++seconds) {
      ASSERT_LT(seconds, 20000) << "the game stands still on turn " << record.size();
      if (!over || gone > 0)
        strike();
      const std::size_t first = below(2);
      for (Seat* seat : {&seats[first], &seats[1 - first]}) {
        // A file that is not whole is no game to join.
        if (!seat->copy && gone == 0 && std::count(record.begin(), record.end(), file()) > 0)
          enter(*seat);
        if (seat->copy && chance(90))
          tick(*seat);
        if (!over && !won && seat->inTurn() && seat->slow.empty() && chance(40))
          play(*seat);
      }
      over = over || record.size() > 200 || (seats[0].finished() && seats[1].finished());
      calm += over && gone == 0 ? 1 : 0;
    }
    for (Seat& seat : seats) {
      const auto squares = [](const std::string& text) { return text.substr(0, text.rfind(';')); };
      // A finished file does not tell the size of its board to who comes late.
      EXPECT_TRUE(!seat.copy || seat.copy->principal.NumCasillas == 0 ||
                  seat.copy->principal.MovRealizados > 0 ||
                  squares(seat.copy->position()) == squares(record.back()));
      seat = {seat.player};
    }
    figures["turns"] += static_cast<unsigned>(record.size()) - 1;
    figures["games won"] += won ? 1 : 0;
  }
  for (const std::string what :
       {"turns", "games", "games won", "copies killed", "slow writings", "files destroyed"}) {
    std::cout << what << ": " << figures[what] << "\n";
    EXPECT_GT(figures[what], 0u) << what;
  }
}

} // namespace falanges
