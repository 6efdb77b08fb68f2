// What comes from the system past the elements: the pointer, where Qt finds out which element gets
// it, the clock, the focus that Qt moves by itself, a screen reader's wishes. In the windows of
// test_windows.h: `frame` is the program's own window (Marco), `one` and `two` are the child
// windows in it (Uno, Dos), `own` is one with a place of its own on the screen, closed at first
// (Propia). At first frmUno is in front, and its txtA has the focus. Each has two text boxes (txtA,
// txtB), a tick box (chk), a list of "uno" and "dos" (com), a button (btn), a picture (pic) and a
// label (lbl), one below the other; the Tab key goes in this order, past the label. To the right
// of them there is nothing. Marco is a frame, Propia means one of its own.
//
// `log` notes each event that they hear as ELEMENT_EVENT or WINDOW_EVENT: btn_Click,
// frmUno_Deactivate. `events()` tells and forgets them; `log.on` is what a case does inside one.
// `player` is the person at the screen: `run` does steps ("click btn") or presses keys ("Ctrl+F7");
// `expectBox` announces a box, and what is done while it is open. `widgetOf(X)` is what shows X.
#include <QAccessible>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWindow>

#include "desktop/qt/on_screen.h"
#include "scripted/test_windows.h"

using namespace scripted;
using forms::Element;

namespace {

class Desktop : public TestProgram {
protected:
  Desktop() { events(); }
  QWindow* window() { return widgetOf(frame).windowHandle(); }
  QPoint middle(const Element& element) {
    const QWidget& shown = widgetOf(element);
    return shown.mapTo(shown.window(), shown.rect().center());
  }
  void drag(const Element& from, const Element& to) {
    QTest::mousePress(window(), Qt::LeftButton, {}, middle(from));
    QTest::mouseMove(window(), middle(to));
    QTest::mouseRelease(window(), Qt::LeftButton, {}, middle(to));
  }
  // What has happened, once the screen has come to rest.
  std::string events() {
    QCoreApplication::processEvents();
    agrees(forms);
    return log.take();
  }
  qsizetype clicks() { return QString::fromStdString(events()).count("_Click"); }
};

// From each to each: pressed on the one, let go on the other.
TEST_F(Desktop, ClicksWhereItIsPressedAndLetGo) {
  const Element* const elements[] = {&one.pic, &one.lbl, &one.btn, &one.chk};
  for (const auto* from : elements) {
    for (const auto* to : elements) {
      drag(*from, *to);
      EXPECT_EQ(clicks(), from == to ? 1 : 0) << from->name() << " to " << to->name();
    }
    QTest::mouseDClick(window(), Qt::LeftButton, {}, middle(*from));
    EXPECT_EQ(clicks(), 2) << from->name();
  }
}

// A box stands open while the clock ticks ten times and each tick closes and opens the window
// behind it: the number of Qt's widgets must not grow.
TEST_F(Desktop, HearsTheClockBehindABoxAndKeepsNoneOfTheWindowsThatClosedMeanwhile) {
  std::vector<qsizetype> widgets; // how many there are after each tick
  log.on["tmr_Tick"] = [&] {
    one.close();
    one.open();
    widgets.push_back(QApplication::allWidgets().size());
  };
  log.on["btn_Click"] = [&] { forms.messageBox("Hola"); };
  player->expectBox("Hola", forms::Answer::Ok, [&] {
    frame.tmr.Interval = 1; // milliseconds
    frame.tmr.Enabled = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return widgets.size() >= 10; }));
    frame.tmr.Enabled = false;
    log.take();
    QTest::qWait(20);
    EXPECT_EQ(log.take(), "") << "a clock that was stopped";
  });
  player->run("click btn");
  EXPECT_EQ(widgets[2], widgets[9]);
}

// The Tab key moves it from own.txtA on, which is told. Where Qt moves it unasked, in the window
// behind or in this one, it goes back without an event.
TEST_F(Desktop, PutsTheFocusBackThatQtMoves) {
  own.open();
  QTest::keyClick(&widgetOf(own.txtA), Qt::Key_Tab);
  EXPECT_EQ(events(), "frmPropia_Load txtA_LostFocus");
  for (const TestWindow* home : {&one, &own}) {
    widgetOf(home->btn).setFocus();
    widgetOf(home->btn).activateWindow();
    QCoreApplication::processEvents();
    EXPECT_EQ(events(), "");
  }
}

