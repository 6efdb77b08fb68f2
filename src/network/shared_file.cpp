#include "network/shared_file.h"

#include "forms/text_file.h"
#include "persistence/game_file.h"

namespace falanges {

FileLook lookAtFile(const std::string& path) {
  FileLook look;
  look.text = forms::readTextFile(path, LargestGameFile + 1);
  look.missing = !look.text && forms::isMissing(path);
  return look;
}

Written writeFile(const std::string& path, const std::string& text) {
  return forms::writeTextFile(path, text) ? Written::Whole : Written::Failed;
}

Written writeFileAsSeen(const std::string& path, const FileLook& seen, const std::string& text) {
  return lookAtFile(path) == seen ? writeFile(path, text) : Written::Overtaken;
}

} // namespace falanges
