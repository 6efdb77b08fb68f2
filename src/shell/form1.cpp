#include "shell/form1.h"

namespace falanges {

Form1::Form1(forms::Forms& forms) : Window(forms, forms::WindowKind::Own, "Form1") {
  Caption = "Form1";
  ClientWidth = 12780;
  ClientHeight = 8010;
  PlacedByDesktop = true;
  struct Place {
    forms::Picture& picture;
    int left, top, width, height;
  };
  for (const Place& place :
       {Place{Picture1, 1920, 240, 5655, 5055}, Place{Picture2, 10080, 360, 975, 975},
        Place{Picture3, 10080, 1440, 975, 975}, Place{Picture4, 10080, 2520, 975, 975},
        Place{Picture5, 10080, 3600, 975, 975}, Place{Picture6, 10080, 4680, 975, 975},
        Place{Picture7, 10080, 5760, 975, 975}, Place{Picture8, 10080, 6840, 975, 975},
        Place{Picture9, 11160, 360, 975, 975}}) {
    place.picture.place(place.left, place.top, place.width, place.height);
    place.picture.Border = true;
    place.picture.AccessibleName = place.picture.name();
  }
  Picture1.MouseMove = [this](float X, float Y) {
    Picture1.ToolTipText = "X: " + std::to_string(static_cast<int>(X)) +
                           " - Y: " + std::to_string(static_cast<int>(Y));
  };
  Picture3.Click = [this] { Picture3.Appearance = 1; };
  made();
}

} // namespace falanges
