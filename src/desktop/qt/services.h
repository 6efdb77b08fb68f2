// What every view of an element needs to do its work.
#pragma once

namespace forms::qt {

class FocusKeeper;
class PictureStore;
class Reporter;

struct Services {
  Reporter& reporter;
  FocusKeeper& focus;
  PictureStore& pictures;
};

} // namespace forms::qt
