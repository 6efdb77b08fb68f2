// A picture element on a form.
#pragma once

#include <optional>

#include <QPoint>

#include "desktop/qt/element_view.h"
#include "desktop/qt/mark.h"
#include "desktop/qt/picture_widget.h"
#include "forms/picture.h"

namespace forms::qt {

class PictureView final : public WidgetView {
public:
  PictureView(Picture& picture, Services services, QWidget* form);

protected:
  void syncKind() override;
  void takeOff() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  Picture* picture() const { return elementAs<Picture>(); }
  PictureWidget& canvas() const { return *static_cast<PictureWidget*>(widget()); }
  void syncStacking();
  void syncCursor();
  void movedTo(QPointF position);
  void press();

  int shownRank_ = -1;
  Mark* cursor_ = nullptr;        // made at its first use
  std::optional<QPoint> pointer_; // whole pixels, as last reported
};

} // namespace forms::qt
