#include "desktop/qt/text_box_view.h"

#include <QLineEdit>

#include "desktop/qt/conversions.h"
#include "desktop/qt/look.h"
#include "desktop/qt/reporter.h"

namespace forms::qt {

TextBoxView::TextBoxView(TextBox& box, Services services, QWidget* form)
    : WidgetView(box, services, new QLineEdit(form)) {
  if (box.MaxLength > 0)
    edit().setMaxLength(box.MaxLength);
  edit().setReadOnly(box.ReadOnly);
  applyColors(edit(), box, QPalette::Base, QPalette::Text);
  // Not textEdited: a screen reader sets the text without it.
  connect(&edit(), &QLineEdit::textChanged, this, [this] { typed(); });
}

QLineEdit& TextBoxView::edit() const {
  return *static_cast<QLineEdit*>(widget());
}

void TextBoxView::syncKind() {
  const QString text = toQt(elementAs<TextBox>()->Text);
  if (edit().text() != text)
    edit().setText(text);
}

void TextBoxView::typed() {
  if (services().reporter.isQuiet() || !element())
    return;
  services().reporter.report(
      [this](Forms& forms) { forms.typed(*elementAs<TextBox>(), fromQt(edit().text())); });
  // The forms layer may have refused the text or cut it.
  sync();
}

} // namespace forms::qt
