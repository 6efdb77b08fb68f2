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
#include <filesystem>
#include <gtest/gtest.h>

namespace scripted {

using namespace forms;

namespace {

int argumentCount = 1;
char programName[] = "qt_tests";
char* arguments[] = {programName, nullptr};

constexpr std::pair<Key, Qt::Key> Keys[] = {
    {Key::Left, Qt::Key_Left},     {Key::Right, Qt::Key_Right},   {Key::Up, Qt::Key_Up},
    {Key::Down, Qt::Key_Down},     {Key::Enter, Qt::Key_Return},  {Key::Space, Qt::Key_Space},
    {Key::Delete, Qt::Key_Delete}, {Key::Escape, Qt::Key_Escape}, {Key::Digit, Qt::Key_0}};

QString toQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

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

QtPlayer::~QtPlayer() {
  for (const Expected& left : expected_)
    ADD_FAILURE() << "never came: " << left.text.text;
}

// --- What the program asks -----------------------------------------------------------------------

void QtPlayer::expectBox(Name text, Answer answer, Meanwhile meanwhile) {
  expected_.push_back({std::move(text), answer, std::move(meanwhile)});
}

void QtPlayer::expectModal(Name window, Meanwhile meanwhile) {
  expected_.push_back({std::move(window), Answer::Ok, std::move(meanwhile)});
}

QtPlayer::Expected QtPlayer::next(const std::string& asked) {
  if (expected_.empty() || expected_.front().text.text != asked) {
    ADD_FAILURE() << "unexpected: " << asked;
    return {Name(asked), Answer::No, {}};
  }
  Expected expected = expected_.front();
  expected_.pop_front();
  return expected;
}

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
    if (expected.meanwhile)
      expected.meanwhile();
    else
      window.close();
  });
  qt_.waitModal(window);
  settle();
}

Answer QtPlayer::messageBox(const MessageBox& box) {
  const Expected expected = next(box.text);
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

// --- Finding -------------------------------------------------------------------------------------

Window* QtPlayer::window(const std::string& name) const {
  for (Window* open : forms_->openWindows())
    if (open->name() == name)
      return open;
  return nullptr;
}

Element* QtPlayer::element(const std::string& name) const {
  for (Window* open : forms_->openWindows())
    for (Element* one : open->elements())
      if (one->name() == name || open->name() + "." + one->name() == name)
        return one;
  return nullptr;
}

QWidget& QtPlayer::widget(const Name& name) {
  settle();
  const Element* const wanted = element(name.text);
  const std::string form = wanted ? wanted->window().name() : name.text;
  for (QWidget* top : QApplication::allWidgets()) {
    if (top->objectName() != toQt(form) || !top->isVisible())
      continue;
    // A child window's form, which lies in the window proper, has the same name.
    auto* const found = top->findChild<QWidget*>(toQt(wanted ? wanted->name() : form));
    if (found && found->isVisible())
      return *found;
    if (!wanted)
      return *top;
  }
  GTEST_MESSAGE_AT_(name.file, name.line, "not on the screen",
                    testing::TestPartResult::kFatalFailure)
      << name.text;
  throw std::runtime_error(name.text);
}

// --- What a person does --------------------------------------------------------------------------

bool QtPlayer::click(Name name) {
  const QPointer<QWidget> target(&widget(name));
  Element& aim = *element(name.text);
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

void QtPlayer::rightClick(Name name) {
  QTest::mouseClick(&widget(name), Qt::RightButton);
}

void QtPlayer::type(Name name, std::string_view text) {
  auto* const box = qobject_cast<QLineEdit*>(&widget(name));
  ASSERT_TRUE(box);
  box->setFocus();
  box->selectAll();
  if (text.empty())
    QTest::keyClick(box, Qt::Key_Delete);
  for (const QChar letter : toQt(text)) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
    QCoreApplication::sendEvent(box, &press);
  }
}

void QtPlayer::choose(Name name, std::string_view item) {
  auto* const list = qobject_cast<QComboBox*>(&widget(name));
  ASSERT_TRUE(list);
  QTest::mousePress(list, Qt::LeftButton);
  if (!list->view()->isVisible())
    return; // the focus was not let go
  list->view()->setCurrentIndex(list->model()->index(list->findText(toQt(item)), 0));
  QTest::keyClick(list->view(), Qt::Key_Return);
}

void QtPlayer::tab(bool forwards) {
  QTest::keyClick(focusHolder(), forwards ? Qt::Key_Tab : Qt::Key_Backtab);
}

bool QtPlayer::key(Key key, int digit) {
  const auto* const found = std::find_if(std::begin(Keys), std::end(Keys),
                                         [&](const auto& pair) { return pair.first == key; });
  QKeyEvent press(QEvent::KeyPress, found->second + digit, Qt::NoModifier);
  const QPointer<QWidget> holder(focusHolder());
  QCoreApplication::sendEvent(holder, &press);
  if (holder) {
    QKeyEvent release(QEvent::KeyRelease, found->second + digit, Qt::NoModifier);
    QCoreApplication::sendEvent(holder, &release);
  }
  return press.isAccepted();
}

void QtPlayer::menu(Name entry) {
  for (QWidget* top : QApplication::topLevelWidgets())
    if (auto* action = top->findChild<QAction*>(toQt(entry.text)))
      return action->trigger();
  ADD_FAILURE() << "no entry " << entry.text;
}

void QtPlayer::shortcut(Name button) {
  QTest::keyClick(&widget(Name(element(button.text)->window().name())), Qt::Key_D,
                  Qt::ControlModifier | Qt::ShiftModifier);
}

bool QtPlayer::closeWindow(Name name) {
  QWidget* shown = &widget(name);
  // A child's form has the name of its window; the window round it has the close box.
  if (QWidget* outer = shown->parentWidget(); outer && outer->objectName() == shown->objectName())
    shown = outer;
  shown->close();
  return !window(name.text);
}

bool QtPlayer::activate(Name name) {
  QWidget* shown = &widget(name);
  if (QWidget* outer = shown->parentWidget(); outer && outer->objectName() == shown->objectName())
    shown = outer;
  constexpr QPoint Title(60, 8);
  QTest::mouseClick(shown, Qt::LeftButton, {}, Title);
  QCoreApplication::processEvents();
  return forms_->activeChild() == window(name.text);
}

// The clock is the test's own: which timers run is the forms layer's knowledge.
void QtPlayer::tick(int seconds) {
  for (; seconds > 0; --seconds)
    for (Window* open : std::vector<Window*>(forms_->openWindows()))
      for (Element* one : std::vector<Element*>(open->elements()))
        if (one->kind() == Kind::Timer && one->Enabled)
          forms_->ticked(static_cast<Timer&>(*one));
}

std::string QtPlayer::focused() {
  settle();
  const QWidget* const holder = QApplication::focusWidget();
  const std::string name = holder ? holder->objectName().toStdString() : "";
  return element(name) ? name : "";
}

} // namespace scripted
