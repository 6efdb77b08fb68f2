// What screen readers find on a form: the elements that can be seen, what can be pressed, and what
// is told without being asked for.
#pragma once

#include <functional>

#include <QAccessible>
#include <QHash>

class QWidget;

namespace forms::qt {

// A widget that is no button by itself.
struct Pressable {
  // What a screen reader's press does; without it there is nothing to press.
  std::function<void()> press;
  QAccessible::Role role = QAccessible::NoRole; // what it is
};

// Once per run, before the first window.
void installAccessibility();

// Tells screen readers that the element has come into sight, or is about to go out of it.
void tellSight(QWidget& element, bool inSight);

// Has screen readers say what nobody asked for, wherever the focus is, and asks for attention in
// the task bar while another program is in front. Before Qt 6.8 nothing is said on Windows;
// elsewhere the element counts as a notification that appears, which the readers there say.
class Announcer {
public:
  // Says the text, unless it was the last one for an element of this name.
  void announce(QWidget& element, const QString& text);

private:
  QHash<QString, QString> said_; // by the name of the element
};

} // namespace forms::qt
