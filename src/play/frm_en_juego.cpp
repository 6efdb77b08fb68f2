#include "play/frm_en_juego.h"

#include "forms/numbers.h"
#include "model/colors.h"
#include "model/units.h"
#include "play/move.h"
#include "play/reach.h"

namespace falanges {

using forms::passOver;

namespace {

constexpr int MarkerSide = 465; // twips: a quarter of the unit that may stand there

void makeLabel(forms::Label& label, const char* caption, int top, int width, forms::Color color) {
  label.Caption = caption;
  label.place(45, top, width, 600);
  label.ForeColor = color;
  label.TextFont.bold = true;
}

std::string victoryText(Victory victory, int JugadorActual) {
  const std::string player = "JUGADOR -" + std::to_string(JugadorActual);
  std::string condition;
  if (victory == Victory::Flag)
    condition = "- HA CONQUISTADO la Bandera";
  if (victory == Victory::AllFlags)
    condition = "- HA CONQUISTADO TODAS las Banderas";
  if (victory == Victory::Elimination)
    condition = "- HA ELIMINADO todas las unidades enemigas";
  return player + condition + "\r\n\r\n" + player + "- GANA\r\n\r\n" +
         "Cierre la ventana del Tablero para iniciar otro juego";
}

} // namespace

frmEnJuego::frmEnJuego(forms::Forms& forms, Principal& principal, MainWindow& mainWindow)
    : BoardScreen(forms, principal, mainWindow, "frmEnJuego") {
  BackColor = PlayGround;
  picUnidad.Click = [this](int Index) { picUnidad_Click(Index); };
  picUnidad.inviting = [this](int Index) { return maySelect(Index); };
  picMovimientoPermitido.pattern.place(0, 0, MarkerSide, MarkerSide);
  picMovimientoPermitido.pattern.BackColor = MarkerColor;
  picMovimientoPermitido.Click = [this](int Index) { picMovimientoPermitido_Click(Index); };
  picMovimientoPermitido.MouseMove = [this](int Index) {
    showHint(*picMovimientoPermitido(Index), Index);
  };
  makeLabel(lblJ1, "Jugador 1", 240, 1065, Player1Text);
  makeLabel(lblJ1_Estado, "En Turno", 960, 1125, Player1Text);
  makeLabel(lblJ2, "Jugador 2", 2040, 1065, Player2Text);
  makeLabel(lblJ2_Estado, "En Espera", 2760, 1125, Player2Text);
  lblJ1_Estado.Announced = lblJ2_Estado.Announced = true;
}

// --- Opening and closing -----------------------------------------------------------------------

void frmEnJuego::Form_Load() {
  passOver(LoadIcon("\\ico\\adelante.ico"));
  mainWindow_.showMenu(principal_.JuegoEnRed ? AppState::NetworkPlay : AppState::LocalPlay);
  // Both are whole numbers, which a refresh has written. Otherwise the window stands at the corner.
  if (principal_.JuegoEnRed)
    moveTo(static_cast<int>(forms::Val(mainWindow_.LeftEnJuego)),
           static_cast<int>(forms::Val(mainWindow_.TopEnJuego)));
  Caption = principal_.JuegoEnRed ? "Actualizando..." : "En Juego";
  showBoard();
  drawUnits(principal_.NumCasillas);
  if (JugadorActual == 0)
    JugadorActual = 1;
  drawStatus();
  principal_.MovRealizados = 0;
}

void frmEnJuego::drawStatus() {
  if (JugadorActual == 2)
    showStatus("En Espera", "En Turno");
  else
    showStatus("En Turno", "En Espera"); // also for a number out of a file that is no player's
}

bool frmEnJuego::Form_QueryUnload() {
  return network->mayLeave();
}

void frmEnJuego::Form_Unload() {
  mainWindow_.showMenu(AppState::Idle);
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
  for (forms::Label* label : {&lblJ1_Estado, &lblJ2_Estado})
    label->Framed = label->Caption.get() == "En Turno"; // seen at a glance
}

void frmEnJuego::disableUnits() {
  for (int i = 1; i <= principal_.NumCasillas; ++i)
    if (forms::Picture* unit = picUnidad(i))
      unit->Enabled = false;
}

// --- Selecting ---------------------------------------------------------------------------------

void frmEnJuego::picUnidad_Click(int Index) {
  const Casilla& square = principal_.Casillas(Index);
  if (square.TUnidad == BAN || square.Jugador != JugadorActual)
    return;
  const int selectedBefore = selectedSquare();
  select(selectedBefore, false);
  removeMarkers();
  if (selectedBefore == Index)
    return;
  select(Index, true);
  for (const int target : reach(principal_, Index, JugadorActual))
    showMarker(target);
  // No marker came up: a unit without a move does not stay selected.
  if (picMovimientoPermitido.count() == 1)
    select(Index, false);
}

// Whether a click selects the unit, or takes its selection back.
bool frmEnJuego::maySelect(int n) {
  const Casilla& square = principal_.Casillas(n);
  return square.Jugador == JugadorActual && square.TUnidad != BAN &&
         (n == selectedSquare() || !reach(principal_, n, JugadorActual).empty());
}

bool frmEnJuego::canMove() {
  bool can = false;
  for (int i = 1; i <= principal_.NumCasillas; ++i)
    can = can || maySelect(i);
  return can;
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
  marker.moveTo(principal_.Casillas(n).PosYTwips, principal_.Casillas(n).PosXTwips);
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

// --- Moving ------------------------------------------------------------------------------------

void frmEnJuego::picMovimientoPermitido_Click(int Index) {
  removeMarkers();
  const int CasillaDestino = Index;
  const int CasillaOrigen = selectedSquare();
  if (CasillaOrigen == 0)
    return;
  movePicture(CasillaOrigen, CasillaDestino);
  // The test sees the board as it stood before the move.
  const Victory victory = victoryOfMove(principal_, JugadorActual, CasillaDestino);
  // A local win leaves table, labels and caption as they were.
  if (victory != Victory::None && !principal_.JuegoEnRed) {
    closeWonGame(victory);
    return;
  }
  applyMove(principal_, CasillaOrigen, CasillaDestino);
  if (victory != Victory::None && network->moveWins()) {
    closeWonGame(victory);
    return;
  }
  if (!countMove(principal_, JugadorActual))
    return;
  drawStatus();
  network->turnPassed();
}

int frmEnJuego::selectedSquare() {
  for (int i = 1; i <= principal_.NumCasillas; ++i)
    if (const forms::Picture* unit = picUnidad(i); unit && unit->Appearance == 1)
      return i;
  return 0;
}

void frmEnJuego::movePicture(int CasillaOrigen, int CasillaDestino) {
  passOver(picUnidad.Unload(CasillaOrigen));
  // On an enemy's square the element exists: the defender's picture becomes the attacker's.
  passOver(picUnidad.Load(CasillaDestino));
  const Casilla& to = principal_.Casillas(CasillaDestino);
  // A box about a picture would stand between the move and its result.
  showUnit(CasillaDestino, principal_.Casillas(CasillaOrigen), to.PosXTwips, to.PosYTwips,
           forms::OnFailure::PassOver);
}

void frmEnJuego::closeWonGame(Victory victory) {
  forms().messageBox(victoryText(victory, JugadorActual));
  disableUnits();
  mainWindow_.showMenu(AppState::Finished);
}

} // namespace falanges
