// A check box without a caption on a form.
#pragma once

#include "desktop/qt/element_view.h"
#include "forms/elements.h"

class QCheckBox;

namespace forms::qt {

class CheckBoxView final : public WidgetView {
public:
  CheckBoxView(CheckBox& box, Services services, QWidget* form);

protected:
  void syncKind() override;
  QRect placeFor(const QRect& wanted) const override;

private:
  QCheckBox& box() const;
  void toggled();
};

} // namespace forms::qt
