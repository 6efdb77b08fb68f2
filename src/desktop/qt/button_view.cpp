#include "desktop/qt/button_view.h"

#include <QPushButton>
#include <QShortcut>

#include "desktop/qt/conversions.h"
#include "desktop/qt/look.h"
#include "desktop/qt/reporter.h"

namespace forms::qt {

ButtonView::ButtonView(Button& button, Services services, QWidget* form)
    : WidgetView(button, services, new QPushButton(form)) {
  this->button().setAutoDefault(false);
  applyColors(this->button(), button, QPalette::Button, QPalette::ButtonText);
  connect(&this->button(), &QPushButton::clicked, this, [this] { click(); });
  if (!button.Shortcut.empty())
    addShortcut(toQt(button.Shortcut));
}

// The key belongs to the form: one of a hidden button would be dead.
void ButtonView::addShortcut(const QString& key) {
  auto* const shortcut = new QShortcut(QKeySequence(key), widget()->parentWidget());
  connect(shortcut, &QShortcut::activated, this, [this] {
    if (element())
      services().reporter.report(
          [this](Forms& forms) { forms.shortcutPressed(*elementAs<Button>()); });
  });
}

QPushButton& ButtonView::button() const {
  return *static_cast<QPushButton*>(widget());
}

void ButtonView::syncKind() {
  button().setText(caption());
}

QString ButtonView::caption() const {
  return toQt(elementAs<Button>()->Caption);
}

} // namespace forms::qt
