// What the forms layer does with a person's actions, on whichever screen the test program brings.
#include <gtest/gtest.h>

#include "scripted/player.h"
#include "scripted/test_windows.h"

namespace scripted {

using namespace forms;

class FormsCases : public testing::Test {
protected:
  // A box that insists on a value: it tells what is wrong and takes the focus back.
  void insist(TextBox& box) {
    log.on[box.name() + "_LostFocus"] = [this, &box] {
      if (!box.Text.get().empty())
        return;
      program.forms.messageBox("Falta " + box.name());
      EXPECT_TRUE(box.SetFocus());
    };
  }

  std::unique_ptr<Player> player = makePlayer();
  TestProgram program{*player};
  Log& log = program.log;
  FrameWindow& frame = program.frame;
  TestWindow& one = program.one;
  TestWindow& two = program.two;
  TestWindow& own = program.own;
};

TEST_F(FormsCases, EachActionRaisesItsEventsInOrder) {
  log.on["btn_Click"] = [&] { program.forms.messageBox("Hola"); };
  two.close();
  two.open();
  one.close();
  one.open();
  const struct {
    const char* action;
    std::function<void()> act;
    std::string events;
  } table[] = {
      {"button", [&] { player->expectBox("Hola"), player->click("frmUno.btn"); },
       "txtA_LostFocus btn_Click"},
      {"developer's key of a hidden button",
       [&] {
         one.btn.Visible = false;
         player->expectBox("Hola"), player->shortcut("frmUno.btn");
       },
       "btn_Click"},
      {"picture", [&] { player->click("frmUno.pic"); }, "txtA_LostFocus pic_Left pic_Click"},
      {"other button of the mouse", [&] { player->rightClick("frmUno.pic"); }, "pic_Right"},
      {"label", [&] { player->click("frmUno.lbl"); }, "lbl_Click"},
      {"check box", [&] { player->click("frmUno.chk"); }, "txtA_LostFocus chk_Click"},
      {"check box again", [&] { player->click("frmUno.chk"); }, "txtA_LostFocus chk_Click"},
      {"item", [&] { player->choose("frmUno.com", "dos"); }, "txtA_LostFocus com_Click"},
      {"the same item", [&] { player->choose("frmUno.com", "dos"); }, "txtA_LostFocus com_Click"},
      {"keys", [&] { player->type("frmUno.txtA", "año"); }, "txtA_Change txtA_Change txtA_Change"},
      {"deletion", [&] { player->type("frmUno.txtA", ""); }, "txtA_Change"},
      {"Tab", [&] { player->tab(); }, "txtA_LostFocus"},
      {"Tab backwards", [&] { player->tab(false); }, "txtA_LostFocus"},
      {"menu", [&] { player->menu("mnuHoja"); }, "mnuHoja_Click"},
      {"time", [&] { frame.tmr.Enabled = true, player->tick(2), frame.tmr.Enabled = false; },
       "tmr_Tick tmr_Tick"},
      {"another window", [&] { EXPECT_TRUE(player->activate("frmDos")); },
       "txtA_LostFocus frmUno_Deactivate"},
      {"the close box", [&] { EXPECT_TRUE(player->closeWindow("frmUno")); },
       "frmUno_QueryUnload frmUno_Unload"},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.action);
    EXPECT_TRUE(one.txtA.SetFocus());
    log.take();
    row.act();
    EXPECT_EQ(log.take(), row.events);
  }
}

TEST_F(FormsCases, TheTabKeyGoesRoundInTabOrderPastWhatCannotBeReached) {
  one.chk.Visible = false;
  one.com.Enabled = false;
  std::string way;
  for (int i = 0; i < 4; ++i)
    player->tab(), way += player->focused() + " ";
  player->tab(false);
  EXPECT_EQ(way + player->focused(), "txtB btn pic txtA pic");
  // From an element outside the order to either end.
  for (const auto& [forwards, end] : {std::pair(true, "txtA"), std::pair(false, "pic")}) {
    passOver(one.picUnidad.Load(1));
    one.picUnidad(1)->Visible = true;
    EXPECT_TRUE(one.picUnidad(1)->SetFocus());
    player->tab(forwards);
    EXPECT_EQ(player->focused(), end);
  }
}

