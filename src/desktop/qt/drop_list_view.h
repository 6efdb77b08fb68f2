// A drop-down list without typing on a form.
#pragma once

#include "desktop/qt/element_view.h"
#include "forms/elements.h"

class QComboBox;

namespace forms::qt {

class DropListView final : public WidgetView {
public:
  DropListView(DropList& list, Services services, QWidget* form);

protected:
  void syncKind() override;
  QString description() const override;
  void takeOff() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QComboBox& list() const;
  void chosen(int index);
};

} // namespace forms::qt
