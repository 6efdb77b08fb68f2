#include "desktop/qt/qt_player.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "desktop/qt/conversions.h"

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
  if (QApplication::activeWindow())
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
  const Expected expected = next(Asked::Modal, window.name());
  QTimer::singleShot(0, [&] { expected.meanwhile ? expected.meanwhile() : void(window.close()); });
  qt_.waitModal(window);
  settle();
}

Answer QtPlayer::messageBox(const MessageBox& box) {
  const Expected expected = next(Asked::Box, box.text, box.style);
  QTimer::singleShot(0, [&] {
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
  const Expected expected = next(Asked::File, dialog.title);
  QTimer::singleShot(0, [&] {
    if (expected.meanwhile)
      expected.meanwhile();
    QWidget* const shown = QApplication::activeModalWidget();
    auto* const name = shown->findChild<QLineEdit*>();
    name->setText(toQt(expected.path.value_or("")));
    QTest::keyClick(name, name->text().isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
  });
  return qt_.fileDialog(dialog);
}

QWidget& QtPlayer::widget(const std::string& name) {
  settle();
  const Element* const wanted = find(name);
  if (!wanted)
    giveUp(name, "is not there");
  const QString own = toQt(wanted->name()), form = toQt(wanted->window().name());
  for (QWidget* shown : QApplication::allWidgets()) {
    // The form inside a window has the same name.
    const QWidget* const above = shown->parentWidget();
    const bool onForm = above && above->objectName() == form;
    if (shown->isVisible() && shown->objectName() == own && onForm == (own != form))
      return *shown;
  }
  giveUp(name, "is not on the screen");
}

// --- What a person does --------------------------------------------------------------------------

bool QtPlayer::click(const std::string& name) {
  const QPointer<QWidget> target(&widget(name));
  Element& aim = *find(name);
  const bool takesFocus = aim.takesFocus();
  Window& home = aim.window();
  // A check box answers on its mark alone, which stands at its left.
  const QPoint place = aim.kind() == Kind::CheckBox ? QPoint(6, target->height() / 2) : QPoint();
  QTest::mousePress(target, Qt::LeftButton, {}, place);
  const bool granted = !takesFocus || (home.focused() == &aim && forms_->activeChild() == &home) ||
                       home.windowKind() == WindowKind::Own;
  if (target)
    QTest::mouseRelease(target, Qt::LeftButton, {}, place);
  return granted;
}

void QtPlayer::rightClick(const std::string& name) {
  QTest::mouseClick(&widget(name), Qt::RightButton);
}

void QtPlayer::type(const std::string& name, std::string_view text) {
  auto* const box = qobject_cast<QLineEdit*>(&widget(name));
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

void QtPlayer::choose(const std::string& name, std::string_view item) {
  auto* const list = qobject_cast<QComboBox*>(&widget(name));
  ASSERT_TRUE(list);
  QTest::mousePress(list, Qt::LeftButton);
  if (!list->view()->isVisible())
    return; // the focus was not let go
  const int row = list->findText(toQt(std::string(item)));
  list->view()->setCurrentIndex(list->model()->index(row, 0));
  QTest::keyClick(list->view(), Qt::Key_Return);
}

void QtPlayer::tab(bool forwards) {
  QTest::keyClick(focusHolder(), forwards ? Qt::Key_Tab : Qt::Key_Backtab);
}

void QtPlayer::key(Key key, int digit) {
  QTest::keyClick(focusHolder(), static_cast<Qt::Key>(Keys[static_cast<std::size_t>(key)] + digit));
}

void QtPlayer::menu(const std::string& entry) {
  for (QWidget* top : QApplication::topLevelWidgets())
    if (auto* action = top->findChild<QAction*>(toQt(entry)))
      return action->trigger();
  giveUp(entry, "is not in the menu");
}

void QtPlayer::shortcut(const std::string& /*button*/) {
  QTest::keyClick(focusHolder(), Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
}

bool QtPlayer::closeWindow(const std::string& name) {
  widget(name).close();
  return !find(name);
}

bool QtPlayer::activate(const std::string& name) {
  constexpr QPoint Title(60, 8);
  QTest::mouseClick(&widget(name), Qt::LeftButton, {}, Title);
  QCoreApplication::processEvents();
  return forms_->activeChild() == find(name);
}

std::string QtPlayer::focused() {
  settle();
  const QWidget* const holder = QApplication::focusWidget();
  if (!holder || !holder->parentWidget())
    return "";
  const std::string name = holder->objectName().toStdString();
  return find(holder->parentWidget()->objectName().toStdString() + "." + name) ? name : "";
}

} // namespace scripted