TEST_F(FormsCases, ABoxLeavesTheFocusAndTicksGoOnBehindIt) {
  frame.tmr.Enabled = true;
  one.com.LostFocus = [] { ADD_FAILURE() << "nothing has taken the focus"; };
  EXPECT_TRUE(one.com.SetFocus());
  log.on["mnuHoja_Click"] = [&] {
    EXPECT_EQ(program.forms.messageBox("¿Sí?", BoxStyle::WarningYesNo), Answer::Yes);
    log.add("answered");
  };
  player->expectBox("¿Sí?", Answer::Yes, [&] {
    player->tick(2);
    // A screen may still report what was under way when the box opened.
    program.forms.closeRequested(one);
    EXPECT_FALSE(program.forms.pressed(one.pic, MouseButton::Left));
    EXPECT_FALSE(program.forms.activated(two));
    EXPECT_FALSE(program.forms.focusMoved(one.txtB));
    program.forms.clicked(one.btn);
    program.forms.shortcutPressed(one.btn);
    program.forms.moved(one.pic, 0, 0);
    program.forms.typed(one.txtA, "x");
    program.forms.chosen(one.com, 0);
    program.forms.menuChosen(frame.mnuHoja);
    program.forms.tabbed(one, true);
  });
  log.take();
  player->menu("mnuHoja");
  EXPECT_EQ(log.take(), "mnuHoja_Click tmr_Tick tmr_Tick answered");
  EXPECT_EQ(player->focused(), "com");
}

TEST_F(FormsCases, AFocusPutBackIsNoDepartureAndEndsTheAction) {
  insist(one.txtA);
  insist(one.txtB);
  const std::function<void()> departures[] = {
      [&] { EXPECT_FALSE(player->click("frmUno.btn")); },
      [&] { EXPECT_FALSE(player->click("frmUno.txtB")); },
      [&] { player->choose("frmUno.com", "uno"); },
      [&] { player->tab(); },
      [&] { EXPECT_FALSE(player->activate("frmDos")); },
      [&] { EXPECT_FALSE(player->click("frmDos.pic")); },
  };
  for (const auto& depart : departures) {
    player->expectBox("Falta txtA");
    depart();
    EXPECT_EQ(log.take(), "txtA_LostFocus");
    EXPECT_EQ(player->focused(), "txtA");
    EXPECT_EQ(program.forms.activeChild(), &one);
  }
  player->type("frmUno.txtA", "1");
  EXPECT_TRUE(player->click("frmUno.btn"));
  EXPECT_EQ(log.take(), "txtA_Change txtA_LostFocus btn_Click");
}

TEST_F(FormsCases, AnotherChildTakesOverAndEachKeepsItsFocus) {
  EXPECT_TRUE(one.chk.SetFocus());
  log.take();
  EXPECT_TRUE(player->click("frmDos.btn"));
  EXPECT_EQ(log.take(), "chk_LostFocus frmUno_Deactivate txtA_LostFocus btn_Click");
  EXPECT_EQ(player->focused(), "btn");
  EXPECT_TRUE(player->activate("frmUno"));
  EXPECT_EQ(log.take(), "btn_LostFocus frmDos_Deactivate");
  EXPECT_EQ(player->focused(), "chk");
  EXPECT_TRUE(player->closeWindow("frmUno"));
  EXPECT_EQ(log.take(), "frmUno_QueryUnload frmUno_Unload");
  EXPECT_EQ(program.forms.activeChild(), &two);
  EXPECT_EQ(player->focused(), "btn");
}

