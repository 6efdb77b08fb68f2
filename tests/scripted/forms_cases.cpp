// What the forms layer makes of a person's and the program's actions, on whichever screen the test
// program brings.
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "scripted/test_windows.h"

namespace scripted {

using namespace forms;

class FormsCases : public testing::Test {
protected:
  // Both child windows as they were made, the focus on the first one's first element.
  void startAnew() {
    log.on.clear();
    two.close(), one.close(), two.open(), one.open();
    log.take();
  }
  // The events since the last look, and where the focus is: "pic_Left pic_Click @pic".
  std::string seen() {
    const std::string events = log.take();
    return events + (events.empty() ? "@" : " @") + (layer.activeChild() == &two ? "two." : "") +
           player->focused();
  }
  // Unit i stands beside the column of the other elements.
  Picture& loadUnit(int i) {
    EXPECT_TRUE(one.picUnidad.Load(i));
    one.picUnidad(i)->Left = 1500 * i;
    one.picUnidad(i)->Visible = true;
    return *one.picUnidad(i);
  }
  static std::function<void(float, float)> logPlace(Log& log) {
    return [&log](float X, float Y) {
      log.add(std::to_string(static_cast<int>(X)) + "," + std::to_string(static_cast<int>(Y)));
    };
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

struct Row {
  std::string seen;
  std::function<void()> act;
};

// What each action raises, in order, and where it leaves the focus.
class FormsActions : public FormsCases {
protected:
  std::function<void()> click(Element& element) {
    return [this, &element] { player->click(element); };
  }
  // The first box insists on a value: it tells what is wrong and takes the focus back.
  std::function<void()> insisting(const std::function<void()>& depart) {
    return [this, depart] {
      for (TextBox* box : {&one.txtA, &one.txtB})
        log.on[box->name() + "_LostFocus"] = [this, box] {
          layer.messageBox("Falta " + box->name());
          EXPECT_TRUE(box->SetFocus());
        };
      player->expectBox("Falta txtA");
      depart();
    };
  }
  void unitGoes(const std::function<void()>& going) {
    loadUnit(1);
    log.on["picUnidad_Click1"] = going;
    const auto hearing = std::exchange(one.pic.LostFocus, {}); // the others would act
    player->click(*one.picUnidad(1));
    one.pic.LostFocus = hearing;
  }
  void boxes() {
    passOver(one.com.SetFocus());
    log.on["mnuHoja_Click"] = [&] {
      EXPECT_EQ(layer.messageBox("¿Sí?", BoxStyle::WarningYesNo), Answer::Yes);
      EXPECT_EQ(layer.fileDialog({false, "Abrir", "", "", ""}), std::nullopt);
    };
    player->expectBox("¿Sí?", Answer::Yes);
    player->expectFile("Abrir", ""); // without a name: as good as cancelled
    player->menu(frame.mnuHoja);
  }

  const std::vector<Row> persons = {
      {"txtA_LostFocus btn_Click @btn", click(one.btn)},
      {"txtA_LostFocus pic_Left pic_Click @pic", click(one.pic)},
      {"txtA_LostFocus chk_Click @chk", click(one.chk)},
      {"lbl_Click @txtA", click(one.lbl)},
      {"pic_Right @txtA", [&] { player->rightClick(one.pic); }},
      {"txtA_LostFocus @txtB", [&] { player->rightClick(one.txtB); }}, // its menu could paste
      {"txtA_LostFocus com_Click @com", [&] { player->choose(one.com, 1); }},
      {"txtA_Change @txtA", [&] { player->type(one.txtA, "x"); }},
      {"mnuHoja_Click @txtA", [&] { player->menu(frame.mnuHoja); }},
      {"btn_Click @txtA", [&] { player->shortcut(one.btn); }},
      {"txtA_LostFocus btn_Click @btn",
       [&] { passOver(one.btn.SetFocus()), player->key(Key::Space); }},
      {"txtA_LostFocus @txtB", [&] { player->tab(); }},
      {"txtA_LostFocus frmUno_Deactivate @two.txtA", [&] { player->activate(two); }},
      {"txtA_LostFocus frmUno_Deactivate txtA_LostFocus btn_Click @two.btn", click(two.btn)},
      {"frmUno_QueryUnload frmUno_Unload @two.txtA", [&] { player->closeWindow(one); }},
  };
  const std::vector<Row> others = {
      // A screen reader, or another program's text, dropped or pasted.
      {"txtA_LostFocus txtB_Change @txtB", [&] { layer.typed(one.txtB, "x"); }},
      {"btn_Click @txtA", [&] { one.btn.Visible = false, player->shortcut(one.btn); }},
      {"txtA_LostFocus com_Click com_Click @com",
       [&] { player->choose(one.com, 1), player->choose(one.com, 1); }},
      {"txtA_Change txtA_Change txtA_Change txtA_Change @txtA",
       [&] { player->type(one.txtA, "ñáéíó"), player->type(one.txtA, ""); }},
      {"@txtA", [&] { frame.tmr.Enabled = false, player->tick(); }},
      {"tmr_Tick tmr_Tick @txtA", [&] { frame.tmr.Enabled = true, player->tick(2); }},
      {"txtA_LostFocus mnuHoja_Click @com", [&] { boxes(); }},
      // The Tab key goes round past what cannot be reached; from outside the order to either end.
      {"txtA_LostFocus txtB_LostFocus btn_LostFocus pic_LostFocus txtA_LostFocus @pic",
       [&] {
         one.chk.Visible = one.com.Enabled = false;
         player->tab(), player->tab(), player->tab(), player->tab(), player->tab(false);
       }},
      {"txtA_LostFocus @txtA", [&] { passOver(loadUnit(1).SetFocus()), player->tab(); }},
      {"txtA_LostFocus @pic", [&] { passOver(loadUnit(1).SetFocus()), player->tab(false); }},
      // A focus put back is no departure and ends the action.
      {"txtA_LostFocus @txtA", insisting(click(one.btn))},
      {"txtA_LostFocus @txtA", insisting(click(one.txtB))},
      {"txtA_LostFocus @txtA", insisting([&] { player->choose(one.com, 0); })},
      {"txtA_LostFocus @txtA", insisting([&] { player->tab(); })},
      {"txtA_LostFocus @txtA", insisting([&] { EXPECT_FALSE(player->activate(two)); })},
      {"txtA_LostFocus @txtA", insisting(click(two.pic))},
      {"txtA_LostFocus chk_LostFocus frmUno_Deactivate txtA_LostFocus frmDos_Deactivate @chk",
       [&] { passOver(one.chk.SetFocus()), player->activate(two), player->activate(one); }},
      // An element may vanish in its own event, or in the one that hands it the focus.
      {"txtA_LostFocus picUnidad_Click1 @pic",
       [&] { unitGoes([&] { passOver(one.picUnidad.Unload(1)); }); }},
      {"txtA_LostFocus picUnidad_Click1 @txtA",
       [&] { unitGoes([&] { one.picUnidad(1)->Visible = false; }), player->click(one.txtA); }},
      {"txtA_LostFocus picUnidad_Click1 txtA_LostFocus @pic",
       [&] {
         unitGoes([&] {
           log.on["txtA_LostFocus"] = [&] { one.chk.Enabled = false; };
           EXPECT_FALSE(!one.txtA.SetFocus() || one.chk.SetFocus());
         });
       }},
      // The program's own.
      {"txtA_Change @txtA",
       [&] { EXPECT_EQ((one.txtA.Text = std::string("ñandú")).get(), "ñan"); }},
      {"chk_Click chk_Click @txtA", [&] { one.chk.Value = 1, one.chk.Value = 0; }},
      {"@txtA", [&] { one.chk.Value = 0; }},
      {"txtB_Change @txtA",
       [&] { one.txtB.Text = std::string("7"), one.txtB.Text = std::string("7"); }},
      {"com_Click com_Click @txtA",
       [&] { EXPECT_TRUE(one.com.setText("uno") && one.com.select(0)); }},
      {"@txtA",
       [&] { EXPECT_FALSE(one.com.setText("UNO") || one.com.select(-1) || one.com.select(2)); }},
      {"txtA_LostFocus @txtB", [&] { EXPECT_TRUE(one.txtB.SetFocus() && one.txtB.SetFocus()); }},
      {"@txtA", [&] { EXPECT_FALSE(one.lbl.SetFocus() || one.picUnidad.pattern.SetFocus()); }},
  };
};

TEST_F(FormsActions, RaiseTheirEventsInOrderAndLeaveTheFocusWhereItBelongs) {
  one.txtA.MaxLength = 3; // characters
  for (const std::vector<Row>* rows : {&persons, &others})
    for (const auto& [events, act] : *rows) {
      startAnew();
      act();
      EXPECT_EQ(seen(), events);
    }
}

TEST_F(FormsActions, MayCloseTheirWindowBehindABoxInAnyOfTheirEvents) {
  one.pic.MouseMove = [&](float, float) { log.add("pic_MouseMove"); };
  layer.afterEvent = [&] { log.add("after"); };
  int closed = 0;
  for (const auto& [events, act] : persons)
    for (std::istringstream all(events + " pic_MouseMove"); all.good();) {
      std::string event;
      all >> event;
      SCOPED_TRACE(events + ": " + event);
      startAnew();
      bool raised = false;
      log.on[event] = [&] {
        if (std::exchange(raised, true))
          return;
        player->expectBox("¡Alto!", Answer::Ok, [&] { one.close(); });
        layer.messageBox("¡Alto!");
        one.lbl.Caption = std::string("nadie la ve");
      };
      act();
      EXPECT_FALSE(raised && one.isOpen());
      EXPECT_TRUE(log.take().ends_with("after"));
      closed += raised;
    }
  EXPECT_GE(closed, 26);
}

// A screen may still report what was under way when a box opened.
TEST_F(FormsCases, WhatAPersonCannotReachHearsNothing) {
  Element* const all[] = {&one.pic, &one.chk, &one.lbl, &one.txtB, &one.com, &frame.mnuHoja};
  const auto onElements = [&] {
    layer.pressed(one.pic, MouseButton::Right);
    layer.moved(one.pic, 1, 1);
    for (Element* element : all)
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
    EXPECT_FALSE(layer.activated(two) || layer.keyPressed(one, Key::Space));
  };
  one.pic.MouseMove = logPlace(log);
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
  EXPECT_EQ(log.take(), "pic_Right 1,1 txtA_LostFocus pic_Click pic_LostFocus chk_Click lbl_Click "
                        "chk_LostFocus txtB_LostFocus com_LostFocus txtB_Change txtB_LostFocus "
                        "com_Click com_LostFocus "
                        "mnuHoja_Click");
  one.close();
  log.take();
  onElements();
  layer.shortcutPressed(one.btn);
  EXPECT_FALSE(layer.activated(one));
  EXPECT_EQ(log.take(), "mnuHoja_Click");
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
  EXPECT_EQ(seen(), "txtA_LostFocus btn_Click frmDos_QueryUnload frmDos_Unload frmDos_Load "
                    "btn_LostFocus frmUno_Deactivate frmUno_QueryUnload frmUno_Unload "
                    "txtB_Change frmUno_Load txtA_LostFocus frmDos_Deactivate end @txtA");
  EXPECT_EQ(one.Top + one.chk.Value + one.pic.zOrderRank, 0);
  EXPECT_TRUE(one.txtB.Text.get().empty());
  EXPECT_EQ(static_cast<int>(one.com.items().size()) + one.picUnidad.count(), 2 + 1);
}

TEST_F(FormsCases, WhatWaitsForTheEndOfAnEventRunsOnceBehindTheOutermost) {
  frame.tmr.Enabled = true;
  layer.afterEvent = [&] { log.add("after"), layer.messageBox("después"); };
  player->expectBox("después", Answer::Ok, [&] { player->tick(); });
  player->menu(frame.mnuHoja);
  EXPECT_EQ(log.take(), "mnuHoja_Click after tmr_Tick");
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
    EXPECT_FALSE(layer.sessionMayEnd() || player->closeWindow(frame));
    EXPECT_TRUE(two.isOpen());
    refuses->letClose = true;
  }
  EXPECT_TRUE(layer.sessionMayEnd() && one.isOpen());
  log.take();
  // A second wish to close, from a tick behind the question, changes nothing.
  log.on["frmMarco_QueryUnload"] = [&] { layer.messageBox("¿Salir?", BoxStyle::WarningYesNo); };
  log.on["tmr_Tick"] = [&] { EXPECT_FALSE(frame.close() || layer.sessionMayEnd()); };
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
  board.MouseMove = unit.MouseMove = logPlace(log);
  one.picUnidad.MouseDown = [&](int i, MouseButton button) {
    log.add(button == MouseButton::Left ? "unit_Left" : "unit_Right");
    if (button == MouseButton::Right)
      passOver(one.picUnidad.Unload(i));
  };
  EXPECT_TRUE(board.SetFocus());
  log.take();
  const struct {
    std::vector<Key> keys;
    int square;
    const char *name, *seen;
  } table[] = {
      {{Key::Enter}, 0, "Tablero", "@pic"}, // no square is pointed at yet
      {{Key::Right, Key::Left, Key::Down}, 7, "vacío 7", "300,1500 300,1500 300,1500 @pic"},
      {{Key::Up, Key::Space}, 4, "vacío 4", "300,900 300,900 pic_Left pic_Click @pic"},
      {{Key::Right}, 5, "Unidad", "240,240 @pic"},
      {{Key::Enter}, 5, "Unidad", "240,240 unit_Left picUnidad_Click5 @picUnidad(5)"},
      {{Key::Right, Key::Left}, 5, "Unidad", "1500,900 240,240 @pic"},
      {{Key::Delete}, 5, "vacío 5", "240,240 unit_Right @pic"},
      {{Key::Up, Key::Up}, 2, "vacío 2", "900,300 900,300 @pic"},
      {{Key::Right, Key::Right}, 3, "vacío 3", "1500,300 1500,300 @pic"},
  };
  for (const auto& row : table) {
    for (const Key key : row.keys)
      player->key(key);
    EXPECT_EQ(seen(), row.seen);
    EXPECT_EQ(board.AccessibleName.get(), row.name);
    EXPECT_EQ(board.cursorSquare, row.square) << "is marked";
  }
  // The mouse hides it; the next arrow key brings it back where the mouse last pointed.
  player->clickOn(board, 900, 1500); // square 8
  EXPECT_EQ(board.cursorSquare, 0);
  EXPECT_EQ(board.AccessibleName.get(), "Tablero");
  player->moveOver(board, 300, 900); // square 4
  log.take();
  for (const auto& [key, square] : {std::pair(Key::Enter, 0), {Key::Up, 4}, {Key::Up, 1}}) {
    player->key(key);
    EXPECT_EQ(board.cursorSquare, square);
  }
  EXPECT_EQ(log.take(), "300,900 300,300");
  board.setGrid(3, 600);
  EXPECT_EQ(board.cursorSquare, 0) << "another board has none";
}

} // namespace scripted
