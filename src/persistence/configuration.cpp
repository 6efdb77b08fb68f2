#include "persistence/configuration.h"

#include <algorithm>

#include "forms/numbers.h"
#include "forms/text_file.h"

namespace falanges {

namespace {

// More than the one line ever needs; what lies behind is never looked at.
constexpr std::size_t LongestLine = 64 * 1024;

// The text up to the next ";", which goes with it; all of it when there is none.
std::string_view cutField(std::string_view& rest) {
  const std::string_view field = rest.substr(0, rest.find(';'));
  rest.remove_prefix(std::min(field.size() + 1, rest.size()));
  return field;
}

// A number counts only once its ";" has come, and when it fits the item.
template <class T> void takeNumber(T& item, std::string_view& rest) {
  const bool closed = rest.find(';') != std::string_view::npos;
  const auto number = forms::stored<T>(forms::Val(cutField(rest)));
  if (closed && number)
    item = *number;
}

// What the person typed is UTF-8; the file is text of single-byte characters.
std::string singleByte(std::string_view utf8) {
  std::string text;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    if (lead < 0x80) {
      text += utf8[i];
    } else if ((lead == 0xC2 || lead == 0xC3) && i + 1 < utf8.size()) {
      const auto trail = static_cast<unsigned char>(utf8[++i]);
      text += static_cast<char>(((lead & 0x03U) << 6U) | (trail & 0x3FU));
    } else if ((lead & 0xC0U) == 0xC0U) {
      text += '?';
    }
  }
  return text;
}

} // namespace

std::string configurationPath(const std::string& programFolder) {
  return forms::programPath(programFolder, "\\VornathFalangesZTEE.cfg");
}

void readConfiguration(Principal& principal, const std::string& path) {
  principal.SegundosActualizacion = 10;
  principal.MovPorTurno = 1;
  const auto text = forms::readTextFile(path, LongestLine);
  if (!text || text->find_first_not_of(" \t\r\n") == std::string::npos) {
    // Without a configuration the program starts with the stricter rules.
    principal.OpcPermitirBanderas = "0";
    principal.OpcLimiteFilas = "0";
    return;
  }
  std::string_view line = forms::ItemReader(*text).next();
  principal.OpcPermitirBanderas = cutField(line);
  principal.OpcLimiteFilas = cutField(line);
  takeNumber(principal.SegundosActualizacion, line);
  takeNumber(principal.MovPorTurno, line);
}

bool writeConfiguration(const Principal& principal, const std::string& path,
                        std::string_view seconds, std::string_view moves) {
  // At each key that is pressed: no waiting for the disk, a lost option is no lost game.
  return forms::replaceTextFile(path,
                                principal.OpcPermitirBanderas + ";" + principal.OpcLimiteFilas +
                                    ";" + singleByte(seconds) + ";" + singleByte(moves) + ";\r\n",
                                forms::Sync::No);
}

} // namespace falanges
