#include "shell/frm_msg_box.h"

#include <utility>

namespace falanges {

frmMsgBox::frmMsgBox(forms::Forms& forms, Principal& principal)
    : Window(forms, forms::WindowKind::Own, "frmMsgBox"), principal_(principal) {
  Caption = "Vornath - Falanges Z";
  ClientWidth = 13830;
  ClientHeight = 8055;
  Text1.place(0, 0, 13815, 8055);
  Text1.TextFont = {"Times New Roman", 12, false};
  Text1.MultiLine = true;
  Text1.TabIndex = 0;
  Text1.AccessibleName = "Datos del tablero";
}

// Takes the text over: the next opening shows only what was handed over for it.
void frmMsgBox::Form_Load() {
  moveTo(200, 200);
  Text1.Text = std::exchange(principal_.TextoVolcado, std::string());
}

bool frmMsgBox::Form_KeyDown(forms::Key key, int /*digit*/) {
  return key == forms::Key::Escape && close();
}

} // namespace falanges
