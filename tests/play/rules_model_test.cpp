// Random games against a second statement of the rules of selecting, moving and winning.
#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>

#include "scripted/game.h"

namespace falanges {

namespace {

// The game told in rows and columns of a drawing.
struct Model {
  std::string board;
  int side;
  std::string flags; // the option
  int moves;         // of a turn
  int player;
  int selected = 0; // the square of the unit that goes next
  int made = 0;

  char& on(int n) { return board[place(n, side)]; }
  bool owns(char unit) const { return unit != '.' && (unit < 'a') == (player == 1); }
  // All go one step and never onto their own: infantry towards the enemy, also askew, cavalry
  // askew, elephants straight, the general like both. Flags stay.
  bool mayGo(int from, int to) {
    const int rows = (to - 1) / side - (from - 1) / side, columns = to - from - rows * side;
    const int distance = rows * rows + columns * columns; // 1 straight, 2 askew
    const int unit = std::tolower(on(from));
    return distance > 0 && distance < 3 && !owns(on(to)) &&
           (unit == 'i'   ? rows == (player == 1 ? -1 : 1)
            : unit == 'c' ? distance == 2
            : unit == 'e' ? distance == 1
                          : unit == 'g');
  }
  // "S" where the selected unit stands, "*" where it may go.
  std::string reach() {
    std::string drawing = blank(side);
    for (int n = 1; selected > 0 && n <= side * side; ++n)
      drawing[place(n, side)] = n == selected ? 'S' : mayGo(selected, n) ? '*' : '.';
    return drawing;
  }
  // Flags and enemies change nothing; a second click, or no way to go, takes the selection away.
  void click(int n) {
    if (!owns(on(n)) || std::tolower(on(n)) == 'b')
      return;
    selected = selected == n ? 0 : n;
    if (reach().find('*') == std::string::npos)
      selected = 0;
  }
  // The victory's words, empty while the game goes on. A won game keeps board and turn.
  std::string move(int to) {
    const int from = std::exchange(selected, 0);
    const char flag = player == 1 ? 'b' : 'B', taken = on(to);
    const auto flagsLeft = std::ranges::count(board, flag);
    const auto others = std::ranges::count_if(
        board, [&](char unit) { return unit > '/' && !owns(unit) && unit != flag; });
    if (taken == flag && flags == "0")
      return "CONQUISTADO la Bandera";
    if (taken == flag && flags == "1" && flagsLeft == 1)
      return "CONQUISTADO TODAS las Banderas";
    if (taken != '.' && taken != flag && others == 1)
      return "ELIMINADO todas las unidades enemigas";
    on(to) = std::exchange(on(from), '.');
    made = (made + 1) % moves;
    player = made == 0 ? 3 - player : player;
    return "";
  }
};

} // namespace

class RulesModel : public Game {
protected:
  RulesModel() { start(); }
  int below(int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); }
  void expectScreen(Model& model, const std::string& drawn) {
    std::string reach = blank(model.side);
    for (int n = 1; n <= principal.NumCasillas; ++n) {
      const auto* marker = play.picMovimientoPermitido(n);
      EXPECT_TRUE(!marker || (marker->Top == principal.Casillas(n).PosXTwips &&
                              marker->Left == principal.Casillas(n).PosYTwips));
      reach[place(n, model.side)] = marker ? '*' : unit(n) && unit(n)->Appearance == 1 ? 'S' : '.';
    }
    EXPECT_EQ(reach, model.reach()) << model.board;
    EXPECT_EQ(pictures(), drawn);
    EXPECT_EQ(gameText(principal, play.JugadorActual),
              gameFile(model.board, std::to_string(model.player) + "\r\n"));
    EXPECT_EQ(status(), model.player == 1 ? "En Turno/En Espera" : "En Espera/En Turno");
  }
  // Ends when it is won, or after so many clicks on units and markers.
  void playOne(int clicks) {
    const int side = 5 + below(4);
    Model model{blank(side), side, std::vector<std::string>{"0", "1", ""}[random() % 3],
                1 + below(5), 1 + below(2)};
    model.on(1) = 'g';
    const int crowd = 12 + below(150);
    for (char& square : model.board)
      if (const int unit = below(crowd); square == '.' && unit < 12)
        square = "BbIiCcEeGgGg"[unit];
    principal.OpcPermitirBanderas = model.flags;
    principal.MovPorTurno = static_cast<std::uint8_t>(model.moves);
    load(gameFile(model.board, std::to_string(model.player) + "\r\n"));
    std::string won, drawn = model.board;
    for (; clicks > 0 && won.empty() && !HasFailure(); --clicks) {
      expectScreen(model, drawn);
      const std::string reach = model.reach();
      int n = 0;
      do
        n = 1 + below(side * side);
      while (reach[place(n, side)] != '*' && model.on(n) == '.');
      const bool moves = reach[place(n, side)] == '*';
      if (moves) {
        drawn[place(n, side)] = std::exchange(drawn[reach.find('S')], '.');
        const std::string mover = std::to_string(model.player);
        if (won = model.move(n); !won.empty())
          screen.expectBox(victory(mover, won));
        wins.insert(won);
      } else {
        model.click(n);
      }
      screen.click(moves ? *play.picMovimientoPermitido(n) : *unit(n));
    }
    expectScreen(model, drawn);
    EXPECT_EQ(menus(), won.empty() ? "HHSHH" : "HHHHH");
    EXPECT_TRUE(!unit(1) || unit(1)->Enabled == won.empty());
    screen.closeWindow(play);
  }

  std::mt19937 random{11};
  std::set<std::string> wins; // the words of the victories; "": moves that won nothing
};

// FALANGES_GAMES: how many games.
TEST_F(RulesModel, ManyRandomGamesAgree) {
  const char* const wanted = std::getenv("FALANGES_GAMES");
  for (long games = wanted ? std::atol(wanted) : 400; games > 0 && !HasFailure(); --games)
    playOne(100);
  EXPECT_EQ(wins.size(), 4U) << "each of the three ways to win has been seen";
}

} // namespace falanges
