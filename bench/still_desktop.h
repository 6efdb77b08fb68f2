// A desktop that shows nothing and answers at once, so that only the program's own work is
// measured.
#pragma once

#include "forms/desktop.h"

namespace bench {

class StillDesktop final : public forms::Desktop {
public:
  explicit StillDesktop(std::string folder) : folder_(std::move(folder)) {}

  void windowOpened(forms::Window& /*window*/) override {}
  void windowClosed(forms::Window& /*window*/) override {}
  void waitModal(forms::Window& /*window*/) override {}
  void changed(forms::Element& /*element*/) override {}
  void removed(forms::Element& /*element*/) override {}
  void focusAsked(forms::Element& /*element*/) override {}
  forms::Answer messageBox(const forms::MessageBox& /*box*/) override { return forms::Answer::Yes; }
  std::optional<std::string> fileDialog(const forms::FileDialog& /*dialog*/) override {
    return folder_ + "/juego.txt";
  }
  std::optional<forms::PictureSize> pictureSize(const std::string& /*path*/) override {
    return forms::PictureSize{62, 62};
  }
  forms::DateTime now() override { return {2021, 3, 5, 14, 22, 7}; }
  std::string programFolder() override { return folder_; }

private:
  std::string folder_;
};

} // namespace bench
