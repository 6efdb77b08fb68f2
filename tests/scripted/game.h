// The whole program before a player who goes by a script, and boards drawn as text.
//
// A drawing holds the rows from the top, split by "/": B I C E G are flag, infantry, cavalry,
// elephants and general of player 1, b i c e g those of player 2, and "." is an empty square.
#pragma once

#include "forms/text_file.h"
#include "persistence/game_file.h"
#include "scripted/player.h"
#include "shell/app.h"
#include "shell/information_box.h"

namespace falanges {

using forms::Answer;

inline const std::string LeaveQuestion = "¿Está seguro de salir y cerrar todo?";
inline const std::string StartQuestion =
    "¿Iniciar el juego con la disposición actual de Unidades en el Tablero?";

// Around the path in the box of a file that cannot be loaded, and behind it where that is all.
inline const std::string Invalid = "El archivo no contiene un juego guardado válido:\r\n",
                         Incomplete = "\r\nEl archivo está incompleto";

// The box of the player who wins by a move: "la Bandera", "TODAS las Banderas".
std::string victory(const std::string& player, const std::string& how);

// Where square n stands in a drawing.
inline std::size_t place(int n, int side) {
  const int slashes = (n - 1) / side;
  return static_cast<std::size_t>(n - 1) + static_cast<std::size_t>(slashes);
}
std::string blank(int side);
// The text of a saved game with this board, worked out apart from the program.
std::string gameFile(const std::string& drawing, const std::string& closing = "1\r\n");
inline std::string bytesOf(const std::string& path) {
  return forms::readTextFile(path, 100000).value_or("none");
}

class Game : public testing::Test {
public:
  // `start` runs the operations on the file of a network game.
  explicit Game(network::Start start = network::atOnce);
  // Past the information box.
  void start();
  // Closes the program, whatever is open.
  void TearDown() override;

  // What a person does, step by step: "click picINF, click square 25, menu Opciones". With the text
  // of the box that one of the steps leads to, if any does.
  void run(const std::string& script, const std::string& box = "");
  void walk(const std::vector<std::string>& rows, const std::function<std::string()>& seen);
  // A step that leads to the file dialog, with the box if the file is refused.
  void choose(const std::string& step, const std::optional<std::string>& path,
              const std::string& box = "");
  void load(const std::string& text);

  // A file in the program folder, with the system's separators.
  std::string file(const std::string& name);
  std::string write(const std::string& name, const std::string& text);
  void configure(const std::string& text) { write("VornathFalangesZTEE.cfg", text); }

  // On whichever screen is open; nullptr when there is none.
  forms::Picture* unit(int n);
  // The board as its pictures show it: "0" stands for a unit without one; a unit that is hidden or
  // does not stand on its square follows behind.
  std::string pictures();
  // Records and pictures both show this board.
  void expectBoard(const std::string& drawing);
  // The entries that the menu of games shows: "Nuevo Juego, Cargar Juego, Cargar Plantilla".
  std::string menu();
  // The open child windows: "NuevoJuego Opciones".
  std::string windows();
  std::string status();
  // Of what the pointer stands over: "picTablero 3000;0".
  std::string hint(const std::string& place);
  // All that the open windows show, as a screen reader would tell it.
  std::string shown();

  std::unique_ptr<scripted::Player> player = scripted::makePlayer();
  scripted::Player& screen = *player;
  App app;
  Principal& principal = app.principal;
  frmPrincipal& frame = app.frame;
  frmEnJuego& play = app.enJuego;
};

} // namespace falanges
