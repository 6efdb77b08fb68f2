// What comes from the system past the elements: the pointer, where Qt finds out which element gets
// it, the clock, the focus that Qt moves by itself, a screen reader's wishes.
#include <QAccessible>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "desktop/qt/agrees.h"
#include "desktop/qt/qt_player.h"
#include "scripted/test_windows.h"

using namespace scripted;

namespace {

class Desktop : public testing::Test {
protected:
  QPoint middle(const forms::Element& element) {
    QWidget& widget = player.widget(element);
    return widget.mapTo(widget.window(), widget.rect().center());
  }
  QWidget& frame() { return player.widget(program.frame); }
  QWindow* window() { return frame().windowHandle(); }
  void drag(const forms::Element& from, const forms::Element& to) {
    QTest::mousePress(window(), Qt::LeftButton, {}, middle(from));
    QTest::mouseMove(window(), middle(to));
    QTest::mouseRelease(window(), Qt::LeftButton, {}, middle(to));
  }
  // What has happened, once the screen has come to rest.
  std::string events() {
    QCoreApplication::processEvents();
    agrees(program.forms);
    return log.take();
  }

  QtPlayer player;
  TestProgram program{player};
  Log& log = program.log;
  TestWindow& one = program.one;
};

TEST_F(Desktop, ClicksWhereItIsPressedAndLetGo) {
  one.pic.MouseMove = [&](float X, float Y) {
    log.add(std::to_string(static_cast<int>(X)) + "," + std::to_string(static_cast<int>(Y)));
  };
  const forms::Element* const elements[] = {&one.pic, &one.lbl, &one.btn, &one.chk};
  for (const auto* from : elements)
    for (const auto* to : elements) {
      drag(*from, *to);
      EXPECT_EQ(log.take().find("_Click") != std::string::npos, from == to)
          << from->name() << " " << to->name();
    }
  EXPECT_TRUE(one.txtA.SetFocus());
  drag(one.pic, one.lbl);
  EXPECT_EQ(log.take(), "chk_LostFocus 435,180 435,180 txtA_LostFocus pic_Left 435,1080 435,1080");
  for (const auto* element : elements)
    QTest::mouseDClick(window(), Qt::LeftButton, {}, middle(*element));
  EXPECT_EQ(log.take(), "435,180 435,180 pic_Left 435,180 pic_Click 435,180 pic_Left 435,180 "
                        "pic_Click lbl_Click lbl_Click "
                        "pic_LostFocus btn_Click btn_Click btn_LostFocus chk_Click chk_Click");
}

TEST_F(Desktop, LeavesAnElementThatVanishesUnderItWithoutAClickOnAnother) {
  one.pic.LostFocus = {};
  one.picUnidad.MouseDown = [&](int i, forms::MouseButton) {
    forms::passOver(one.picUnidad.Unload(i));
  };
  EXPECT_TRUE(one.picUnidad.Load(1));
  one.picUnidad(1)->Top = one.pic.Top.get();
  one.picUnidad(1)->Visible = true;
  one.pic.ZOrder();
  events(); // the one that was made first is in front
  one.picUnidad(1)->ZOrder();
  drag(*one.picUnidad(1), one.pic);
  EXPECT_EQ(log.take(), "txtA_LostFocus");
}

TEST_F(Desktop, ShowsAHandOverAPictureThatAClickDoesSomethingWith) {
  bool inviting = true;
  one.pic.inviting = [&] { return inviting; };
  for (const bool now : {true, false}) {
    inviting = now;
    QTest::mouseMove(window(), middle(one.lbl));
    QTest::mouseMove(window(), middle(one.pic));
    const Qt::CursorShape seen = player.widget(one.pic).cursor().shape();
    EXPECT_EQ(seen, now ? Qt::PointingHandCursor : Qt::ArrowCursor);
  }
}

TEST_F(Desktop, TicksWhileTheTimerRuns) {
  forms::Timer& timer = program.frame.tmr;
  timer.Interval = 20;
  timer.Enabled = true;
  EXPECT_TRUE(QTest::qWaitFor([&] { return log.events.starts_with("tmr_Tick tmr_Tick"); }));
  timer.Enabled = false;
  log.take();
  QTest::qWait(60);
  EXPECT_EQ(log.take(), "");
}

TEST_F(Desktop, LetsGoOfTheWindowsThatOpenAndCloseBehindABox) {
  int reopened = 0;
  log.on["tmr_Tick"] = [&] {
    one.close();
    one.open();
    ++reopened;
  };
  qsizetype widgetsAtFirst = 0, widgetsInTheEnd = 0;
  const auto reopenBehindIt = [&] {
    program.frame.tmr.Interval = 1;
    program.frame.tmr.Enabled = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return reopened >= 2; }));
    widgetsAtFirst = QApplication::allWidgets().size();
    EXPECT_TRUE(QTest::qWaitFor([&] { return reopened >= 10; }));
    widgetsInTheEnd = QApplication::allWidgets().size();
    program.frame.tmr.Enabled = false;
  };
  log.on["btn_Click"] = [&] {
    player.expectBox("¿Declarar Rendición?", forms::Answer::Ok, reopenBehindIt);
    program.forms.messageBox("¿Declarar Rendición?");
  };
  player.run("click btn");
  EXPECT_EQ(widgetsAtFirst, widgetsInTheEnd);
}

