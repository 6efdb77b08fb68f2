// Games on any board, clicked upon anywhere, go as a second statement of the rules says (`Rules`,
// in rules.h). A board is drawn from the top row, "/" between rows: B I C E G are flag, infantry,
// cavalry, elephants and general of player 1, b i c e g those of player 2, "." is an empty square.
// Of `Rules` a case sees the `board`, the `player` in turn, the words of a victory (`won`; "":
// none) and what is `shown`: behind a win the last move, too, which the board is without. A `click`
// takes a place in the drawing. `victory(PLAYER, WORDS)` is the box of the player who wins. Squares
// count from 1 at the top left; `place(n, side)` is where square n stands in the drawing. `unit(n)`
// is the picture of the unit there, picMovimientoPermitido(n) the mark of a square that the
// selected unit may go to. A drawing of the reach has "S" where the selected unit stands and
// "*" where it may go.
#include "fuzz/rules.h"

#include <random>
#include <set>

namespace falanges {

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