// As Ctrl and Tab do. At first the box in the first window keeps the focus, so it stays in front.
TEST_F(Desktop, AsksBeforeAChildThatQtActivatesTakesOver) {
  const auto activateSecond = [&] {
    auto& second = dynamic_cast<QMdiSubWindow&>(widgetOf(two));
    second.mdiArea()->setActiveSubWindow(&second);
    return events();
  };
  log.on["txtA_LostFocus"] = [&] { EXPECT_TRUE(one.txtA.SetFocus()); };
  EXPECT_EQ(activateSecond(), "txtA_LostFocus");
  EXPECT_EQ(forms.activeChild(), &one);
  log.on.clear();
  EXPECT_EQ(activateSecond(), "txtA_LostFocus frmUno_Deactivate");
  EXPECT_EQ(forms.activeChild(), &two);
}

// A step "WISH ELEMENT" is what a screen reader asks of it; behind " => " are the events. The list
// takes the focus back whenever it loses it, so the last wish is refused.
TEST_F(Desktop, DoesAScreenReadersWishes) {
  log.on["com_LostFocus"] = [&] { EXPECT_TRUE(one.com.SetFocus()); }; // a refusal
  for (const char* wish : {"SetFocus", "Press", "Toggle", "Increase", "Decrease", "SetText"})
    player->verbs[wish] = [this, wish](auto& on, auto&) {
      auto* const said = QAccessible::queryAccessibleInterface(&widgetOf(player->get(on)));
      if (wish == std::string("SetText"))
        said->setText(QAccessible::Value, "5");
      else
        said->actionInterface()->doAction(wish);
      EXPECT_EQ(log.events, "") << "inside the screen reader's call, which a box would hold up";
    };
  walk({"SetFocus txtB => txtA_LostFocus", "SetText txtA => txtB_LostFocus txtA_Change",
        "Press pic => txtA_LostFocus pic_Click", "Press lbl => lbl_Click",
        "Toggle chk => pic_LostFocus chk_Click", "Increase com => chk_LostFocus com_Click",
        "Increase com => com_Click", "Increase com => ", // behind the last
        "Decrease com => com_Click", "SetFocus txtB => com_LostFocus"},
       [&](const std::string& wish) {
         player->run(wish);
         return events();
       });
  EXPECT_EQ(one.com.Text(), "uno") << "the first: up twice, once in vain, and down again";
  auto* const list = QAccessible::queryAccessibleInterface(&widgetOf(one.com));
  for (const bool open : {true, false}) {
    list->actionInterface()->doAction("ShowMenu");
    EXPECT_EQ(list->state().expanded, open);
  }
  EXPECT_TRUE(list->state().expandable);
}

// Ctrl+F7 begins it, an arrow moves the child by 10 pixels, Enter or Escape ends it.
TEST_F(Desktop, MovesAChildByItsKeys) {
  const QPoint start = widgetOf(one).pos();
  player->run("Ctrl+F7, Right, Down, Right, Enter");
  EXPECT_EQ(widgetOf(one).pos(), start + QPoint(20, 10)); // pixels
  player->run("Ctrl+F7, Left, Up, Escape");
  EXPECT_EQ(widgetOf(one).pos(), start + QPoint(20, 10)) << "taken back";
  player->run("Ctrl+F7, Left, Up, Enter, Up");
  EXPECT_EQ(widgetOf(one).pos(), start + QPoint(10, 0)) << "ended by Enter";
  EXPECT_EQ(log.take(), "") << "no key is for the element with the focus";
}

TEST_F(Desktop, BringsAWindowToTheFrontByAClickBesideItsElements) {
  QWidget& shown = widgetOf(two);
  shown.move(widgetOf(one).width() - 50, 0); // dragged out from under the other
  // In the window's own pixels, of which it has some 400 each way: right of its elements.
  QTest::mouseClick(window(), Qt::LeftButton, {}, shown.mapTo(&widgetOf(frame), QPoint(350, 300)));
  EXPECT_EQ(events(), "txtA_LostFocus frmUno_Deactivate");
  EXPECT_EQ(forms.activeChild(), &two);
}

// The menu that is open lists the child windows, each with a number: frmDos was opened first.
TEST_F(Desktop, BringsAWindowToTheFrontByTheMenusList) {
  QMenu& menu = *widgetOf(frame).findChild<QMenuBar*>()->actions().constFirst()->menu();
  menu.popup({});
  for (QAction* action : menu.actions())
    if (action->text() == "&1 frmDos")
      action->trigger();
  menu.close();
  EXPECT_EQ(events(), "txtA_LostFocus frmUno_Deactivate");
  EXPECT_EQ(forms.activeChild(), &two);
}

TEST_F(Desktop, ChoosesFromAListByItsKeys) {
  player->run("Tab, Tab, Tab, Down, Down, Down"); // there are two items
  EXPECT_EQ(one.com.Text(), "dos");
  EXPECT_EQ(events(), "txtA_LostFocus txtB_LostFocus chk_LostFocus com_Click com_Click");
}

} // namespace
