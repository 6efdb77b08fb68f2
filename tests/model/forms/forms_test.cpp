// The forms layer where no person acts: what the program does to elements and windows.
#include "model/forms/forms.h"

#include <gtest/gtest.h>

#include "model/forms/text_file.h"
#include "scripted/scripted_desktop.h"
#include "scripted/test_windows.h"

namespace {

using namespace forms;
using namespace scripted;

class FormsTest : public testing::Test {
protected:
  ScriptedDesktop screen;
  TestProgram program{screen};
  Log& log = program.log;
  Forms& layer = program.forms;
  FrameWindow& frame = program.frame;
  TestWindow& one = program.one;
};

TEST_F(FormsTest, AValueSetByTheProgramRaisesWhatAPersonWould) {
  const struct {
    const char* what;
    std::function<void()> act;
    const char* events;
  } table[] = {
      {"value", [&] { one.chk.Value = 1; }, "chk_Click"},
      {"the same value", [&] { one.chk.Value = 1; }, ""},
      {"text", [&] { one.txtB.Text = std::string("7"); }, "txtB_Change"},
      {"the same text", [&] { one.txtB.Text = std::string("7"); }, ""},
      {"item", [&] { EXPECT_TRUE(one.com.setText("dos")); }, "com_Click"},
      {"the same item", [&] { EXPECT_TRUE(one.com.select(1)); }, "com_Click"},
      {"no such text", [&] { EXPECT_FALSE(one.com.setText("DOS")); }, ""},
      {"no item below", [&] { EXPECT_FALSE(one.com.select(-1)); }, ""},
      {"no item above", [&] { EXPECT_FALSE(one.com.select(2)); }, ""},
      {"focus", [&] { EXPECT_TRUE(one.txtB.SetFocus()); }, "txtA_LostFocus"},
      {"the same focus", [&] { EXPECT_TRUE(one.txtB.SetFocus()); }, ""},
      {"focus on a label", [&] { EXPECT_FALSE(one.lbl.SetFocus()); }, ""},
      {"focus on a hidden element", [&] { EXPECT_FALSE(one.picUnidad.pattern.SetFocus()); }, ""},
      {"a change of its own",
       [&] {
         log.on["txtA_Change"] = [&] { one.txtA.Text = std::string("1"); };
         one.txtA.Text = std::string("0");
       },
       "txtA_Change txtA_Change"},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.what);
    row.act();
    EXPECT_EQ(log.take(), row.events);
  }
  EXPECT_EQ(one.com.Text(), "dos");
  EXPECT_EQ(screen.focused(), "txtB");
}

TEST_F(FormsTest, WhatAPersonCannotReachHearsNothing) {
  const auto reportAll = [&] {
    layer.pressed(one.pic, MouseButton::Left);
    layer.moved(one.pic, 1, 1);
    layer.clicked(one.pic);
    layer.clicked(one.chk);
    layer.clicked(one.lbl);
    layer.typed(one.txtB, "x");
    layer.chosen(one.com, 0);
    layer.focusMoved(one.txtB);
    layer.menuChosen(frame.mnuHoja);
    layer.ticked(frame.tmr); // made stopped
  };
  one.pic.MouseMove = [&](float, float) { log.add("pic_MouseMove"); };
  Element* const all[] = {&one.pic, &one.chk, &one.lbl, &one.txtB, &one.com, &frame.mnuHoja};
  for (Property<bool> Element::*what : {&Element::Visible, &Element::Enabled}) {
    for (Element* element : all)
      element->*what = false;
    reportAll();
    EXPECT_EQ(log.take(), "");
    for (Element* element : all)
      element->*what = true;
  }
  one.txtA.ReadOnly = true;
  layer.typed(one.txtA, "x");
  EXPECT_EQ(log.take(), "");
  reportAll();
  EXPECT_EQ(log.take(), "txtA_LostFocus pic_Left pic_MouseMove pic_Click pic_LostFocus chk_Click "
                        "lbl_Click txtB_Change chk_LostFocus com_Click com_LostFocus "
                        "mnuHoja_Click");
  one.close();
  log.take();
  layer.clicked(one.btn);
  layer.shortcutPressed(one.btn);
  layer.typed(one.txtB, "y");
  EXPECT_FALSE(layer.activated(one));
  EXPECT_EQ(log.take(), "");
}

TEST_F(FormsTest, ArrayElementsComeAndGoByIndex) {
  auto& units = one.picUnidad;
  units.pattern.Border = true;
  EXPECT_EQ(units(0), nullptr) << "the pattern is reached by its own name";
  for (const int i : {0, -1, 65, 1000}) {
    EXPECT_FALSE(units.Load(i)) << i;
    EXPECT_FALSE(units.Unload(i)) << i;
    EXPECT_EQ(units(i), nullptr) << i;
  }
  EXPECT_TRUE(units.Load(64));
  EXPECT_TRUE(units.Load(1));
  units(64)->Top = 99;
  EXPECT_FALSE(units.Load(64));
  EXPECT_EQ(units(64)->Top, 99) << "a refused Load changes nothing";
  EXPECT_EQ(units.count(), 3);
  EXPECT_FALSE(units.Unload(2));
  EXPECT_FALSE(units(1)->Visible);
  EXPECT_TRUE(units(1)->Border);
  EXPECT_EQ(units(1)->Width.get(), units.pattern.Width.get());
  EXPECT_TRUE(units.Unload(64));
  EXPECT_FALSE(units.Unload(64));
  EXPECT_EQ(units(64), nullptr);
  EXPECT_TRUE(units.Load(64));
  EXPECT_EQ(units(64)->Top, 0) << "a new element, not the old one";
  one.close();
  EXPECT_EQ(units.count(), 1);
  one.open();
  EXPECT_TRUE(units.Load(64));
}