TEST_F(FormsCases, AHandlerOutlivesItsWindow) {
  one.variable = 7;
  one.lbl.Caption = std::string("vieja");
  ASSERT_TRUE(one.picUnidad.Load(3));
  const auto handlerOfOne = [&] {
    if (!one.isOpen())
      return;
    two.close();
    two.open(); // takes over: the first window closes under its own handler
    EXPECT_FALSE(one.isOpen());
    EXPECT_EQ(one.picUnidad(3), nullptr);
    one.lbl.Caption = std::string("nadie la ve");
    one.open();
    one.txtB.Text = std::string("x");
    log.add("end");
  };
  log.on["btn_Click"] = handlerOfOne;
  log.on["frmUno_Deactivate"] = [&] { one.close(); };
  player->click("frmUno.btn");
  EXPECT_EQ(log.take(), "txtA_LostFocus btn_Click frmDos_QueryUnload frmDos_Unload frmDos_Load "
                        "btn_LostFocus frmUno_Deactivate frmUno_QueryUnload frmUno_Unload "
                        "frmUno_Load txtA_LostFocus frmDos_Deactivate txtB_Change end");
  EXPECT_EQ(one.lbl.Caption.get(), "") << "an opening starts from what the window was made with";
  EXPECT_EQ(one.variable, 7);
  EXPECT_EQ(one.picUnidad.count(), 1);
  EXPECT_EQ(one.com.items().size(), 2u);
  player->click("frmUno.chk");
  EXPECT_EQ(log.take(), "txtA_LostFocus chk_Click");
}

TEST_F(FormsCases, AnElementMayVanishInItsOwnEvent) {
  for (const int i : {1, 2}) {
    ASSERT_TRUE(one.picUnidad.Load(i));
    one.picUnidad(i)->Left = 1500 * i;
    one.picUnidad(i)->Visible = true;
  }
  log.on["picUnidad_Click1"] = [&] { passOver(one.picUnidad.Unload(1)); };
  log.on["picUnidad_Click2"] = [&] { one.picUnidad(2)->Visible = false; };
  one.pic.LostFocus = {};
  EXPECT_TRUE(player->click("frmUno.picUnidad(1)"));
  EXPECT_EQ(log.take(), "txtA_LostFocus picUnidad_Click1");
  EXPECT_EQ(player->focused(), "pic") << "the others would act when the focus leaves them";
  EXPECT_TRUE(player->click("frmUno.picUnidad(2)"));
  EXPECT_EQ(log.take(), "picUnidad_Click2");
  EXPECT_TRUE(player->click("frmUno.txtA"));
  EXPECT_EQ(log.take(), "");
  // Also in the event that hands it the focus.
  log.on["txtA_LostFocus"] = [&] { one.pic.Enabled = false; };
  EXPECT_FALSE(player->click("frmUno.pic"));
  EXPECT_EQ(log.take(), "txtA_LostFocus");
}

TEST_F(FormsCases, AModalWindowHoldsItsCallerAndBlocksTheOthers) {
  frame.tmr.Enabled = true;
  log.on["btn_Click"] = [&] {
    if (own.isOpen())
      return;
    own.showModal();
    EXPECT_FALSE(own.isOpen());
    log.add("end");
  };
  player->expectModal("frmPropia", [&] {
    program.forms.clicked(one.pic);
    program.forms.menuChosen(frame.mnuHoja);
    program.forms.closeRequested(frame);
    player->tick();
    player->click("frmPropia.btn");
    player->closeWindow("frmPropia");
  });
  player->click("frmUno.btn");
  EXPECT_EQ(log.take(), "txtA_LostFocus btn_Click frmPropia_Load tmr_Tick txtA_LostFocus btn_Click "
                        "frmPropia_QueryUnload frmPropia_Unload end");
  player->click("frmUno.pic");
  EXPECT_EQ(log.take(), "btn_LostFocus pic_Left pic_Click");
}

TEST_F(FormsCases, TheFrameAsksAllItsChildrenBeforeAnyCloses) {
  for (LoggingWindow* refuses :
       {static_cast<LoggingWindow*>(&frame), static_cast<LoggingWindow*>(&one)}) {
    refuses->letClose = false;
    EXPECT_FALSE(player->closeWindow("frmMarco"));
    EXPECT_TRUE(two.isOpen());
    refuses->letClose = true;
  }
  log.take();
  // A second wish to close, from a tick behind the question, changes nothing.
  log.on["frmMarco_QueryUnload"] = [&] {
    program.forms.messageBox("¿Salir?", BoxStyle::WarningYesNo);
  };
  log.on["tmr_Tick"] = [&] { EXPECT_FALSE(frame.close()); };
  frame.tmr.Enabled = true;
  player->expectBox("¿Salir?", Answer::Yes, [&] { player->tick(); });
  EXPECT_TRUE(player->closeWindow("frmMarco"));
  EXPECT_EQ(log.take(), "frmMarco_QueryUnload tmr_Tick frmDos_QueryUnload frmUno_QueryUnload "
                        "frmDos_Unload frmUno_Unload frmMarco_Unload");
  EXPECT_TRUE(program.forms.openWindows().empty());
}

