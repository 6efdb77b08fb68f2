// What screen readers find on a form: the elements that can be seen, and pictures to press.
#pragma once

class QWidget;

namespace forms::qt {

// Once per run, before the first window.
void installAccessibility();

// Tells screen readers that the element has come into sight.
void tellShown(QWidget& element);
// Tells them that it is about to go out of sight.
void tellHidden(QWidget& element);

} // namespace forms::qt
