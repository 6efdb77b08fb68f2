// A text on a form.
#pragma once

#include "desktop/qt/element_view.h"
#include "forms/elements.h"

namespace forms::qt {

class LabelView final : public WidgetView {
public:
  LabelView(Label& label, Services services, QWidget* form);

protected:
  void syncKind() override;
  QString caption() const override;
};

} // namespace forms::qt
