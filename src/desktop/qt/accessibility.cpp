#include "desktop/qt/accessibility.h"

#include <utility>

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QComboBox>

#include "desktop/qt/form.h"

namespace forms::qt {

namespace {

class AccessiblePressable final : public QAccessibleWidget {
public:
  AccessiblePressable(QWidget* widget, const Pressable& pressable)
      : QAccessibleWidget(widget), pressable_(pressable) {}

  QAccessible::Role role() const override { return pressable_.role; }

  // Where there is no description Qt's own would say the tip: it belongs to the mouse, which may
  // point at another square than the keyboard.
  QString text(QAccessible::Text what) const override {
    return what == QAccessible::Description ? widget()->accessibleDescription()
                                            : QAccessibleWidget::text(what);
  }

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (pressable_.press)
      names.prepend(pressAction());
    return names;
  }

  void doAction(const QString& name) override {
    if (name != pressAction())
      QAccessibleWidget::doAction(name);
    else if (pressable_.press)
      // Later, for the press may end in a message box, and the screen reader waits for its call's
      // end.
      QMetaObject::invokeMethod(widget(), pressable_.press, Qt::QueuedConnection);
  }

private:
  const Pressable& pressable_;
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

// Qt's own takes the chosen item for its name and leaves the rest to a label, which is not always
// there. Here the chosen item is the description.
class AccessibleList final : public QAccessibleWidget {
public:
  explicit AccessibleList(QComboBox* list) : QAccessibleWidget(list, QAccessible::ComboBox) {}

  int childCount() const override { return 1; }

  QAccessibleInterface* child(int index) const override {
    return index == 0 ? QAccessible::queryAccessibleInterface(list().view()) : nullptr;
  }

  int indexOfChild(const QAccessibleInterface* child) const override {
    return child && child->object() == list().view() ? 0 : -1;
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = list().view()->isVisible();
    return state;
  }

  QStringList actionNames() const override {
    return QStringList{showMenuAction(), increaseAction(), decreaseAction()} +
           QAccessibleWidget::actionNames();
  }

  void doAction(const QString& name) override {
    if (name == increaseAction())
      choose(list().currentIndex() + 1);
    else if (name == decreaseAction())
      choose(list().currentIndex() - 1);
    else if (name != showMenuAction())
      QAccessibleWidget::doAction(name);
    else if (list().view()->isVisible())
      list().hidePopup();
    else if (list().isEnabled())
      list().showPopup();
  }

private:
  QComboBox& list() const { return *static_cast<QComboBox*>(widget()); }

  // Later, as a press. What cannot be chosen the forms layer passes over.
  void choose(int index) {
    QMetaObject::invokeMethod(
        &list(), [chosen = &list(), index] { emit chosen->activated(index); },
        Qt::QueuedConnection);
  }
};

QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
  if (const auto* const pressable = dynamic_cast<Pressable*>(object))
    return new AccessiblePressable(static_cast<QWidget*>(object), *pressable);
  if (auto* const form = dynamic_cast<Form*>(object))
    return new AccessibleForm(form);
  auto* const widget = qobject_cast<QWidget*>(object);
  if (widget && widget->isWindow() && widget->metaObject() == &QWidget::staticMetaObject)
    return new QAccessibleWidget(widget,
                                 widget->parent() ? QAccessible::Dialog : QAccessible::Window);
  // File dialogs have lists too, and labels for them.
  auto* const list = qobject_cast<QComboBox*>(object);
  if (list && dynamic_cast<Form*>(list->parentWidget()))
    return new AccessibleList(list);
  return nullptr;
}

} // namespace

void installAccessibility() {
  QAccessible::installFactory(make);
}

void tellSight(QWidget& element, bool inSight) {
  QAccessibleEvent event(&element,
                         inSight ? QAccessible::ObjectCreated : QAccessible::ObjectDestroyed);
  QAccessible::updateAccessibility(&event);
}

void Announcer::announce(QWidget& element, const QString& text) {
  if (std::exchange(said_[element.objectName()], text) == text)
    return;
  QApplication::alert(element.window()); // does nothing while the program is in front
  const auto tell = [&element, text] {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&element, text);
#else
    Q_UNUSED(text)
    // The bus passes nothing else on that says of an element that it has appeared.
    QAccessibleEvent event(&element, QAccessible::ObjectShow);
#endif
    QAccessible::updateAccessibility(&event);
  };
  // Later, for its window may not be on the screen yet.
  QMetaObject::invokeMethod(&element, tell, Qt::QueuedConnection);
}

} // namespace forms::qt
