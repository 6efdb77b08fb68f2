#include "play/frm_en_juego.h"

#include "forms/numbers.h"
#include "forms/text_file.h"
#include "model/colors.h"
#include "model/geometry.h"
#include "model/units.h"
#include "persistence/game_file.h"
#include "play/reach.h"

namespace falanges {

using forms::passOver;

namespace {

constexpr int MarkerSide = 465; // twips: a quarter of the unit that may stand there

void makeLabel(forms::Label& label, const char* caption, int top, int width, forms::Color color) {
  label.Caption = caption;
  label.Top = top;
  label.Left = 45;
  label.Width = width;
  label.Height = 600;
  label.ForeColor = color;
  label.TextFont.bold = true;
}

} // namespace

frmEnJuego::frmEnJuego(forms::Forms& forms, Principal& principal, MainWindow& mainWindow)
    : Window(forms, forms::WindowKind::Child, "frmEnJuego"), principal_(principal),
      mainWindow_(mainWindow) {
  BackColor = PaleGreen;
  picTablero.AutoSize = true;
  picTablero.Border = true;
  picTablero.Width = 5940;
  picTablero.Height = 5940;
  picTablero.TabIndex = 0;
  picTablero.MouseMove = [this](float X, float Y) { picTablero_MouseMove(X, Y); };
  picTablero.grid.nameOfEmptySquare = [this](int n) {
    return emptySquareDescription(principal_, n);
  };
  picUnidad.pattern.Width = UnitSide;
  picUnidad.pattern.Height = UnitSide;
  picUnidad.pattern.BackColor = White;
  picUnidad.Click = [this](int Index) { picUnidad_Click(Index); };
  picUnidad.MouseMove = [this](int Index) { picUnidad_MouseMove(Index); };
  picMovimientoPermitido.pattern.Width = MarkerSide;
  picMovimientoPermitido.pattern.Height = MarkerSide;
  picMovimientoPermitido.pattern.BackColor = PaleBlue;
  picMovimientoPermitido.Click = [this](int Index) { picMovimientoPermitido_Click(Index); };
  picMovimientoPermitido.MouseMove = [this](int Index) { picMovimientoPermitido_MouseMove(Index); };
  constexpr forms::Color Blue{0, 0, 255};
  constexpr forms::Color Red{255, 0, 0};
  makeLabel(lblJ1, "Jugador 1", 240, 1065, Blue);
  makeLabel(lblJ1_Estado, "En Turno", 960, 1125, Blue);
  makeLabel(lblJ2, "Jugador 2", 2040, 1065, Red);
  makeLabel(lblJ2_Estado, "En Espera", 2760, 1125, Red);
  made();
}

// --- Opening and closing -----------------------------------------------------------------------

void frmEnJuego::Form_Load() {
  passOver(LoadIcon(forms::programPath(forms().desktop().programFolder(), "\\ico\\adelante.ico")));
  setMenu();
  placeWindow();
  Caption = principal_.JuegoEnRed ? "Actualizando..." : "En Juego";
  drawBoard();
  drawUnits();
  if (JugadorActual == 0)
    JugadorActual = 1;
  drawStatus();
  principal_.MovRealizados = 0;
}

void frmEnJuego::setMenu() {
  mainWindow_.showMenuItem(MenuItem::NuevoJuego, false);
  mainWindow_.showMenuItem(MenuItem::CargarJuego, false);
  mainWindow_.showMenuItem(MenuItem::GuardarJuego, !principal_.JuegoEnRed);
  mainWindow_.showMenuItem(MenuItem::CargarPlantilla, false);
  mainWindow_.showMenuItem(MenuItem::GuardarPlantilla, false);
}

void frmEnJuego::placeWindow() {
  Top = principal_.JuegoEnRed ? forms::storedNearest<int>(forms::Val(mainWindow_.TopEnJuego)) : 0;
  Left = principal_.JuegoEnRed ? forms::storedNearest<int>(forms::Val(mainWindow_.LeftEnJuego)) : 0;
}

void frmEnJuego::drawBoard() {
  picTablero.Top = BoardTop;
  picTablero.Left = BoardLeft;
  const std::string picture = boardPicture(principal_.NumFilas);
  const std::string folder = forms().desktop().programFolder();
  if (!picture.empty() && !picTablero.LoadPicture(forms::programPath(folder, picture))) {
    // Without its picture the board still has its squares.
    picTablero.Width = boardElementSide(principal_);
    picTablero.Height = boardElementSide(principal_);
  }
  picTablero.AccessibleName = boardDescription(principal_);
  picTablero.grid.setGrid(principal_.NumColumnas, principal_.LadoCasilla);
  Height = picTablero.Height + picTablero.Top + 600;
  Width = picTablero.Width + picTablero.Left + 150;
}

void frmEnJuego::drawUnits() {
  const std::string folder = forms().desktop().programFolder();
  for (int i = 1; i <= principal_.NumCasillas; ++i) {
    const Casilla& square = principal_.Casillas(i);
    if (square.Jugador == 0)
      continue;
    passOver(picUnidad.Load(i));
    forms::Picture& unit = *picUnidad(i);
    const std::string picture = unitPicture(square.TUnidad, square.Jugador);
    if (!picture.empty())
      passOver(unit.LoadPicture(forms::programPath(folder, picture)));
    unit.Top = square.PosXTwips;
    unit.Left = square.PosYTwips;
    unit.AccessibleName = unitDescription(principal_, i, square, false);
    unit.ZOrder();
    unit.Visible = true;
  }
}

void frmEnJuego::drawStatus() {
  if (JugadorActual == 1)
    showStatus("En Turno", "En Espera");
  else if (JugadorActual == 2)
    showStatus("En Espera", "En Turno");
  else
    showStatus(lblJ1_Estado.Caption, lblJ2_Estado.Caption); // the texts they are made with
}

void frmEnJuego::Form_Unload() {
  mainWindow_.showMenuItem(MenuItem::NuevoJuego, true);
  mainWindow_.showMenuItem(MenuItem::CargarJuego, true);
  mainWindow_.showMenuItem(MenuItem::GuardarJuego, false);
  mainWindow_.showMenuItem(MenuItem::CargarPlantilla, true);
  mainWindow_.showMenuItem(MenuItem::GuardarPlantilla, false);
  if (!principal_.JuegoEnRed)
    JugadorActual = 1;
  principal_.JuegoEnRed = false;
  mainWindow_.runTimer(false);
}

void frmEnJuego::showStatus(const std::string& player1, const std::string& player2) {
  lblJ1_Estado.Caption = player1;
  lblJ1_Estado.AccessibleName = "Jugador 1: " + player1;
  lblJ2_Estado.Caption = player2;
  lblJ2_Estado.AccessibleName = "Jugador 2: " + player2;
}

void frmEnJuego::disableUnits() {
  for (int i = 1; i <= principal_.NumCasillas; ++i)
    if (forms::Picture* unit = picUnidad(i))
      unit->Enabled = false;
}

// --- Selecting ---------------------------------------------------------------------------------

void frmEnJuego::picUnidad_Click(int Index) {
  const Casilla& square = principal_.Casillas(Index);
  if (square.TUnidad == BAN) {
    select(Index, false);
    return;
  }
  if (square.Jugador != JugadorActual)
    return;
  if (picUnidad(Index)->Appearance == 1) {
    select(Index, false);
    removeMarkers();
    return;
  }
  for (int i = 1; i <= principal_.NumCasillas; ++i)
    select(i, false);
  removeMarkers();
  select(Index, true);
  for (const int target : reach(principal_, Index, JugadorActual))
    showMarker(target);
  // No marker came up: a unit without a move does not stay selected.
  if (picMovimientoPermitido.count() == 1)
    select(Index, false);
}

void frmEnJuego::select(int n, bool selected) {
  forms::Picture* unit = picUnidad(n);
  if (!unit || unit->Appearance == (selected ? 1 : 0))
    return;
  unit->Appearance = selected ? 1 : 0;
  unit->AccessibleName = unitDescription(principal_, n, principal_.Casillas(n), selected);
}

void frmEnJuego::showMarker(int n) {
  passOver(picMovimientoPermitido.Load(n));
  forms::Picture& marker = *picMovimientoPermitido(n);
  marker.Top = principal_.Casillas(n).PosXTwips;
  marker.Left = principal_.Casillas(n).PosYTwips;
  marker.AccessibleName = "Mover al " + squareDescription(principal_, n);
  marker.ZOrder();
  marker.Visible = true;
}

void frmEnJuego::removeMarkers() {
  for (int i = 1; i <= principal_.NumCasillas; ++i)
    passOver(picMovimientoPermitido.Unload(i));
}

// Escape takes the selection back, as a second click on the unit does. The focus stays with the
// picture that carries the cursor's name.
bool frmEnJuego::Form_KeyDown(forms::Key key, int /*digit*/) {
  const int n = key == forms::Key::Escape ? selectedSquare() : 0;
  if (n == 0)
    return false;
  forms().clicked(*picUnidad(n));
  passOver(picTablero.SetFocus());
  return true;
}

// --- Hints -------------------------------------------------------------------------------------

void frmEnJuego::picUnidad_MouseMove(int Index) {
  const Casilla& square = principal_.Casillas(Index);
  picUnidad(Index)->ToolTipText = hoverText(Index, square.PosX, square.PosY);
}

void frmEnJuego::picMovimientoPermitido_MouseMove(int Index) {
  const Casilla& square = principal_.Casillas(Index);
  picMovimientoPermitido(Index)->ToolTipText = hoverText(Index, square.PosX, square.PosY);
}

void frmEnJuego::picTablero_MouseMove(float X, float Y) {
  const PointedSquare place = squareAt(principal_, X, Y);
  picTablero.ToolTipText = hoverText(place.square, place.row, place.column);
}

// --- Moving ------------------------------------------------------------------------------------

void frmEnJuego::picMovimientoPermitido_Click(int Index) {
  removeMarkers();
  const int CasillaDestino = Index;
  const int CasillaOrigen = selectedSquare();
  if (CasillaOrigen == 0)
    return;
  movePicture(CasillaOrigen, CasillaDestino);
  // The tests see the board as it stood before the move; the table is written last.
  const Victory victory = victoryOfMove(principal_, JugadorActual, CasillaDestino);
  if (victory != Victory::None) {
    closeWonGame(victory, CasillaOrigen, CasillaDestino);
    return;
  }
  writeMove(CasillaOrigen, CasillaDestino);
  countMove();
}

int frmEnJuego::selectedSquare() {
  for (int i = 1; i <= principal_.NumCasillas; ++i)
    if (const forms::Picture* unit = picUnidad(i); unit && unit->Appearance == 1)
      return i;
  return 0;
}

void frmEnJuego::movePicture(int CasillaOrigen, int CasillaDestino) {
  const Casilla mover = principal_.Casillas(CasillaOrigen);
  passOver(picUnidad.Unload(CasillaOrigen));
  // On an enemy's square the element exists: the defender's picture becomes the attacker's.
  passOver(picUnidad.Load(CasillaDestino));
  forms::Picture& unit = *picUnidad(CasillaDestino);
  const std::string folder = forms().desktop().programFolder();
  passOver(unit.LoadPicture(forms::programPath(folder, unitPicture(mover.TUnidad, mover.Jugador))));
  unit.Top = principal_.Casillas(CasillaDestino).PosXTwips;
  unit.Left = principal_.Casillas(CasillaDestino).PosYTwips;
  unit.AccessibleName = unitDescription(principal_, CasillaDestino, mover, false);
  unit.ZOrder();
  unit.Visible = true;
}

void frmEnJuego::writeMove(int CasillaOrigen, int CasillaDestino) {
  Casilla& from = principal_.Casillas(CasillaOrigen);
  Casilla& to = principal_.Casillas(CasillaDestino);
  to.Jugador = from.Jugador;
  to.TUnidad = from.TUnidad;
  from.Jugador = 0;
  from.TUnidad = 0;
}

// The test is for equality: lowered below the moves already made, MovPorTurno is passed and the
// player stays in turn. The count stops at 255 so that it never comes round to it again.
void frmEnJuego::countMove() {
  if (principal_.MovRealizados < 255)
    ++principal_.MovRealizados;
  if (principal_.MovRealizados != principal_.MovPorTurno)
    return;
  if (JugadorActual == 1) {
    showStatus("En Espera", "En Turno");
    JugadorActual = 2;
  } else if (JugadorActual == 2) {
    showStatus("En Turno", "En Espera");
    JugadorActual = 1;
  }
  principal_.MovRealizados = 0;
}

// --- The end of a game -------------------------------------------------------------------------

// A local win leaves table, labels and caption as they were; a network win writes them and the
// shared file first.
void frmEnJuego::closeWonGame(Victory victory, int CasillaOrigen, int CasillaDestino) {
  const bool published = !principal_.JuegoEnRed || publishVictory(CasillaOrigen, CasillaDestino);
  forms().messageBox(victoryText(victory, JugadorActual));
  disableUnits();
  mainWindow_.showMenuItem(MenuItem::GuardarJuego, false);
  if (!published)
    offerRetry();
}

// False when the final position or the result marker could not be written.
bool frmEnJuego::publishVictory(int CasillaOrigen, int CasillaDestino) {
  writeMove(CasillaOrigen, CasillaDestino);
  if (JugadorActual == 1)
    showStatus("Victoria", "Derrota");
  else
    showStatus("Derrota", "Victoria");
  Caption = "Victoria - Juego finalizado";
  const bool saved = mainWindow_.mnuGuardarJuego_Click();
  principal_.JuegoEnRed = false;
  mainWindow_.runTimer(false);
  // A marker may stand only behind a complete position.
  return saved && forms::appendTextFile(principal_.ArchivoRed, resultMarkerLine(principal_));
}

// The other player waits for this file: the winner may repeat both writes until they succeed.
void frmEnJuego::offerRetry() {
  const std::string question =
      "No se puede guardar el archivo:\r\n" + principal_.ArchivoRed + "\r\n¿Reintentar?";
  while (forms().messageBox(question, forms::BoxStyle::InformationYesNo) == forms::Answer::Yes) {
    if (forms::writeTextFile(principal_.ArchivoRed, gameText(principal_, JugadorActual)) &&
        forms::appendTextFile(principal_.ArchivoRed, resultMarkerLine(principal_)))
      return;
  }
}

} // namespace falanges
