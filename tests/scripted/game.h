// The whole program on a scripted desktop, and boards drawn as text.
//
// A drawing holds the rows from the top, split by "/": b i c e g are flag, infantry, cavalry,
// elephants and general, in capitals those of player 1, and "." is an empty square.
#pragma once

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "forms/text_file.h"
#include "persistence/game_file.h"
#include "scripted/scripted_desktop.h"
#include "shell/app.h"
#include "shell/information_box.h"

namespace falanges {

using forms::Answer;
using forms::BoxStyle;
using scripted::at;

const std::string ToStart =
    "¿Iniciar el juego con la disposición actual de Unidades en el Tablero?";

// Where square n stands in a drawing.
inline std::size_t place(int n, int side) {
  return static_cast<std::size_t>(n - 1 + (n - 1) / side);
}

inline std::string blank(int side) {
  std::string drawing(place(side * side, side) + 1, '.');
  for (int n = side; n < side * side; n += side)
    drawing[place(n, side) + 1] = '/';
  return drawing;
}

// The text of a saved game with this board, worked out apart from the program.
inline std::string gameFile(const std::string& drawing, const std::string& closing = "1\r\n") {
  constexpr std::string_view units = ".BICEG.biceg";
  std::ostringstream text;
  int row = 1, column = 0;
  for (const char c : drawing) {
    const std::size_t unit = units.find(c);
    if (c == '/')
      ++row, column = 0;
    else
      text << (c == '.' ? 0 : unit / 6 + 1) << ';' << unit % 6 << ';' << row * 1180 - 800 << ';'
           << ++column * 1180 + 160 << ';' << row << ';';
    text << (c == '/' ? "" : std::to_string(column) + ";\r\n");
  }
  return text.str() + closing;
}

// The box of the player who wins by a move: "la Bandera", "TODAS las Banderas".
inline std::string victory(const std::string& player, const std::string& how) {
  return "JUGADOR -" + player + "- HA " + how + "\r\n\r\nJUGADOR -" + player +
         "- GANA\r\n\r\nCierre la ventana del Tablero para iniciar otro juego";
}

// The two halves of a table's row, "what is done => what comes of it".
inline std::pair<std::string, std::string> halves(const std::string& row) {
  const std::size_t end = row.find(" => ");
  return {row.substr(0, end), row.substr(end + 4)};
}

inline std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class Game : public testing::Test {
protected:
  ~Game() override { screen.finish(); }
  void start() {
    screen.expectBox(informationBox().text);
    app.start();
  }
  // A file in the program folder, with the system's separators.
  std::string file(std::string name) {
    std::replace(name.begin(), name.end(), '/', '\\');
    return forms::programPath(screen.programFolder(), '\\' + name);
  }
  std::string write(const std::string& name, const std::string& text) {
    std::ofstream(file(name), std::ios::binary) << text;
    return file(name);
  }
  void configure(const std::string& text) { write("VornathFalangesZTEE.cfg", text); }

  // Each through its menu entry and the file dialog.
  void load(const std::string& text) { choose("CargarJuego", write("partida", text)); }
  void layOut(const std::string& text) { choose("CargarPlantilla", write("plantilla", text)); }
  void choose(const std::string& entry, const std::optional<std::string>& path,
              const std::string& box = "", const scripted::Meanwhile& meanwhile = {}) {
    std::string title = entry;
    screen.expectFile(title.insert(title.find_first_of("JP", 1), " "), path, meanwhile);
    if (!box.empty())
      screen.expectBox(box);
    screen.menu("mnu" + entry);
  }
  void move(int from, int to) {
    screen.click(at("picUnidad", from));
    screen.click(at("picMovimientoPermitido", to));
  }
  // On the new-game screen, so many twips from the square's corner.
  void clickSquare(int n, int inset) {
    const int side = principal.NumFilas;
    screen.clickOn("picTablero", (n - 1) % side * 1180 + inset, (n - 1) / side * 1180 + inset);
  }
  // What a person does, step by step: "click picINF, square 25, menu Opciones, tab".
  void run(const std::string& script) {
    std::istringstream steps(script);
    for (std::string step; std::getline(steps >> std::ws, step, ',');) {
      SCOPED_TRACE(step);
      std::string what, on, value;
      std::istringstream words(step);
      words >> what >> on >> value;
      const std::map<std::string, std::function<void()>> does = {
          {"expect", [&] { screen.expectBox(refusals.at(on)); }},
          {"menu", [&] { screen.menu("mnu" + on); }},
          {"click", [&] { screen.click(on); }},
          {"right", [&] { screen.rightClick(at("picUnidad", std::stoi(on))); }},
          {"move", [&] { move(std::stoi(on), std::stoi(value)); }},
          {"square", [&] { clickSquare(std::stoi(on), value.empty() ? 590 : std::stoi(value)); }},
          {"choose", [&] { screen.choose(on, value); }},
          {"type", [&] { screen.type(on, value); }},
          {"tab", [&] { screen.tab(on.empty()); }},
          {"activate", [&] { screen.activate("frm" + on); }},
          {"close", [&] { screen.closeWindow("frm" + on); }},
          {"load", [&] { load(gameFile(on, value + "\r\n")); }},
          {"layOut", [&] { layOut(gameFile(on)); }},
          {"save", [&] { choose("Guardar" + on, file(value)); }},
      };
      does.at(what)();
    }
  }
  // Each row is a script and what is seen then: "click picINF, tab => picCAB".
  void walk(const std::vector<std::string>& rows, const std::function<std::string()>& seen) {
    for (const std::string& row : rows) {
      run(halves(row).first);
      EXPECT_EQ(seen(), halves(row).second) << row;
    }
  }

  // The board as its pictures show it: "0" stands for a unit without one; a unit that is hidden or
  // does not stand on its square follows behind.
  std::string pictures() {
    auto& units = app.enJuego.isOpen() ? app.enJuego.picUnidad : app.nuevoJuego.picUnidad;
    const int side = principal.NumFilas;
    std::string drawing = blank(side), astray;
    for (int n = 1; n <= 64; ++n)
      if (const auto* unit = units(n)) {
        const std::string& path = unit->picturePath(); // it ends like "inf_j1.jpg"
        char kind = path.empty() ? '0' : path[path.size() - 10];
        if (path.ends_with("_j1.jpg"))
          kind = static_cast<char>(std::toupper(kind));
        if (n <= side * side && unit->Visible && unit->Top == 380 + (n - 1) / side * 1180 &&
            unit->Left == 1340 + (n - 1) % side * 1180)
          drawing[place(n, side)] = kind;
        else
          astray += at(" ", n) + kind;
      }
    return drawing + astray;
  }
  // Records and pictures both show this board.
  void expectBoard(const std::string& drawing) {
    EXPECT_EQ(gameText(principal, 1), gameFile(drawing));
    EXPECT_EQ(pictures(), drawing);
  }
  // Which of the five entries show, in the order of the menu, and whether the timer runs.
  std::string menus() {
    std::string text;
    for (const char* entry : {"mnuNuevoJuego", "mnuCargarJuego", "mnuGuardarJuego",
                              "mnuCargarPlantilla", "mnuGuardarPlantilla"})
      text += screen.visible(entry) ? 'S' : 'H';
    EXPECT_TRUE(screen.visible("mnuOpciones") && screen.visible("mnuDeclararRendicion") &&
                !screen.enabled("mnuDeclararRendicion") && !screen.visible("mnuSeparadorV1"));
    return text + (app.ventanaPrincipal.tmrRed.Enabled ? " running" : "");
  }
  // The same with the names of the open child windows: "HSHSS NuevoJuego Opciones".
  std::string state() {
    std::string text = menus();
    for (const auto* window : app.forms.openWindows())
      text += window == &app.ventanaPrincipal ? "" : " " + window->name().substr(3);
    return text;
  }
  std::string status() { return screen.text("lblJ1_Estado") + "/" + screen.text("lblJ2_Estado"); }
  std::string hint(const std::string& picture, double X, double Y) {
    screen.moveOver(picture, X, Y);
    return screen.toolTip(picture);
  }

  // The boxes by their names in scripts.
  const std::map<std::string, std::string> refusals = {
      {"unit", "DEBE seleccionar una Unidad y hacer click sobre una casilla del Tablero para "
               "situarla"},
      {"rows", "SÓLO se permiten Unidades en las 2 primeras filas"},
      {"flag", "NO se permite ubicar más de 1 Bandera"},
      {"seconds", "DEBE colocar un valor entre 5 y 300 segundos de actualización"},
      {"moves", "DEBE colocar un valor entre 1 y 5 Movimientos por Turno"}};
  scripted::ScriptedDesktop screen;
  App app{screen};
  Principal& principal = app.principal;
};

} // namespace falanges
