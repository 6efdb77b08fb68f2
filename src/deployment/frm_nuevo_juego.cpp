#include "deployment/frm_nuevo_juego.h"

#include "deployment/rules.h"
#include "model/colors.h"
#include "model/geometry.h"
#include "model/units.h"

namespace falanges {

using forms::passOver;

frmNuevoJuego::frmNuevoJuego(forms::Forms& forms, Principal& principal, MainWindow& mainWindow,
                             forms::Window& play, forms::Window& dump)
    : BoardScreen(forms, principal, mainWindow, "frmNuevoJuego"), play_(play), dump_(dump),
      palette_{{{picINF, INF}, {picCAB, CAB}, {picELE, ELE}, {picGEN, GEN}, {picBAN, BAN}}} {
  Caption = "Nuevo Juego";
  BackColor = DeploymentGround;
  picTablero.Click = [this] { picTablero_Click(); };
  picTablero.MouseMove = [this](float X, float Y) {
    PosX = X;
    PosY = Y;
    showBoardHint(X, Y);
  };
  picUnidad.MouseDown = [this](int Index, forms::MouseButton button) {
    picUnidad_MouseDown(Index, button);
  };
  comTablero.place(100, 100, 930, 360);
  comTablero.TextFont.bold = true;
  comTablero.TabIndex = 1;
  comTablero.AccessibleName = "Tablero";
  comTablero.Click = [this] { comTablero_Click(); };
  comTablero.LostFocus = [this] { btnEliminarUnidades_Click(); };
  makePalette();
  makeButtons();
}

void frmNuevoJuego::makePalette() {
  int top = 560;
  int tabIndex = 2;
  for (const PaletteEntry& entry : palette_) {
    entry.picture.place(100, top, UnitSide, UnitSide);
    top += 1080;
    entry.picture.TabIndex = tabIndex++;
    entry.picture.AccessibleName = unitName(entry.type);
    entry.picture.Click = [this, &entry] { picPaleta_Click(entry); };
  }
}

void frmNuevoJuego::makeButtons() {
  int tabIndex = 7; // behind the palette
  for (forms::Button* button : {&Command1, &btnEliminarUnidades, &btnIniciar})
    button->TabIndex = tabIndex++;
  Command1.Caption = "Ver Datos";
  Command1.place(120, 6480, 975, 615);
  Command1.Visible = false;
  Command1.Shortcut = "Ctrl+Shift+D";
  Command1.Click = [this] { Command1_Click(); };
  btnEliminarUnidades.Caption = "Eliminar Unidades";
  btnEliminarUnidades.place(8160, 120, 975, 495);
  btnEliminarUnidades.Visible = false;
  btnEliminarUnidades.Click = [this] { btnEliminarUnidades_Click(); };
  btnIniciar.Caption = "Iniciar";
  btnIniciar.place(120, 5880, 930, 375);
  btnIniciar.TextFont.bold = true;
  btnIniciar.BackColor = ButtonGround;
  btnIniciar.Click = [this] { btnIniciar_Click(); };
}

// --- Opening and closing -----------------------------------------------------------------------

void frmNuevoJuego::Form_Load() {
  passOver(LoadIcon("\\ico\\adelante.ico"));
  mainWindow_.showMenu(AppState::Deployment);
  principal_.TUnidadSeleccionada = 0;
  for (const PaletteEntry& entry : palette_)
    passOver(entry.picture.LoadPicture(unitPicture(entry.type, 1)));
  for (int side = SmallestBoard; side <= LargestBoard; ++side)
    comTablero.AddItem(boardName(side));
  passOver(comTablero.select(0)); // counts as a choice of board and runs comTablero_Click
  btnEliminarUnidades_Click();
}

void frmNuevoJuego::Form_Unload() {
  mainWindow_.showMenu(AppState::Idle);
}

void frmNuevoJuego::layOut(const GameText& game) {
  close();
  open();
  std::uint8_t ofNoGame = 0; // nobody is in turn yet
  takeGame(game, principal_, ofNoGame);
  showBoard();
  // A file can have units on squares that its board has not.
  drawUnits(TablaCasillas::Last);
}

// --- Board choice ------------------------------------------------------------------------------

void frmNuevoJuego::comTablero_Click() {
  chooseBoard(SmallestBoard + comTablero.ListIndex());
  // The list gives up the focus here, and its LostFocus takes the units' pictures off. While the
  // screen is being opened the focus cannot move yet.
  passOver(picTablero.SetFocus());
}

// An empty board of this side.
void frmNuevoJuego::chooseBoard(int side) {
  principal_.NumColumnas = static_cast<std::uint8_t>(side);
  principal_.NumFilas = principal_.NumColumnas;
  principal_.NumCasillas = static_cast<std::uint8_t>(side * side);
  for (int n = 1; n <= principal_.NumCasillas; ++n)
    principal_.Casillas(n) = Casilla{};
  showBoard();
  fillPositions(principal_);
}

// Erases the units: always all 64 squares, whatever the board.
void frmNuevoJuego::btnEliminarUnidades_Click() {
  for (int i = 1; i <= TablaCasillas::Last; ++i) {
    passOver(picUnidad.Unload(i));
    clearRecord(i);
  }
}

void frmNuevoJuego::clearRecord(int n) {
  principal_.Casillas(n).Jugador = 0;
  principal_.Casillas(n).TUnidad = 0;
}

// --- Palette -----------------------------------------------------------------------------------

void frmNuevoJuego::picPaleta_Click(const PaletteEntry& clicked) {
  const bool flat = clicked.picture.Appearance == 0;
  principal_.TUnidadSeleccionada = flat ? clicked.type : NINGUNA;
  for (const PaletteEntry& entry : palette_) {
    const bool raised = entry.type == principal_.TUnidadSeleccionada;
    entry.picture.Appearance = raised ? 1 : 0;
    entry.picture.AccessibleName = unitName(entry.type) + (raised ? ", elegida" : "");
  }
}

// 1 to 5 are the palette's pictures from top to bottom.
bool frmNuevoJuego::Form_KeyDown(forms::Key key, int digit) {
  if (key != forms::Key::Digit || digit < 1 || digit > static_cast<int>(palette_.size()))
    return false;
  picPaleta_Click(palette_[static_cast<std::size_t>(digit - 1)]);
  return true;
}

// --- Placing and removing ----------------------------------------------------------------------

void frmNuevoJuego::picTablero_Click() {
  if (principal_.TUnidadSeleccionada == NINGUNA) {
    forms().messageBox(
        "DEBE seleccionar una Unidad y hacer click sobre una casilla del Tablero para situarla");
    return;
  }
  NCasilla = static_cast<std::uint8_t>(squareAt(principal_, PosX, PosY).square);
  if (NCasilla == 0 || principal_.Casillas(NCasilla).Jugador != 0)
    return;
  if (const auto refusal = placementRefusal(principal_, NCasilla)) {
    forms().messageBox(*refusal);
    return;
  }
  NCasillaEspejo = static_cast<std::uint8_t>(CasillaEspejo(principal_, NCasilla));
  CasillaActual = NCasillaEspejo;
  const RowColumn mirror = rowAndColumn(principal_, NCasillaEspejo);
  PosXEspejo = static_cast<std::uint8_t>(mirror.column);
  PosYEspejo = static_cast<std::uint8_t>(mirror.row);

  if (!placeUnit(NCasilla, 1))
    return;
  if (!placeUnit(NCasillaEspejo, 2)) {
    // The centre square is its own mirror: no unit can stand there.
    passOver(picUnidad.Unload(NCasilla));
    clearRecord(NCasilla);
  }
}

// Makes the picture and the record of a unit of the chosen type. False, and nothing changes, when
// the square has a picture already.
bool frmNuevoJuego::placeUnit(int n, std::uint8_t player) {
  if (!picUnidad.Load(n))
    return false;
  Casilla& square = principal_.Casillas(n);
  square.Jugador = player;
  square.TUnidad = principal_.TUnidadSeleccionada;
  const auto [row, column] = rowAndColumn(principal_, n);
  showUnit(n, square, pictureTop(principal_, row), pictureLeft(principal_, column));
  return true;
}

// The right button takes a unit and its mirror away. A template can hold units without one.
void frmNuevoJuego::picUnidad_MouseDown(int Index, forms::MouseButton button) {
  if (button != forms::MouseButton::Right)
    return;
  for (const int n : {Index, CasillaEspejo(principal_, Index)})
    if (picUnidad.Unload(n))
      clearRecord(n);
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
  if (close())
    play_.open();
}

void frmNuevoJuego::Command1_Click() {
  principal_.TextoVolcado = fieldDump(principal_);
  dump_.showModal();
}

} // namespace falanges
