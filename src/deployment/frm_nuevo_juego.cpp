#include "deployment/frm_nuevo_juego.h"

#include "deployment/army.h"
#include "deployment/field_dump.h"
#include "deployment/placement.h"
#include "forms/text_file.h"
#include "model/colors.h"
#include "model/geometry.h"
#include "model/units.h"

namespace falanges {

using forms::passOver;

frmNuevoJuego::frmNuevoJuego(forms::Forms& forms, Principal& principal, MainWindow& mainWindow)
    : Window(forms, forms::WindowKind::Child, "frmNuevoJuego"), principal_(principal),
      mainWindow_(mainWindow), palette_{{{picINF, INF, 560},
                                         {picCAB, CAB, 1640},
                                         {picELE, ELE, 2720},
                                         {picGEN, GEN, 3800},
                                         {picBAN, BAN, 4880}}} {
  makeElements();
  made();
}

void frmNuevoJuego::makeElements() {
  Caption = "Nuevo Juego";
  BackColor = forms::Color{0, 192, 0};

  picTablero.AutoSize = true;
  picTablero.Border = true;
  picTablero.Width = 5940;
  picTablero.Height = 5940;
  picTablero.TabIndex = 0;
  picTablero.Click = [this] { picTablero_Click(); };
  picTablero.MouseMove = [this](float X, float Y) { picTablero_MouseMove(X, Y); };

  picTablero.grid.nameOfEmptySquare = [this](int n) {
    return emptySquareDescription(principal_, n);
  };

  comTablero.Width = 930;
  comTablero.Height = 360;
  comTablero.TextFont.bold = true;
  comTablero.TabIndex = 1;
  comTablero.AccessibleName = "Tablero";
  comTablero.Click = [this] { comTablero_Click(); };
  comTablero.LostFocus = [this] { btnEliminarUnidades_Click(); };

  int tabIndex = 2;
  for (std::size_t entry = 0; entry < palette_.size(); ++entry) {
    forms::Picture& picture = palette_[entry].picture;
    picture.Width = UnitSide;
    picture.Height = UnitSide;
    picture.TabIndex = tabIndex++;
    picture.AccessibleName = unitName(palette_[entry].type);
    picture.Click = [this, entry] { picPaleta_Click(entry); };
  }

  makeButton(Command1, "Ver Datos", 6480, 120, 975, 615, tabIndex++);
  Command1.Visible = false;
  Command1.Shortcut = "Ctrl+Shift+D";
  Command1.Click = [this] { Command1_Click(); };
  makeButton(btnEliminarUnidades, "Eliminar Unidades", 120, 8160, 975, 495, tabIndex++);
  btnEliminarUnidades.Visible = false;
  btnEliminarUnidades.Click = [this] { btnEliminarUnidades_Click(); };
  makeButton(btnIniciar, "Iniciar", 5880, 120, 930, 375, tabIndex++);
  btnIniciar.TextFont.bold = true;
  btnIniciar.BackColor = ButtonGreen;
  btnIniciar.Click = [this] { btnIniciar_Click(); };

  picUnidad.pattern.Width = UnitSide;
  picUnidad.pattern.Height = UnitSide;
  picUnidad.pattern.BackColor = White;
  picUnidad.MouseMove = [this](int Index) { picUnidad_MouseMove(Index); };
  picUnidad.MouseDown = [this](int Index, forms::MouseButton button) {
    picUnidad_MouseDown(Index, button);
  };
}

void frmNuevoJuego::makeButton(forms::Button& button, const char* caption, int top, int left,
                               int width, int height, int tabIndex) {
  button.Caption = caption;
  button.Top = top;
  button.Left = left;
  button.Width = width;
  button.Height = height;
  button.TabIndex = tabIndex;
}

// --- Opening and closing -----------------------------------------------------------------------

void frmNuevoJuego::Form_Load() {
  const std::string folder = forms().desktop().programFolder();
  passOver(LoadIcon(forms::programPath(folder, "\\ico\\adelante.ico")));
  setMenu(true);
  principal_.TUnidadSeleccionada = 0;
  Top = 0;
  Left = 0;
  Width = 12000;
  Height = 10200;
  placeElements();
  principal_.NumColumnas = 5;
  principal_.NumFilas = 5;
  principal_.NumCasillas = 25;
  showBoard();
  clearRecords();
  for (const PaletteEntry& entry : palette_)
    passOver(entry.picture.LoadPicture(forms::programPath(folder, unitPicture(entry.type, 1))));
  for (const char* board : {"5x5", "6x6", "7x7", "8x8"})
    comTablero.AddItem(board);
  passOver(comTablero.select(0)); // counts as a choice of board and runs comTablero_Click
  btnEliminarUnidades_Click();
  fillPositions(principal_, picTablero.Top, picTablero.Left);
}

void frmNuevoJuego::placeElements() {
  comTablero.Top = 100;
  comTablero.Left = 100;
  for (const PaletteEntry& entry : palette_) {
    entry.picture.Top = entry.top;
    entry.picture.Left = 100;
  }
  picTablero.Top = BoardTop;
  picTablero.Left = BoardLeft;
}

void frmNuevoJuego::Form_Unload() {
  setMenu(false);
}

void frmNuevoJuego::setMenu(bool open) {
  mainWindow_.showMenuItem(MenuItem::NuevoJuego, !open);
  mainWindow_.showMenuItem(MenuItem::CargarJuego, true);
  mainWindow_.showMenuItem(MenuItem::GuardarJuego, false);
  mainWindow_.showMenuItem(MenuItem::CargarPlantilla, true);
  mainWindow_.showMenuItem(MenuItem::GuardarPlantilla, open);
}

void frmNuevoJuego::clearRecords() {
  for (int n = 1; n <= principal_.NumCasillas; ++n)
    principal_.Casillas(n) = Casilla{};
}

void frmNuevoJuego::showBoard() {
  const std::string folder = forms().desktop().programFolder();
  const std::string picture = boardPicture(principal_.NumFilas);
  if (!picTablero.LoadPicture(forms::programPath(folder, picture))) {
    // Without its picture the board still has its squares.
    picTablero.Width = boardElementSide(principal_);
    picTablero.Height = boardElementSide(principal_);
  }
  picTablero.AccessibleName = boardDescription(principal_);
  picTablero.grid.setGrid(principal_.NumColumnas, principal_.LadoCasilla);
  Height = picTablero.Height + picTablero.Top + 600;
  Width = picTablero.Width + picTablero.Left + 150;
}

// --- Board choice ------------------------------------------------------------------------------

void frmNuevoJuego::comTablero_Click() {
  const auto side = static_cast<std::uint8_t>(5 + comTablero.ListIndex());
  principal_.NumColumnas = side;
  principal_.NumFilas = side;
  principal_.NumCasillas = static_cast<std::uint8_t>(side * side);
  clearRecords();
  showBoard();
  fillPositions(principal_, picTablero.Top, picTablero.Left);
  // The list gives up the focus here, and its LostFocus takes the units' pictures off. While the
  // screen is being opened the focus cannot move yet.
  passOver(picTablero.SetFocus());
}

// Erases the units: always all 64 squares, whatever the board.
void frmNuevoJuego::btnEliminarUnidades_Click() {
  for (int i = 1; i <= TablaCasillas::Last; ++i) {
    passOver(picUnidad.Unload(i));
    principal_.Casillas(i).Jugador = 0;
    principal_.Casillas(i).TUnidad = 0;
  }
}

// --- Palette -----------------------------------------------------------------------------------

void frmNuevoJuego::picPaleta_Click(std::size_t entry) {
  const bool flat = palette_[entry].picture.Appearance == 0;
  principal_.TUnidadSeleccionada = flat ? palette_[entry].type : std::uint8_t{NINGUNA};
  raisePalette(principal_.TUnidadSeleccionada);
}

void frmNuevoJuego::raisePalette(std::uint8_t type) {
  for (const PaletteEntry& entry : palette_) {
    const bool raised = entry.type == type;
    entry.picture.Appearance = raised ? 1 : 0;
    entry.picture.AccessibleName = unitName(entry.type) + (raised ? ", elegida" : "");
  }
}

// 1 to 5 are the palette's pictures from top to bottom.
bool frmNuevoJuego::Form_KeyDown(forms::Key key, int digit) {
  if (key != forms::Key::Digit || digit < 1 || digit > static_cast<int>(palette_.size()))
    return false;
  picPaleta_Click(static_cast<std::size_t>(digit - 1));
  return true;
}

// --- Placing and removing ----------------------------------------------------------------------

void frmNuevoJuego::picTablero_MouseMove(float X, float Y) {
  PosX = X;
  PosY = Y;
  const PointedSquare place = squareAt(principal_, X, Y);
  picTablero.ToolTipText = hoverText(place.square, place.row, place.column);
}

void frmNuevoJuego::picUnidad_MouseMove(int Index) {
  const Casilla& square = principal_.Casillas(Index);
  picUnidad(Index)->ToolTipText = hoverText(Index, square.PosX, square.PosY);
}

void frmNuevoJuego::picTablero_Click() {
  if (principal_.TUnidadSeleccionada == NINGUNA) {
    forms().messageBox(
        "DEBE seleccionar una Unidad y hacer click sobre una casilla del Tablero para situarla");
    return;
  }
  const PointedSquare place = squareAt(principal_, PosX, PosY);
  NCasilla = static_cast<std::uint8_t>(place.square);
  if (place.square == 0 || principal_.Casillas(place.square).Jugador != 0)
    return;
  if (const auto refusal = placementRefusal(principal_, place.square)) {
    forms().messageBox(*refusal);
    return;
  }
  NCasillaEspejo = static_cast<std::uint8_t>(CasillaEspejo(principal_, NCasilla));
  CasillaActual = NCasillaEspejo;
  const RowColumn mirror = rowAndColumn(principal_, NCasillaEspejo);
  PosXEspejo = static_cast<std::uint8_t>(mirror.column);
  PosYEspejo = static_cast<std::uint8_t>(mirror.row);

  if (!placeUnit(NCasilla, place.row, place.column, 1))
    return;
  if (!placeUnit(NCasillaEspejo, PosYEspejo, PosXEspejo, 2)) {
    // The centre square is its own mirror: no unit can stand there.
    passOver(picUnidad.Unload(NCasilla));
    principal_.Casillas(NCasilla).Jugador = 0;
    principal_.Casillas(NCasilla).TUnidad = 0;
  }
}

// Makes the picture and the record of a unit of the chosen type. False, and nothing changes, when
// the square has a picture already.
bool frmNuevoJuego::placeUnit(int n, int row, int column, std::uint8_t player) {
  if (!picUnidad.Load(n))
    return false;
  forms::Picture& unit = *picUnidad(n);
  unit.Top = pictureTop(principal_, picTablero.Top, row);
  unit.Left = pictureLeft(principal_, picTablero.Left, column);
  loadUnitPicture(n, principal_.TUnidadSeleccionada, player);
  unit.ZOrder();
  unit.Visible = true;
  principal_.Casillas(n).Jugador = player;
  principal_.Casillas(n).TUnidad = principal_.TUnidadSeleccionada;
  describeUnit(n);
  return true;
}

void frmNuevoJuego::showLoadedUnit(int n) {
  const Casilla& square = principal_.Casillas(n);
  if (square.Jugador == 0 || !picUnidad.Load(n))
    return;
  forms::Picture& unit = *picUnidad(n);
  unit.Top = square.PosXTwips;
  unit.Left = square.PosYTwips;
  loadUnitPicture(n, square.TUnidad, square.Jugador);
  unit.ZOrder();
  unit.Visible = true;
  describeUnit(n);
}

void frmNuevoJuego::loadUnitPicture(int n, int type, int player) {
  const std::string picture = unitPicture(type, player);
  const std::string folder = forms().desktop().programFolder();
  if (!picture.empty())
    passOver(picUnidad(n)->LoadPicture(forms::programPath(folder, picture)));
}

void frmNuevoJuego::describeUnit(int n) {
  picUnidad(n)->AccessibleName = unitDescription(principal_, n, principal_.Casillas(n), false);
}

// The right button takes a unit and its mirror away. A template can hold units without one.
void frmNuevoJuego::picUnidad_MouseDown(int Index, forms::MouseButton button) {
  if (button != forms::MouseButton::Right)
    return;
  const int mirror = CasillaEspejo(principal_, Index);
  for (const int n : {Index, mirror}) {
    if (!picUnidad.Unload(n))
      continue;
    principal_.Casillas(n).Jugador = 0;
    principal_.Casillas(n).TUnidad = 0;
  }
}

// --- Starting the game, and the field dump -----------------------------------------------------

void frmNuevoJuego::btnIniciar_Click() {
  const ArmyCheck army = checkArmy(principal_);
  if (!army.refusal.empty()) {
    forms().messageBox(army.refusal);
    return;
  }
  if (forms().messageBox(army.question, forms::BoxStyle::InformationYesNo) != forms::Answer::Yes)
    return;
  if (close() && abrirEnJuego)
    abrirEnJuego();
}

void frmNuevoJuego::Command1_Click() {
  principal_.TextoVolcado = fieldDump(principal_);
  if (mostrarVolcado)
    mostrarVolcado();
}

} // namespace falanges
