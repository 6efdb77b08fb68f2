#include "shell/app.h"

#include <utility>

namespace falanges {

App::App(forms::Desktop& desktop) : forms(desktop) {
  forms.applicationTitle = "Vornath - Falanges Z - TEE";
  forms.afterEvent = [this] { tellFailures(); };
  ventanaPrincipal.children = {&nuevoJuego, &enJuego, &opciones};
  ventanaPrincipal.tmrRed.Tick = [this] { polling.tmrRed_Timer(); };
  nuevoJuego.abrirEnJuego = [this] { enJuego.open(); };
  nuevoJuego.mostrarVolcado = [this] { msgBox.showModal(); };
  opciones.unirse = [this] { unirseAJuegoEnRed(); };
  opciones.configurationNotWritten = [this](const std::string& path) {
    unwrittenConfiguration_ = path;
  };
}

void App::start() {
  forms.startUp(ventanaPrincipal);
}

// The opening play screen takes the activation from the options dialog, which closes by itself.
void App::unirseAJuegoEnRed() {
  if (ventanaPrincipal.mnuCargarJuego_Click(Accept::WholeGame))
    polling.join();
}

// Failures that must not stop an event are told behind it, each kind once a run.
void App::tellFailures() {
  tellOnce(forms.missingPicture, toldPicture_, "No se puede cargar la imagen:\r\n");
  tellOnce(unwrittenConfiguration_, toldConfiguration_, "No se puede guardar el archivo:\r\n");
}

void App::tellOnce(std::string& path, bool& told, const char* text) {
  const std::string failed = std::exchange(path, std::string());
  // A network game goes on without a box: the other player waits.
  if (failed.empty() || told || principal.JuegoEnRed)
    return;
  told = true;
  forms.messageBox(text + failed);
}

} // namespace falanges
