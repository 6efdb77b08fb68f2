#include "desktop/qt/drop_list_view.h"

#include <QComboBox>
#include <QEvent>

#include "desktop/qt/conversions.h"
#include "desktop/qt/look.h"
#include "desktop/qt/reporter.h"

namespace forms::qt {

DropListView::DropListView(DropList& list, Services services, QWidget* form)
    : WidgetView(list, services, new QComboBox(form)) {
  applyColors(this->list(), list, QPalette::Base, QPalette::Text);
  // A choice of the item that is chosen already counts too.
  connect(&this->list(), &QComboBox::activated, this, [this](int index) { chosen(index); });
}

QComboBox& DropListView::list() const {
  return *static_cast<QComboBox*>(widget());
}

void DropListView::syncKind() {
  const DropList& shown = *elementAs<DropList>();
  QStringList items;
  for (const std::string& item : shown.items())
    items.append(toQt(item));
  QStringList before;
  for (int i = 0; i < list().count(); ++i)
    before.append(list().itemText(i));
  if (items != before) {
    list().clear();
    list().addItems(items);
  }
  if (list().currentIndex() != shown.ListIndex())
    list().setCurrentIndex(shown.ListIndex());
}

QString DropListView::description() const {
  return toQt(elementAs<DropList>()->Text());
}

void DropListView::takeOff() {
  list().hidePopup();
  WidgetView::takeOff();
}

bool DropListView::eventFilter(QObject* watched, QEvent* event) {
  // A turn of the wheel on the way past would choose an item.
  if (event->type() == QEvent::Wheel)
    return true;
  return WidgetView::eventFilter(watched, event);
}

void DropListView::chosen(int index) {
  if (services().reporter.isQuiet() || !element())
    return;
  services().reporter.report([&](Forms& forms) { forms.chosen(*elementAs<DropList>(), index); });
  // The forms layer may have refused the choice.
  sync();
}

} // namespace forms::qt
