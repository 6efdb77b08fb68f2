// What the views share.
#pragma once

#include <QMdiArea>
#include <QPointer>

#include "desktop/qt/accessibility.h"
#include "desktop/qt/element_view.h"
#include "desktop/qt/focus_keeper.h"
#include "desktop/qt/fonts.h"
#include "desktop/qt/picture_store.h"
#include "desktop/qt/reporter.h"
#include "desktop/qt/zoom.h"

namespace forms::qt {

// One per process. To be made behind the application.
struct Screen {
  Reporter reporter;
  PictureStore pictures;
  Fonts fonts;
  Announcer announcer;
  Zoom zoom;
  Views views;
  FocusKeeper focus{reporter, views};
  // That of the child windows, which fills the frame; nullptr while no frame is on the screen.
  QPointer<QMdiArea> area;

  // nullptr while it is not on the screen.
  QWidget* frame() const { return area ? area->window() : nullptr; }
};

} // namespace forms::qt
