// The program: one Principal, its windows, and how they lead to one another.
#pragma once

#include <set>
#include <string>

#include "deployment/frm_nuevo_juego.h"
#include "forms/forms.h"
#include "model/principal.h"
#include "network/network_game.h"
#include "play/frm_en_juego.h"
#include "shell/frm_msg_box.h"
#include "shell/frm_opciones.h"
#include "shell/frm_principal.h"

namespace falanges {

// One per process (in tests: one per copy of the program).
class App {
public:
  // `start` runs the file operations of network games.
  explicit App(forms::Desktop& desktop, network::Start start = network::atOnce);

  // Opens the frame window, after the information box. The desktop then delivers the events.
  // Without a known program folder it says so, and no window opens.
  void start();

  forms::Forms forms;
  Principal principal;
  frmPrincipal frame{forms, principal};
  frmEnJuego enJuego{forms, principal, frame};
  frmMsgBox msgBox{forms, principal};
  frmNuevoJuego nuevoJuego{forms, principal, frame, enJuego, msgBox};
  frmOpciones opciones{forms, principal, frame};
  NetworkGame networkGame;

private:
  void tellFailures();

  std::set<std::string> told_; // the kinds of failure that the player has heard of
};

} // namespace falanges
