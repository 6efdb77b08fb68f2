#include "scripted/game.h"
#include "shell/form1.h"

namespace falanges {

class Shell : public Game {
protected:
  // The line of the configuration file, then what the program goes by: flags;rows;seconds;moves;.
  std::string options() { return bytesOf(file("VornathFalangesZTEE.cfg")) + inForce(); }
  std::string inForce() const {
    return principal.OpcPermitirBanderas + ";" + principal.OpcLimiteFilas + ";" +
           std::to_string(principal.SegundosActualizacion) + ";" +
           std::to_string(principal.MovPorTurno) + ";";
  }
};

TEST_F(Shell, TheInformationBoxStandsAloneBeforeAndAfterTheRest) {
  configure("1;0;25;4;\r\n");
  screen.expectBox(informationBox().text, Answer::Ok, [&] {
    EXPECT_FALSE(frame.isOpen());
    EXPECT_TRUE(std::filesystem::is_directory(scripted::toPath(file("plantillas"))));
    EXPECT_EQ(inForce(), "1;0;25;4;");
  });
  app.start();
  run("menu NuevoJuego");
  screen.expectBox(LeaveQuestion, Answer::Yes, [&] {
    EXPECT_EQ(screen.lastBox.title, "Vornath - Falanges Z - TEE");
    EXPECT_EQ(screen.lastBox.style, forms::BoxStyle::WarningYesNo);
  });
  screen.expectBox(informationBox().text, Answer::Ok, [&] { EXPECT_EQ(windows(), ""); });
  run("close frmPrincipal");
  EXPECT_FALSE(frame.isOpen());
}

TEST_F(Shell, TheMenuHoldsWhatCanBeDone) {
  start();
  walk({"menu Opciones => Nuevo Juego, Cargar Juego, Cargar Plantilla",
        "menu NuevoJuego => Cargar Juego, Cargar Plantilla, Guardar Plantilla",
        "load g..../...../...../...../....G 1 => Guardar Juego",
        "close EnJuego => Nuevo Juego, Cargar Juego, Cargar Plantilla"},
       [&] { return menu(); });
  EXPECT_TRUE(frame.mnuDeclararRendicion.Visible);
  EXPECT_FALSE(frame.mnuDeclararRendicion.Enabled);
  EXPECT_FALSE(frame.tmrRed.Enabled);
}

TEST_F(Shell, ASessionThatEndsBehindTheInformationBoxOpensNothing) {
  screen.missingPictures = "tiempo"; // which nobody hears of any more
  screen.expectBox(informationBox().text, Answer::Ok, [&] {
    EXPECT_TRUE(app.forms.sessionMayEnd());
    app.forms.sessionEnded();
  });
  app.start();
  EXPECT_FALSE(frame.isOpen());
}

TEST(Start, AProgramThatDoesNotKnowItsFolderSaysSoAndOpensAndWritesNothing) {
  struct : scripted::Player {
    std::string programFolder() override { return ""; }
  } lost;
  App app(lost);
  lost.expectBox("Falanges no puede empezar en esta carpeta.\r\n\r\nSu nombre, o el de una "
                 "carpeta por encima de ella, no está escrito en UTF-8, o es la raíz del disco. "
                 "Cambie ese nombre o copie el programa a otra carpeta.");
  app.start();
  lost.finish();
  EXPECT_FALSE(app.frame.isOpen());
}

TEST_F(Shell, AFileLeadsOnFromEverywhereButPlayAndClosesTheOptions) {
  start();
  run("layOut bgeci/...../...../...../ICEGB 1");
  screen.expectBox(StartQuestion, Answer::Yes);
  walk({"click btnIniciar, menu Opciones => EnJuego Opciones", "activate EnJuego => EnJuego",
        "save Juego uno => EnJuego", "close EnJuego, menu Opciones => Opciones",
        "layOut b..../...../...../...../G...B 1 => NuevoJuego", "save Plantilla una => NuevoJuego",
        "load g..../...../...../...../G.... 2 => EnJuego",
        "close EnJuego, menu Opciones, load g..../...../...../...../G.... 2 => EnJuego",
        "close EnJuego, menu NuevoJuego, close NuevoJuego => "},
       [&] { return windows(); });
}

TEST_F(Shell, AFileIsAskedForInItsFolderUnderANameWithDateAndTime) {
  start();
  run("layOut g..../...../...../...../....G 1");
  EXPECT_EQ(screen.lastFile.folder, file("plantillas"));
  run("save Plantilla una");
  EXPECT_EQ(screen.lastFile.folder, file("plantillas"));
  EXPECT_EQ(screen.lastFile.fileName, "Plantilla-09-03-2005-08-05-07");
  run("load g..../...../...../...../....G 1");
  EXPECT_EQ(screen.lastFile.folder, file("jguardados"));
  run("save Juego uno");
  EXPECT_EQ(screen.lastFile.folder, file("jguardados"));
  EXPECT_EQ(screen.lastFile.fileName, "JuegoGuardado-09-03-2005-08-05-07");
  EXPECT_EQ(screen.lastFile.filter, "Archivos de texto|*.txt|Todos los archivos|*.*");
}

TEST_F(Shell, EachChangeOfAnOptionReachesItemAndFileAtOnce) {
  configure(";;30;3;\r\nlost;");
  start();
  walk({"menu Opciones => ;;30;3;\r\n;;30;3;", "click chkPermitirBanderas => 1;;30;3;\r\n1;;30;3;",
        "click lblLimiteFilas => 1;1;30;3;\r\n1;1;30;3;",
        "click lblBandera, click chkLimiteFilas => 0;0;30;3;\r\n0;0;30;3;",
        // The file takes what stands in the box, the program the number that it begins with.
        "type txtTiempoRed 4x7 => 0;0;4x7;3;\r\n0;0;4;3;",
        "type txtTiempoRed 3001 => 0;0;300;3;\r\n0;0;300;3;",
        "type txtMovPorTurno 999 => 0;0;300;999;\r\n0;0;300;255;",
        "type txtMovPorTurno 5ñ€ => 0;0;300;5\xF1?;\r\n0;0;300;5;"},
       [&] { return options(); });
}

TEST_F(Shell, TheOptionsOpenWithWhatTheFileHolds) {
  start();
  run("menu Opciones, choose comJugadorActualRed 2, close Opciones");
  configure("0;1;30;5;\r\n");
  run("menu Opciones");
  EXPECT_EQ(options(), "0;1;30;5;\r\n0;1;30;5;");
  EXPECT_EQ(app.opciones.chkPermitirBanderas.Value, 0);
  EXPECT_EQ(app.opciones.chkLimiteFilas.Value, 1);
  EXPECT_EQ(app.opciones.comJugadorActualRed.Text(), "2") << "kept from before, not in the file";
  EXPECT_EQ(principal.JugadorRed, 2);
  app.forms.typed(app.opciones.txtTiempoRed, "12\r\n3"); // pasted
  EXPECT_EQ(options(), "0;1;12;5;\r\n0;1;12;5;") << "a box of one line holds one line";
}

TEST_F(Shell, ANumberOutOfRangeHoldsTheDialogWithOneBox) {
  const std::string seconds = "DEBE colocar un valor entre 5 y 300 segundos de actualización";
  const std::string moves = "DEBE colocar un valor entre 1 y 5 Movimientos por Turno";
  configure("0;0;0;0;\r\n"); // both numbers are out of range
  start();
  run("menu NuevoJuego, menu Opciones, click txtMovPorTurno");
  const auto expectHeld = [&](const std::string& leaving, const std::string& box,
                              const std::string& focus) {
    SCOPED_TRACE(leaving);
    run(leaving, box);
    EXPECT_EQ(app.forms.activeChild(), &app.opciones);
    EXPECT_EQ(screen.focused(), focus);
  };
  for (const std::string leaving :
       {"close Opciones", "activate NuevoJuego", "click chkLimiteFilas", "click btnCargarJuegoRed",
        "click square 1", "type txtTiempoRed 4, Tab", "type txtTiempoRed 301, Tab"})
    expectHeld(leaving, seconds, "txtTiempoRed");
  EXPECT_EQ(principal.OpcLimiteFilas, "0");
  run("type txtTiempoRed 300, Tab, type txtTiempoRed 5, Tab");
  for (const std::string leaving :
       {"type txtMovPorTurno x5, Tab", "type txtMovPorTurno 6, Tab", "close Opciones"})
    expectHeld(leaving, moves, "txtMovPorTurno");
  run("type txtMovPorTurno 5, Tab, type txtMovPorTurno 1, Tab, activate NuevoJuego");
  EXPECT_EQ(windows(), "NuevoJuego");
}

TEST(Coordinates, FollowThePointerOverTheLargestPicture) {
  const auto player = scripted::makePlayer();
  forms::Forms forms(*player);
  Form1 form(forms);
  forms.startUp(form);
  player->run("over Picture1 1500;30");
  EXPECT_EQ(form.Picture1.ToolTipText.get(), "X: 1500 - Y: 30");
  player->run("close Form1");
  EXPECT_FALSE(form.isOpen());
}

} // namespace falanges
