// Games on any board, clicked upon anywhere, go as a second statement of the rules says: `Rules`.
//
// A board is drawn from the top row, "/" between rows: B I C E G are flag, infantry, cavalry,
// elephants and general of player 1, b i c e g those of player 2, "." is an empty square. A place
// is an index of the drawing; squares count from 1 at the top left, and `place(n, side)` is where
// square n stands in it. A drawing of the reach has "S" where the selected unit stands and "*"
// where it may go. `unit(n)` is the picture of the unit on square n, picMovimientoPermitido(n) the
// mark of a square that the selected unit may go to. `victory(PLAYER, WORDS)` is the box of the
// player who wins.
#include <algorithm>
#include <random>
#include <set>

#include "scripted/game.h"

namespace falanges {

constexpr std::size_t Nowhere = std::string::npos;

// A local game before and after a click.
struct Rules {
  std::string board;
  int player;
  std::string flags; // the option: "0", "1" or a text that nobody knows
  int movesPerTurn;
  int moves = 0;
  std::size_t selected = Nowhere;
  std::string won{};         // the victory's words
  std::string shown = board; // a won game keeps its board and turn, but shows the last move

  int side() const { return static_cast<int>(board.find('/')); }
  bool owns(char unit) const { return unit > '/' && (unit < 'a') == (player == 1); }
  // All go one step and never onto their own: infantry towards the enemy, also askew, cavalry
  // askew, elephants straight, the general like both. Flags stay.
  bool mayGo(std::size_t to) const {
    const int width = side() + 1;
    const int start = static_cast<int>(selected), end = static_cast<int>(to);
    const int rows = end / width - start / width, columns = end % width - start % width;
    const int distance = rows * rows + columns * columns; // 1 straight, 2 askew
    if (distance < 1 || distance > 2 || board[to] == '/' || owns(board[to]))
      return false;
    switch (std::tolower(board[selected])) {
    case 'i':
      return rows == (player == 1 ? -1 : 1);
    case 'c':
      return distance == 2;
    case 'e':
      return distance == 1;
    default:
      return true;
    }
  }
  // "S" where the selected unit stands, "*" where it may go.
  std::string reach() const {
    std::string marks = blank(side());
    for (std::size_t to = 0; selected != Nowhere && to < marks.size(); ++to)
      if (to == selected || mayGo(to))
        marks[to] = to == selected ? 'S' : '*';
    return marks;
  }
  void click(std::size_t place) {
    if (reach()[place] == '*') {
      move(place);
    } else if (owns(board[place]) && std::tolower(board[place]) != 'b') {
      selected = place == selected ? Nowhere : place;
      if (reach().find('*') == Nowhere)
        selected = Nowhere;
    }
  }
  void move(std::size_t to) {
    const char flag = player == 1 ? 'b' : 'B', taken = board[to];
    const auto others = std::ranges::count_if(
        board, [&](char unit) { return unit > '/' && !owns(unit) && unit != flag; });
    if (taken == flag && flags == "0")
      won = "CONQUISTADO la Bandera";
    else if (taken == flag && flags == "1" && std::ranges::count(board, flag) == 1)
      won = "CONQUISTADO TODAS las Banderas";
    else if (taken > '/' && taken != flag && others == 1)
      won = "ELIMINADO todas las unidades enemigas";
    shown[to] = std::exchange(shown[selected], '.');
    selected = Nowhere;
    if (!won.empty())
      return;
    board = shown;
    if (++moves == movesPerTurn) {
      player = 3 - player;
      moves = 0;
    }
  }
};

class RulesTest : public Game {
protected:
  // By chance, from 0 to one less than the bound.
  int below(int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); }
  // From crowded to nearly empty.
  std::string anyBoard() {
    std::string drawing = blank(5 + below(4));
    const int crowd = 15 + below(80);
    for (char& square : drawing)
      if (const int unit = below(crowd); square == '.' && unit < 10)
        square = "BICEGbiceg"[unit];
    return drawing;
  }
  // "S" and "*" as the program shows them.
  std::string reach() {
    std::string marks = blank(principal.NumFilas);
    for (int n = 1; n <= principal.NumCasillas; ++n) {
      char& mark = marks[place(n, principal.NumFilas)];
      if (unit(n) && unit(n)->Appearance == 1) // it is raised
        mark = 'S';
      if (play.picMovimientoPermitido(n))
        mark = '*';
    }
    return marks;
  }
  // Pictures, marks, the records with the player in turn, and what is said of both players.
  void expectAgreement(const Rules& rules) {
    EXPECT_EQ(pictures(), rules.shown);
    EXPECT_EQ(reach(), rules.reach());
    EXPECT_EQ(gameText(principal, play.JugadorActual),
              gameFile(rules.board, std::to_string(rules.player) + "\r\n"));
    EXPECT_EQ(status(), rules.player == 1 ? "En Turno/En Espera" : "En Espera/En Turno");
  }
  // A click on a marker or a unit; nothing happens on an empty board.
  void clickAnywhere(Rules& rules) {
    const int n = 1 + below(principal.NumCasillas);
    const std::size_t at = place(n, rules.side());
    const bool marked = rules.reach()[at] == '*';
    if (!marked && rules.board[at] == '.')
      return;
    const std::string mover = std::to_string(rules.player);
    rules.click(at);
    if (!rules.won.empty())
      screen.expectBox(victory(mover, rules.won));
    run((marked ? "click picMovimientoPermitido(" : "click picUnidad(") + std::to_string(n) + ")");
    screen.finish();
    expectAgreement(rules);
    EXPECT_EQ(unit(n)->Enabled, rules.won.empty()); // behind a win no unit takes a click
  }

  // The same games in each run.
  std::mt19937 random{1};
};

TEST_F(RulesTest, EveryClickDoesWhatTheRulesSay) {
  start();
  std::set<std::string> won; // the words of the victories that came; "": none
  for (int games = 0; games < 300 && !HasFailure(); ++games) {
    // A board, the player in turn, whether more flags are allowed ("2": neither yes nor no, so that
    // a flag that is taken wins nothing), and 1 to 3 moves a turn.
    Rules rules{anyBoard(), 1 + below(2), std::to_string(below(3)), 1 + below(3)};
    SCOPED_TRACE(rules.board);
    principal.OpcPermitirBanderas = rules.flags;
    principal.MovPorTurno = static_cast<std::uint8_t>(rules.movesPerTurn);
    run("load " + rules.board + " " + std::to_string(rules.player));
    expectAgreement(rules);
    for (int clicks = 0; clicks < 300 && rules.won.empty(); ++clicks)
      clickAnywhere(rules);
    won.insert(rules.won);
    run("close EnJuego");
  }
  // Each of the three ways to win has been seen, and "" of the games that nobody had won after 300
  // clicks.
  EXPECT_EQ(won.size(), 4U);
}

} // namespace falanges
