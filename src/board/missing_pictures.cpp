#include "board/missing_pictures.h"

#include <vector>

#include "forms/text_file.h"
#include "model/geometry.h"
#include "model/units.h"

namespace falanges {

namespace {

// Who starts the program out of an archive's view has none of them.
constexpr const char* WholeFolder = "Faltan las imágenes del juego: descomprima la carpeta "
                                    "completa del programa y ábralo desde ella.";

} // namespace

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

} // namespace falanges