TEST_F(Desktop, PutsTheFocusBackThatQtMoves) {
  program.own.open();
  QTest::keyClick(&player.widget(program.own.txtA), Qt::Key_Tab);
  // Nobody wants the focus of the window behind moved.
  for (TestWindow* behind : {&one, &program.own}) {
    player.widget(behind->btn).setFocus();
    player.widget(behind->btn).activateWindow();
    QCoreApplication::processEvents();
    EXPECT_EQ(events(), behind == &one ? "frmPropia_Load txtA_LostFocus" : "");
  }
}

// As Ctrl and Tab do.
TEST_F(Desktop, AsksBeforeAChildThatQtActivatesTakesOver) {
  auto& area = *player.widget(program.frame).findChild<QMdiArea*>();
  const auto activateSecond = [&] {
    area.setActiveSubWindow(dynamic_cast<QMdiSubWindow*>(&player.widget(program.two)));
    const std::string seen = events();
    return seen + " " + program.forms.activeChild()->name();
  };
  log.on["txtA_LostFocus"] = [&] { EXPECT_TRUE(one.txtA.SetFocus()); };
  EXPECT_EQ(activateSecond(), "txtA_LostFocus frmUno");
  log.on.clear();
  EXPECT_EQ(activateSecond(), "txtA_LostFocus frmUno_Deactivate frmDos");
}

TEST_F(Desktop, DoesAScreenReadersWishes) {
  // A refusal puts the focus back.
  log.on["com_LostFocus"] = [&] { EXPECT_TRUE(one.com.SetFocus()); };
  for (const char* wish :
       {"SetFocus", "Press", "Toggle", "Increase", "Decrease", "ShowMenu", "SetText"})
    player.verbs[wish] = [this, wish](auto& on, auto&) {
      auto* const said = QAccessible::queryAccessibleInterface(&player.widget(player.get(on)));
      QCoreApplication::processEvents();
      if (wish == std::string("SetText")) {
        said->setText(QAccessible::Value, "5");
      } else {
        EXPECT_TRUE(said->actionInterface()->actionNames().contains(wish));
        said->actionInterface()->doAction(wish);
      }
      EXPECT_EQ(log.events, "") << "inside the screen reader's call, which a box would hold up";
      QCoreApplication::processEvents();
      EXPECT_EQ(said->state().expanded, wish == std::string("ShowMenu"));
      if (said->state().expanded)
        said->actionInterface()->doAction(wish); // once more: closes it
    };
  walk({"SetFocus txtB => txtA_LostFocus", "SetText txtA => txtB_LostFocus txtA_Change",
        "Press pic => txtA_LostFocus pic_Click", "Press lbl => lbl_Click",
        "Toggle chk => pic_LostFocus chk_Click", "Increase com => chk_LostFocus com_Click",
        "Increase com => com_Click",
        "Increase com => ", // behind the last
        "ShowMenu com => ", "Decrease com => com_Click", "SetFocus txtB => com_LostFocus"},
       [&](const std::string& wish) {
         player.run(wish);
         return events();
       });
  program.own.open();
  const auto* const window = QAccessible::queryAccessibleInterface(&player.widget(program.own));
  EXPECT_EQ(window->role(), QAccessible::Dialog);
}

TEST_F(Desktop, MovesAChildByItsKeys) {
  const auto move = [&](const std::string& keys) {
    QTest::keyClick(&player.widget(one.txtA), Qt::Key_F7, Qt::ControlModifier);
    player.run(keys);
    return player.widget(one).pos();
  };
  const QPoint start = player.widget(one).pos();
  EXPECT_EQ(move("Right, Down, Right, Enter"), start + QPoint(20, 10));
  EXPECT_EQ(move("Left, Up, Escape"), start + QPoint(20, 10)) << "taken back";
  EXPECT_EQ(move("Left, Up, Enter, Up"), start + QPoint(10, 0)) << "ended by Enter";
  EXPECT_EQ(log.take(), "") << "no key is for the element with the focus";
}

TEST_F(Desktop, BringsAWindowToTheFrontByAClickBesideItsElements) {
  QWidget& two = player.widget(program.two);
  two.move(player.widget(one).width() - 50, 0); // dragged out from under the other
  const QPoint background = two.mapTo(&frame(), QPoint(350, 300));
  QTest::mouseClick(window(), Qt::LeftButton, {}, background);
  EXPECT_EQ(events(), "txtA_LostFocus frmUno_Deactivate");
  EXPECT_EQ(program.forms.activeChild(), &program.two);
}

TEST_F(Desktop, BringsAWindowToTheFrontByTheMenusList) {
  QMenu& menu = *frame().findChild<QMenuBar*>()->actions().constFirst()->menu();
  menu.popup({});
  for (QAction* action : menu.actions())
    if (action->text() == "&1 frmDos")
      action->trigger();
  menu.close();
  EXPECT_EQ(events(), "txtA_LostFocus frmUno_Deactivate");
  EXPECT_EQ(program.forms.activeChild(), &program.two);
}

TEST_F(Desktop, ChoosesFromAListByItsKeys) {
  EXPECT_TRUE(one.com.SetFocus());
  for (const char* item : {"uno", "dos", "dos"}) {
    QTest::keyClick(&player.widget(one.com), Qt::Key_Down);
    EXPECT_EQ(one.com.Text(), item);
  }
  EXPECT_EQ(events(), "txtA_LostFocus com_Click com_Click");
}

TEST_F(Desktop, RunsUntilTheFrameHasClosed) {
  QTimer::singleShot(0, [&] { EXPECT_TRUE(program.frame.close()); });
  QTimer::singleShot(5000, [] { QCoreApplication::exit(1); });
  EXPECT_EQ(player.run(), 0);
  EXPECT_EQ(player.run(), 0) << "closed before it began";
}

} // namespace
