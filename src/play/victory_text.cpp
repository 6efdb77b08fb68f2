#include "play/victory_text.h"

namespace falanges {

std::string victoryText(Victory victory, int JugadorActual) {
  const std::string player = "JUGADOR -" + std::to_string(JugadorActual);
  std::string condition;
  if (victory == Victory::Flag)
    condition = "- HA CONQUISTADO la Bandera";
  if (victory == Victory::AllFlags)
    condition = "- HA CONQUISTADO TODAS las Banderas";
  if (victory == Victory::Elimination)
    condition = "- HA ELIMINADO todas las unidades enemigas";
  return player + condition + "\r\n\r\n" + player + "- GANA\r\n\r\n" +
         "Cierre la ventana del Tablero para iniciar otro juego";
}

} // namespace falanges
