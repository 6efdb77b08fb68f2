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

const std::string Armies[] = {"gb..i/ic.../...../...CI/I..BG",
                              "b.c..b/.iegi./....../....../.IGEI./B..C.B"};

// A copy, and what is known of it apart from its own memory.
struct Seat {
  std::unique_ptr<Copy> copy{};
  bool fresh = false;   // it has not written since it joined out of turn
  bool answers = false; // it was not started anew since the turn that it published last

  int player() const { return copy->principal.JugadorRed; }
  bool inTurn() const { return copy->play.JugadorActual == player(); }
};

} // namespace

class Soak : public Network {
protected:
  unsigned below(std::size_t bound) { return static_cast<unsigned>(random() % bound); }
  bool chance(unsigned percent) { return below(100) < percent; }
  std::string last() const { return record.back(); }
  std::string lastButOne() const { return record.size() > 1 ? *(record.end() - 2) : last(); }
  // By the record; the other one published it.
  Seat& mover() { return seats[last()[last().size() - 3] - '1']; }
  Seat& publisher() { return &mover() == &seats[0] ? seats[1] : seats[0]; }

  // Both copies are there, the file is whole, and the next fault can be put right.
  bool calm() {
    for (const Seat& seat : seats)
      if (!seat.copy || seat.fresh)
        return false;
    return file() == last();
  }

  void strike() {
    const std::string torn = last().substr(0, below(last().size()));
    // The one in turn would put its own last text back over one that it has not seen.
    const bool seen = mover().copy->position() != lastButOne();
    const bool survived = seen || publisher().answers;
    const unsigned fault = below(6);
    if (fault == 0) {
      away(true);
      for (unsigned seconds = below(4 * 6); seconds > 0; --seconds)
        second();
      away(false);
    } else if (fault < 3 && survived) {
      put(fault == 1 ? std::nullopt : std::optional(torn));
      ++figures["files destroyed"];
    } else if (fault == 3 && publisher().answers) {
      put(lastButOne());
      ++figures["old texts"];
    } else if (fault > 3) {
      Seat& killed = fault == 4 ? mover() : publisher();
      if ((fault == 4 || seen) && chance(50))
        put(torn);
      killed = {};
      ++figures["copies killed"];
    }
  }

  void second() {
    const int first = 1 + static_cast<int>(below(2));
    for (const int player : {first, 3 - first}) {
      Seat& seat = seats[player - 1];
      if (!seat.copy && file() == last()) {
        seat.copy = std::make_unique<Copy>(player == 1 ? 'A' : 'B', path, options);
        seat.copy->join();
        seat.fresh = !seat.inTurn();
      }
      if (seat.copy && chance(90))
        tick(seat);
      if (seat.copy && seat.inTurn() && !over && chance(40))
        play(seat);
    }
  }

  void tick(Seat& seat) {
    seat.copy->screen.tick();
    seat.fresh = seat.fresh && !seat.inTurn() && !seat.copy->principal.TurnoPublicado;
    if (played != last() && file() == played) {
      record.push_back(played);
      seat.answers = true;
    }
    EXPECT_TRUE(!seat.inTurn() || seat.copy->principal.MovRealizados > 0 ||
                seat.copy->position() == last())
        << "a turn is lost, doubled or rolled back: " << seat.copy->position();
  }

  void play(Seat& seat) {
    Copy& copy = *seat.copy;
    std::vector<std::pair<int, int>> moves; // a turn that led back to its beginning would be none
    for (int n = 1; n <= copy.principal.NumCasillas; ++n)
      if (copy.principal.Casillas(n).Jugador == seat.player())
        for (const int target : reach(copy.principal, n, seat.player()))
          if (copy.principal.MovRealizados == 0 || target != left)
            moves.emplace_back(n, target);
    over = moves.empty();
    if (over)
      return;
    const auto [from, to] = moves[below(moves.size())];
    const Victory victory = victoryOfMove(copy.principal, seat.player(), to);
    if (victory != Victory::None)
      return win(copy, victory, from, to);
    left = from;
    copy.move(from, to);
    if (!seat.inTurn())
      played = copy.position();
  }

  // After the end nobody looks after the file any more, so it comes in a calm moment.
  void win(Copy& winner, Victory victory, int from, int to) {
    if (!calm())
      return;
    Copy& loser = *publisher().copy;
    winner.screen.expectBox(victoryText(victory, winner.principal.JugadorRed));
    winner.move(from, to);
    loser.screen.expectBox(defeat(winner.number));
    loser.screen.tick(3 * 6);
    EXPECT_EQ(winner.position() + "1" + winner.number + "\r\n", file());
    EXPECT_EQ(loser.pictures(), winner.pictures());
    record.push_back(file());
    ++figures["games won"];
    over = true;
  }

  void playGame() {
    options = (chance(50) ? "0;0;5;" : "1;0;5;") + std::to_string(1 + below(2)) + ";\r\n";
    record = {gameFile(Armies[below(std::size(Armies))], std::to_string(1 + below(2)) + "\r\n")};
    put(played = last());
    over = false;
    for (int seconds = 0; !over && !HasFailure(); ++seconds) {
      ASSERT_LT(seconds, 20000) << "the game stands still on turn " << record.size();
      if (calm() && chance(4))
        strike();
      second();
      over = over || record.size() > 200;
    }
    for (Seat& seat : seats)
      seat = {};
  }

  std::mt19937 random{fromEnvironment("FALANGES_SOAK_SEED", 1)};
  std::vector<std::string> record; // each text published in this game, the first one before all
  std::string played;              // the text of the turn that was played last
  Seat seats[2];
  std::string options;
  int left = 0;      // the square that the last move came from
  bool over = false; // won, or without a move
  std::map<std::string, unsigned> figures;
};

TEST_F(Soak, NoPublishedTurnIsLostDoubledOrRolledBack) {
  const unsigned wanted = fromEnvironment("FALANGES_SOAK_TURNS", 2000);
  while (figures["turns"] < wanted && !HasFailure()) {
    SCOPED_TRACE("game " + std::to_string(++figures["games"]));
    playGame();
    figures["turns"] += static_cast<unsigned>(record.size()) - 1;
  }
  for (const std::string what :
       {"turns", "games", "games won", "copies killed", "files destroyed", "old texts"}) {
    std::cout << what << ": " << figures[what] << "\n";
    EXPECT_GT(figures[what], 0u) << what;
  }
}

} // namespace falanges
