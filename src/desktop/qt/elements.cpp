#include "desktop/qt/elements.h"

#include <algorithm>

#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

#include "desktop/qt/conversions.h"
#include "desktop/qt/reporter.h"

namespace forms::qt {

namespace {

bool isMenu(const MenuEntry& entry) {
  const auto& elements = entry.window().elements();
  return entry.WindowList || std::any_of(elements.begin(), elements.end(), [&](Element* element) {
           return element->kind() == Kind::MenuEntry &&
                  static_cast<MenuEntry*>(element)->parent == &entry;
         });
}

} // namespace

MenuEntryView::MenuEntryView(MenuEntry& entry, Services services, QMenuBar* bar,
                             MenuEntryView* above)
    : ElementView(entry, services, bar) {
  QMenu* const holder = above ? above->menu_ : nullptr;
  if (isMenu(entry)) {
    menu_ = new QMenu(bar);
    action_ = menu_->menuAction();
    if (entry.WindowList)
      connect(menu_, &QMenu::aboutToShow, this, [this] { listWindows(); });
  } else {
    action_ = new QAction(this);
    connect(action_, &QAction::triggered, this, [this] { chosen(); });
  }
  action_->setObjectName(toQt(entry.name()));
  if (holder)
    holder->addAction(action_);
  else
    bar->addAction(action_);
}

void MenuEntryView::sync() {
  const MenuEntry& entry = *elementAs<MenuEntry>();
  action_->setText(toQt(entry.Caption));
  action_->setEnabled(entry.Enabled);
  action_->setVisible(entry.Visible);
}

void MenuEntryView::chosen() {
  if (!element())
    return;
  services().reporter.report([this](Forms& forms) { forms.menuChosen(*elementAs<MenuEntry>()); });
}

void MenuEntryView::listWindows() {
  delete windows_;
  windows_ = new QActionGroup(menu_);
  int number = 0;
  for (Window* window : services().reporter.forms().openWindows())
    if (window->windowKind() == WindowKind::Child)
      listWindow(*window, ++number);
}

void MenuEntryView::listWindow(Window& window, int number) {
  if (number == 1) {
    auto* const line = new QAction(windows_);
    line->setSeparator(true);
    menu_->addAction(line);
  }
  const QString caption = toQt(window.Caption).replace(QLatin1String("&"), QLatin1String("&&"));
  auto* const action = new QAction(QStringLiteral("&%1 %2").arg(number).arg(caption), windows_);
  action->setCheckable(true);
  action->setChecked(&window == services().reporter.forms().activeChild());
  // A window that has closed meanwhile is passed over by the forms layer.
  connect(action, &QAction::triggered, this, [this, &window] {
    services().reporter.report([&](Forms& forms) { return forms.activated(window); });
  });
  menu_->addAction(action);
}

void MenuEntryView::takeOff() {
  action_->setVisible(false);
  services().reporter.bury(this);
}

} // namespace forms::qt
