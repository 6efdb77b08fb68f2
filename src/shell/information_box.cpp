#include "shell/information_box.h"

namespace falanges {

forms::MessageBox informationBox() {
  forms::MessageBox box;
  box.title = "Falanges Z - Un juego del equipo de Vornath";
  for (const char* line : {
           "Idea, reglas y programa: el equipo de Vornath",
           "Dibujos, tableros e iconos: el equipo de Vornath",
           "",
           "Contacto: por medio de quien le entregó este programa",
           "Hecho en casa, para jugar en cualquier casa",
           "",
           "Juego para PC basado en el Juego de Mesa:",
           "Falanges Z - Tomar El Estandarte",
           "",
           "Visite la Web para ver manuales, vídeos y novedades,",
           "así como para contactar y solicitar el Juego de Mesa Original. Incluye:",
           "Caja, Tablero, Fichas, Instrucciones y 1 CD con esta versión para PC",
           "",
           "El juego, su nombre y sus dibujos pertenecen a sus autores.",
           "El programa se entrega tal como está, sin garantía de ninguna clase.",
           "",
       })
    box.text += std::string(line) + "\r\n";
  box.text += "Vornath - Falanges Z - Tomar El Estandarte - v" FALANGES_VERSION "\r\n\r\n";
  return box;
}

} // namespace falanges
