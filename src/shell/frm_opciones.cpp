#include "shell/frm_opciones.h"

#include "forms/numbers.h"
#include "forms/text_file.h"
#include "model/colors.h"
#include "persistence/configuration.h"
#include "shell/frm_principal.h"

namespace falanges {

using forms::passOver;
using forms::storedNearest;
using forms::Val;

frmOpciones::frmOpciones(forms::Forms& forms, Principal& principal, frmPrincipal& frame)
    : Window(forms, forms::WindowKind::Child, "frmOpciones"), principal_(principal), frame_(frame) {
  Caption = "Opciones de Configuración";
  BackColor = OptionsGround;
  ClientWidth = 4275;
  ClientHeight = 3390;
  PlacedByDesktop = true;
  makeElements();
  makeEvents();
}

void frmOpciones::makeElements() {
  chkPermitirBanderas.place(240, 240, 195, 190);
  lblBandera.place(480, 220, 2760, 240);
  chkLimiteFilas.place(240, 600, 195, 190);
  lblLimiteFilas.place(480, 580, 3585, 240);
  btnCargarJuegoRed.place(240, 2040, 3450, 375);
  lblRed.place(1200, 1680, 1635, 300);
  txtTiempoRed.place(3120, 2880, 495, 360);
  lblActualizacion.place(240, 2925, 2835, 240);
  comJugadorActualRed.place(2040, 2520, 810, 360);
  lblJugadorActualRed.place(240, 2595, 1695, 240);
  txtMovPorTurno.place(1080, 960, 495, 360);
  Label1.place(240, 1005, 810, 240);
  Label3.place(1680, 1005, 2385, 240);
  int tabIndex = 0;
  for (forms::Element* element : elements()) {
    element->TabIndex = tabIndex++;
    element->TextFont.bold = true;
  }
  lblBandera.Caption = "Permitir más de 1 Bandera";
  lblLimiteFilas.Caption = "Permitir Unidades en cualquier fila";
  btnCargarJuegoRed.Caption = "Cargar Juego en Red";
  lblRed.Caption = "Jugar en Red";
  lblRed.TextFont.points = 12;
  lblActualizacion.Caption = "Segundos de Actualización";
  lblJugadorActualRed.Caption = "Jugador de Red";
  Label1.Caption = "Permitir";
  Label3.Caption = "movimientos por Turno";
  txtTiempoRed.Text = "10";
  txtMovPorTurno.Text = "1";
  txtTiempoRed.MaxLength = 3;
  txtMovPorTurno.MaxLength = 3;
  btnCargarJuegoRed.BackColor = ButtonGround;
  txtTiempoRed.AccessibleName = lblActualizacion.Caption;
  comJugadorActualRed.AccessibleName = lblJugadorActualRed.Caption;
  txtMovPorTurno.AccessibleName = "Movimientos por Turno";
}

void frmOpciones::makeEvents() {
  makePermission(chkPermitirBanderas, lblBandera, principal_.OpcPermitirBanderas);
  makePermission(chkLimiteFilas, lblLimiteFilas, principal_.OpcLimiteFilas);
  txtTiempoRed.Change = [this] { txtTiempoRed_Change(); };
  txtTiempoRed.LostFocus = [this] { passOver(inRange(seconds_)); };
  txtMovPorTurno.Change = [this] { txtMovPorTurno_Change(); };
  txtMovPorTurno.LostFocus = [this] { passOver(inRange(moves_)); };
  comJugadorActualRed.Click = [this] { comJugadorActualRed_Click(); };
  btnCargarJuegoRed.Click = [this] { btnCargarJuegoRed_Click(); };
}

// The label beside a box is its caption.
void frmOpciones::makePermission(forms::CheckBox& box, forms::Label& label, std::string& option) {
  box.BackColor = CheckBoxGround;
  box.AccessibleName = label.Caption;
  box.Click = [this, &box, &option] {
    option = box.Value == 1 ? "1" : "0";
    write(std::to_string(principal_.SegundosActualizacion), std::to_string(principal_.MovPorTurno));
  };
  label.Click = [&box] { box.click(); };
}

// --- Opening and closing -----------------------------------------------------------------------

void frmOpciones::Form_Load() {
  passOver(LoadIcon("\\ico\\adelante.ico"));
  readConfiguration(principal_, configurationPath(forms().desktop().programFolder()));
  // What the file holds before the boxes are filled: the events of filling write it anew.
  if (principal_.OpcPermitirBanderas == "1")
    chkPermitirBanderas.Value = 1;
  if (principal_.OpcLimiteFilas == "1")
    chkLimiteFilas.Value = 1;
  txtTiempoRed.Text = std::to_string(principal_.SegundosActualizacion);
  txtMovPorTurno.Text = std::to_string(principal_.MovPorTurno);
  comJugadorActualRed.AddItem("1");
  comJugadorActualRed.AddItem("2");
  OmitirClickJugador = true;
  passOver(comJugadorActualRed.setText("1"));
  if (principal_.JugadorRed == 2)
    passOver(comJugadorActualRed.setText("2"));
  else
    principal_.JugadorRed = 1;
}

bool frmOpciones::Form_QueryUnload() {
  return inRange(seconds_) && inRange(moves_);
}

void frmOpciones::Form_Deactivate() {
  close();
}

bool frmOpciones::inRange(const NumberBox& number) {
  const double value = Val(number.box.Text.get());
  if (value >= number.lowest && value <= number.highest)
    return true;
  forms().messageBox(number.refusal);
  passOver(number.box.SetFocus());
  return false;
}

// --- The options -------------------------------------------------------------------------------

// The option applies also when the file cannot be written.
void frmOpciones::write(const std::string& seconds, const std::string& moves) {
  const std::string path = configurationPath(forms().desktop().programFolder());
  if (!writeConfiguration(principal_, path, seconds, moves))
    forms().failed("No se puede guardar el archivo:\r\n", path);
}

// The file takes the text of the boxes as it stands, before the item does.
void frmOpciones::txtTiempoRed_Change() {
  write(txtTiempoRed.Text, txtMovPorTurno.Text);
  principal_.SegundosActualizacion = storedNearest<std::int16_t>(Val(txtTiempoRed.Text.get()));
}

void frmOpciones::txtMovPorTurno_Change() {
  write(txtTiempoRed.Text, txtMovPorTurno.Text);
  principal_.MovPorTurno = storedNearest<std::uint8_t>(Val(txtMovPorTurno.Text.get()));
}

void frmOpciones::comJugadorActualRed_Click() {
  if (OmitirClickJugador) {
    OmitirClickJugador = false;
    return;
  }
  principal_.JugadorRed = storedNearest<std::uint8_t>(Val(comJugadorActualRed.Text()));
}

void frmOpciones::btnCargarJuegoRed_Click() {
  if (inRange(seconds_) && inRange(moves_))
    frame_.joinNetworkGame();
}

} // namespace falanges
