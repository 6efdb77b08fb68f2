#include "shell/app.h"

#include <utility>
#include <vector>

#include "forms/text_file.h"
#include "model/geometry.h"
#include "model/units.h"

namespace falanges {

namespace {

// Who starts the program out of an archive's view has none of them.
constexpr const char* WholeFolder = "Faltan las imágenes del juego: descomprima la carpeta "
                                    "completa del programa y ábralo desde ella.";

// What is said of pictures that cannot be loaded. Looks at all of them and names each that is
// missing, or the whole folder. `path` is that of the one that was found missing.
std::string missingPicturesText(forms::Forms& forms, const std::string& path) {
  const std::vector<std::string> icons{"\\ico\\tiempo.ico", "\\ico\\adelante.ico"};
  std::vector<std::string> drawings;
  for (int side = SmallestBoard; side <= LargestBoard; ++side)
    drawings.push_back(boardPicture(side));
  for (int type = BAN; type <= GEN; ++type)
    for (const int player : {1, 2})
      drawings.push_back(unitPicture(type, player));
  const std::string programFolder = forms.desktop().programFolder();
  std::vector<std::string> missing;
  for (const auto& folder : {icons, drawings}) {
    const std::size_t before = missing.size();
    for (const std::string& literal : folder)
      if (std::string file = forms::programPath(programFolder, literal);
          !forms.desktop().pictureSize(file))
        missing.push_back(std::move(file));
    if (missing.size() - before == folder.size())
      return WholeFolder;
  }
  if (missing.size() < 2)
    return forms::Forms::PictureFailure + path;
  std::string text = "No se pueden cargar las imágenes:";
  for (const std::string& each : missing)
    text += "\r\n" + each;
  return text;
}

} // namespace

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
