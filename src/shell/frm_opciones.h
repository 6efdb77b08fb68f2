// The options dialog: the four stored options, the local player, and the way into a network game.
#pragma once

#include "forms/forms.h"
#include "model/principal.h"

namespace falanges {

class frmPrincipal;

class frmOpciones final : public forms::Window {
public:
  frmOpciones(forms::Forms& forms, Principal& principal, frmPrincipal& frame);

  forms::CheckBox chkPermitirBanderas{*this, "chkPermitirBanderas"};
  forms::Label lblBandera{*this, "lblBandera"};
  forms::CheckBox chkLimiteFilas{*this, "chkLimiteFilas"};
  forms::Label lblLimiteFilas{*this, "lblLimiteFilas"};
  forms::Button btnCargarJuegoRed{*this, "btnCargarJuegoRed"};
  forms::Label lblRed{*this, "lblRed"};
  forms::TextBox txtTiempoRed{*this, "txtTiempoRed"};
  forms::Label lblActualizacion{*this, "lblActualizacion"};
  forms::DropList comJugadorActualRed{*this, "comJugadorActualRed"};
  forms::Label lblJugadorActualRed{*this, "lblJugadorActualRed"};
  forms::TextBox txtMovPorTurno{*this, "txtMovPorTurno"};
  forms::Label Label1{*this, "Label1"};
  forms::Label Label3{*this, "Label3"};

private:
  void Form_Load() override;
  bool Form_QueryUnload() override;
  void Form_Deactivate() override;

  void makeElements();
  void makeEvents();
  void makePermission(forms::CheckBox& box, forms::Label& label, std::string& option);

  void txtTiempoRed_Change();
  void txtMovPorTurno_Change();
  void comJugadorActualRed_Click();
  void btnCargarJuegoRed_Click();

  // A text box for a number, the bounds it has, both allowed, and how a number outside is refused.
  struct NumberBox {
    forms::TextBox& box;
    double lowest;
    double highest;
    const char* refusal;
  };
  // False, after the message and with the focus on the box, when its number is out of range.
  bool inRange(const NumberBox& number);
  // The file with these two texts as the numbers.
  void write(const std::string& seconds, const std::string& moves);

  Principal& principal_;
  frmPrincipal& frame_;
  const NumberBox seconds_{txtTiempoRed, 5, 300,
                           "DEBE colocar un valor entre 5 y 300 segundos de actualización"};
  const NumberBox moves_{txtMovPorTurno, 1, 5,
                         "DEBE colocar un valor entre 1 y 5 Movimientos por Turno"};
  bool OmitirClickJugador = false; // the next selection event is passed over
};

} // namespace falanges
