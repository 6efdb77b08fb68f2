// The application: its style, its language, and the end of the person's session.
#pragma once

#include <functional>

#include <QApplication>

namespace forms::qt {

class Application final : public QApplication {
public:
  Application(int& argc, char** argv);

  // To be set before the application runs: the system asks whether the session may end, and tells
  // that it ends.
  std::function<bool()> sessionMayEnd;
  std::function<void()> sessionEnded;

protected:
  bool event(QEvent* event) override;
};

} // namespace forms::qt
