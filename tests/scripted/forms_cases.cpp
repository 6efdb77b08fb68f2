// What the forms layer makes of a person's and the program's actions, on whichever screen the test
// program brings.
#include <gtest/gtest.h>

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
      layer.messageBox("Falta " + box.name());
      EXPECT_TRUE(box.SetFocus());
    };
  }
  // Unit i stands beside the column of the other elements.
  Picture& loadUnit(int i) {
    EXPECT_TRUE(one.picUnidad.Load(i));
    one.picUnidad(i)->Left = 1500 * i;
    one.picUnidad(i)->Visible = true;
    return *one.picUnidad(i);
  }

  std::unique_ptr<Player> player = makePlayer();
  TestProgram program{*player};
  Log& log = program.log;
  Forms& layer = program.forms;
  FrameWindow& frame = program.frame;
  TestWindow& one = program.one;
  TestWindow& two = program.two;
  TestWindow& own = program.own;
};

TEST_F(FormsCases, EachActionRaisesItsEventsInOrder) {
  two.close(), two.open(), one.close(), one.open();
  one.txtA.MaxLength = 3; // characters
  const std::pair<std::string, std::function<void()>> table[] = {
      {"txtA_LostFocus btn_Click", [&] { player->click(one.btn); }},
      {"btn_Click", [&] { one.btn.Visible = false, player->shortcut(one.btn); }},
      {"txtA_LostFocus pic_Left pic_Click", [&] { player->click(one.pic); }},
      {"pic_Right", [&] { player->rightClick(one.pic); }},
      {"lbl_Click", [&] { player->click(one.lbl); }},
      {"txtA_LostFocus chk_Click", [&] { player->click(one.chk); }},
      {"txtA_LostFocus com_Click", [&] { player->choose(one.com, 1); }},
      {"txtA_LostFocus com_Click", [&] { player->choose(one.com, 1); }},
      {"txtA_Change txtA_Change txtA_Change", [&] { player->type(one.txtA, "ñáéíó"); }},
      {"txtA_Change", [&] { player->type(one.txtA, ""); }},
      {"txtA_LostFocus", [&] { player->tab(); }},
      {"txtA_LostFocus", [&] { player->tab(false); }},
      {"mnuHoja_Click", [&] { player->menu(frame.mnuHoja); }},
      {"", [&] { player->tick(); }},
      {"tmr_Tick tmr_Tick", [&] { frame.tmr.Enabled = true, player->tick(2); }},
      // The program's own.
      {"txtA_Change",
       [&] {
         one.txtA.Text = std::string("ñandú");
         EXPECT_EQ(one.txtA.Text.get(), "ñan");
       }},
      {"chk_Click", [&] { one.chk.Value = 0; }},
      {"", [&] { one.chk.Value = 0; }},
      {"txtB_Change", [&] { one.txtB.Text = std::string("7"); }},
      {"", [&] { one.txtB.Text = std::string("7"); }},
      {"com_Click com_Click", [&] { EXPECT_TRUE(one.com.setText("uno") && one.com.select(0)); }},
      {"",
       [&] { EXPECT_FALSE(one.com.setText("UNO") || one.com.select(-1) || one.com.select(2)); }},
      {"txtA_LostFocus", [&] { EXPECT_TRUE(one.txtB.SetFocus() && one.txtB.SetFocus()); }},
      {"", [&] { EXPECT_FALSE(one.lbl.SetFocus() || one.picUnidad.pattern.SetFocus()); }},
      {"txtA_LostFocus frmUno_Deactivate", [&] { EXPECT_TRUE(player->activate(two)); }},
      {"frmUno_QueryUnload frmUno_Unload", [&] { EXPECT_TRUE(player->closeWindow(one)); }},
  };
  for (const auto& [events, act] : table) {
    EXPECT_TRUE(one.txtA.SetFocus());
    log.take();
    act();
    EXPECT_EQ(log.take(), events);
  }
}

