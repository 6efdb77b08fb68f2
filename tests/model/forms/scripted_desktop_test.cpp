// The scripted desktop must fail a test wherever a person, or a real screen, would have been stuck.
#include "scripted/scripted_desktop.h"

#include <gtest/gtest-spi.h>

#include "scripted/test_windows.h"

namespace {

using namespace forms;
using namespace scripted;

// The texts of all failures that `act` brings on.
std::string failures(const std::function<void(ScriptedDesktop&, TestProgram&)>& act) {
  testing::TestPartResultArray results;
  {
    const testing::ScopedFakeTestPartResultReporter reporter(
        testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
    ScriptedDesktop screen;
    TestProgram program(screen);
    try {
      act(screen, program);
    } catch (const std::runtime_error&) {
      // After a failure that ends the test.
    }
  }
  std::string text;
  for (int i = 0; i < results.size(); ++i)
    text += std::string(results.GetTestPartResult(i).message()) + "\n";
  return text;
}

TEST(ScriptedDesktopTest, FailsWhereAPersonWouldBeStuck) {
  const struct {
    const char* expected;
    std::function<void(ScriptedDesktop&, TestProgram&)> act;
  } table[] = {
      {"Unexpected:\nOtra cosa\ninstead of:\nUna cosa",
       [](auto& screen, auto& p) {
         screen.expectBox("Una cosa");
         EXPECT_EQ(p.forms.messageBox("Otra cosa", BoxStyle::WarningYesNo), Answer::No);
       }},
      {"did not come: Una cosa", [](auto& screen, auto&) { screen.expectBox("Una cosa"); }},
      {"another style",
       [](auto& screen, auto& p) {
         screen.expectBox("Sí");
         p.forms.messageBox("Sí", BoxStyle::WarningYesNo);
       }},
      {"was not closed",
       [](auto& screen, auto& p) {
         screen.expectModal("frmPropia", [] {});
         p.own.showModal();
       }},
      {"is hidden",
       [](auto& screen, auto& p) {
         p.one.btn.Visible = false;
         EXPECT_FALSE(screen.tryClick("frmUno.btn"));
         screen.click("frmUno.btn");
       }},
      {"is disabled",
       [](auto& screen, auto& p) {
         p.frame.mnu.Enabled = false;
         screen.menu("mnuHoja");
       }},
      {"behind a box",
       [](auto& screen, auto& p) {
         screen.expectBox("Sí", Answer::Ok, [&] { screen.click("frmUno.btn"); });
         p.forms.messageBox("Sí");
       }},
      {"is covered",
       [](auto& screen, auto& p) {
         passOver(p.one.picUnidad.Load(9));
         p.one.picUnidad(9)->Top = p.one.pic.Top.get();
         p.one.picUnidad(9)->Visible = true;
         EXPECT_TRUE(screen.clickAt("frmUno", 15, p.one.pic.Top + 15));
         EXPECT_EQ(p.log.take(), "txtA_LostFocus picUnidad_Click9");
         screen.click("frmUno.pic");
       }},
      {"takes no keys",
       [](auto& screen, auto& p) {
         p.one.txtA.ReadOnly = true;
         screen.type("frmUno.txtA", "x");
       }},
      {"changed for an element of a closed window",
       [](auto& screen, auto& p) { screen.changed(p.own.btn); }},
      {"removed for an unknown element", [](auto& screen, auto& p) { screen.removed(p.own.btn); }},
  };
  for (const auto& row : table)
    EXPECT_NE(failures(row.act).find(row.expected), std::string::npos) << row.expected << "\nbut:\n"
                                                                       << failures(row.act);
  EXPECT_EQ(failures([](auto& screen, auto&) { screen.click("frmUno.btn"); }), "");
}

} // namespace
