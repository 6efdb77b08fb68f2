// A person at the Qt desktop, offscreen: acts on the widgets that show the elements.
#pragma once

#include <QWidget>

#include "desktop/qt/qt_desktop.h"
#include "scripted/player.h"

namespace scripted {

// Passes everything on to the Qt desktop, and answers the boxes that it opens.
class QtPlayer final : public Player {
public:
  QtPlayer();

  // The widget that shows an element or a window; throws when there is none.
  QWidget& widget(const forms::Element& element);

  void windowOpened(forms::Window& window) override {
    if (!std::exchange(forms_, &window.forms()))
      qt_.connect(*forms_);
    qt_.windowOpened(window);
  }
  void windowClosed(forms::Window& window) override { qt_.windowClosed(window); }
  void waitModal(forms::Window& window) override;
  void changed(forms::Element& element) override {
    stale_ = true;
    qt_.changed(element);
  }
  void removed(forms::Element& element) override { qt_.removed(element); }
  void focusAsked(forms::Element& element) override { qt_.focusAsked(element); }
  forms::Answer messageBox(const forms::MessageBox& box) override;
  std::optional<std::string> fileDialog(const forms::FileDialog& dialog) override;
  std::optional<forms::PictureSize> pictureSize(const std::string& path) override {
    return qt_.pictureSize(path);
  }

private:
  void afterAction() override;
  void key(const std::string& name) override;

  forms::qt::QtDesktop qt_;
  bool stale_ = false; // something has changed that may be painted later
};

// Moves the pointer to this pixel of the widget.
void pointAt(QWidget& widget, QPointF place);

} // namespace scripted
