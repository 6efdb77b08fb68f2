// The way from the screen to the forms layer: every action that a person takes goes through here.
#pragma once

#include <cstdint>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include "forms/forms.h"

namespace forms::qt {

// A report may close windows and destroy elements, also those whose widget is just handling an
// event, and may wait in a message box meanwhile, in which other reports come and go. So no widget
// is deleted before the reports have returned that it may have made: a widget may look at its own
// members after a report, but not at its element, which may be gone. Those that are younger than a
// box that waits go while it waits, or it would hold up every window of a long network game.
class Reporter {
public:
  // Tells the old from the young: how many reports there had been when a widget was made.
  using Age = std::uint64_t;

  void connect(Forms& forms) { forms_ = &forms; }
  Forms& forms() const { return *forms_; }

  // Calls `tell` with the forms layer and hands back what it returns.
  template <class Tell> auto report(Tell tell) {
    underWay_.append(++reports_);
    const auto returned = qScopeGuard([this] {
      underWay_.removeLast();
      deleteRemoved();
    });
    return tell(*forms_);
  }

  Age now() const { return reports_; }
  // Deletes the object, which was made then, as soon as nothing can need it any more.
  void remove(QObject* object, Age made) {
    removed_.append({object, made});
    deleteRemoved();
  }

  // While the result lives, what widgets signal is the program's own doing and not reported.
  [[nodiscard]] auto quiet() { return QScopedValueRollback(quiet_, true); }
  bool isQuiet() const { return quiet_; }

private:
  struct Removed {
    QPointer<QObject> object; // some go with a parent before their turn
    Age made;
  };

  void deleteRemoved() {
    removed_.removeIf([this](const Removed& removed) {
      if (!underWay_.isEmpty() && underWay_.last() > removed.made)
        return false;
      if (removed.object)
        removed.object->deleteLater();
      return true;
    });
  }

  Forms* forms_ = nullptr;
  Age reports_ = 0;     // so far
  QList<Age> underWay_; // their numbers, each inside the one before
  bool quiet_ = false;
  QList<Removed> removed_;
};

} // namespace forms::qt
