// What screen readers find on a form: the elements that can be seen, and pictures to press.
#pragma once

class QWidget;

namespace forms::qt {

// Once per run, before the first window.
void installAccessibility();

// Tells screen readers that the element has come into sight, or is about to go out of it.
void tellSight(QWidget& element, bool inSight);

} // namespace forms::qt
