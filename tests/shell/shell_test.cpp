#include <filesystem>
#include <regex>

#include <gmock/gmock.h>

#include "shell/form1.h"
#include "shell/game.h"

namespace falanges {

class Shell : public Game {
protected:
  void walkStates(const std::vector<std::string>& rows) {
    walk(rows, [&] { return state(); });
  }
};

TEST_F(Shell, TheInformationBoxStandsAloneBeforeAndAfterTheRest) {
  // As from the second run on.
  std::filesystem::create_directory(scripted::toPath(file("jguardados")));
  configure("1;0;25;4;\r\n");
  screen.expectBox(informationBox().text, Answer::Ok, [&] {
    EXPECT_FALSE(screen.isOpen("frmPrincipal"));
    EXPECT_TRUE(std::filesystem::is_directory(scripted::toPath(file("plantillas"))));
    EXPECT_EQ(principal.OpcPermitirBanderas + principal.OpcLimiteFilas, "10");
    EXPECT_EQ(principal.SegundosActualizacion * 10 + principal.MovPorTurno, 254);
  });
  app.start();
  EXPECT_EQ(screen.text("frmPrincipal"), "Vornath - Falanges Z - Tomar El Estandarte");
  EXPECT_EQ(screen.picture("frmPrincipal"), "tiempo.ico");
  // The other lines are the makers' own wording.
  const std::regex wording(
      "(.+\r\n.+\r\n\r\n){2}Juego para PC basado en el Juego de Mesa:\r\n.+\r\n\r\n"
      "Visite la Web para ver manuales, vídeos y novedades,\r\n"
      "así como para contactar y solicitar el Juego de Mesa Original\\. Incluye:\r\n"
      "Caja, Tablero, Fichas, Instrucciones y 1 CD con esta versión para "
      "PC\r\n\r\n.+\r\n.+\r\n\r\n"
      "Vornath - Falanges Z - Tomar El Estandarte - v2\\.0\r\n\r\n");
  EXPECT_TRUE(std::regex_match(screen.lastBox.text, wording)) << screen.lastBox.text;
  walkStates({"stay => SSHSH", "menu NuevoJuego, stay => HSHSS NuevoJuego",
              "menu Opciones, type txtMovPorTurno 6 => HSHSS NuevoJuego Opciones"});
  screen.expectBox(ToLeave, Answer::Yes);
  walkStates({"expect moves, close Principal => HSHSS NuevoJuego Opciones"});
  EXPECT_EQ(screen.focused() + screen.lastBox.title, "txtMovPorTurnoVornath - Falanges Z - TEE");
  run("type txtMovPorTurno 5");
  close(Answer::Yes);
}

TEST_F(Shell, AWholeGameIsPlayedSavedLoadedAndWon) {
  start();
  run("menu NuevoJuego, choose comTablero 6x6, click picINF, square 25, click picCAB, square 26");
  walkStates({"click picELE, square 27, click picGEN, square 28, click picBAN, square 36 => HSHSS "
              "NuevoJuego",
              "save Plantilla plantillas/mía => HSHSS NuevoJuego"});
  EXPECT_EQ(screen.lastFile.folder, file("plantillas"));
  EXPECT_EQ(screen.lastFile.fileName, "Plantilla-09-03-2005-08-05-07");
  screen.expectBox(ToStart, BoxStyle::InformationYesNo, Answer::Yes);
  walkStates({"click btnIniciar => HHSHH EnJuego", "menu Opciones => HHSHH EnJuego Opciones",
              "activate EnJuego => HHSHH EnJuego"});
  expectBoard("b...../..geci/....../....../ICEG../.....B");
  EXPECT_EQ(screen.picture("picTablero") + screen.picture("frmEnJuego"), "6x6.jpgadelante.ico");
  EXPECT_EQ(app.enJuego.Height * 100000 + app.enJuego.Width, 795008460);
  run("move 28 21, move 12 18, move 21 14, save Juego jguardados/mía");
  EXPECT_EQ(screen.lastFile.folder, file("jguardados"));
  EXPECT_EQ(screen.lastFile.fileName, "JuegoGuardado-09-03-2005-08-05-07");
  EXPECT_EQ(screen.lastFile.filter, "Archivos de texto|*.txt|Todos los archivos|*.*");
  const std::string position = "b...../..gec./.G...i/....../ICE.../.....B";
  EXPECT_EQ(bytesOf(file("jguardados/mía")), gameFile(position, "2\r\n"));
  EXPECT_EQ(bytesOf(file("jguardados/mía")).find("2;1;380;1340;1;1;\r\n0;0;380;2520;1;2;\r\n"), 0U);
  walkStates({"move 9 15, close EnJuego => SSHSH"});
  EXPECT_EQ(app.enJuego.JugadorActual, 1);
  choose("CargarJuego", file("jguardados/mía"));
  expectBoard(position);
  EXPECT_EQ(status(), "En Espera/En Turno");
  run("move 18 24, move 14 7, move 24 30");
  screen.expectBox(victory("1", "CONQUISTADO la Bandera"));
  // A file leads into play or to deployment from everywhere but play, and closes the options.
  walkStates({"move 7 1 => HHHHH EnJuego", "menu Opciones => HHHHH EnJuego Opciones",
              "activate EnJuego => HHHHH EnJuego", "close EnJuego, menu Opciones => SSHSH Opciones",
              "layOut b..../...../...../...../G...B => HSHSS NuevoJuego",
              "load g..../...../...../...../G.... 2 => HHSHH EnJuego",
              "close EnJuego, menu Opciones => SSHSH Opciones",
              "load g..../...../...../...../G.... 2 => HHSHH EnJuego",
              "close EnJuego, menu NuevoJuego, close NuevoJuego => SSHSH"});
  run("menu NuevoJuego");
  close(Answer::Yes);
}

TEST_F(Shell, EachChangeOfAnOptionReachesItemAndFileAtOnce) {
  configure(";;30;3;\r\nlost;");
  start();
  const auto seen = [&] {
    return configuration() + std::to_string(principal.SegundosActualizacion) + " " +
           std::to_string(principal.MovPorTurno) + " " + principal.OpcPermitirBanderas +
           principal.OpcLimiteFilas;
  };
  // clang-format off
  walk({"menu Opciones => ;;30;3;\r\n30 3 ", "click chkPermitirBanderas => 1;;30;3;\r\n30 3 1",
        "click lblLimiteFilas => 1;1;30;3;\r\n30 3 11", "click chkLimiteFilas => 1;0;30;3;\r\n30 3 10",
        "click lblBandera => 0;0;30;3;\r\n30 3 00", "type txtTiempoRed => 0;0;;3;\r\n0 3 00",
        "type txtTiempoRed 4x7 => 0;0;4x7;3;\r\n4 3 00", "type txtTiempoRed 3001 => 0;0;300;3;\r\n300 3 00",
        "type txtMovPorTurno 2.5 => 0;0;300;2.5;\r\n300 2 00", "type txtMovPorTurno -9 => 0;0;300;-9;\r\n300 0 00",
        "type txtMovPorTurno 999 => 0;0;300;999;\r\n300 255 00", "type txtMovPorTurno 4;9 => 0;0;300;4;9;\r\n300 4 00",
        "type txtMovPorTurno 5ñ€ => 0;0;300;5\xF1?;\r\n300 5 00",
        "choose comJugadorActualRed 2, close Opciones => 0;0;300;5\xF1?;\r\n300 5 00"}, seen);
  // clang-format on
  configure("0;0;1234;5;\r\n"); // a box holds three characters
  walk({"menu Opciones, close Opciones => 0;0;123;5;\r\n123 5 00"}, seen);
  EXPECT_EQ(principal.JugadorRed, 2);
  configure("0;1;30;5;\r\n");
  run("menu Opciones");
  EXPECT_EQ(screen.text("chkPermitirBanderas") + screen.text("chkLimiteFilas"), "01");
  EXPECT_EQ(screen.text("comJugadorActualRed") + std::to_string(principal.JugadorRed), "22");
  EXPECT_EQ(configuration(), "0;1;30;5;\r\n");
  std::string names;
  for (int i = 0; i < 6; ++i, screen.tab())
    names += screen.accessibleName(screen.focused()) + "/";
  EXPECT_EQ(names, "Permitir más de 1 Bandera/Permitir Unidades en cualquier fila/Cargar Juego en "
                   "Red/Segundos de Actualización/Jugador de Red/Movimientos por Turno/");
}

TEST_F(Shell, ANumberOutOfRangeHoldsTheDialogWithOneBox) {
  configure("0;0;0;0;\r\n");
  start();
  // One box each, with the focus where it must be.
  const auto refused = [&](const std::string& box, const std::string& field,
                           const std::string& script) {
    run("expect " + box + ", " + script);
    EXPECT_EQ(screen.focused() + " " + state(), field + " HSHSS NuevoJuego Opciones") << script;
    EXPECT_EQ(app.forms.activeChild(), &app.opciones);
  };
  run("menu NuevoJuego, menu Opciones, click txtMovPorTurno");
  EXPECT_EQ(principal.JugadorRed, 1);
  for (const char* script : {"close Opciones", "activate NuevoJuego", "click txtMovPorTurno",
                             "click chkLimiteFilas", "click btnCargarJuegoRed", "square 1"})
    refused("seconds", "txtTiempoRed", script);
  EXPECT_EQ(principal.OpcLimiteFilas, "0");
  for (const std::string wrong : {"4", "301", "", "abc", "4.9", "-50"})
    for (const char* script : {", tab", ", close Opciones"})
      refused("seconds", "txtTiempoRed", "type txtTiempoRed " + wrong + script);
  run("type txtTiempoRed 300, tab, type txtTiempoRed 7x, tab, type txtTiempoRed 5, tab");
  for (const std::string wrong : {"0", "6", "x5", "5.1", ".9"})
    for (const char* script : {", tab back", ", close Opciones"})
      refused("moves", "txtMovPorTurno", "type txtMovPorTurno " + wrong + script);
  run("type txtMovPorTurno 5, tab, type txtMovPorTurno 2.5, tab, activate NuevoJuego");
  EXPECT_EQ(state(), "HSHSS NuevoJuego");
  configure("0;0;9;0;\r\n");
  run("menu Opciones, click chkLimiteFilas");
  refused("moves", "txtMovPorTurno", "click btnCargarJuegoRed");
}

TEST_F(Shell, WhatCannotBeReadOrWrittenIsToldOnceBehindTheEvent) {
  screen.allPicturesMissing = true;
  screen.expectBox(informationBox().text);
  screen.expectBox("No se puede cargar la imagen:\r\n" + file("ico/tiempo.ico"), Answer::Ok,
                   [&] { EXPECT_TRUE(screen.isOpen("frmPrincipal")); });
  app.start();
  run("menu NuevoJuego, choose comTablero 8x8, click picINF, square 64");
  EXPECT_EQ(pictures(), "0......./......../......../......../......../......../......../.......0");
  run("load G......./......../......../......../......../......../......../....... 1, move 1 2");
  std::filesystem::create_directory(scripted::toPath(file("VornathFalangesZTEE.cfg")));
  screen.expectBox("No se puede guardar el archivo:\r\n" + file("VornathFalangesZTEE.cfg"),
                   Answer::Ok, [&] { EXPECT_EQ(principal.OpcPermitirBanderas, "1"); });
  run("menu Opciones, click chkPermitirBanderas, click chkPermitirBanderas");
  EXPECT_EQ(principal.OpcPermitirBanderas, "0");
}

TEST(Coordinates, FollowThePointerOverTheLargestPicture) {
  scripted::ScriptedDesktop screen;
  forms::Forms forms(screen);
  Form1 form(forms);
  forms.startUp(form);
  screen.moveOver("Picture1", 1500, 30);
  EXPECT_EQ(screen.toolTip("Picture1"), "X: 1500 - Y: 30");
  screen.click("Picture1"), screen.click("Picture3");
  EXPECT_EQ(form.Picture1.Appearance * 2 + form.Picture3.Appearance, 1);
}

} // namespace falanges
