// A button on a form, and its key.
#pragma once

#include "desktop/qt/element_view.h"
#include "forms/elements.h"

class QPushButton;

namespace forms::qt {

class ButtonView final : public WidgetView {
public:
  ButtonView(Button& button, Services services, QWidget* form);

protected:
  void syncKind() override;
  QString caption() const override;

private:
  QPushButton& button() const;
  void addShortcut(const QString& key);
};

} // namespace forms::qt
