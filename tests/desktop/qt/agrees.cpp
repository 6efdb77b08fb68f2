#include "desktop/qt/on_screen.h"

#include <QAccessible>
#include <QApplication>
#include <QHash>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>

#include "desktop/qt/form.h"
#include "forms/grid_picture.h"

namespace scripted {

using namespace forms;

namespace {

// None of the converters of the layer under test.
QString text(const std::string& utf8) {
  return QString::fromUtf8(utf8.c_str());
}

} // namespace

QWidget* shownWidget(const Element& element) {
  const QString own = text(element.name()), form = text(element.window().name());
  for (QWidget* widget : QApplication::allWidgets()) {
    // The form inside a window has the same name.
    const QWidget* const above = widget->parentWidget();
    const bool onForm = above && above->objectName() == form;
    if (widget->isVisible() && widget->objectName() == own && onForm == (own != form))
      return widget;
  }
  return nullptr;
}

// Other platforms may have other windows in front, and this one gives logical pixels alone.
QImage onScreen(QWidget& window) {
  if (QGuiApplication::platformName() != "offscreen" || window.devicePixelRatioF() != 1)
    return window.grab().toImage();
  return window.screen()->grabWindow(window.winId()).toImage();
}

bool isNear(QRgb a, QRgb b, int levels) {
  return std::abs(qRed(a) - qRed(b)) <= levels && std::abs(qGreen(a) - qGreen(b)) <= levels &&
         std::abs(qBlue(a) - qBlue(b)) <= levels;
}

namespace {

// Of twips, on a window shown at `percent` of its size; from edge to edge: what touches leaves no
// gap.
QRect pixels(int left, int top, int width, int height, int percent = 100) {
  const auto pixel = [=](int twips) { return qRound(twips * percent / 1500.0); };
  const QPoint corner(pixel(left), pixel(top));
  return {corner, QPoint(pixel(left + width) - 1, pixel(top + height) - 1)};
}

// What is written on it.
std::string written(const Element& element) {
  if (const auto* const label = dynamic_cast<const Label*>(&element))
    return label->Caption;
  if (const auto* const button = dynamic_cast<const Button*>(&element))
    return button->Caption;
  if (const auto* const list = dynamic_cast<const DropList*>(&element))
    return list->Text();
  const auto* const box = dynamic_cast<const TextBox*>(&element);
  return box ? text(box->Text).remove('\r').toStdString() : "";
}

std::string written(const QWidget& shown) {
  QString all;
  for (const char* property : {"text", "plainText", "currentText"}) // each kind has one of them
    all += shown.property(property).toString();
  return all.toStdString();
}

// As it is seen, and as a screen reader finds it.
void lookAtElement(const Element& element, const QAccessibleInterface& heard, int percent) {
  SCOPED_TRACE(element.name());
  const auto& widget = static_cast<const QWidget&>(*heard.object());
  const auto* const box = dynamic_cast<const CheckBox*>(&element);
  const auto* const typed = dynamic_cast<const TextBox*>(&element);
  const auto* const picture = dynamic_cast<const Picture*>(&element);
  const bool isList = element.kind() == Kind::DropList;
  const std::string name = element.spokenName(), words = written(element);
  EXPECT_EQ(written(widget), words);
  EXPECT_EQ(widget.toolTip().toStdString(), element.ToolTipText.get());
  EXPECT_EQ(heard.text(QAccessible::Name).toStdString(), name.empty() ? words : name);
  EXPECT_EQ(heard.text(QAccessible::Description).toStdString(),
            isList ? words : element.spokenHint());
  EXPECT_NE(heard.state().disabled, element.Enabled.get());
  EXPECT_EQ(heard.state().checked, box && box->Value != 0);
  EXPECT_EQ(heard.state().focusable, element.takesFocus());
  EXPECT_EQ(heard.state().editable, typed && !typed->MultiLine);
  EXPECT_EQ(heard.role() == QAccessible::Button,
            picture ? picture->Click != nullptr : element.kind() == Kind::Button);
  const QRect place = pixels(element.Left, element.Top, element.Width, element.Height, percent);
  // The style draws these at sizes of its own.
  EXPECT_TRUE(box || isList || widget.geometry() == place);
  EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry())) << "it is cut";
}