TEST_F(FormsTest, AnOpeningStartsFromWhatTheWindowWasMadeWith) {
  one.Top = 500;
  one.chk.Value = 1;
  one.txtA.Text = std::string("vieja");
  one.pic.ZOrder();
  EXPECT_TRUE(one.pic.LoadPicture(programPath(screen.programFolder(), "\\img\\inf_j1.jpg")));
  one.close();
  log.take();
  log.on["frmUno_Load"] = [&] {
    EXPECT_FALSE(one.txtB.SetFocus()) << "nothing is on the screen yet";
    one.open(); // opening already
    one.btn.Caption = std::string("nueva");
  };
  one.open();
  one.open();
  EXPECT_EQ(log.take(), "frmUno_Load txtA_LostFocus frmDos_Deactivate");
  EXPECT_EQ(screen.focused(), "txtA");
  EXPECT_EQ(one.Top + one.chk.Value + one.pic.zOrderRank, 0);
  EXPECT_EQ(screen.text("frmUno.txtA") + screen.picture("frmUno.pic"), "");
  EXPECT_EQ(screen.text("frmUno.btn"), "nueva");
}

TEST_F(FormsTest, WhatWaitsForTheEndOfAnEventRunsOnceBehindTheOutermost) {
  frame.tmr.Enabled = true;
  layer.afterEvent = [&] {
    log.add("after");
    if (!log.on["tmr_Tick"])
      return;
    layer.messageBox("después");
  };
  screen.expectBox("dentro", Answer::Ok, [&] { screen.tick(); });
  screen.expectBox("después", Answer::Ok, [&] { screen.tick(); });
  log.on["tmr_Tick"] = [&] { one.close(); };
  log.on["btn_Click"] = [&] {
    layer.messageBox("dentro");
    log.add("end");
  };
  layer.shortcutPressed(one.btn);
  EXPECT_EQ(log.take(), "btn_Click tmr_Tick frmUno_QueryUnload frmUno_Unload end after tmr_Tick");
  log.on["tmr_Tick"] = {};
  screen.tick(2);
  EXPECT_EQ(log.take(), "tmr_Tick after tmr_Tick after");
}

TEST_F(FormsTest, PicturesGiveTheirSizeOrAreNotedAsMissing) {
  const auto path = [&](const char* name) {
    return programPath(screen.programFolder(), std::string("\\img\\") + name);
  };
  one.pic.AutoSize = one.pic.Border = true;
  EXPECT_TRUE(one.pic.LoadPicture(path("6x6.jpg")));
  EXPECT_EQ(one.pic.Width, 15 * (472 + 2));
  screen.missingPictures = {"8x8.jpg", "7x7.jpg", "a.ico"};
  EXPECT_FALSE(one.pic.LoadPicture(path("8x8.jpg")));
  EXPECT_FALSE(one.pic.LoadPicture(path("7x7.jpg")));
  EXPECT_FALSE(one.LoadIcon(path("a.ico")));
  EXPECT_EQ(layer.missingPicture, path("8x8.jpg")) << "the first one";
  EXPECT_EQ(screen.picture("frmUno.pic") + screen.picture("frmUno"), "6x6.jpg");
  EXPECT_EQ(one.pic.Height, 15 * (472 + 2));
}

TEST_F(FormsTest, BoxesAndDialogsBringBackWhatThePersonGave) {
  layer.applicationTitle = "Título";
  screen.expectBox("¿Seguro?", BoxStyle::WarningYesNo, Answer::No);
  EXPECT_EQ(layer.messageBox("¿Seguro?", BoxStyle::WarningYesNo), Answer::No);
  EXPECT_EQ(screen.lastBox.title, "Título");
  const std::optional<std::string> given[] = {"/a b/juego", std::nullopt, ""};
  for (const auto& path : given) {
    screen.expectFile("Abrir", path);
    const auto accepted = layer.fileDialog({false, "Abrir", "/a b", "", ""});
    EXPECT_EQ(accepted.value_or(""), path.value_or(""));
    EXPECT_EQ(accepted.has_value(), path == "/a b/juego") << "no name: as good as cancelled";
  }
  EXPECT_EQ(screen.lastFile.folder, "/a b");
  screen.click("frmUno.chk"); // nothing of them is left on the screen
  one.txtA.MaxLength = 2;
  screen.type("frmUno.txtA", "ñandú");
  EXPECT_EQ(one.txtA.Text.get(), "ña");
}

} // namespace
