// What the forms layer makes of a person's and the program's actions, on whichever screen the test
// program brings.
#include "scripted/test_windows.h"

namespace scripted {

struct AtADesktop {
  std::unique_ptr<Player> player = makePlayer();
};

class FormsCases : public testing::Test, protected AtADesktop, protected TestProgram {
protected:
  FormsCases() : TestProgram(*player) {
    const auto plain = [this](const std::string& verb, const std::function<void(Element&)>& does) {
      player->verbs[verb] = [=, this](auto& on, auto&) { does(player->get(on)); };
    };
    plain("focus", [](Element& element) { passOver(element.SetFocus()); });
    plain("hide", [](Element& element) { element.Visible = false; });
    plain("disable", [](Element& element) { element.Enabled = false; });
    // Another program's text, dropped or pasted.
    plain("drop", [this](Element& box) { forms.typed(dynamic_cast<TextBox&>(box), "x"); });
    // The first box insists on a value: it tells what is wrong and takes the focus back.
    player->verbs["insist"] = [this](auto&, auto&) {
      for (TextBox* box : {&one.txtA, &one.txtB})
        log.on[box->name() + "_LostFocus"] = [this, box] {
          forms.messageBox("Falta " + box->name());
          EXPECT_TRUE(box->SetFocus());
        };
      player->expectBox("Falta txtA");
    };
  }
  // Both child windows as they were made, the focus on the first one's first element.
  void startAnew() {
    log.on.clear();
    two.close(), one.close(), two.open(), one.open();
    log.take();
  }
  // The events since the last look, and where the focus is: "pic_Left pic_Click @pic".
  std::string seen() {
    const std::string events = log.take();
    return events + (events.empty() ? "@" : " @") + (forms.activeChild() == &two ? "two." : "") +
           player->focused();
  }
};

TEST_F(FormsCases, RaiseTheirEventsInOrderAndLeaveTheFocusWhereItBelongs) {
  one.txtA.MaxLength = 3; // characters
  walk(
      {"click btn => txtA_LostFocus btn_Click @btn",
       "click pic => txtA_LostFocus pic_Left pic_Click @pic",
       "click chk => txtA_LostFocus chk_Click @chk", "click lbl => lbl_Click @txtA",
       "right pic => pic_Right @txtA", "right txtB => txtA_LostFocus @txtB", // its menu could paste
       "menu Hoja => mnuHoja_Click @txtA", "focus btn, Space => txtA_LostFocus btn_Click @btn",
       "click Dos.btn => txtA_LostFocus frmUno_Deactivate txtA_LostFocus btn_Click @two.btn",
       "close Uno => frmUno_QueryUnload frmUno_Unload @two.txtA",
       "drop txtB => txtA_LostFocus txtB_Change @txtB", "hide btn, shortcut btn => btn_Click @txtA",
       "choose com dos, choose com dos => txtA_LostFocus com_Click com_Click @com",
       "type txtA ñáéíó, type txtA => txtA_Change txtA_Change txtA_Change txtA_Change @txtA",
       // The Tab key goes round past what cannot be reached.
       "hide chk, disable com, tab, tab, tab, tab, tab back => txtA_LostFocus txtB_LostFocus "
       "btn_LostFocus pic_LostFocus txtA_LostFocus @pic",
       // A focus put back is no departure and ends the action.
       "insist, click btn => txtA_LostFocus @txtA", "insist, click txtB => txtA_LostFocus @txtA",
       "insist, choose com uno => txtA_LostFocus @txtA",
       "insist, click Dos.pic => txtA_LostFocus @txtA",
       "focus chk, activate Dos, activate Uno => txtA_LostFocus chk_LostFocus frmUno_Deactivate "
       "txtA_LostFocus frmDos_Deactivate @chk"},
      [&](const std::string& script) {
        startAnew();
        player->run(script);
        return seen();
      });
}

TEST_F(FormsCases, TheProgramsOwnActionsRaiseEventsToo) {
  one.txtA.MaxLength = 3; // characters
  EXPECT_EQ((one.txtA.Text = std::string("ñandú")).get(), "ñan");
  for (const int value : {0, 1, 1, 0})
    one.chk.Value = value;
  one.txtB.Text = std::string("7"), one.txtB.Text = std::string("7");
  EXPECT_TRUE(one.com.setText("uno") && one.com.select(0));
  EXPECT_FALSE(one.com.setText("UNO") || one.com.select(-1) || one.com.select(2));
  EXPECT_FALSE(one.lbl.SetFocus() || one.picUnidad.pattern.SetFocus());
  EXPECT_EQ(seen(), "txtA_Change chk_Click chk_Click txtB_Change com_Click com_Click @txtA");
  log.on["mnuHoja_Click"] = [&] {
    EXPECT_EQ(forms.messageBox("¿Sí?", BoxStyle::WarningYesNo), Answer::Yes);
    EXPECT_EQ(forms.fileDialog({false, "Abrir", "", "", ""}), std::nullopt);
  };
  player->expectBox("¿Sí?", Answer::Yes);
  player->expectFile("Abrir", ""); // without a name: as good as cancelled
  player->tick();
  frame.tmr.Enabled = true;
  player->tick(2);
  EXPECT_TRUE(one.com.SetFocus() && one.com.SetFocus());
  player->run("menu Hoja");
  EXPECT_EQ(seen(), "tmr_Tick tmr_Tick txtA_LostFocus mnuHoja_Click @com");
}

TEST_F(FormsCases, AWindowThatClosesBehindABoxOfItsOwnHandlerOpensAsItWasMade) {
  one.chk.Value = 1;
  log.on["btn_Click"] = [&] {
    player->expectBox("¡Alto!", Answer::Ok, [&] { one.close(); });
    forms.messageBox("¡Alto!");
    one.txtB.Text = std::string("nadie la ve");
    one.open();
  };
  log.on["frmUno_Load"] = [&] { one.open(); }; // opening already
  player->run("click btn");
  EXPECT_EQ(seen(), "chk_Click txtA_LostFocus btn_Click frmUno_QueryUnload frmUno_Unload "
                    "txtB_Change frmUno_Load txtA_LostFocus frmDos_Deactivate @txtA");
  EXPECT_TRUE(one.chk.Value == 0 && one.txtB.Text.get().empty() && one.com.items().size() == 2);
}

// A screen may still report what was under way when a box opened.
TEST_F(FormsCases, WhatAPersonCannotReachHearsNothing) {
  const auto onElements = [&] {
    forms.pressed(one.pic, MouseButton::Right);
    for (Element* element : one.elements())
      forms.clicked(*element), passOver(forms.focusMoved(*element));
    forms.typed(one.txtB, "x");
    forms.chosen(one.com, 0);
    forms.clicked(frame.mnuHoja);
  };
  const auto onAll = [&] {
    onElements();
    forms.shortcutPressed(one.btn);
    forms.tabbed(one, true);
    forms.closeRequested(one), forms.closeRequested(frame);
    EXPECT_FALSE(forms.activated(two) || forms.keyPressed(one, Key::Space));
  };
  for (Property<bool> Element::*what : {&Element::Visible, &Element::Enabled})
    for (const bool can : {false, true}) {
      for (Element* element : one.elements())
        element->*what = can;
      frame.mnuHoja.*what = can;
      can ? void() : onElements();
    }
  player->expectBox("Hola", Answer::Ok, onAll);
  forms.messageBox("Hola");
  frame.tmr.Enabled = true;
  player->expectBox("frmPropia", Answer::Ok, [&] {
    onAll();
    player->tick();
    player->run("click Propia.btn, close Propia");
  });
  own.showModal();
  EXPECT_EQ(log.take(), "frmPropia_Load tmr_Tick txtA_LostFocus btn_Click frmPropia_QueryUnload "
                        "frmPropia_Unload");
}

TEST_F(FormsCases, TheFrameAsksAllItsChildrenBeforeAnyCloses) {
  for (TestWindow* refuses : std::initializer_list<TestWindow*>{&frame, &one}) {
    refuses->letClose = false;
    EXPECT_FALSE(forms.sessionMayEnd() || player->closeWindow(frame));
    EXPECT_TRUE(two.isOpen());
    refuses->letClose = true;
  }
  EXPECT_TRUE(forms.sessionMayEnd() && one.isOpen());
  log.take();
  // A second wish to close, while the question stands, changes nothing.
  log.on["frmMarco_QueryUnload"] = [&] { EXPECT_FALSE(frame.close() || forms.sessionMayEnd()); };
  EXPECT_TRUE(player->closeWindow(frame));
  EXPECT_EQ(log.take(), "frmMarco_QueryUnload frmDos_QueryUnload frmUno_QueryUnload "
                        "frmDos_Unload frmUno_Unload frmMarco_Unload");
  EXPECT_TRUE(forms.openWindows().empty());
}

TEST_F(FormsCases, TheKeyboardsCursorDoesWhatThePointerDoes) {
  GridPicture& board = one.pic;
  board.Left = 3000;
  board.Width = board.Height = 3 * 600;
  board.AccessibleName = std::string("Tablero");
  board.setGrid(3, 600);
  board.nameOfEmptySquare = [](int n) { return "vacío " + std::to_string(n); };
  EXPECT_TRUE(one.picUnidad.Load(5));
  Picture& unit = *one.picUnidad(5);
  unit.Visible = true;
  unit.Width = unit.Height = 230;
  unit.Left = board.Left + 600 + 60; // the middle of the square stays free
  unit.Top = board.Top + 600 + 60;
  unit.AccessibleName = std::string("Unidad");
  unit.ZOrder();
  board.LostFocus = {};
  for (Picture* picture : {&unit, static_cast<Picture*>(&board)})
    picture->MouseMove = [this](float X, float Y) {
      log.add(std::to_string(static_cast<int>(X)) + "," + std::to_string(static_cast<int>(Y)));
    };
  one.picUnidad.MouseDown = [&](int i, MouseButton button) {
    log.add(button == MouseButton::Left ? "unit_Left" : "unit_Right");
    if (button == MouseButton::Right)
      passOver(one.picUnidad.Unload(i));
  };
  EXPECT_TRUE(board.SetFocus());
  log.take();
  const auto after = [&](const std::string& keys) {
    player->run(keys);
    return seen() + " " + std::to_string(board.cursorSquare()) + " " + board.spokenName();
  };
  walk({"Enter => @pic 0 Tablero", // no square is pointed at yet
        "Right, Left, Down => 300,1500 300,1500 300,1500 @pic 7 vacío 7",
        "Up, Space => 300,900 300,900 pic_Left pic_Click @pic 4 vacío 4",
        "Right => 240,240 @pic 5 Unidad",
        "Enter => 240,240 unit_Left picUnidad_Click5 @picUnidad(5) 5 Unidad",
        "Right, Left => 1500,900 240,240 @pic 5 Unidad",
        "Enter, Delete => 240,240 unit_Left picUnidad_Click5 240,240 unit_Right @pic 5 vacío 5",
        "Up, Up => 900,300 900,300 @pic 2 vacío 2",
        "Right, Right => 1500,300 1500,300 @pic 3 vacío 3"},
       after);
  // The mouse hides it; the next arrow key brings it back where the mouse last pointed.
  player->run("click pic 900;1500"); // square 8
  log.take();
  EXPECT_EQ(after(""), "@pic 0 Tablero");
  player->run("over pic 300;900"); // square 4
  log.take();
  walk({"Enter => @pic 0 Tablero", "Up => 300,900 @pic 4 vacío 4", "Up => 300,300 @pic 1 vacío 1"},
       after);
  board.setGrid(3, 600);
  EXPECT_EQ(board.cursorSquare(), 0) << "another board has none";
}

} // namespace scripted