// The pixels of its file, at points inside frame and raised edge where nothing lies in front; the
// keyboard's mark may lie over some.
void lookAtPicture(const Picture& picture, QWidget& widget, const QImage& screen) {
  static QHash<QString, QImage> files;
  const QPoint corner = picture.Border ? QPoint(1, 1) : QPoint();
  const QString path = text(picture.picturePath());
  QImage& file = files[QString("%1 %2").arg(path).arg(widget.width())];
  if (file.isNull())
    file = QImage(path).scaled(widget.size() - 2 * QSize(corner.x(), corner.y()),
                               Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  int points = 0, wrong = 0;
  for (int y = file.height() / 8; y < file.height() * 7 / 8; y += 1 + file.height() / 10)
    for (int x = file.width() / 8; x < file.width() * 7 / 8; x += 1 + file.width() / 10) {
      const QPoint there = widget.mapTo(widget.window(), corner + QPoint(x, y));
      if (widget.window()->childAt(there) != &widget)
        continue;
      ++points;
      wrong += !isNear(screen.pixel(there), file.pixel(x, y), 12);
    }
  EXPECT_LE(wrong, points / 4 + 2) << "points of " << picture.name() << " differ from its file";
}

// The keyboard's cursor is marked where it stands, and nothing else but the focus.
void lookAtMarks(const Window& window, QList<QRect> marks, int percent) {
  if (const QWidget* focused = window.focused() ? shownWidget(*window.focused()) : nullptr)
    marks.removeOne(focused->geometry().adjusted(-3, -3, 3, 3));
  QList<QRect> wanted;
  const GridPicture* const board = window.grid();
  if (board && board->Visible && board->cursorSquare() > 0) {
    const int square = board->cursorSquare() - 1, columns = board->columns(), side = board->side();
    wanted << pixels(board->Left + board->frameWidth() + square % columns * side,
                     board->Top + board->frameWidth() + square / columns * side, side, side,
                     percent);
  }
  EXPECT_EQ(marks, wanted) << "marks of " << window.name();
}

void lookAtForm(const Window& window, qt::Form& form) {
  const int percent = form.scale().percent();
  const QImage screen = onScreen(*form.window());
  const QAccessibleInterface& heard = *QAccessible::queryAccessibleInterface(&form);
  int elements = 0;
  for (const Element* element : window.elements()) {
    QWidget* const widget = shownWidget(*element);
    EXPECT_EQ(widget != nullptr, element->Visible.get()) << element->name();
    if (!widget)
      continue;
    ++elements;
    const auto* const part =
        heard.child(heard.indexOfChild(QAccessible::queryAccessibleInterface(widget)));
    ASSERT_TRUE(part) << element->name() << " is not found by a screen reader";
    lookAtElement(*element, *part, percent);
    // Other densities and sizes are painted from other files.
    if (const auto* const picture = dynamic_cast<const Picture*>(element))
      if (!picture->picturePath().empty() && percent == 100 && widget->devicePixelRatioF() == 1)
        lookAtPicture(*picture, *widget, screen);
  }
  EXPECT_EQ(heard.childCount(), elements) << "more in " << window.name() << " than its elements";
  QList<QRect> marks;
  for (const QWidget* child : form.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    if (child->isVisible() && child->testAttribute(Qt::WA_TransparentForMouseEvents))
      marks << child->geometry();
  lookAtMarks(window, marks, percent);
}

// Where typing goes, when it does not go to a box, a menu or a list.
void lookAtFocus(const Window& active, const QWidget& widget) {
  const Window* holder = &active;
  if (const auto* const area = widget.findChild<QMdiArea*>()) {
    holder = active.forms().activeChild();
    EXPECT_EQ(area->activeSubWindow(), holder ? shownWidget(*holder) : nullptr);
  }
  if (!holder || !holder->focused())
    return;
  // From an element that has vanished the keys go to the form.
  const Element* const wanted = holder->focused()->isReachable() ? holder->focused() : holder;
  const QWidget* const focused = QApplication::focusWidget();
  ASSERT_TRUE(focused) << "the focus is not on " << wanted->name();
  EXPECT_EQ(focused->parentWidget()->objectName() + "." + focused->objectName(),
            text(holder->name() + "." + wanted->name()));
}

} // namespace

void agrees(const Forms& forms) {
  if (testing::Test::HasFailure())
    return;
  for (const Window* window : forms.openWindows()) {
    QWidget* const widget = shownWidget(*window);
    ASSERT_TRUE(widget) << window->name() << " is not on the screen";
    const bool isFrame = window->windowKind() == WindowKind::Frame;
    EXPECT_EQ(widget->windowTitle(), text(window->Caption));
    EXPECT_EQ(widget->windowIcon().isNull(), window->Icon.get().empty()) << window->name();
    // A window manager may put one that is not inside the frame a little beside the place.
    const bool isPlaced = !isFrame && !window->PlacedByDesktop &&
                          (!widget->isWindow() || QGuiApplication::platformName() == "offscreen");
    EXPECT_TRUE(!isPlaced || widget->pos() == pixels(window->Left, window->Top, 0, 0).topLeft())
        << window->name();
    if (!isFrame) // its menu is held by a picture
      lookAtForm(*window, *widget->findChild<qt::Form*>());
    if (widget == QApplication::activeWindow() && !QApplication::activePopupWidget())
      lookAtFocus(*window, *widget);
  }
}

} // namespace scripted
