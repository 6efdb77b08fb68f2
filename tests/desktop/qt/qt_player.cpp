// A person at the Qt desktop, offscreen: acts on the widgets that show the elements.

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <stdexcept>

#include "desktop/qt/conversions.h"
#include "desktop/qt/on_screen.h"
#include "desktop/qt/qt_desktop.h"

#ifdef Q_OS_WIN
#include <windows.h>
#undef MessageBox // a macro
#endif

namespace scripted {

using namespace forms;
using forms::qt::toQt;

namespace {

int argumentCount = 0;
char* arguments[] = {nullptr};

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

// The middle, but for a picture where "X;Y" of it lies in its widget.
QPoint pixelOf(const Element& element, const QWidget& shown, const std::string& place) {
  const auto* const picture = dynamic_cast<const Picture*>(&element);
  if (!picture)
    return shown.rect().center();
  const auto [X, Y] = placeOn(*picture, place);
  const QPointF frame(picture->frameWidth(), picture->frameWidth());
  const QPointF pixel = (frame + QPointF(double(X), double(Y))) * shown.width() / picture->Width;
  return {static_cast<int>(pixel.x()), static_cast<int>(pixel.y())};
}

// Passes everything on to the Qt desktop, and answers the boxes that it opens.
class QtPlayer final : public Player {
public:
  QtPlayer();
  void windowOpened(Window& window) override {
    if (!std::exchange(forms_, &window.forms()))
      qt_.connect(*forms_);
    qt_.windowOpened(window);
  }
  void windowClosed(Window& window) override { qt_.windowClosed(window); }
  void waitModal(Window& window) override;
  void changed(Element& element) override {
    stale_ = true;
    qt_.changed(element);
  }
  void removed(Element& element) override { qt_.removed(element); }
  void focusAsked(Element& element) override { qt_.focusAsked(element); }
  Answer messageBox(const MessageBox& box) override;
  std::optional<std::string> fileDialog(const FileDialog& dialog) override;
  std::optional<PictureSize> pictureSize(const std::string& path) override {
    return qt_.pictureSize(path);
  }

private:
  void afterAction() override;
  void key(const std::string& name) override;

  qt::QtDesktop qt_;
  bool stale_ = false; // something has changed that may be painted later
};

} // namespace

std::unique_ptr<Player> makePlayer() {
  return std::make_unique<QtPlayer>();
}

QWidget& widgetOf(const Element& element) {
  settle();
  QWidget* const shown = shownWidget(element);
  return shown ? *shown : throw std::runtime_error(element.name() + " is not on the screen");
}

void pointAt(QWidget& widget, QPointF place) {
  QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &move);
}

// --- What a person does --------------------------------------------------------------------------

QtPlayer::QtPlayer() : qt_(argumentCount, arguments) {
  for (const char* part : {"img", "ico"})
    std::filesystem::copy(toPath(FALANGES_PROGRAM_FOLDER) / part, toPath(folder_.file(part)));
  verbs["click"] = [this](auto& on, auto& place) {
    const Element& element = get(on);
    const QPointer<QWidget> target(&widgetOf(element));
    const QPoint where = pixelOf(element, *target, place);
    EXPECT_EQ(target->parentWidget()->childAt(target->mapToParent(where)), target) << "is covered";
    QTest::mousePress(target, Qt::LeftButton, {}, where);
    if (target)
      QTest::mouseRelease(target, Qt::LeftButton, {}, where);
  };
  verbs["over"] = [this](auto& on, auto& place) {
    const auto& picture = get<Picture>(on);
    QWidget& shown = widgetOf(picture);
    pointAt(shown, pixelOf(picture, shown, place));
    const bool hand = shown.cursor().shape() == Qt::PointingHandCursor;
    EXPECT_EQ(hand, picture.invites()) << "a hand over what a click does something with";
  };
  verbs["right"] = [this](auto& on, auto&) {
    QTest::mouseClick(&widgetOf(get(on)), Qt::RightButton);
  };
  verbs["type"] = [this](auto& on, auto& text) {
    QWidget& box = widgetOf(get<TextBox>(on));
    box.setFocus();
    QMetaObject::invokeMethod(&box, "selectAll");
    QTest::keyClick(&box, Qt::Key_Delete);
    QInputMethodEvent typed;
    typed.setCommitString(toQt(text));
    QCoreApplication::sendEvent(&box, &typed);
  };
  verbs["choose"] = [this](auto& on, auto& item) {
    auto& list = dynamic_cast<QComboBox&>(widgetOf(get(on)));
    QTest::mousePress(&list, Qt::LeftButton);
    if (!list.view()->isVisible())
      return; // the focus was not let go
    list.view()->setCurrentIndex(list.model()->index(list.findText(toQt(item)), 0));
    QTest::keyClick(list.view(), Qt::Key_Return);
  };
  verbs["menu"] = [this](auto& on, auto&) {
    const auto& entry = get<MenuEntry>(on);
    widgetOf(entry.window()).template findChild<QAction*>(toQt(entry.name()))->trigger();
  };
  verbs["activate"] = [this](auto& on, auto&) {
    constexpr QPoint Title(60, 8);
    QTest::mouseClick(&widgetOf(get<Window>(on)), Qt::LeftButton, {}, Title);
    QCoreApplication::processEvents();
  };
  verbs["close"] = [this](auto& on, auto&) { widgetOf(get<Window>(on)).close(); };
}

void QtPlayer::key(const std::string& name) {
  settle();
  QWidget* const focused = QApplication::focusWidget();
  QTest::keySequence(focused ? focused : QApplication::activeWindow(), QKeySequence(toQt(name)));
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

// --- What the program asks -----------------------------------------------------------------------

void QtPlayer::waitModal(Window& window) {
  QTimer::singleShot(0, [&] { Player::waitModal(window); });
  qt_.waitModal(window);
  settle();
}

Answer QtPlayer::messageBox(const MessageBox& box) {
  QTimer::singleShot(0, [&] {
    const Answer wanted = Player::messageBox(box);
    auto* const shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_TRUE(shown);
    EXPECT_TRUE(box.icon.empty() || !shown->windowIcon().isNull());
    auto* const label = shown->findChild<QLabel*>("qt_msgbox_label");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name),
              toQt(box.text).remove('\r'));
    if (wanted == Answer::No)
      return QTest::keyClick(shown, Qt::Key_Escape);
    QTest::mouseClick(shown->button(wanted == Answer::Yes ? QMessageBox::Yes : QMessageBox::Ok),
                      Qt::LeftButton);
  });
  const Answer answer = qt_.messageBox(box);
  settle();
  return answer;
}

std::optional<std::string> QtPlayer::fileDialog(const FileDialog& dialog) {
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
    const QString path = toQt(Player::fileDialog(dialog).value_or(""));
#ifdef Q_OS_WIN
    // Wine's dialog adds to a name what its pattern begins with, but for the last one: all files.
    SendMessageW(FindWindowExW(shown, nullptr, L"ComboBox", nullptr), WM_KEYDOWN, VK_END, 0);
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

} // namespace scripted
