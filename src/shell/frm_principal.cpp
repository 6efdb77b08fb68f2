#include "shell/frm_principal.h"

#include <algorithm>

#include "deployment/frm_nuevo_juego.h"
#include "forms/text_file.h"
#include "model/colors.h"
#include "network/network_game.h"
#include "persistence/configuration.h"
#include "play/frm_en_juego.h"
#include "shell/frm_opciones.h"
#include "shell/information_box.h"

namespace falanges {

using forms::passOver;

namespace {

// "JuegoGuardado-05-03-2021-14-22-07" of 5 March 2021, 14:22:07.
std::string proposedNameAt(const char* stem, const forms::DateTime& time) {
  const auto digits = [](int number, std::size_t width) {
    const std::string text = std::to_string(number);
    return "-" + std::string(width - std::min(width, text.size()), '0') + text;
  };
  return stem + digits(time.day, 2) + digits(time.month, 2) + digits(time.year, 4) +
         digits(time.hour, 2) + digits(time.minute, 2) + digits(time.second, 2);
}

} // namespace

frmPrincipal::frmPrincipal(forms::Forms& forms, Principal& principal)
    : Window(forms, forms::WindowKind::Frame, "frmPrincipal"), principal_(principal) {
  Caption = "Vornath - Falanges Z - Tomar El Estandarte";
  BackColor = FrameGround;
  Maximized = true;
  makeMenu();
  tmrRed.Interval = 1000;
  tmrRed.Tick = [this] { children.network->tmrRed_Timer(); };
}

void frmPrincipal::makeMenu() {
  mnuJuego.Caption = "&Juego";
  mnuJuego.WindowList = true;
  makeEntry(mnuNuevoJuego, "&Nuevo Juego", &frmPrincipal::mnuNuevoJuego_Click);
  makeEntry(mnuCargarJuego, "&Cargar Juego", &frmPrincipal::mnuCargarJuego_Click);
  makeEntry(mnuGuardarJuego, "&Guardar Juego", &frmPrincipal::mnuGuardarJuego_Click);
  makeEntry(mnuCargarPlantilla, "Cargar &Plantilla", &frmPrincipal::mnuCargarPlantilla_Click);
  makeEntry(mnuGuardarPlantilla, "Guardar P&lantilla", &frmPrincipal::mnuGuardarPlantilla_Click);
  makeEntry(mnuDeclararRendicion, "Declarar &Rendición", &frmPrincipal::mnuDeclararRendicion_Click);
  mnuDeclararRendicion.Enabled = false;
  mnuSeparadorV1.Caption = " ";
  mnuSeparadorV1.Visible = false;
  makeEntry(mnuOpciones, "&Opciones", &frmPrincipal::mnuOpciones_Click);
}

void frmPrincipal::makeEntry(forms::MenuEntry& entry, const char* caption,
                             void (frmPrincipal::*operation)()) {
  entry.Caption = caption;
  entry.Click = [this, operation] { (this->*operation)(); };
}

// --- Start-up and shutdown ---------------------------------------------------------------------

void frmPrincipal::Form_Load() {
  const std::string folder = forms().desktop().programFolder();
  passOver(LoadIcon("\\ico\\tiempo.ico"));
  showMenu(AppState::Idle);
  place(0, 0, 13000, 11050);
  principal_.LadoCasilla = 1180;
  principal_.MargenCasilla = 140;
  principal_.RutaPlantillas = forms::programPath(folder, "\\plantillas");
  principal_.RutaJuegosGuardados = forms::programPath(folder, "\\jguardados");
  // From the second run on both exist; a failure shows later, when a dialog opens elsewhere.
  passOver(forms::makeFolder(principal_.RutaPlantillas));
  passOver(forms::makeFolder(principal_.RutaJuegosGuardados));
  principal_.ArchivoRed.clear();
  principal_.JuegoEnRed = false;
  readConfiguration(principal_, configurationPath(folder));
  showInformation();
}

void frmPrincipal::showInformation() {
  forms::MessageBox box = informationBox();
  box.icon = Icon; // the frame itself is not on the screen
  forms().messageBox(box);
}

bool frmPrincipal::Form_QueryUnload() {
  return forms().messageBox("¿Está seguro de salir y cerrar todo?",
                            forms::BoxStyle::WarningYesNo) == forms::Answer::Yes;
}

void frmPrincipal::Form_Unload() {
  showInformation();
}

// --- What the other screens may ask ------------------------------------------------------------

void frmPrincipal::showMenu(AppState state) {
  const bool idle = state == AppState::Idle;
  const bool deployment = state == AppState::Deployment;
  mnuNuevoJuego.Visible = idle;
  mnuCargarJuego.Visible = idle || deployment;
  mnuGuardarJuego.Visible = state == AppState::LocalPlay;
  mnuCargarPlantilla.Visible = idle || deployment;
  mnuGuardarPlantilla.Visible = deployment;
}

void frmPrincipal::runTimer(bool running) {
  tmrRed.Enabled = running;
}

// --- Windows of the menu -----------------------------------------------------------------------

void frmPrincipal::mnuNuevoJuego_Click() {
  children.nuevoJuego->open();
}

void frmPrincipal::mnuOpciones_Click() {
  if (!principal_.JuegoEnRed)
    children.opciones->open();
}

void frmPrincipal::mnuDeclararRendicion_Click() {
  if (forms().messageBox("¿Declarar Rendición?", forms::BoxStyle::InformationYesNo) !=
      forms::Answer::Yes)
    return;
  const std::string player = "JUGADOR -" + std::to_string(children.enJuego->JugadorActual);
  forms().messageBox(player + "- HA DECLARADO SU RENDICIÓN\r\n\r\n" + player + "- PIERDE");
  children.enJuego->disableUnits();
  showMenu(AppState::Finished);
}

// --- Game files --------------------------------------------------------------------------------

std::optional<std::string> frmPrincipal::askForFile(const char* title, const std::string& folder,
                                                    const std::string& proposedName) {
  return forms().fileDialog({.save = !proposedName.empty(),
                             .title = title,
                             .folder = folder,
                             .fileName = proposedName,
                             .filter = "Archivos de texto|*.txt|Todos los archivos|*.*"});
}

void frmPrincipal::saveAs(const char* title, const std::string& folder, const char* stem) {
  const auto path = askForFile(title, folder, proposedNameAt(stem, forms().desktop().now()));
  if (path && !forms::replaceTextFile(*path, gameText(principal_, children.enJuego->JugadorActual)))
    forms().messageBox("No se puede guardar el archivo:\r\n" + *path);
}

void frmPrincipal::mnuGuardarJuego_Click() {
  if (!children.network->pollNow())
    saveAs("Guardar Juego", principal_.RutaJuegosGuardados, "JuegoGuardado");
}

void frmPrincipal::mnuGuardarPlantilla_Click() {
  saveAs("Guardar Plantilla", principal_.RutaPlantillas, "Plantilla");
}

void frmPrincipal::mnuCargarJuego_Click() {
  if (children.network->pollNow())
    return;
  const auto path = askForGame();
  if (const auto game = path ? readChecked(*path) : std::nullopt)
    openGame(*path, *game);
}

void frmPrincipal::joinNetworkGame() {
  const auto path = askForGame();
  if (const auto game = path ? children.network->join(*path) : std::nullopt) {
    openGame(*path, *game);
    children.network->begin();
  }
}

std::optional<std::string> frmPrincipal::askForGame() {
  principal_.CargaCancelada = true; // until a game has been taken
  return askForFile("Cargar Juego", principal_.RutaJuegosGuardados);
}

// A join finds the earlier game still on the screen. It closes first, for that sets JugadorActual.
// The opening play screen takes the activation from the options dialog, which closes by itself.
void frmPrincipal::openGame(const std::string& path, const GameText& game) {
  principal_.CargaCancelada = false;
  principal_.ArchivoRed = path;
  children.enJuego->close();
  takeGame(game, principal_, children.enJuego->JugadorActual);
  children.nuevoJuego->close();
  children.enJuego->open();
}

// The checked content of a game file; nothing, and the player is told why, when it cannot be read
// or is refused.
std::optional<GameText> frmPrincipal::readChecked(const std::string& path) {
  GameReading read = readGame(path);
  if (read.isGame())
    return std::move(read.game);
  forms().messageBox(read.told(path));
  return std::nullopt;
}

void frmPrincipal::mnuCargarPlantilla_Click() {
  const auto path = askForFile("Cargar Plantilla", principal_.RutaPlantillas);
  if (const auto game = path ? readChecked(*path) : std::nullopt)
    children.nuevoJuego->layOut(*game);
}

} // namespace falanges