TEST_F(FormsCases, TheKeyboardsCursorDoesWhatThePointerDoes) {
  Picture& board = one.pic;
  const auto place = [](const char* name, float X, float Y) {
    return name + std::to_string(static_cast<int>(X)) + "," + std::to_string(static_cast<int>(Y));
  };
  board.Left = 3000;
  board.Width = board.Height = 3 * 600;
  board.AccessibleName = std::string("Tablero");
  board.grid.setGrid(3, 600);
  board.grid.nameOfEmptySquare = [](int n) { return "vacío " + std::to_string(n); };
  ASSERT_TRUE(one.picUnidad.Load(5));
  Picture& unit = *one.picUnidad(5);
  unit.Width = unit.Height = 230;
  unit.Left = board.Left + 600 + 60; // the middle of the square stays free
  unit.Top = board.Top + 600 + 60;
  unit.AccessibleName = std::string("Unidad");
  unit.Visible = true;
  unit.ZOrder();
  board.LostFocus = {};
  board.MouseMove = [&](float X, float Y) { log.add(place("", X, Y)); };
  one.picUnidad.MouseDown = [&](int i, MouseButton button) {
    log.add(button == MouseButton::Left ? "unit_Left" : "unit_Right");
    if (button == MouseButton::Right)
      passOver(one.picUnidad.Unload(i));
  };
  EXPECT_TRUE(board.SetFocus());
  log.take();
  EXPECT_TRUE(player->key(Key::Enter));
  EXPECT_EQ(log.take() + board.AccessibleName.get(), "Tablero") << "no square is pointed at yet";
  const struct {
    Key key;
    int square;
    const char* name;
    const char* events;
  } table[] = {
      {Key::Right, 7, "vacío 7", "300,1500"},
      {Key::Left, 7, "vacío 7", "300,1500"},
      {Key::Down, 7, "vacío 7", "300,1500"},
      {Key::Up, 4, "vacío 4", "300,900"},
      {Key::Space, 4, "vacío 4", "300,900 pic_Left pic_Click"},
      {Key::Right, 5, "Unidad", ""},
      {Key::Enter, 5, "Unidad", "unit_Left picUnidad_Click5"},
      {Key::Right, 6, "vacío 6", "1500,900"},
      {Key::Left, 5, "Unidad", ""},
      {Key::Delete, 5, "vacío 5", "unit_Right"},
      {Key::Up, 2, "vacío 2", "900,300"},
      {Key::Up, 2, "vacío 2", "900,300"},
      {Key::Right, 3, "vacío 3", "1500,300"},
      {Key::Right, 3, "vacío 3", "1500,300"},
  };
  for (const auto& row : table) {
    EXPECT_TRUE(player->key(row.key));
    EXPECT_EQ(board.grid.square(), row.square);
    EXPECT_EQ(board.AccessibleName.get(), row.name);
    EXPECT_EQ(log.take(), row.events) << row.square;
    EXPECT_EQ(player->focused(), row.key == Key::Enter ? "picUnidad(5)" : "pic") << row.square;
  }
  EXPECT_FALSE(player->key(Key::Escape));
  EXPECT_TRUE(one.btn.SetFocus());
  EXPECT_TRUE(player->key(Key::Space));
  EXPECT_EQ(log.take(), "btn_Click");
}

TEST_F(FormsCases, ATextBoxHoldsSoManyCharacters) {
  one.txtA.MaxLength = 3;
  player->type("frmUno.txtA", "ñáéíó");
  EXPECT_EQ(one.txtA.Text.get(), "ñáé");
  EXPECT_EQ(log.take(), "txtA_Change txtA_Change txtA_Change");
}

} // namespace scripted
