#include "desktop/qt/form.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <utility>

#include <QChildEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <qdrawutil.h>

#include "desktop/qt/conversions.h"

namespace forms::qt {

namespace {

constexpr std::array<std::pair<int, Key>, 9> Keys{{{Qt::Key_Left, Key::Left},
                                                   {Qt::Key_Right, Key::Right},
                                                   {Qt::Key_Up, Key::Up},
                                                   {Qt::Key_Down, Key::Down},
                                                   {Qt::Key_Return, Key::Enter},
                                                   {Qt::Key_Enter, Key::Enter},
                                                   {Qt::Key_Space, Key::Space},
                                                   {Qt::Key_Delete, Key::Delete},
                                                   {Qt::Key_Escape, Key::Escape}}};

// Nothing for a key that the forms layer does not know.
std::optional<Key> toForms(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9)
    return Key::Digit;
  for (const auto& [pressed, meaning] : Keys)
    if (pressed == key)
      return meaning;
  return std::nullopt;
}

bool isArrow(Key key) {
  return key == Key::Left || key == Key::Right || key == Key::Up || key == Key::Down;
}

} // namespace

Form::Form(Window& window, Reporter& reporter) : reporter_(reporter), window_(&window) {
  setObjectName(toQt(window.name()));
  setAttribute(Qt::WA_OpaquePaintEvent);
}

QList<QWidget*> Form::elementsInSight() const {
  QList<QWidget*> elements;
  for (QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    if (!child->isHidden() && !child->testAttribute(Qt::WA_TransparentForMouseEvents))
      elements.append(child);
  std::stable_sort(elements.begin(), elements.end(), [](const QWidget* a, const QWidget* b) {
    return std::pair(a->y(), a->x()) < std::pair(b->y(), b->x());
  });
  return elements;
}

void Form::stack(QWidget& widget, int rank) {
  ranks_[&widget] = rank;
  // From the hindmost to the frontmost.
  for (QObject* child : children())
    if (child != &widget && ranks_.value(child) > rank)
      return widget.stackUnder(static_cast<QWidget*>(child));
  widget.raise();
}

void Form::childEvent(QChildEvent* event) {
  if (event->removed())
    ranks_.remove(event->child());
}

// The colour does not go into the palette, which the elements would inherit.
void Form::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (window_ && window_->BackColor)
    painter.fillRect(event->rect(), toQt(*window_->BackColor));
  else
    painter.fillRect(event->rect(), palette().window());
}

void Form::mousePressEvent(QMouseEvent* /*event*/) {
  if (!window_ || window_->windowKind() != WindowKind::Child)
    return;
  reporter_.report([this](Forms& forms) { return forms.activated(*window_); });
}

void Form::keyPressEvent(QKeyEvent* event) {
  const std::optional<Key> key = toForms(event->key());
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (!window_ || !key || !plain)
    return event->ignore();
  // A key held down moves on and on, but presses once.
  if (event->isAutoRepeat() && !isArrow(*key))
    return;
  const int digit = *key == Key::Digit ? event->key() - Qt::Key_0 : 0;
  event->setAccepted(
      reporter_.report([&](Forms& forms) { return forms.keyPressed(*window_, *key, digit); }));
}

// Qt asks also when the widget with the focus vanishes; nothing of that concerns the forms layer.
bool Form::focusNextPrevChild(bool next) {
  if (!window_ || reporter_.isQuiet())
    return true;
  reporter_.report([&](Forms& forms) { forms.tabbed(*window_, next); });
  return true;
}

Outline::Outline(Form& form) : QWidget(&form) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  form.stack(*this, std::numeric_limits<int>::max());
}

void Outline::showAt(const QRect& place, int width, bool faint) {
  setGeometry(place);
  width_ = width;
  faint_ = faint;
  show();
}

// Yellow between two dark lines: it shows on both tones of a board and on either side's units.
void Outline::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  constexpr double Faint = 0.4;
  painter.setOpacity(faint_ ? Faint : 1);
  const int inner = width_ + 1;
  qDrawPlainRect(&painter, rect(), Qt::black);
  qDrawPlainRect(&painter, rect().adjusted(1, 1, -1, -1), QColor(255, 214, 0), width_);
  qDrawPlainRect(&painter, rect().adjusted(inner, inner, -inner, -inner), Qt::black);
}

} // namespace forms::qt