// A screen may still report what was under way when a box opened.
TEST_F(FormsCases, WhatAPersonCannotReachHearsNothing) {
  const auto onElements = [&] {
    layer.pressed(one.pic, MouseButton::Right);
    layer.moved(one.pic, 1, 1);
    for (Element* element : std::initializer_list<Element*>{&one.pic, &one.chk, &one.lbl})
      layer.clicked(*element);
    layer.typed(one.txtB, "x");
    layer.chosen(one.com, 0);
    layer.focusMoved(one.txtB);
    layer.menuChosen(frame.mnuHoja);
  };
  const auto onWindows = [&] {
    layer.shortcutPressed(one.btn);
    layer.tabbed(one, true);
    layer.closeRequested(one), layer.closeRequested(frame);
    EXPECT_FALSE(layer.activated(two));
    EXPECT_FALSE(layer.keyPressed(one, Key::Space));
  };
  one.pic.MouseMove = [&](float, float) { log.add("pic_MouseMove"); };
  Element* const all[] = {&one.pic, &one.chk, &one.lbl, &one.txtB, &one.com, &frame.mnuHoja};
  for (Property<bool> Element::*what : {&Element::Visible, &Element::Enabled}) {
    for (Element* element : all)
      element->*what = false;
    onElements();
    for (Element* element : all)
      element->*what = true;
  }
  one.txtA.ReadOnly = true;
  layer.typed(one.txtA, "x");
  player->expectBox("Hola", Answer::Ok, [&] { onElements(), onWindows(); });
  layer.messageBox("Hola");
  frame.tmr.Enabled = true;
  player->expectModal("frmPropia", [&] {
    onElements(), onWindows();
    player->tick();
    EXPECT_TRUE(player->click(own.btn));
    player->closeWindow(own);
  });
  own.showModal();
  EXPECT_EQ(log.take(), "frmPropia_Load tmr_Tick txtA_LostFocus btn_Click frmPropia_QueryUnload "
                        "frmPropia_Unload");
  onElements();
  EXPECT_EQ(log.take(),
            "pic_Right pic_MouseMove txtA_LostFocus pic_Click pic_LostFocus chk_Click "
            "lbl_Click chk_LostFocus txtB_Change txtB_LostFocus com_Click com_LostFocus "
            "mnuHoja_Click");
  one.close();
  log.take();
  onElements();
  layer.shortcutPressed(one.btn);
  EXPECT_FALSE(layer.activated(one));
  EXPECT_EQ(log.take(), "mnuHoja_Click");
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
  Picture& unit = loadUnit(1);
  for (const auto& [forwards, end] : {std::pair(true, "txtA"), std::pair(false, "pic")}) {
    EXPECT_TRUE(unit.SetFocus());
    player->tab(forwards);
    EXPECT_EQ(player->focused(), end);
  }
}

TEST_F(FormsCases, ABoxLeavesTheFocusWhereItIs) {
  one.com.LostFocus = [] { ADD_FAILURE() << "nothing has taken the focus"; };
  EXPECT_TRUE(one.com.SetFocus());
  log.on["mnuHoja_Click"] = [&] {
    EXPECT_EQ(layer.messageBox("¿Sí?", BoxStyle::WarningYesNo), Answer::Yes);
    EXPECT_EQ(layer.fileDialog({false, "Abrir", "", "", ""}), std::nullopt);
  };
  player->expectBox("¿Sí?", Answer::Yes);
  player->expectFile("Abrir", ""); // without a name: as good as cancelled
  player->menu(frame.mnuHoja);
  EXPECT_EQ(player->focused(), "com");
}

TEST_F(FormsCases, AFocusPutBackIsNoDepartureAndEndsTheAction) {
  insist(one.txtA);
  insist(one.txtB);
  const std::function<void()> departures[] = {
      [&] { EXPECT_FALSE(player->click(one.btn)); }, [&] { EXPECT_FALSE(player->click(one.txtB)); },
      [&] { player->choose(one.com, 0); },           [&] { player->tab(); },
      [&] { EXPECT_FALSE(player->activate(two)); },  [&] { EXPECT_FALSE(player->click(two.pic)); },
  };
  for (const auto& depart : departures) {
    player->expectBox("Falta txtA");
    depart();
    EXPECT_EQ(log.take(), "txtA_LostFocus");
    EXPECT_EQ(player->focused(), "txtA");
    EXPECT_EQ(layer.activeChild(), &one);
  }
  player->type(one.txtA, "1");
  EXPECT_TRUE(player->click(one.btn));
  EXPECT_EQ(log.take(), "txtA_Change txtA_LostFocus btn_Click");
}

TEST_F(FormsCases, AnotherChildTakesOverAndEachKeepsItsFocus) {
  EXPECT_TRUE(one.chk.SetFocus());
  log.take();
  EXPECT_TRUE(player->click(two.btn));
  EXPECT_EQ(log.take(), "chk_LostFocus frmUno_Deactivate txtA_LostFocus btn_Click");
  EXPECT_TRUE(player->activate(one));
  EXPECT_EQ(log.take() + " " + player->focused(), "btn_LostFocus frmDos_Deactivate chk");
  EXPECT_TRUE(player->closeWindow(one));
  EXPECT_EQ(log.take() + " " + player->focused(), "frmUno_QueryUnload frmUno_Unload btn");
  EXPECT_EQ(layer.activeChild(), &two);
}

