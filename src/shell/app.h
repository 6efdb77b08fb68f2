// The program: one Principal, its windows, and how they lead to one another.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "deployment/frm_nuevo_juego.h"
#include "forms/forms.h"
#include "model/principal.h"
#include "network/polling.h"
#include "play/frm_en_juego.h"
#include "shell/frm_msg_box.h"
#include "shell/frm_opciones.h"
#include "shell/frm_principal.h"

namespace falanges {

// One per process (in tests: one per copy of the program).
class App {
public:
  // `runner` runs the file operations of network games; it may be destroyed while one still hangs.
  explicit App(forms::Desktop& desktop,
               std::unique_ptr<Runner> runner = std::make_unique<RunnerAtOnce>());

  // Opens the frame window, after the information box. The desktop then delivers the events.
  // Without a known program folder it says so, and no window opens.
  void start();

  forms::Forms forms;
  Principal principal;
  frmPrincipal frame{forms, principal};
  frmEnJuego enJuego{forms, principal, frame};
  frmNuevoJuego nuevoJuego{forms, principal, frame};
  frmOpciones opciones{forms, principal};
  frmMsgBox msgBox{forms, principal};
  Polling polling;

private:
  void joinNetworkGame();
  void tellFailures();

  std::vector<std::string> told_; // the kinds of failure that the player has heard of
};

} // namespace falanges
