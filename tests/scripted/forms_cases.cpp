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
    two.close();
    one.close();
    two.open();
    one.open();
    log.take();
  }
  // The events since the last look, and in brackets where the focus is: "pic_Left pic_Click [pic]".
  std::string seen() {
    const std::string events = log.take();
    return events + (events.empty() ? "[" : " [") + (forms.activeChild() == &two ? "two." : "") +
           player->focused() + "]";
  }
};

TEST_F(FormsCases, RaiseTheirEventsInOrderAndLeaveTheFocusWhereItBelongs) {
  one.txtA.MaxLength = 3; // characters
  walk({"click btn => txtA_LostFocus btn_Click [btn]",
        "click pic => txtA_LostFocus pic_Left pic_Click [pic]",
        "click chk => txtA_LostFocus chk_Click [chk]", "click lbl => lbl_Click [txtA]",
        "right pic => pic_Right [txtA]", "right txtB => txtA_LostFocus [txtB]",
        "menu Hoja => mnuHoja_Click [txtA]", "focus btn, Space => txtA_LostFocus btn_Click [btn]",
        "click Dos.btn => txtA_LostFocus frmUno_Deactivate txtA_LostFocus btn_Click [two.btn]",
        "close Uno => frmUno_QueryUnload frmUno_Unload [two.txtA]",
        "drop txtB => txtA_LostFocus txtB_Change [txtB]",
        "hide btn, Ctrl+Shift+D => btn_Click [txtA]",
        "choose com dos, choose com dos => txtA_LostFocus com_Click com_Click [com]",
        "type txtA ñáéíó, type txtA => txtA_Change txtA_Change [txtA]",
        // The Tab key goes round past what cannot be reached.
        "hide chk, disable com, Tab, Tab, Tab => txtA_LostFocus txtB_LostFocus btn_LostFocus [pic]",
        "focus pic, Tab, Shift+Tab => txtA_LostFocus pic_LostFocus txtA_LostFocus [pic]",
        // A focus put back is no departure and ends the action.
        "insist, click btn => txtA_LostFocus [txtA]", "insist, click txtB => txtA_LostFocus [txtA]",
        "insist, choose com uno => txtA_LostFocus [txtA]",
        "insist, click Dos.pic => txtA_LostFocus [txtA]"},
       [&](const std::string& script) {
         startAnew();
         player->run(script);
         return seen();
       });
  startAnew();
  player->run("focus chk, activate Dos, activate Uno");
  EXPECT_EQ(player->focused(), "chk") << "each window keeps its own";
}

TEST_F(FormsCases, TheProgramsOwnActionsRaiseEventsToo) {
  one.txtA.MaxLength = 3; // characters
  one.txtA.Text = std::string("ñandú");
  EXPECT_EQ(one.txtA.Text, "ñan");
  EXPECT_EQ(log.take(), "txtA_Change");
  for (const int value : {0, 1, 1, 0})
    one.chk.Value = value;
  EXPECT_EQ(log.take(), "chk_Click chk_Click");
  EXPECT_TRUE(one.com.setText("uno"));
  EXPECT_TRUE(one.com.select(0)) << "again";
  EXPECT_EQ(log.take(), "com_Click com_Click");
  EXPECT_FALSE(one.com.setText("UNO"));
  EXPECT_FALSE(one.com.select(-1));
  EXPECT_FALSE(one.com.select(2));
  EXPECT_FALSE(one.lbl.SetFocus());
  EXPECT_EQ(seen(), "[txtA]");
}

TEST_F(FormsCases, AWindowThatClosesBehindABoxOfItsOwnHandlerOpensAsItWasMade) {
  one.chk.Value = 1;
  log.take();
  log.on["btn_Click"] = [&] {
    player->expectBox("¡Alto!", Answer::Ok, [&] { one.close(); });
    forms.messageBox("¡Alto!");
    one.txtB.Text = std::string("nadie la ve");
    one.open();
  };
  log.on["frmUno_Load"] = [&] { one.open(); }; // opening already
  player->run("click btn");
  EXPECT_EQ(seen(), "txtA_LostFocus btn_Click frmUno_QueryUnload frmUno_Unload txtB_Change "
                    "frmUno_Load txtA_LostFocus frmDos_Deactivate [txtA]");
  EXPECT_EQ(one.chk.Value, 0);
  EXPECT_EQ(one.txtB.Text, "");
  EXPECT_EQ(one.com.items().size(), 2U);
}

// A screen may still report what was under way when a box opened.
TEST_F(FormsCases, NothingHappensBehindABox) {
  player->expectBox("Hola", Answer::Ok, [&] {
    forms.pressed(one.pic, MouseButton::Right);
    for (Element* element : one.elements()) {
      forms.clicked(*element);
      passOver(forms.focusMoved(*element));
    }
    forms.typed(one.txtB, "x");
    forms.chosen(one.com, 0);
    forms.clicked(frame.mnuHoja);
    forms.shortcutPressed(one.btn);
    forms.tabbed(one, true);
    forms.closeRequested(one);
    forms.closeRequested(frame);
    EXPECT_FALSE(forms.activated(two));
    EXPECT_FALSE(forms.keyPressed(one, Key::Space));
  });
  forms.messageBox("Hola");
  EXPECT_EQ(log.take(), "");
}

