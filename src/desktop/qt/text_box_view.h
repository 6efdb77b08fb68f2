// A text box of one line on a form.
#pragma once

#include "desktop/qt/element_view.h"
#include "forms/elements.h"

class QLineEdit;

namespace forms::qt {

class TextBoxView final : public WidgetView {
public:
  TextBoxView(TextBox& box, Services services, QWidget* form);

protected:
  void syncKind() override;

private:
  QLineEdit& edit() const;
  void typed();
};

} // namespace forms::qt
