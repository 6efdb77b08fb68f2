#include "shell/app.h"

#include <utility>

#include "board/missing_pictures.h"

namespace falanges {

App::App(forms::Desktop& desktop, network::Start start)
    : forms(desktop), networkGame(forms, principal, frame, enJuego, std::move(start)) {
  forms.applicationTitle = "Vornath - Falanges Z - TEE";
  forms.afterEvent = [this] { tellFailures(); };
  frame.children = {&nuevoJuego, &enJuego, &opciones, &networkGame};
  enJuego.network = &networkGame;
}

// The folders and files that are made at the start would land in the root of the disk.
void App::start() {
  if (forms.desktop().programFolder().empty())
    forms.messageBox("Falanges no puede empezar en esta carpeta.\r\n\r\n"
                     "Su nombre, o el de una carpeta por encima de ella, no está escrito en UTF-8, "
                     "o es la raíz del disco. Cambie ese nombre o copie el programa a otra "
                     "carpeta.");
  else
    forms.startUp(frame);
}

// Failures that must not stop an event are told behind it, each kind once a run.
void App::tellFailures() {
  for (const auto& [text, path] : std::exchange(forms.failures, {})) {
    // A network game goes on without a box: the other player waits.
    if (principal.JuegoEnRed || !told_.insert(text).second)
      continue;
    forms.messageBox(text == forms::Forms::PictureFailure ? missingPicturesText(forms, path)
                                                          : text + path);
  }
}

} // namespace falanges
