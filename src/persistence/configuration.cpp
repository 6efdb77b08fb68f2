#include "persistence/configuration.h"

#include "forms/numbers.h"
#include "forms/text_file.h"

namespace falanges {

namespace {

// More than the one line ever needs; what lies behind is never looked at.
constexpr std::size_t LongestLine = 64 * 1024;

// Walks the item of a configuration file. The two texts grow character by character and need no
// ";" behind them; a number counts only once its ";" has come.
void takeOptions(Principal& principal, std::string_view item) {
  int field = 1;
  std::string number;
  for (const char c : item) {
    if (c == ';') {
      if (field == 3)
        principal.SegundosActualizacion = forms::stored<std::int16_t>(forms::Val(number))
                                              .value_or(principal.SegundosActualizacion);
      if (field == 4)
        principal.MovPorTurno =
            forms::stored<std::uint8_t>(forms::Val(number)).value_or(principal.MovPorTurno);
      number.clear();
      ++field;
    } else if (field == 1) {
      principal.OpcPermitirBanderas += c;
    } else if (field == 2) {
      principal.OpcLimiteFilas += c;
    } else {
      number += c;
    }
  }
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
  principal.OpcPermitirBanderas.clear();
  principal.OpcLimiteFilas.clear();
  principal.SegundosActualizacion = 10;
  principal.MovPorTurno = 1;
  const auto text = forms::readTextFile(path, LongestLine);
  if (!text || text->find_first_not_of(" \t\r\n") == std::string::npos) {
    // Without a configuration the program starts with the stricter rules.
    principal.OpcPermitirBanderas = "0";
    principal.OpcLimiteFilas = "0";
    return;
  }
  takeOptions(principal, forms::ItemReader(*text).next());
}

bool writeConfiguration(const Principal& principal, const std::string& path,
                        std::string_view seconds, std::string_view moves) {
  // At each key that is pressed: no waiting for the disk, a lost option is no lost game.
  return forms::replaceTextFile(path,
                                principal.OpcPermitirBanderas + ";" + principal.OpcLimiteFilas +
                                    ";" + singleByte(seconds) + ";" + singleByte(moves) + ";\r\n",
                                forms::Sync::No);
}

bool writeConfiguration(const Principal& principal, const std::string& path) {
  return writeConfiguration(principal, path, std::to_string(principal.SegundosActualizacion),
                            std::to_string(principal.MovPorTurno));
}

} // namespace falanges
