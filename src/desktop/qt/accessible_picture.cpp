#include "desktop/qt/accessible_picture.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "desktop/qt/picture_widget.h"

namespace forms::qt {

namespace {

class AccessiblePicture final : public QAccessibleWidget {
public:
  explicit AccessiblePicture(PictureWidget* widget)
      : QAccessibleWidget(widget, QAccessible::Graphic) {}

  QAccessible::Role role() const override {
    return picture().isButton ? QAccessible::Button : QAccessible::Graphic;
  }

  QStringList actionNames() const override {
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
  }

  void doAction(const QString& name) override {
    if (name != pressAction())
      return QAccessibleWidget::doAction(name);
    if (picture().isEnabled() && picture().press)
      picture().press();
  }

private:
  PictureWidget& picture() const { return *static_cast<PictureWidget*>(widget()); }
};

QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
  auto* const picture = dynamic_cast<PictureWidget*>(object);
  return picture ? new AccessiblePicture(picture) : nullptr;
}

} // namespace

void installAccessiblePictures() {
  QAccessible::installFactory(make);
}

} // namespace forms::qt