TEST_F(FormsCases, AHandlerOutlivesItsWindowWhichOpensAsItWasMade) {
  loadUnit(3);
  one.Top = 500;
  one.chk.Value = 1;
  one.pic.ZOrder();
  log.take();
  log.on["frmUno_Deactivate"] = [&] { one.close(); };
  log.on["btn_Click"] = [&] {
    two.close();
    two.open(); // takes over: the first window closes under its own handler
    EXPECT_FALSE(one.isOpen() || one.picUnidad(3));
    one.txtB.Text = std::string("nadie la ve");
    one.open();
    log.add("end");
  };
  log.on["frmUno_Load"] = [&] {
    EXPECT_FALSE(one.txtB.SetFocus()) << "nothing is on the screen yet";
    one.open(); // opening already
  };
  player->click(one.btn);
  EXPECT_EQ(log.take(), "txtA_LostFocus btn_Click frmDos_QueryUnload frmDos_Unload frmDos_Load "
                        "btn_LostFocus frmUno_Deactivate frmUno_QueryUnload frmUno_Unload "
                        "txtB_Change frmUno_Load txtA_LostFocus frmDos_Deactivate end");
  EXPECT_EQ(one.Top + one.chk.Value + one.pic.zOrderRank, 0);
  EXPECT_EQ(one.txtB.Text.get() + player->focused(), "txtA");
  EXPECT_EQ(one.com.items().size(), 2u);
  EXPECT_EQ(one.picUnidad.count(), 1);
}

TEST_F(FormsCases, AWindowMayCloseBehindABoxOfItsOwnHandlers) {
  frame.tmr.Enabled = true;
  one.pic.MouseMove = [&](float, float) { log.add("pic_MouseMove"); };
  layer.afterEvent = [&] { log.add("after"); };
  const std::pair<const char*, std::function<void()>> table[] = {
      {"btn_Click", [&] { player->click(one.btn); }},
      {"btn_Click", [&] { player->shortcut(one.btn); }},
      {"btn_Click", [&] { passOver(one.btn.SetFocus()), player->key(Key::Space); }},
      {"chk_Click", [&] { player->click(one.chk); }},
      {"lbl_Click", [&] { player->click(one.lbl); }},
      {"com_Click", [&] { player->choose(one.com, 0); }},
      {"pic_MouseMove", [&] { player->click(one.pic); }},
      {"pic_Left", [&] { player->click(one.pic); }},
      {"txtA_Change", [&] { player->type(one.txtA, "x"); }},
      {"txtA_LostFocus", [&] { player->tab(); }},
      {"txtA_LostFocus", [&] { player->activate(two); }},
      {"frmUno_Deactivate", [&] { player->activate(two); }},
  };
  for (const auto& [event, act] : table) {
    SCOPED_TRACE(event);
    log.on["tmr_Tick"] = {};
    one.close(), one.open();
    log.on["tmr_Tick"] = [&] { one.close(); };
    log.on[event] = [&, name = std::string(event)] {
      log.on[name] = {};
      log.take();
      layer.messageBox("¡Alto!");
      one.lbl.Caption = std::string("nadie la ve");
      log.add("end");
    };
    player->expectBox("¡Alto!", Answer::Ok, [&] { player->tick(); });
    act();
    EXPECT_EQ(log.take(), "tmr_Tick frmUno_QueryUnload frmUno_Unload end after");
  }
}

TEST_F(FormsCases, WhatWaitsForTheEndOfAnEventRunsOnceBehindTheOutermost) {
  frame.tmr.Enabled = true;
  layer.afterEvent = [&] { log.add("after"), layer.messageBox("después"); };
  player->expectBox("después", Answer::Ok, [&] { player->tick(); });
  player->menu(frame.mnuHoja);
  EXPECT_EQ(log.take(), "mnuHoja_Click after tmr_Tick");
}

TEST_F(FormsCases, AnElementMayVanishInItsOwnEvent) {
  loadUnit(1);
  loadUnit(2);
  log.on["picUnidad_Click1"] = [&] { passOver(one.picUnidad.Unload(1)); };
  log.on["picUnidad_Click2"] = [&] { one.picUnidad(2)->Visible = false; };
  one.pic.LostFocus = {};
  EXPECT_TRUE(player->click(*one.picUnidad(1)));
  EXPECT_EQ(log.take(), "txtA_LostFocus picUnidad_Click1");
  EXPECT_EQ(player->focused(), "pic") << "the others would act when the focus leaves them";
  EXPECT_TRUE(player->click(*one.picUnidad(2)));
  EXPECT_TRUE(player->click(one.txtA));
  EXPECT_EQ(log.take(), "picUnidad_Click2");
  // Also in the event that hands it the focus.
  log.on["txtA_LostFocus"] = [&] { one.pic.Enabled = false; };
  EXPECT_FALSE(player->click(one.pic));
  EXPECT_EQ(log.take(), "txtA_LostFocus");
}

