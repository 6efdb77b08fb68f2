#include "desktop/qt/text_area_view.h"

#include <QPlainTextEdit>
#include <QScrollBar>

#include "desktop/qt/conversions.h"
#include "desktop/qt/look.h"
#include "desktop/qt/reporter.h"

namespace forms::qt {

TextAreaView::TextAreaView(TextBox& box, Services services, QWidget* form)
    : WidgetView(box, services, new QPlainTextEdit(form)) {
  edit().setReadOnly(box.ReadOnly);
  edit().setLineWrapMode(QPlainTextEdit::NoWrap);
  edit().setTabChangesFocus(true);
  if (box.ReadOnly)
    edit().setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  applyColors(edit(), box, QPalette::Base, QPalette::Text);
  for (QScrollBar* bar : {edit().horizontalScrollBar(), edit().verticalScrollBar()})
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
  edit().setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  edit().setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  watch(edit().viewport());
  connect(&edit(), &QPlainTextEdit::textChanged, this, [this] { typed(); });
}

QPlainTextEdit& TextAreaView::edit() const {
  return *static_cast<QPlainTextEdit*>(widget());
}

// The program's lines end in CR LF, Qt's in LF.
QString TextAreaView::shownText() const {
  return edit().toPlainText().replace(QLatin1Char('\n'), QLatin1String("\r\n"));
}

void TextAreaView::syncKind() {
  const QString text = toQt(elementAs<TextBox>()->Text);
  if (shownText() != text)
    edit().setPlainText(QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
}

void TextAreaView::typed() {
  if (services().reporter.isQuiet() || !element())
    return;
  services().reporter.report(
      [this](Forms& forms) { forms.typed(*elementAs<TextBox>(), fromQt(shownText())); });
  // The forms layer may have refused the text or cut it.
  sync();
}

} // namespace forms::qt
