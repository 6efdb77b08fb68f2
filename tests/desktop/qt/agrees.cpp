#include "desktop/qt/agrees.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDebug>
#include <QIcon>
#include <QImageReader>
#include <QMap>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <gtest/gtest.h>

#include "desktop/qt/form.h"
#include "forms/grid_picture.h"

namespace scripted {

using namespace forms;

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

// None of the converters of the layer under test.
QString text(const std::string& utf8) {
  return QString::fromUtf8(utf8.c_str());
}
double factor = 1; // by which the window that is looked at is larger than it says
int pixel(double twips) {
  return qRound(twips * factor / 15);
}
// From edge to edge: what touches leaves no gap.
QRect pixels(int left, int top, int width, int height) {
  const QPoint corner(pixel(left), pixel(top));
  return {corner, QPoint(pixel(left + width) - 1, pixel(top + height) - 1)};
}
QRect place(const Element& element) {
  return pixels(element.Left, element.Top, element.Width, element.Height);
}
// Without the frame of a picture.
QRect innerPlace(const Picture& picture) {
  const int frame = picture.Border ? 15 : 0;
  return pixels(picture.Left + frame, picture.Top + frame, picture.Width - 2 * frame,
                picture.Height - 2 * frame);
}

template <class T>
void same(const Element& element, const char* what, const T& expected, const T& seen) {
  if (expected == seen)
    return;
  QString both;
  QDebug(&both) << "expected" << expected << "seen" << seen;
  ADD_FAILURE() << element.window().name() << " " << element.name() << ", " << what << ": "
                << both.toStdString();
}

// All that an element says in words: text or choice, tick, tool tip, name and description for
// screen readers, whether it is grey, items of a list.
QStringList words(const Element& element) {
  const auto* const list = dynamic_cast<const DropList*>(&element);
  QString shown, name = text(element.AccessibleName);
  bool ticked = false;
  if (const auto* const box = dynamic_cast<const TextBox*>(&element))
    shown = text(box->Text).remove('\r');
  if (const auto* const box = dynamic_cast<const CheckBox*>(&element))
    ticked = box->Value != 0;
  if (const auto* const label = dynamic_cast<const Label*>(&element))
    shown = text(label->Caption);
  if (const auto* const button = dynamic_cast<const Button*>(&element))
    shown = text(button->Caption);
  if (list)
    shown = text(list->Text());
  if (name.isEmpty() && (element.kind() == Kind::Label || element.kind() == Kind::Button))
    name = shown;
  const QString tip = text(element.ToolTipText);
  QStringList all{shown, ticked ? "ticked" : "", tip,
                  name,  list ? shown : tip,     element.Enabled ? "" : "grey"};
  for (const std::string& item : list ? list->items() : std::vector<std::string>())
    all << text(item);
  return all;
}

QStringList words(const QWidget& widget) {
  QString shown;
  for (const char* property : {"text", "plainText", "currentText"})
    shown += widget.property(property).toString();
  QStringList all{shown,
                  widget.property("checked").toBool() ? "ticked" : "",
                  widget.toolTip(),
                  widget.accessibleName(),
                  widget.accessibleDescription(),
                  widget.isEnabled() ? "" : "grey"};
  const auto* const list = qobject_cast<const QComboBox*>(&widget);
  for (int i = 0; list && i < list->count(); ++i)
    all << list->itemText(i);
  return all;
}

// The file in so many pixels.
const QImage& file(const QString& path, QSize size) {
  static QMap<std::pair<QString, int>, QImage> known;
  QImage& image = known[{path, size.width()}];
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);
  if (image.isNull())
    image = reader.read().scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  return image;
}

// A lattice of points inside frame and raised edge, where nothing lies in front; a mark for the
// keyboard may lie over some. Other densities and sizes are painted from other files.
void lookAtPicture(const Picture& picture, const QWidget& widget, const QImage& screen) {
  const QString path = text(picture.picturePath());
  const QRect inner = innerPlace(picture).translated(-widget.pos());
  if (path.isEmpty() || widget.devicePixelRatioF() != 1 || factor != 1)
    return;
  int points = 0, wrong = 0;
  for (int y = inner.top() + 7; y < inner.bottom() - 7; y += std::max(6, inner.height() / 10))
    for (int x = inner.left() + 7; x < inner.right() - 7; x += std::max(6, inner.width() / 10)) {
      const QPoint there = widget.mapTo(widget.window(), QPoint(x, y));
      if (widget.window()->childAt(there) != &widget)
        continue;
      const QRgb expected = file(path, inner.size()).pixel(QPoint(x, y) - inner.topLeft());
      ++points;
      wrong += !isNear(screen.pixel(there), expected, 12);
    }
  if ((wrong - 2) * 4 > points)
    same(picture, "picture", path, QString("%1 of %2 points differ").arg(wrong).arg(points));
}

