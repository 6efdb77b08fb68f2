// Laying out an army. A board is drawn from the top row, "/" between rows: B I C E G are flag,
// infantry, cavalry, elephants and general of player 1, b i c e g those of player 2, "." is an
// empty square. Squares count from 1 at the top left; the board is 5x5 until another one is chosen.
// picBAN picINF picCAB picELE picGEN are the palette's pictures: flag, infantry, cavalry,
// elephants, general. picUnidad(25) is the unit on square 25.
//
// `run(steps, box)` does the steps one by one; they lead to the box with this text, or to none:
//   click X, right X     a click with the left or the right button of the mouse, in the middle
//   click square 25      on the board, in the middle of square 25
//   click corner 25      the same near its upper left corner, where no unit's picture covers it
//   choose LIST ITEM     from a drop-down list; comTablero is the one of the board's sizes
//   menu X               chooses the entry mnuX of the menu
//   layOut BOARD TURN    loads a template that holds this board and names this player's turn
//   load BOARD TURN      loads a saved game
//   save Plantilla NAME  saves the army as a template under this name
//   over X 590;590       points at this place on X, in twips from its upper left corner
//   Left, Enter, 1       presses that key; a first arrow marks the lowest square on the left
// A row of `walk` is "steps => what is seen then". `pictures()` is the board as its pictures show
// it; `expectBoard` wants the same of the records behind them. `blank(5)` is an empty board of 5x5.
// `windows()` names the windows that are open inside the frame.
//
// What is set down on a square has its mirror image, a unit of player 2, on the opposite one: of
// 5x5 on 26 less that square. Unless an option allows more, units stand in player 1's first two
// rows, the lowest: from 16 on.
//
// In the options, a click on lblLimiteFilas lets units stand in any row, and one on lblBandera
// allows more than one flag. They close as soon as the board is clicked.
//
// `app` is the program, `screen` the person before it. `screen.expectBox(TEXT, ANSWER, MEANWHILE)`
// announces a box that will come; the ANSWER is Ok unless it is named, MEANWHILE is what is looked
// at while the box is open.
#include <gmock/gmock.h>

#include "scripted/game.h"

