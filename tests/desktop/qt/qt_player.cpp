#include "desktop/qt/qt_player.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <stdexcept>

#include "desktop/qt/agrees.h"
#include "desktop/qt/conversions.h"

#ifdef Q_OS_WIN
#include <windows.h>
#undef MessageBox // a macro
#endif

namespace scripted {

using namespace forms;
using forms::qt::toQt;

namespace {

int argumentCount = 1;
char programName[] = "qt_tests";
char* arguments[] = {programName, nullptr};

// In the order of forms::Key.
constexpr Qt::Key Keys[] = {Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,
                            Qt::Key_Down,   Qt::Key_Return, Qt::Key_Space,
                            Qt::Key_Delete, Qt::Key_Escape, Qt::Key_0};

// What a window manager does when a box or a list has closed: the window below is active again.
void settle() {
  QCoreApplication::processEvents();
  // A list that has closed may still count as active.
  if (const QWidget* active = QApplication::activeWindow(); active && active->isVisible())
    return;
  for (QWidget* top : QApplication::topLevelWidgets())
    if (top->isVisible() && top->inherits("QMainWindow"))
      top->activateWindow();
  QCoreApplication::processEvents();
}

QWidget* focusHolder() {
  settle();
  return QApplication::focusWidget() ? QApplication::focusWidget() : QApplication::activeWindow();
}

// Where this place of the picture, twips from its inner corner, lies in its widget.
QPoint pixelOf(const Picture& picture, const QWidget& shown, float X, float Y) {
  const QPointF frame(picture.frameWidth(), picture.frameWidth());
  const QPointF pixel = (frame + QPointF(X, Y)) * shown.width() / picture.Width;
  return {static_cast<int>(pixel.x()), static_cast<int>(pixel.y())};
}

} // namespace

std::unique_ptr<Player> makePlayer() {
  return std::make_unique<QtPlayer>();
}

QtPlayer::QtPlayer() : qt_(argumentCount, arguments) {
  for (const char* part : {"img", "ico"})
    std::filesystem::copy(toPath(FALANGES_PROGRAM_FOLDER) / part, toPath(folder_.file(part)));
}

// --- What the program asks -----------------------------------------------------------------------

void QtPlayer::windowOpened(Window& window) {
  if (!forms_) {
    forms_ = &window.forms();
    qt_.connect(*forms_);
  }
  qt_.windowOpened(window);
}

void QtPlayer::waitModal(Window& window) {
  const Expected expected = next(window.name());
  QTimer::singleShot(0, [&] {
    afterAction();
    expected.meanwhile ? expected.meanwhile() : void(window.close());
  });
  qt_.waitModal(window);
  settle();
}

Answer QtPlayer::messageBox(const MessageBox& box) {
  const Expected expected = next(box);
  QTimer::singleShot(0, [&] {
    afterAction();
    if (expected.meanwhile)
      expected.meanwhile();
    auto* const shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_TRUE(shown);
    const bool asks = box.style != BoxStyle::Information;
    EXPECT_EQ(shown->buttons().size(), asks ? 2 : 1);
    EXPECT_TRUE(!asks || shown->defaultButton()->text() == QStringLiteral("No"));
    const QString caption = !asks ? "Aceptar" : expected.answer == Answer::Yes ? "Sí" : "No";
    for (QAbstractButton* button : shown->buttons())
      if (button->text() == caption)
        return QTest::mouseClick(button, Qt::LeftButton);
    ADD_FAILURE() << "no button " << caption.toStdString();
    shown->reject();
  });
  const Answer answer = qt_.messageBox(box);
  settle();
  return answer;
}

std::optional<std::string> QtPlayer::fileDialog(const FileDialog& dialog) {
  const Expected expected = next(dialog);
  const QString path = toQt(expected.path.value_or(""));
  QTimer looking;
  looking.callOnTimeout([&] {
#ifdef Q_OS_WIN
    const HWND shown = FindWindowW(L"#32770", toQt(dialog.title).toStdWString().c_str());
    const HWND name = shown ? FindWindowExW(shown, nullptr, L"Edit", nullptr) : nullptr;
    if (!IsWindowVisible(name))
      return; // not all there yet
    EXPECT_FALSE(IsWindowEnabled(GetWindow(shown, GW_OWNER)));
#endif
    looking.stop();
    afterAction();
    if (expected.meanwhile)
      expected.meanwhile();
#ifdef Q_OS_WIN
    SetWindowTextW(name, path.toStdWString().c_str());
    PostMessageW(name, WM_KEYDOWN, path.isEmpty() ? VK_ESCAPE : VK_RETURN, 0);
#else
    auto* const name = QApplication::activeModalWidget()->findChild<QLineEdit*>();
    name->setText(path);
    QTest::keyClick(name, path.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
#endif
  });
  looking.start();
  return qt_.fileDialog(dialog);
}

QWidget& QtPlayer::widget(const Element& element) {
  settle();
  const QString own = toQt(element.name()), form = toQt(element.window().name());
  for (QWidget* shown : QApplication::allWidgets()) {
    // The form inside a window has the same name.
    const QWidget* const above = shown->parentWidget();
    const bool onForm = above && above->objectName() == form;
    if (shown->isVisible() && shown->objectName() == own && onForm == (own != form))
      return *shown;
  }
  throw std::runtime_error(element.name() + " is not on the screen");
}

// --- What a person does --------------------------------------------------------------------------

void QtPlayer::press(Element& element, QPoint place) {
  const QPointer<QWidget> target(&widget(element));
  QTest::mousePress(target, Qt::LeftButton, {}, place);
  if (target)
    QTest::mouseRelease(target, Qt::LeftButton, {}, place);
}

void QtPlayer::doClick(Element& element) {
  // A check box answers on its mark alone, which stands at its left.
  press(element,
        element.kind() == Kind::CheckBox ? QPoint(6, widget(element).height() / 2) : QPoint());
}

void QtPlayer::doRightClick(Element& element) {
  QTest::mouseClick(&widget(element), Qt::RightButton);
}

void QtPlayer::doClickOn(Picture& picture, float X, float Y) {
  press(picture, pixelOf(picture, widget(picture), X, Y));
}

void QtPlayer::doMoveOver(Picture& picture, float X, float Y) {
  QWidget& shown = widget(picture);
  const QPointF place = pixelOf(picture, shown, X, Y);
  QMouseEvent move(QEvent::MouseMove, place, shown.mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QCoreApplication::sendEvent(&shown, &move);
}

void QtPlayer::doType(TextBox& element, std::string_view text) {
  auto* const box = qobject_cast<QLineEdit*>(&widget(element));
  ASSERT_TRUE(box);
  box->setFocus();
  box->selectAll();
  if (text.empty())
    QTest::keyClick(box, Qt::Key_Delete);
  for (const QChar letter : toQt(std::string(text))) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
    QCoreApplication::sendEvent(box, &press);
  }
}

void QtPlayer::doChoose(DropList& element, int item) {
  auto* const list = qobject_cast<QComboBox*>(&widget(element));
  ASSERT_TRUE(list);
  QTest::mousePress(list, Qt::LeftButton);
  if (!list->view()->isVisible())
    return; // the focus was not let go
  list->view()->setCurrentIndex(list->model()->index(item, 0));
  QTest::keyClick(list->view(), Qt::Key_Return);
}

void QtPlayer::doTab(bool forwards) {
  QTest::keyClick(focusHolder(), forwards ? Qt::Key_Tab : Qt::Key_Backtab);
}

void QtPlayer::doKey(Key key, int digit) {
  QTest::keyClick(focusHolder(), static_cast<Qt::Key>(Keys[static_cast<std::size_t>(key)] + digit));
}

void QtPlayer::doMenu(MenuEntry& entry) {
  widget(entry.window()).findChild<QAction*>(toQt(entry.name()))->trigger();
}

void QtPlayer::doShortcut(Button& /*button*/) {
  QTest::keyClick(focusHolder(), Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
}

void QtPlayer::doActivate(Window& window) {
  constexpr QPoint Title(60, 8);
  QTest::mouseClick(&widget(window), Qt::LeftButton, {}, Title);
  QCoreApplication::processEvents();
}

// Qt paints when a timer of five milliseconds has run out.
void QtPlayer::afterAction() {
  settle();
  if (std::exchange(stale_, false)) {
    QTest::qSleep(6);
    QCoreApplication::processEvents();
  }
  if (forms_)
    agrees(*forms_);
}

} // namespace scripted
