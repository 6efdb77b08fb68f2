// The way from the screen to the forms layer: every action that a person takes goes through here.
#pragma once

#include <utility>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include "forms/forms.h"

namespace forms::qt {

// A report may close windows and destroy elements, also those whose widget is just handling an
// event, and may wait in a message box meanwhile. So no widget is deleted before the outermost
// report has returned: a widget may look at its own members after a report, but not at its
// element, which may be gone.
class Reporter {
public:
  void connect(Forms& forms) { forms_ = &forms; }
  Forms& forms() const { return *forms_; }

  // Calls `tell` with the forms layer and hands back what it returns.
  template <class Tell> auto report(Tell tell) {
    ++reports_;
    const auto returned = qScopeGuard([this] {
      if (--reports_ == 0)
        deleteRemoved();
    });
    return tell(*forms_);
  }

  // Deletes the object as soon as nothing can need it any more.
  void remove(QObject* object) {
    removed_.append(object);
    if (reports_ == 0)
      deleteRemoved();
  }

  // While the result lives, what widgets signal is the program's own doing and not reported.
  [[nodiscard]] auto quiet() { return QScopedValueRollback(quiet_, true); }
  bool isQuiet() const { return quiet_; }

private:
  void deleteRemoved() {
    for (const auto& object : std::exchange(removed_, {}))
      if (object)
        object->deleteLater();
  }

  Forms* forms_ = nullptr;
  int reports_ = 0; // under way, each inside the one before
  bool quiet_ = false;
  QList<QPointer<QObject>> removed_; // some go with a parent before their turn
};

} // namespace forms::qt
