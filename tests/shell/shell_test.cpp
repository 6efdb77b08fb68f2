#include "scripted/game.h"
#include "shell/form1.h"

namespace falanges {

class Shell : public Game {
protected:
  // The configuration file, and what the program holds of it.
  std::string options() {
    return bytesOf(file("VornathFalangesZTEE.cfg")) +
           std::to_string(principal.SegundosActualizacion) + " " +
           std::to_string(principal.MovPorTurno) + " " + principal.OpcPermitirBanderas +
           principal.OpcLimiteFilas;
  }
};

TEST_F(Shell, TheInformationBoxStandsAloneBeforeAndAfterTheRest) {
  configure("1;0;25;4;\r\n");
  screen.expectBox(informationBox().text, Answer::Ok, [&] {
    EXPECT_FALSE(frame.isOpen());
    EXPECT_TRUE(std::filesystem::is_directory(scripted::toPath(file("plantillas"))));
    EXPECT_EQ(options(), "1;0;25;4;\r\n25 4 10");
  });
  app.start();
  run("menu NuevoJuego");
  screen.expectBox(Boxes.at("leave"), Answer::Yes, [&] {
    EXPECT_EQ(screen.lastBox.title, "Vornath - Falanges Z - TEE");
    EXPECT_EQ(screen.lastBox.style, forms::BoxStyle::WarningYesNo);
  });
  screen.expectBox(informationBox().text, Answer::Ok, [&] { EXPECT_EQ(state(), "SSHSH"); });
  EXPECT_TRUE(screen.closeWindow(frame));
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

TEST_F(Shell, AFileLeadsOnFromEverywhereButPlayAndClosesTheOptions) {
  start();
  const auto seen = [&] {
    std::string folder = screen.lastFile.folder.substr(screen.programFolder().size() + 1);
    return state() + " " + folder + " " + screen.lastFile.fileName;
  };
  run("layOut bgeci/...../...../...../ICEGB");
  run("expect start yes, click btnIniciar, menu Opciones, activate EnJuego");
  walk({"save Juego uno => HHSHH EnJuego jguardados JuegoGuardado-09-03-2005-08-05-07",
        "close EnJuego, menu Opciones => SSHSH Opciones jguardados "
        "JuegoGuardado-09-03-2005-08-05-07",
        "layOut b..../...../...../...../G...B => HSHSS NuevoJuego plantillas ",
        "save Plantilla una => HSHSS NuevoJuego plantillas Plantilla-09-03-2005-08-05-07",
        "load g..../...../...../...../G.... 2 => HHSHH EnJuego jguardados ",
        "close EnJuego, menu Opciones, load g..../...../...../...../G.... 2 => HHSHH EnJuego "
        "jguardados ",
        "close EnJuego, menu NuevoJuego, close NuevoJuego => SSHSH jguardados "},
       seen);
  EXPECT_EQ(screen.lastFile.filter, "Archivos de texto|*.txt|Todos los archivos|*.*");
}

TEST_F(Shell, EachChangeOfAnOptionReachesItemAndFileAtOnce) {
  configure(";;30;3;\r\nlost;");
  start();
  walk({"menu Opciones => ;;30;3;\r\n30 3 ", "click chkPermitirBanderas => 1;;30;3;\r\n30 3 1",
        "click lblLimiteFilas => 1;1;30;3;\r\n30 3 11",
        "click lblBandera, click chkLimiteFilas => 0;0;30;3;\r\n30 3 00",
        "type txtTiempoRed 4x7 => 0;0;4x7;3;\r\n4 3 00",
        "type txtTiempoRed 3001 => 0;0;300;3;\r\n300 3 00",
        "type txtMovPorTurno 999 => 0;0;300;999;\r\n300 255 00",
        "type txtMovPorTurno 5ñ€ => 0;0;300;5\xF1?;\r\n300 5 00",
        "choose comJugadorActualRed 2, close Opciones => 0;0;300;5\xF1?;\r\n300 5 00"},
       [&] { return options(); });
  EXPECT_EQ(principal.JugadorRed, 2);
  configure("0;1;30;5;\r\n");
  run("menu Opciones");
  EXPECT_EQ(options(), "0;1;30;5;\r\n30 5 01");
  app.forms.typed(app.opciones.txtTiempoRed, "12\r\n3"); // pasted
  EXPECT_EQ(options(), "0;1;12;5;\r\n12 5 01") << "a box of one line holds one line";
  const frmOpciones& shown = app.opciones;
  EXPECT_EQ(shown.chkPermitirBanderas.Value * 10 + shown.chkLimiteFilas.Value, 1);
  EXPECT_EQ(shown.comJugadorActualRed.Text() + std::to_string(principal.JugadorRed), "22");
}

TEST_F(Shell, ANumberOutOfRangeHoldsTheDialogWithOneBox) {
  configure("0;0;0;0;\r\n");
  start();
  run("menu NuevoJuego, menu Opciones, click txtMovPorTurno");
  // One box each, with the focus where it must be.
  const auto focused = [&] {
    EXPECT_EQ(state(), "HSHSS NuevoJuego Opciones");
    EXPECT_EQ(app.forms.activeChild(), &app.opciones);
    return screen.focused();
  };
  for (const std::string left : {"close Opciones", "activate NuevoJuego", "click chkLimiteFilas",
                                 "click btnCargarJuegoRed", "square 1", "type txtTiempoRed 4, tab",
                                 "type txtTiempoRed 301, tab", "type txtTiempoRed 4.9, tab"})
    walk({"expect seconds, " + left + " => txtTiempoRed"}, focused);
  EXPECT_EQ(principal.OpcLimiteFilas, "0");
  run("type txtTiempoRed 300, tab, type txtTiempoRed 5, tab");
  for (const std::string left :
       {"type txtMovPorTurno x5, tab", "type txtMovPorTurno 6, tab", "close Opciones"})
    walk({"expect moves, " + left + " => txtMovPorTurno"}, focused);
  run("type txtMovPorTurno 5, tab, type txtMovPorTurno 1, tab, activate NuevoJuego");
  EXPECT_EQ(state(), "HSHSS NuevoJuego");
}

TEST(Coordinates, FollowThePointerOverTheLargestPicture) {
  const auto player = scripted::makePlayer();
  forms::Forms forms(*player);
  Form1 form(forms);
  forms.startUp(form);
  player->run("over Picture1 1500;30");
  EXPECT_EQ(form.Picture1.ToolTipText.get(), "X: 1500 - Y: 30");
  EXPECT_TRUE(player->closeWindow(form));
}

} // namespace falanges
