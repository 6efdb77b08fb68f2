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
// `factor`: by how much the window that is looked at is larger than it says.
int pixel(double twips, double factor = 1) {
  return qRound(twips * factor / 15);
}
// From edge to edge: what touches leaves no gap.
QRect pixels(int left, int top, int width, int height, double factor) {
  const QPoint corner(pixel(left, factor), pixel(top, factor));
  return {corner, QPoint(pixel(left + width, factor) - 1, pixel(top + height, factor) - 1)};
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

// All that an element says in words, to screen readers too; whether it is ticked, and whether grey.
void lookAtWords(const Element& element, const QWidget& widget) {
  QStringList expected, seen;
  const QString tip = text(element.ToolTipText), name = text(element.spokenName());
  QString shown, caption, shownThere, description = text(element.spokenHint());
  if (const auto* const box = dynamic_cast<const TextBox*>(&element))
    shown = text(box->Text).remove('\r');
  if (const auto* const label = dynamic_cast<const Label*>(&element))
    shown = caption = text(label->Caption);
  if (const auto* const button = dynamic_cast<const Button*>(&element))
    shown = caption = text(button->Caption);
  if (const auto* const list = dynamic_cast<const DropList*>(&element)) {
    shown = description = text(list->Text());
    for (const std::string& item : list->items())
      expected << text(item);
    const auto& box = dynamic_cast<const QComboBox&>(widget);
    for (int i = 0; i < box.count(); ++i)
      seen << box.itemText(i);
  }
  for (const char* property : {"text", "plainText", "currentText"})
    shownThere += widget.property(property).toString();
  expected << shown << tip << (name.isEmpty() ? caption : name) << description;
  seen << shownThere << widget.toolTip() << widget.accessibleName()
       << widget.accessibleDescription();
  same(element, "words", expected, seen);
  const auto* const tick = dynamic_cast<const CheckBox*>(&element);
  same(element, "tick", tick && tick->Value != 0, widget.property("checked").toBool());
  same(element, "enabled", element.Enabled.get(), widget.isEnabled());
}

// A lattice of points inside frame and raised edge, where nothing lies in front; a mark for the
// keyboard may lie over some. Other densities and sizes are painted from other files.
void lookAtPicture(const Picture& picture, QWidget& widget, double factor, const QImage& screen) {
  static QMap<std::pair<QString, int>, QImage> files; // in so many pixels
  const QString path = text(picture.picturePath());
  same(picture, "role", picture.Click ? QAccessible::Button : QAccessible::Graphic,
       QAccessible::queryAccessibleInterface(&widget)->role());
  if (path.isEmpty() || widget.devicePixelRatioF() != 1 || factor != 1)
    return;
  const QPoint corner = picture.Border ? QPoint(1, 1) : QPoint();
  QImage& file = files[{path, widget.width()}];
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);
  if (file.isNull())
    file = reader.read().scaled(widget.size() - 2 * QSize(corner.x(), corner.y()),
                                Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  int points = 0, wrong = 0;
  for (int y = 7; y < file.height() - 7; y += std::max(6, file.height() / 10))
    for (int x = 7; x < file.width() - 7; x += std::max(6, file.width() / 10)) {
      const QPoint there = widget.mapTo(widget.window(), corner + QPoint(x, y));
      if (widget.window()->childAt(there) != &widget)
        continue;
      ++points;
      wrong += !isNear(screen.pixel(there), file.pixel(x, y), 12);
    }
  if ((wrong - 2) * 4 > points)
    same(picture, "picture", path, QString("%1 of %2 points differ").arg(wrong).arg(points));
}

// A tick box is drawn at the style's size, in the middle of its element; a small list keeps its
// arrow.
void lookAtPlace(const Element& element, const QWidget& widget, double factor) {
  QRect wanted = pixels(element.Left, element.Top, element.Width, element.Height, factor);
  const QPoint middle = wanted.center();
  if (element.kind() == Kind::CheckBox)
    wanted.setSize(wanted.size().expandedTo(widget.size()));
  wanted.moveCenter(middle);
  if (element.kind() == Kind::DropList && factor < 0.7)
    wanted.setWidth(qMax(wanted.width(), widget.width()));
  same(element, "place", wanted, widget.geometry());
}

// Where the keyboard's cursor is marked, if it is.
QList<QRect> cursorPlace(const GridPicture* board, double factor) {
  if (!board || !board->Visible || board->cursorSquare() == 0)
    return {};
  const int square = board->cursorSquare() - 1, columns = board->columns(), side = board->side();
  return {pixels(board->Left + (board->Border ? 15 : 0) + square % columns * side,
                 board->Top + (board->Border ? 15 : 0) + square / columns * side, side, side,
                 factor)};
}

// Looks at all elements of a window; hands back the pixels that they need.
QSize lookAtElements(const Window& window, QWidget& form, double factor) {
  const QImage screen = onScreen(*form.window());
  QMultiMap<QString, QWidget*> widgets;
  QList<QRect> marks;
  for (QWidget* child : form.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    if (child->isVisible() && child->testAttribute(Qt::WA_TransparentForMouseEvents))
      marks << child->geometry();
    else if (child->isVisible())
      widgets.insert(child->objectName(), child);
  QRect needed;
  for (const Element* element : window.elements()) {
    if (!element->Visible || element->kind() == Kind::Timer || element->kind() == Kind::MenuEntry)
      continue;
    QWidget* const widget = widgets.take(text(element->name()));
    same(*element, "shown", true, widget != nullptr);
    if (!widget)
      continue;
    if (element->index() < 0) // what comes and goes stretches no window
      needed |= widget->geometry();
    lookAtPlace(*element, *widget, factor);
    lookAtWords(*element, *widget);
    if (const auto* const picture = dynamic_cast<const Picture*>(element))
      lookAtPicture(*picture, *widget, factor, screen);
  }
  same<QStringList>(window, "left over", {}, widgets.keys());
  if (const QWidget* const focused = form.window()->focusWidget()) // may be marked
    marks.removeOne(focused->geometry().adjusted(-3, -3, 3, 3));
  same(window, "cursor", cursorPlace(window.grid(), factor), marks);
  return {needed.right() + 1, needed.bottom() + 1};
}

// The entries in the menu bar, then those below them. The child windows are listed at the foot.
void lookAtMenu(const Window& window, QList<QAction*> actions) {
  QStringList expected, below, windows, seen;
  bool listed = false;
  for (qsizetype i = 0; i < actions.size(); ++i) {
    const QAction& action = *actions[i];
    if (!action.isVisible() || action.isSeparator())
      continue;
    seen << action.objectName() + " " + action.text() + (action.isEnabled() ? "" : " grey");
    actions += action.menu() ? action.menu()->actions() : QList<QAction*>();
  }
  for (const Window* child : window.forms().openWindows())
    if (child->windowKind() == WindowKind::Child)
      windows << QString(" &%1 %2").arg(windows.size() + 1).arg(text(child->Caption));
  for (const Element* element : window.elements()) {
    const auto* const entry = dynamic_cast<const MenuEntry*>(element);
    if (!entry || !entry->Visible || (entry->parent && !entry->parent->Visible))
      continue;
    (entry->parent ? below : expected)
        << text(entry->name() + " " + entry->Caption.get()) + (entry->Enabled ? "" : " grey");
    listed |= entry->WindowList;
  }
  same(window, "menu", expected + below + (listed ? windows : QStringList()), seen);
}

QImage icon(const QIcon& shown) {
  return shown.pixmap(QSize(32, 32), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
}

// The size of a maximised frame is the desktop's business; any other window is larger than it says
// where its own size would cut an element.
void lookAtWindow(const Window& window, QWidget& widget) {
  same(window, "title", text(window.Caption), widget.windowTitle());
  same(window, "icon", icon(QIcon(text(window.Icon))), icon(widget.windowIcon()));
  const auto* const bar = widget.findChild<QMenuBar*>();
  lookAtMenu(window, bar ? bar->actions() : QList<QAction*>());
  if (widget.findChild<QMdiArea*>())
    return; // there is no room for elements
  auto* const form = dynamic_cast<qt::Form*>(widget.findChild<QWidget*>(widget.objectName()));
  ASSERT_TRUE(form) << window.name() << " has no area for elements";
  const double factor = form->scale().percent() / 100.0;
  EXPECT_TRUE(factor == 1 || window.grid()) << window.name() << " is not for enlarging";
  const QSize needed = lookAtElements(window, *form, factor), frame = widget.size() - form->size();
  const bool outer = window.ClientWidth == 0 || window.ClientHeight == 0;
  const QSize inner(
      pixel(outer ? window.Width - 15 * frame.width() : window.ClientWidth, factor),
      pixel(outer ? window.Height - 15 * frame.height() : window.ClientHeight, factor));
  same(window, "size", inner.expandedTo(needed) + frame, widget.size());
  // No place is scaled. A window manager may put a window of its own a little beside the place.
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
  const Element* const wanted = holder->focused()->isReachable() ? holder->focused() : holder;
  const QWidget* const focused = QApplication::focusWidget();
  same(*holder, "focus", text(holder->name() + " " + wanted->name()),
       focused ? focused->parentWidget()->objectName() + " " + focused->objectName() : "nowhere");
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
