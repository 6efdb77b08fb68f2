#include "desktop/qt/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "desktop/qt/form.h"
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
      QAccessibleWidget::doAction(name);
    else if (picture().isEnabled() && picture().press)
      picture().press();
  }

private:
  PictureWidget& picture() const { return *static_cast<PictureWidget*>(widget()); }
};

// Qt's own would show hidden elements too, and in the order of stacking.
class AccessibleForm final : public QAccessibleWidget {
public:
  explicit AccessibleForm(Form* form) : QAccessibleWidget(form, QAccessible::Client) {}

  int childCount() const override { return static_cast<int>(elements().size()); }

  QAccessibleInterface* child(int index) const override {
    return QAccessible::queryAccessibleInterface(elements().value(index));
  }

  int indexOfChild(const QAccessibleInterface* child) const override {
    return child ? static_cast<int>(elements().indexOf(child->object())) : -1;
  }

private:
  QList<QWidget*> elements() const { return static_cast<Form*>(widget())->elementsInSight(); }
};

QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
  if (auto* const picture = dynamic_cast<PictureWidget*>(object))
    return new AccessiblePicture(picture);
  if (auto* const form = dynamic_cast<Form*>(object))
    return new AccessibleForm(form);
  return nullptr;
}

} // namespace

void installAccessibility() {
  QAccessible::installFactory(make);
}

void tellShownOrHidden(QWidget& element) {
  if (!QAccessible::isActive())
    return;
  QAccessibleEvent event(&element, element.isHidden() ? QAccessible::ObjectDestroyed
                                                      : QAccessible::ObjectCreated);
  QAccessible::updateAccessibility(&event);
}

} // namespace forms::qt
