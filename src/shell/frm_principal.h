// The frame window: menu, network timer, start-up, shutdown and the game files.
#pragma once

#include <optional>
#include <string>

#include "forms/forms.h"
#include "model/main_window.h"
#include "model/principal.h"
#include "persistence/game_file.h"

namespace falanges {

class frmEnJuego;
class frmNuevoJuego;
class frmOpciones;
class NetworkGame;

class frmPrincipal final : public forms::Window, public MainWindow {
public:
  frmPrincipal(forms::Forms& forms, Principal& principal);

  // The child windows that the menu leads to, and the network game, which may be played on one of
  // them; set once, before the window opens.
  struct Children {
    frmNuevoJuego* nuevoJuego = nullptr;
    frmEnJuego* enJuego = nullptr;
    frmOpciones* opciones = nullptr;
    NetworkGame* network = nullptr;
  } children;

  void showMenu(AppState state) override;
  void runTimer(bool running) override;
  // Saves or loads a game through the file dialog; CargaCancelada tells whether a load was
  // cancelled, refused or failed. The player is told what failed, and nothing has changed then. In
  // a network game both are a look at the shared file, without any dialog.
  void mnuGuardarJuego_Click();
  void mnuCargarJuego_Click();
  // Loads a game as mnuCargarJuego_Click does and goes on with it as a network game.
  void joinNetworkGame();
  void mnuGuardarPlantilla_Click();
  void mnuCargarPlantilla_Click();
  void mnuNuevoJuego_Click();
  void mnuOpciones_Click();
  // The menu entry is disabled in every state; the operation needs an open play screen.
  void mnuDeclararRendicion_Click();

  forms::MenuEntry mnuJuego{*this, "mnuJuego"};
  forms::MenuEntry mnuNuevoJuego{*this, "mnuNuevoJuego", &mnuJuego};
  forms::MenuEntry mnuCargarJuego{*this, "mnuCargarJuego", &mnuJuego};
  forms::MenuEntry mnuGuardarJuego{*this, "mnuGuardarJuego", &mnuJuego};
  forms::MenuEntry mnuCargarPlantilla{*this, "mnuCargarPlantilla", &mnuJuego};
  forms::MenuEntry mnuGuardarPlantilla{*this, "mnuGuardarPlantilla", &mnuJuego};
  forms::MenuEntry mnuDeclararRendicion{*this, "mnuDeclararRendicion", &mnuJuego};
  forms::MenuEntry mnuSeparadorV1{*this, "mnuSeparadorV1", &mnuJuego};
  forms::MenuEntry mnuOpciones{*this, "mnuOpciones"};
  forms::Timer tmrRed{*this, "tmrRed"};

private:
  void Form_Load() override;
  bool Form_QueryUnload() override;
  void Form_Unload() override;

  void makeMenu();
  void makeEntry(forms::MenuEntry& entry, const char* caption, void (frmPrincipal::*operation)());
  void showInformation();
  // A dialog to open a game file; with a proposed name, one to save it.
  std::optional<std::string> askForFile(const char* title, const std::string& folder,
                                        const std::string& proposedName = {});
  void saveAs(const char* title, const std::string& folder, const char* stem);
  std::optional<std::string> askForGame();
  std::optional<GameText> readChecked(const std::string& path);
  void openGame(const std::string& path, const GameText& game);

  Principal& principal_;
};

} // namespace falanges
