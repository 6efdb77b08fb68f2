// The way from the screen to the forms layer: every action that a person takes goes through here.
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

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
    const Report running(*this);
    return tell(*forms_);
  }

  // Deletes the object as soon as nothing can need it any more.
  void bury(QObject* object);

  // While one lives, what widgets signal is the program's own doing and not reported.
  class Quiet {
  public:
    explicit Quiet(Reporter& reporter) : reporter_(reporter) { ++reporter_.quiet_; }
    ~Quiet() { --reporter_.quiet_; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

  private:
    Reporter& reporter_;
  };
  bool isQuiet() const { return quiet_ > 0; }

private:
  class Report {
  public:
    explicit Report(Reporter& reporter) : reporter_(reporter) { ++reporter_.reports_; }
    ~Report() {
      if (--reporter_.reports_ == 0)
        reporter_.deleteBuried();
    }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

  private:
    Reporter& reporter_;
  };

  void deleteBuried();

  Forms* forms_ = nullptr;
  int reports_ = 0; // reports under way, each inside the one before
  int quiet_ = 0;
  QList<QPointer<QObject>> buried_;
};

} // namespace forms::qt
