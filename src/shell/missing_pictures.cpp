#include "shell/missing_pictures.h"

#include "forms/text_file.h"
#include "model/geometry.h"
#include "model/units.h"

namespace falanges {

namespace {

// Who starts the program out of an archive's view has none of them.
constexpr const char* WholeFolder = "Faltan las imágenes del juego: descomprima la carpeta "
                                    "completa del programa y ábralo desde ella.";

std::vector<std::string> drawings() {
  std::vector<std::string> all;
  for (int side = SmallestBoard; side <= LargestBoard; ++side)
    all.push_back(boardPicture(side));
  for (int type = BAN; type <= GEN; ++type)
    for (const int player : {1, 2})
      all.push_back(unitPicture(type, player));
  return all;
}

} // namespace

std::string missingPicturesText(forms::Forms& forms, const std::string& path) {
  const std::vector<std::string> icons{"\\ico\\tiempo.ico", "\\ico\\adelante.ico"};
  const std::string programFolder = forms.desktop().programFolder();
  std::vector<std::string> missing;
  for (const auto& folder : {icons, drawings()}) {
    const std::size_t before = missing.size();
    for (const std::string& literal : folder)
      if (!forms.findPicture(literal, forms::OnFailure::PassOver))
        missing.push_back(forms::programPath(programFolder, literal));
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