// The highest rank is in front, and of several the one that was made last.
const Element& inFrontAt(const Window& window, QPoint point) {
  const auto rank = [](const Element& element) {
    const auto* const picture = dynamic_cast<const Picture*>(&element);
    return picture ? picture->zOrderRank.get() : 0;
  };
  const Element* front = nullptr;
  for (const Element* element : window.elements())
    if (element->Visible && place(*element).contains(point) &&
        (!front || rank(*element) >= rank(*front)))
      front = element;
  return front ? *front : window;
}

// A tick box is drawn at the style's size, in the middle of its element; a small list keeps its
// arrow.
void lookAtPlace(const Element& element, const QWidget& widget) {
  QRect wanted = place(element);
  const QPoint middle = wanted.center();
  if (element.kind() == Kind::CheckBox)
    wanted.setSize(wanted.size().expandedTo(widget.size()));
  wanted.moveCenter(middle);
  if (element.kind() == Kind::DropList && factor < 0.7)
    wanted.setWidth(qMax(wanted.width(), widget.width()));
  same(element, "place", wanted, widget.geometry());
  const QWidget* front = widget.parentWidget()->childAt(middle);
  while (front && front->parentWidget() != widget.parentWidget())
    front = front->parentWidget(); // a part of the element
  same(element, "in front", text(inFrontAt(element.window(), middle).name()),
       front ? front->objectName() : "nothing");
}

// Empty without a cursor.
QRect cursorPlace(const GridPicture& board) {
  const int square = board.cursorSquare - 1, columns = board.columns();
  if (square < 0 || columns == 0 || !board.Visible)
    return {};
  const int frame = board.Border ? 15 : 0, side = board.side();
  return pixels(board.Left + frame + square % columns * side,
                board.Top + frame + square / columns * side, side, side);
}