TEST_F(FormsCases, ArrayElementsComeAndGoByIndex) {
  auto& units = one.picUnidad;
  units.pattern.Border = true;
  for (const int i : {0, -1, 65, 1000})
    EXPECT_FALSE(units.Load(i) || units.Unload(i) || units(i)) << i;
  EXPECT_TRUE(units.Load(64) && units.Load(1));
  units(64)->Top = 99;
  EXPECT_FALSE(units.Load(64) || units.Unload(2));
  EXPECT_EQ(units(64)->Top + units.count(), 99 + 3) << "a refused Load changes nothing";
  EXPECT_TRUE(!units(1)->Visible && units(1)->Border && units(1)->Width == 900);
  EXPECT_TRUE(units.Unload(64) && units.Load(64));
  EXPECT_EQ(units(64)->Top, 0) << "a new element, not the old one";
}

TEST_F(FormsCases, TheFrameAsksAllItsChildrenBeforeAnyCloses) {
  for (TestWindow* refuses : std::initializer_list<TestWindow*>{&frame, &one}) {
    refuses->letClose = false;
    EXPECT_FALSE(player->closeWindow(frame));
    EXPECT_TRUE(two.isOpen());
    refuses->letClose = true;
  }
  log.take();
  // A second wish to close, from a tick behind the question, changes nothing.
  log.on["frmMarco_QueryUnload"] = [&] { layer.messageBox("¿Salir?", BoxStyle::WarningYesNo); };
  log.on["tmr_Tick"] = [&] { EXPECT_FALSE(frame.close()); };
  frame.tmr.Enabled = true;
  player->expectBox("¿Salir?", Answer::Yes, [&] { player->tick(); });
  EXPECT_TRUE(player->closeWindow(frame));
  EXPECT_EQ(log.take(), "frmMarco_QueryUnload tmr_Tick frmDos_QueryUnload frmUno_QueryUnload "
                        "frmDos_Unload frmUno_Unload frmMarco_Unload");
  EXPECT_TRUE(layer.openWindows().empty());
}

TEST_F(FormsCases, TheKeyboardsCursorDoesWhatThePointerDoes) {
  GridPicture& board = one.pic;
  board.Left = 3000;
  board.Width = board.Height = 3 * 600;
  board.AccessibleName = std::string("Tablero");
  board.setGrid(3, 600);
  board.nameOfEmptySquare = [](int n) { return "vacío " + std::to_string(n); };
  Picture& unit = loadUnit(5);
  unit.Width = unit.Height = 230;
  unit.Left = board.Left + 600 + 60; // the middle of the square stays free
  unit.Top = board.Top + 600 + 60;
  unit.AccessibleName = std::string("Unidad");
  unit.ZOrder();
  board.LostFocus = {};
  const auto place = [&](float X, float Y) {
    log.add(std::to_string(static_cast<int>(X)) + "," + std::to_string(static_cast<int>(Y)));
  };
  board.MouseMove = place;
  unit.MouseMove = place;
  one.picUnidad.MouseDown = [&](int i, MouseButton button) {
    log.add(button == MouseButton::Left ? "unit_Left" : "unit_Right");
    if (button == MouseButton::Right)
      passOver(one.picUnidad.Unload(i));
  };
  EXPECT_TRUE(board.SetFocus());
  log.take();
  const struct {
    std::vector<Key> keys;
    const char* name;
    const char* events;
  } table[] = {
      {{Key::Enter}, "Tablero", ""}, // no square is pointed at yet
      {{Key::Right, Key::Left, Key::Down}, "vacío 7", "300,1500 300,1500 300,1500"},
      {{Key::Up, Key::Space}, "vacío 4", "300,900 300,900 pic_Left pic_Click"},
      {{Key::Right}, "Unidad", "240,240"},
      {{Key::Enter}, "Unidad", "240,240 unit_Left picUnidad_Click5"},
      {{Key::Right, Key::Left}, "Unidad", "1500,900 240,240"},
      {{Key::Delete}, "vacío 5", "240,240 unit_Right"},
      {{Key::Up, Key::Up}, "vacío 2", "900,300 900,300"},
      {{Key::Right, Key::Right}, "vacío 3", "1500,300 1500,300"},
  };
  for (const auto& row : table) {
    for (const Key key : row.keys)
      player->key(key);
    EXPECT_EQ(log.take(), row.events);
    EXPECT_EQ(board.AccessibleName.get(), row.name);
    const bool clicked = std::string_view(row.events).ends_with("Click5");
    EXPECT_EQ(player->focused(), clicked ? "picUnidad(5)" : "pic");
  }
}

} // namespace scripted
