#include <algorithm>

#include "scripted/game.h"

namespace falanges {

class Deployment : public Game {
protected:
  Deployment() {
    start();
    run("menu NuevoJuego");
  }
};

TEST_F(Deployment, EachBoardTakesUnitsAndTheirMirrorsWhereTheRulesLetThem) {
  run("click picELE");
  for (const int side : {8, 7, 6, 6, 5}) {
    const int last = side * side, refused = last - 2 * side;
    const std::string name = std::to_string(side) + "x" + std::to_string(side);
    // A unit on the last square goes.
    run("square " + std::to_string(principal.NumCasillas) + ", choose comTablero " + name);
    EXPECT_TRUE(app.nuevoJuego.picTablero.picturePath().ends_with(name + ".jpg"));
    EXPECT_EQ(screen.focused(), "picTablero");
    expectBoard(blank(side));
    // Those below zero with the limit of rows.
    for (const int which : {-1, -refused, -refused - 1, -last, side + 1, side, last / 2 + 1, 1}) {
      SCOPED_TRACE(name + " " + std::to_string(which));
      const int n = std::abs(which);
      principal.OpcLimiteFilas = which < 0 ? "0" : n == 1 ? "1" : "";
      const bool taken = which > 0 || n > refused;
      run((taken ? "square " : "expect rows, square ") + std::to_string(n));
      std::string board = blank(side);
      const std::size_t here = place(n, side), mirror = board.size() - 1 - here;
      if (taken && here != mirror)
        board[here] = 'E', board[mirror] = 'e';
      expectBoard(board);
      if (taken && here != mirror)
        run("right picUnidad(" + std::to_string(n % 2 == 0 ? n : last + 1 - n) + ")");
    }
  }
}

TEST_F(Deployment, LeavingTheListOfBoardsErasesTheArmyAndALoadDoesNot) {
  const std::string army = "g..../...../...../...../....G";
  walk({"layOut " + army + ", click comTablero, save Plantilla x => " + army,
        "click picUnidad(25) => " + blank(5), "click comTablero, load " + army + " 1 => " + army},
       [&] { return pictures(); });
  expectBoard(army);
}

TEST_F(Deployment, TheRefusalsComeInTheirOrder) {
  walk({"expect unit, square 1 => ...../...../...../...../.....",
        "click picBAN, square 21, click picUnidad(21) => ....b/...../...../...../B....",
        "square 21 50, square 5 50, square 1 0 => ....b/...../...../...../B....",
        "expect flag, square 25, expect rows, square 13 => ....b/...../...../...../B....",
        "menu Opciones, click lblLimiteFilas => ....b/...../...../...../B....",
        "expect flag, square 13, click picBAN => ....b/...../...../...../B....",
        "expect unit, square 21 50 => ....b/...../...../...../B....",
        "right picUnidad(5), click picGEN, click picBAN, square 6 => ...../B..../...../....b/.....",
        "menu Opciones, click lblBandera, square 7 => ...../BB.../...../...bb/....."},
       [&] { return pictures(); });
  expectBoard("...../BB.../...../...bb/.....");
  EXPECT_EQ(app.nuevoJuego.picBAN.Appearance * 2 + app.nuevoJuego.picGEN.Appearance, 2);
  EXPECT_EQ(hint("picUnidad(20) 10;10") + hint("picTablero 1500;2500"),
            "Cuadro: 20 (4,5)Cuadro: 12 (3,2)");
}

TEST_F(Deployment, AScreenReaderPlacesAUnitWhereTheCursorIsNotThePointer) {
  forms::GridPicture& board = app.nuevoJuego.picTablero;
  screen.key(forms::Key::Digit, 1); // infantry
  EXPECT_EQ(hint("picTablero 590;590"), "Cuadro: 1 (1,1)");
  app.forms.invoked(board); // no cursor shows
  run("Right, Right");
  app.forms.invoked(board);
  EXPECT_EQ(pictures(), "...i./...../...../...../.I...");
  EXPECT_EQ(board.ToolTipText.get(), "Cuadro: 1 (1,1)") << "it is shown at the mouse";
}

TEST_F(Deployment, ATemplateIsLaidOutOnItsOwnBoard) {
  for (const std::string board :
       {"b.g../ci.../...../...IC/..G.B", "....../.e..../g...../.....G/....E./......",
        "g......./......../..C...../......../......../.....c../......../.......G"}) {
    run("choose comTablero 7x7, click picINF, square 49");
    layOut(gameFile(board, "9\r\n"));
    run("expect unit, square 1 50, save Plantilla guardada");
    EXPECT_EQ(bytesOf(file("guardada")), gameFile(board, "0\r\n"));
    expectBoard(board);
    const auto& shown = app.nuevoJuego.picTablero;
    EXPECT_TRUE(shown.picturePath().ends_with(std::to_string(principal.NumFilas) + ".jpg"));
    EXPECT_EQ(app.nuevoJuego.Height - 840, shown.Height);
  }
}

TEST_F(Deployment, AGameStartsWithAnArmy) {
  const std::string start = Boxes.at("start"), flag = "DEBE colocar al menos 1 Bandera\r\n",
                    noTypes = "DEBE colocar al menos 1 Unidad de cada tipo\r\n" + start;
  // Player 1's bottom row, and what is said.
  const std::pair<std::string, std::string> table[] = {
      {"BB..B", "DEBE colocar Unidades en el tablero"},
      {"IB.GB", "DEBE colocar al menos 3 Unidades en el tablero"},
      {"III..", flag + noTypes},
      {"ICEG.", flag + start},
      {"BCEGG", noTypes},
      {"BIEGG", noTypes},
      {"BICGG", noTypes},
      {"BICEE", noTypes},
      {"BICEG", start}};
  for (const auto& [row, text] : table) {
    const std::string board = "gecib/iii../...../...../" + row;
    run("layOut " + board);
    screen.expectBox(text, text.ends_with(start) ? Answer::No : Answer::Ok);
    run("click btnIniciar");
    expectBoard(board);
    EXPECT_EQ(state(), "HSHSS NuevoJuego");
  }
}

TEST_F(Deployment, TheFieldDumpTellsEachSquareOfTheBoard) {
  run("choose comTablero 8x8, click picGEN, square 63");
  screen.expectBox("frmMsgBox", Answer::Ok, [&] {
    const std::string text = app.msgBox.Text1.Text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 64);
    const std::string line =
        "\n\t\t*J2*Casilla: <2> - Jugador: <2> - TUnidad: <5> - PosXTwips: <380>"
        " - PosYTwips: <2520> - PosX: <1> - PosY: <2>\t\t\r\n\t\tCasilla: <3>";
    EXPECT_NE(text.find(line), text.npos) << text;
    run("close MsgBox");
  });
  run("shortcut Command1");
}

} // namespace falanges