// Looks at all elements of a window; hands back the pixels that they need.
QSize lookAtElements(const Window& window, QWidget& form) {
  const QImage screen = onScreen(*form.window());
  QMultiMap<QString, QWidget*> widgets, marks;
  for (QWidget* child : form.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    if (child->isVisible())
      (child->testAttribute(Qt::WA_TransparentForMouseEvents) ? marks : widgets)
          .insert(child->objectName(), child);
  QRect needed, cursor = window.grid() ? cursorPlace(*window.grid()) : QRect();
  for (const Element* element : window.elements()) {
    if (element->kind() == Kind::Timer || element->kind() == Kind::MenuEntry)
      continue;
    const QList<QWidget*> mine = widgets.values(text(element->name()));
    same<qsizetype>(*element, "number of widgets", element->Visible ? 1 : 0, mine.size());
    widgets.remove(text(element->name()));
    if (!element->Visible || mine.isEmpty())
      continue;
    QWidget& widget = *mine.constFirst();
    if (element->index() < 0) // what comes and goes stretches no window
      needed |= widget.geometry();
    lookAtPlace(*element, widget);
    same(*element, "words", words(*element), words(widget));
    if (const auto* const picture = dynamic_cast<const Picture*>(element)) {
      lookAtPicture(*picture, widget, screen);
      same(*element, "role", picture->Click ? QAccessible::Button : QAccessible::Graphic,
           QAccessible::queryAccessibleInterface(&widget)->role());
    }
  }
  same<QStringList>(window, "left over", {}, widgets.keys());
  const QWidget* const focused = form.window()->focusWidget();
  for (const QWidget* mark : std::as_const(marks))
    if (mark->geometry() == cursor)
      cursor = {};
    else // the focus
      same(window, "mark", focused ? focused->geometry().adjusted(-3, -3, 3, 3) : QRect(),
           mark->geometry());
  same(window, "cursor that is not shown", QRect(), cursor);
  return {needed.right() + 1, needed.bottom() + 1};
}

// The entries below one, or in the menu bar. At the foot of a menu the child windows are listed.
void lookAtMenu(const Window& window, const MenuEntry* above, const QList<QAction*>& actions) {
  QStringList expected, seen;
  for (const QAction* action : actions)
    if (action->isVisible() && !action->isSeparator())
      seen << action->objectName() << action->text() << (action->isEnabled() ? "" : "grey");
  for (const Element* element : window.elements()) {
    const auto* const wanted = dynamic_cast<const MenuEntry*>(element);
    if (!wanted || wanted->parent != above || !wanted->Visible)
      continue;
    expected << text(wanted->name()) << text(wanted->Caption) << (wanted->Enabled ? "" : "grey");
    for (const QAction* action : actions)
      if (action->objectName() == text(wanted->name()) && action->menu())
        lookAtMenu(window, wanted, action->menu()->actions());
  }
  int number = 0;
  if (above && above->WindowList)
    for (const Window* child : window.forms().openWindows())
      if (child->windowKind() == WindowKind::Child)
        expected << "" << QString("&%1 %2").arg(++number).arg(text(child->Caption)) << "";
  same(window, above ? above->name().c_str() : "menu bar", expected, seen);
}

QImage icon(const QIcon& shown) {
  return shown.pixmap(QSize(32, 32), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
}

// The size of a maximised frame is the desktop's business; any other window is larger than it says
// where its own size would cut an element.
void lookAtWindow(const Window& window, QWidget& widget) {
  static QMap<QString, QImage> icons;
  const QString path = text(window.Icon);
  if (!path.isEmpty() && !icons.contains(path))
    icons[path] = icon(QIcon(path));
  same(window, "title", text(window.Caption), widget.windowTitle());
  if (icon(widget.windowIcon()) != icons.value(path))
    same(window, "icon", path, QString("another"));
  const auto* const bar = widget.findChild<QMenuBar*>();
  lookAtMenu(window, nullptr, bar ? bar->actions() : QList<QAction*>());
  if (widget.findChild<QMdiArea*>())
    return; // there is no room for elements
  auto* const form = dynamic_cast<qt::Form*>(widget.findChild<QWidget*>(widget.objectName()));
  ASSERT_TRUE(form) << window.name() << " has no area for elements";
  factor = form->scale().percent() / 100.0;
  EXPECT_TRUE(factor == 1 || window.grid()) << window.name() << " is not for enlarging";
  const QSize needed = lookAtElements(window, *form), frame = widget.size() - form->size();
  const bool outer = window.ClientWidth == 0 || window.ClientHeight == 0;
  const QSize inner(pixel(outer ? window.Width - 15 * frame.width() : window.ClientWidth),
                    pixel(outer ? window.Height - 15 * frame.height() : window.ClientHeight));
  same(window, "size", inner.expandedTo(needed) + frame, widget.size());
  factor = 1; // no place is scaled
  // A window manager may put a window of its own a little beside the place.
  const bool alone = QGuiApplication::platformName() == "offscreen" && !window.PlacedByDesktop;
  if (window.windowKind() == WindowKind::Child || alone)
    same(window, "place", QPoint(pixel(window.Left), pixel(window.Top)), widget.pos());
}

// Where typing goes, when it does not go to a box, a menu or a list.
void lookAtFocus(const Forms& forms, const Window& active, const QWidget& widget) {
  const Window* holder = &active;
  if (const auto* const area = widget.findChild<QMdiArea*>()) {
    const QMdiSubWindow* const child = area->activeSubWindow();
    holder = forms.activeChild();
    same(active, "active child", holder ? text(holder->name()) : "",
         child ? child->objectName() : "");
  }
  if (!holder || !holder->focused())
    return;
  // From an element that has vanished the keys go to the form.
  const Element* wanted = holder->focused();
  if (!wanted->isReachable())
    wanted = holder;
  const QWidget* const focused = QApplication::focusWidget();
  same(*holder, "focus", QStringList{text(holder->name()), text(wanted->name())},
       focused ? QStringList{focused->parentWidget()->objectName(), focused->objectName()}
               : QStringList());
}

} // namespace

void agrees(const Forms& forms) {
  if (testing::Test::HasFailure())
    return;
  QMultiMap<QString, QWidget*> shown; // without boxes, menus and lists
  for (QWidget* widget : QApplication::allWidgets())
    if (widget->isVisible() && (widget->isWindow() || qobject_cast<QMdiSubWindow*>(widget)) &&
        !widget->inherits("QDialog") && widget->windowType() != Qt::Popup &&
        widget->windowType() != Qt::ToolTip)
      shown.insert(widget->objectName(), widget);
  for (const Window* window : forms.openWindows()) {
    QWidget* const mine = shown.take(text(window->name()));
    ASSERT_TRUE(mine) << window->name() << " is not on the screen";
    lookAtWindow(*window, *mine);
    if (mine == QApplication::activeWindow() && !QApplication::activePopupWidget())
      lookAtFocus(forms, *window, *mine);
  }
  EXPECT_TRUE(shown.isEmpty()) << "left over: " << shown.firstKey().toStdString();
}

} // namespace scripted
