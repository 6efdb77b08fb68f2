// A window of its own that shows a long text, such as the field dump, in a scrolling box.
#pragma once

#include "forms/forms.h"
#include "model/principal.h"

namespace falanges {

class frmMsgBox final : public forms::Window {
public:
  frmMsgBox(forms::Forms& forms, Principal& principal);

  forms::TextBox Text1{*this, "Text1"};

private:
  void Form_Load() override;
  bool Form_KeyDown(forms::Key key, int digit) override;

  Principal& principal_;
};

} // namespace falanges
