// A text box of several lines on a form, with scroll bars both ways.
#pragma once

#include "desktop/qt/element_view.h"
#include "forms/elements.h"

class QPlainTextEdit;

namespace forms::qt {

class TextAreaView final : public WidgetView {
public:
  TextAreaView(TextBox& box, Services services, QWidget* form);

protected:
  void syncKind() override;

private:
  QPlainTextEdit& edit() const;
  QString shownText() const;
  void typed();
};

} // namespace forms::qt