TEST_F(FormsCases, AModalWindowHoldsTheOthersAndLetsTheTimerGoOn) {
  frame.tmr.Enabled = true;
  player->expectBox("frmPropia", Answer::Ok, [&] {
    forms.clicked(one.btn);
    forms.closeRequested(frame);
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
    player->run("close Marco");
    EXPECT_FALSE(forms.sessionMayEnd());
    EXPECT_EQ(forms.openWindows().size(), 3U);
    refuses->letClose = true;
  }
  EXPECT_TRUE(forms.sessionMayEnd());
  EXPECT_TRUE(one.isOpen()) << "another program may still hold the session up";
  log.take();
  // A second wish to close, while the question stands, changes nothing.
  log.on["frmMarco_QueryUnload"] = [&] {
    EXPECT_FALSE(frame.close());
    EXPECT_FALSE(forms.sessionMayEnd());
  };
  player->run("close Marco");
  EXPECT_EQ(log.take(), "frmMarco_QueryUnload frmDos_QueryUnload frmUno_QueryUnload "
                        "frmDos_Unload frmUno_Unload frmMarco_Unload");
  EXPECT_TRUE(forms.openWindows().empty());
}

// A grid of 3 x 3 squares with a small picture on the fifth.
class GridCursor : public FormsCases {
protected:
  GridCursor() {
    board.Left = 3000;
    board.Width = board.Height = 3 * 600;
    board.AccessibleName = std::string("Tablero");
    board.setGrid(3, 600);
    board.nameOfEmptySquare = [](int n) { return "vacío " + std::to_string(n); };
    board.LostFocus = {};
    EXPECT_TRUE(one.picUnidad.Load(5));
    Picture& unit = *one.picUnidad(5);
    unit.Visible = true;
    unit.Width = unit.Height = 230;
    unit.Left = board.Left + 600 + 60; // the middle of the square stays free
    unit.Top = board.Top + 600 + 60;
    unit.AccessibleName = std::string("Unidad");
    unit.ZOrder();
    for (Picture* picture : {&unit, static_cast<Picture*>(&board)})
      picture->MouseMove = [=, this](float X, float Y) {
        const int x = static_cast<int>(X) + picture->Left - board.Left;
        const int y = static_cast<int>(Y) + picture->Top - board.Top;
        log.add("over" + std::to_string(x / 600 + y / 600 * 3 + 1));
        EXPECT_TRUE(x % 600 == 300 && y % 600 == 300) << "the middle";
      };
    one.picUnidad.MouseDown = [this](int Index, MouseButton button) {
      log.add(button == MouseButton::Left ? "unit_Left" : "unit_Right");
      if (button == MouseButton::Right)
        passOver(one.picUnidad.Unload(Index));
    };
    EXPECT_TRUE(board.SetFocus());
    log.take();
  }
  // What happens, then what is called out; a mark stands on the square if any does.
  void walk(const std::vector<std::string>& rows) {
    scripted::walk(rows, [this](const std::string& keys) {
      player->run(keys);
      const std::string mark =
          board.cursorSquare() == 0 ? "" : ", mark on " + std::to_string(board.cursorSquare());
      return seen() + " " + board.spokenName() + mark;
    });
  }

  GridPicture& board = one.pic;
};

TEST_F(GridCursor, DoesWhatThePointerDoes) {
  walk({"Enter => [pic] Tablero", // no square is pointed at yet
        "Right, Left, Down => over7 over7 over7 [pic] vacío 7, mark on 7",
        "Up, Space => over4 over4 pic_Left pic_Click [pic] vacío 4, mark on 4",
        "Right => over5 [pic] Unidad, mark on 5",
        "Enter => over5 unit_Left picUnidad_Click5 [picUnidad(5)] Unidad, mark on 5",
        "Right, Left => over6 over5 [pic] Unidad, mark on 5",
        "Delete => over5 unit_Right [pic] vacío 5, mark on 5",
        "Up, Up => over2 over2 [pic] vacío 2, mark on 2",
        "Right, Right => over3 over3 [pic] vacío 3, mark on 3"});
}

TEST_F(GridCursor, HidesFromTheMouseAndComesBackWhereThatPointedLast) {
  player->run("Up, click pic 900;1500"); // the middle of square 8
  log.take();
  walk({" => [pic] Tablero", "Enter => [pic] Tablero"});
  player->run("over pic 300;900"); // of square 4
  log.take();
  walk({"Up => over4 [pic] vacío 4, mark on 4", "Up => over1 [pic] vacío 1, mark on 1"});
  board.setGrid(3, 600);
  EXPECT_EQ(board.cursorSquare(), 0) << "another board has none";
}

} // namespace scripted
