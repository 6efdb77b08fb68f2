#include "shell/form1.h"

namespace falanges {

Form1::Form1(forms::Forms& forms) : Window(forms, forms::WindowKind::Own, "Form1") {
  Caption = "Form1";
  ClientWidth = 12780;
  ClientHeight = 8010;
  PlacedByDesktop = true;
  Picture1.place(1920, 240, 5655, 5055);
  Picture9.place(11160, 360, 975, 975);
  int top = 360;
  for (forms::Picture* picture :
       {&Picture2, &Picture3, &Picture4, &Picture5, &Picture6, &Picture7, &Picture8}) {
    picture->place(10080, top, 975, 975);
    top += 1080;
  }
  for (forms::Element* element : elements()) {
    static_cast<forms::Picture*>(element)->Border = true;
    element->AccessibleName = element->name();
  }
  Picture1.MouseMove = [this](float X, float Y) {
    Picture1.ToolTipText = "X: " + std::to_string(static_cast<int>(X)) +
                           " - Y: " + std::to_string(static_cast<int>(Y));
  };
  Picture3.Click = [this] { Picture3.Appearance = 1; };
}

} // namespace falanges
