// A bench tool for reading screen coordinates; it takes no part in a game.
#pragma once

#include "forms/forms.h"

namespace falanges {

class Form1 final : public forms::Window {
public:
  explicit Form1(forms::Forms& forms);

  forms::Picture Picture1{*this, "Picture1"};
  forms::Picture Picture2{*this, "Picture2"};
  forms::Picture Picture3{*this, "Picture3"};
  forms::Picture Picture4{*this, "Picture4"};
  forms::Picture Picture5{*this, "Picture5"};
  forms::Picture Picture6{*this, "Picture6"};
  forms::Picture Picture7{*this, "Picture7"};
  forms::Picture Picture8{*this, "Picture8"};
  forms::Picture Picture9{*this, "Picture9"};
};

} // namespace falanges