namespace falanges {

// The program, past its information box, with the deployment's window open.
class Deployment : public Game {
protected:
  Deployment() {
    start();
    run("menu NuevoJuego");
  }
};

const std::string ChooseAUnit =
    "DEBE seleccionar una Unidad y hacer click sobre una casilla del Tablero para situarla";
const std::string OnlyTwoRows = "SÓLO se permiten Unidades en las 2 primeras filas";
const std::string OnlyOneFlag = "NO se permite ubicar más de 1 Bandera";

TEST_F(Deployment, AUnitComesAndGoesInTheFirstTwoRowsAndItsMirrorImageOpposite) {
  run("click picELE, choose comTablero 6x6");
  EXPECT_EQ(screen.focused(), "picTablero") << "the list hands the keyboard on to the board";
  run("click square 24", OnlyTwoRows); // the last of the fourth row
  run("click square 25");              // the first of the fifth; opposite is 12
  expectBoard("....../.....e/....../....../E...../......");
  run("right picUnidad(12)"); // both go
  expectBoard("....../....../....../....../....../......");
}

// The menu leaves the keyboard where it is, on the list; a click on the unit on 25 takes it away,
// and the army is erased. The first step's template names nobody's turn. A game that is loaded
// closes the deployment with the keyboard on its list: if that erased, too, no unit would be in
// play.
TEST_F(Deployment, LeavingTheListOfBoardsErasesTheArmyAndALoadDoesNot) {
  const std::string army = "g..../...../...../...../....G";
  walk({"layOut " + army + ", click comTablero, save Plantilla x => " + army,
        "click picUnidad(25) => ...../...../...../...../.....",
        "click comTablero, load " + army + " 1 => " + army},
       [&] { return pictures(); });
}

// A second flag on square 13, in the middle, offends against both options at first: the limit of
// rows is told. Nothing can stand there even if both allow it: the square is its own mirror image.
TEST_F(Deployment, WhatIsRefusedIsToldTheLimitBeforeTheFlag) {
  run("click picBAN, click square 21");
  run("click square 25", OnlyOneFlag);
  run("click square 13", OnlyTwoRows);
  run("menu Opciones, click lblLimiteFilas, click square 13", OnlyOneFlag);
  // Two flags now, and no box; 7 takes the second, 13 nothing.
  run("menu Opciones, click lblBandera, click square 7, click square 13");
  expectBoard("....b/.B.../...../...b./B....");
}

TEST_F(Deployment, AChosenUnitIsSetDownUntilAnotherIsChosenOrItIsClickedAgain) {
  // Nothing is chosen yet.
  run("click square 21", ChooseAUnit);
  // The flag takes the general's place as the chosen unit.
  run("click picGEN, click picBAN, click square 21");
  // These do nothing, not even tell that a second flag is not allowed: squares 21 and 5 are taken,
  // and the board's very corner is no square.
  run("click corner 21, click corner 5, click picTablero 0;0");
  expectBoard("....b/...../...../...../B....");
  // The flag in the palette is clicked again: nothing is chosen any more.
  run("click picBAN, click corner 21", ChooseAUnit);
}

// 1 infantry to 5 flag; Enter sets it down on the marked square. The first arrow, Left, marks 21,
// the lowest on the left; Right goes on to 22.
TEST_F(Deployment, TheDigitsChooseFromThePalette) {
  run("1, Left, Enter, 5, Right, Enter");
  expectBoard("...bi/...../...../...../IB...");
  run("6, Up, Enter", OnlyOneFlag); // there is no sixth: the flag is still chosen
}

// A screen reader presses the board (`invoked`) without pointing at a place on it. The mouse points
// at the middle of square 1, in twips from the board's corner.
TEST_F(Deployment, AScreenReaderPlacesAUnitWhereTheCursorIsNotThePointer) {
  forms::GridPicture& board = app.nuevoJuego.picTablero;
  run("1, over picTablero 590;590"); // the infantry is chosen
  // Does nothing: no cursor shows.
  app.forms.invoked(board);
  // To square 21, then to 22.
  run("Right, Right");
  app.forms.invoked(board);
  EXPECT_EQ(pictures(), "...i./...../...../...../.I...");
  EXPECT_EQ(board.ToolTipText.get(), "Cuadro: 1 (1,1)") << "it is shown at the mouse";
}

// The template is of 6x6; what was set down on 7x7 before is gone.
TEST_F(Deployment, ATemplateIsLaidOutOnItsOwnBoardAndSaved) {
  const std::string board = "....../.e..../g...../.....G/....E./......";
  // The player in turn that a template names, here 9, counts for nothing.
  run("choose comTablero 7x7, click picINF, click square 49, layOut " + board + " 9");
  // The infantry that was chosen counts no more.
  run("click corner 1", ChooseAUnit);
  expectBoard(board);
  run("save Plantilla guardada");
  EXPECT_EQ(bytesOf(file("guardada")), gameFile(board, "0\r\n")) << "nobody's turn";
}

// The first two boxes refuse. The question lets an army start that has no flag or not each type,
// and says so first. A flag does not count as a unit, and of player 2, who has one of each here, no
// unit counts.
TEST_F(Deployment, WhatAnArmyLacksIsToldBeforeTheGameStarts) {
  const std::string noFlag = "DEBE colocar al menos 1 Bandera\r\n";
  const std::string notEachType = "DEBE colocar al menos 1 Unidad de cada tipo\r\n";
  // Player 1's row at the bottom of the board, and the box that the button to start brings.
  const std::pair<std::string, std::string> table[] = {
      {"BB..B", "DEBE colocar Unidades en el tablero"},
      {"IB.GB", "DEBE colocar al menos 3 Unidades en el tablero"},
      {"III..", noFlag + notEachType + StartQuestion},
      {"BICGG", notEachType + StartQuestion},
      {"BICEG", StartQuestion}};
  for (const auto& [row, box] : table) {
    run("layOut gecib/iii../...../...../" + row + " 1");
    screen.expectBox(box, box.ends_with("?") ? Answer::No : Answer::Ok);
    run("click btnIniciar");
    EXPECT_EQ(windows(), "NuevoJuego"); // nothing has started
  }
  // Yes to the last army, which lacks nothing.
  screen.expectBox(StartQuestion, Answer::Yes);
  run("click btnIniciar");
  EXPECT_EQ(windows(), "EnJuego");
}

// A window for whoever looks into a board that seems wrong, opened by the key of the button
// Command1, which is never seen. The general (type 5) stands on 24, player 2's opposite on 2;
// square 3 is empty. The places of the pictures are in twips: 380 from the top (PosXTwips), 2520
// from the left (PosYTwips); PosX is the row, PosY the column.
TEST_F(Deployment, TheFieldDumpTellsEachSquareOfTheBoard) {
  run("click picGEN, click square 24");
  // While this window is open.
  screen.expectBox("frmMsgBox", Answer::Ok, [&] {
    const std::string text = app.msgBox.Text1.Text;
    EXPECT_THAT(text, testing::HasSubstr(
                          "\t\t*J2*Casilla: <2> - Jugador: <2> - TUnidad: <5> - PosXTwips: <380>"
                          " - PosYTwips: <2520> - PosX: <1> - PosY: <2>\t\t\r\n"
                          "\t\tCasilla: <3>"));
    // For reading only: not even an input method writes there.
    run("type Text1 nada");
    EXPECT_EQ(app.msgBox.Text1.Text, text);
    run("close MsgBox");
  });
  run("Ctrl+Shift+D");
  EXPECT_EQ(shown().find("Command1"), std::string::npos) << "it has a key, and no place";
}

} // namespace falanges
