// The size in which windows with a board are shown, until the program ends, and what changes it:
// keys, the wheel, and the frame around them.
#pragma once

#include <functional>
#include <optional>

#include <QObject>

class QMdiArea;
class QMdiSubWindow;
class QWheelEvent;

namespace forms::qt {

class Form;

// In steps, percent of the size at 96 dpi: the one that the person has chosen, or the largest that
// there is room for, up to the whole size or to the last one.
class Zoom {
public:
  // Chooses the step beside this size; the last one itself.
  void chooseBeside(int percent, bool larger);
  enum class UpTo { Whole, Last };
  // Chooses none: what fits.
  void fit(UpTo largest);
  // Asks of one step after another whether it fits; the smallest one counts as fitting.
  int percent(const std::function<bool(int percent)>& fits) const;

private:
  std::optional<int> chosen_;
  UpTo largest_ = UpTo::Whole;
};

class ZoomControl final : public QObject {
public:
  // Goes with the child window. `layOut` shows it in the size that `zoom` has for it now.
  ZoomControl(QMdiSubWindow& child, Form& form, QMdiArea& area, Zoom& zoom,
              std::function<void()> layOut);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void chooseBeside(bool larger);
  void turned(const QWheelEvent& event);

  Form& form_;
  QMdiArea& area_;
  Zoom& zoom_;
  std::function<void()> layOut_;
  int turned_ = 0; // by the wheel, since the last step
};

} // namespace forms::qt
