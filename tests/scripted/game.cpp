#include "scripted/game.h"

#include <fstream>
#include <sstream>

namespace falanges {

using scripted::toPath;

std::string blank(int side) {
  std::string drawing;
  for (int row = 0; row < side; ++row)
    drawing += (row > 0 ? "/" : "") + std::string(static_cast<std::size_t>(side), '.');
  return drawing;
}

std::string gameFile(const std::string& drawing, const std::string& closing) {
  const std::string kinds = ".BICEG.biceg";
  std::istringstream rows(drawing);
  std::ostringstream text;
  int row = 1;
  for (std::string units; std::getline(rows, units, '/'); ++row) {
    int column = 1;
    for (const char drawn : units) {
      const std::size_t kind = kinds.find(drawn);
      const std::size_t player = kind == 0 ? 0 : kind / 6 + 1;
      text << player << ';' << kind % 6 << ';' << 1180 * row - 800 << ';' << 1180 * column + 160
           << ';' << row << ';' << column << ";\r\n";
      ++column;
    }
  }
  return text.str() + closing;
}

std::string victory(const std::string& player, const std::string& how) {
  return "JUGADOR -" + player + "- HA " + how + "\r\n\r\nJUGADOR -" + player +
         "- GANA\r\n\r\nCierre la ventana del Tablero para iniciar otro juego";
}

// --- What the player does ------------------------------------------------------------------------

Game::Game(network::Start start) : app(*player, std::move(start)) {
  auto& does = screen.verbs;
  // Also "click square 21", in its middle, and "click corner 21", beside the unit that stands
  // there.
  does["click"] = [this, plain = does["click"]](auto& on, auto& where) {
    if (on != "square" && on != "corner")
      return plain(on, where);
    const int n = std::stoi(where) - 1;
    const int inset = on == "square" ? 590 : 50;
    const int left = n % principal.NumColumnas * 1180 + inset;
    const int top = n / principal.NumColumnas * 1180 + inset;
    plain("picTablero", std::to_string(left) + ";" + std::to_string(top));
  };
  does["move"] = [this](auto& from, auto& to) {
    run("click picUnidad(" + from + "), click picMovimientoPermitido(" + to + ")");
  };
  does["load"] = [this](auto& board, auto& turn) { load(gameFile(board, turn + "\r\n")); };
  does["layOut"] = [this](auto& board, auto& turn) {
    choose("menu CargarPlantilla", write("plantilla", gameFile(board, turn + "\r\n")));
  };
  does["save"] = [this](auto& kind, auto& name) { choose("menu Guardar" + kind, file(name)); };
}

void Game::start() {
  screen.expectBox(informationBox().text);
  app.start();
}

void Game::TearDown() {
  screen.finish();
  if (!frame.isOpen())
    return;
  screen.expectBox(LeaveQuestion, Answer::Yes);
  // All other windows have closed before it.
  screen.expectBox(informationBox().text, Answer::Ok, [this] { EXPECT_EQ(windows(), ""); });
  run("close frmPrincipal");
  EXPECT_FALSE(frame.isOpen());
}

void Game::run(const std::string& script, const std::string& box) {
  if (box.empty())
    return screen.run(script);
  screen.expectBox(box);
  screen.run(script);
  screen.finish();
}

void Game::walk(const std::vector<std::string>& rows, const std::function<std::string()>& seen) {
  scripted::walk(rows, [&](const std::string& script) {
    run(script);
    return seen();
  });
}

void Game::choose(const std::string& step, const std::optional<std::string>& path,
                  const std::string& box) {
  const bool save = step.find("Guardar") != std::string::npos;
  const bool game = step.find("Juego") != std::string::npos;
  screen.expectFile(std::string(save ? "Guardar" : "Cargar") + (game ? " Juego" : " Plantilla"),
                    path);
  run(step, box);
}

void Game::load(const std::string& text) {
  choose("menu CargarJuego", write("partida", text));
}

std::string Game::file(const std::string& name) {
  return forms::programPath(screen.programFolder(), '\\' + name);
}

std::string Game::write(const std::string& name, const std::string& text) {
  std::ofstream(toPath(file(name)), std::ios::binary) << text;
  return file(name);
}

// --- What the player sees ------------------------------------------------------------------------

forms::Picture* Game::unit(int n) {
  return (play.isOpen() ? play.picUnidad : app.nuevoJuego.picUnidad)(n);
}

std::string Game::pictures() {
  const int side = principal.NumFilas;
  std::string drawing = blank(side), astray;
  for (int n = 1; n <= 64; ++n)
    if (const auto* picture = unit(n)) {
      const std::string& path = picture->picturePath(); // it ends like "inf_j1.jpg"
      char kind = path.empty() ? '0' : path[path.size() - 10];
      if (path.ends_with("_j1.jpg"))
        kind = static_cast<char>(kind - 'a' + 'A');
      if (n <= side * side && picture->Visible && picture->Top == 380 + (n - 1) / side * 1180 &&
          picture->Left == 1340 + (n - 1) % side * 1180)
        drawing[place(n, side)] = kind;
      else
        astray += " " + picture->name() + kind;
    }
  return drawing + astray;
}

void Game::expectBoard(const std::string& drawing) {
  EXPECT_EQ(gameText(principal, 1), gameFile(drawing));
  EXPECT_EQ(pictures(), drawing);
}

std::string Game::menu() {
  std::string text;
  for (const auto* entry : {&frame.mnuNuevoJuego, &frame.mnuCargarJuego, &frame.mnuGuardarJuego,
                            &frame.mnuCargarPlantilla, &frame.mnuGuardarPlantilla})
    if (entry->Visible)
      text += (text.empty() ? "" : ", ") + entry->Caption.get();
  std::erase(text, '&');
  return text;
}

std::string Game::windows() {
  std::string text;
  for (const auto* window : app.forms.openWindows())
    if (window != &frame)
      text += (text.empty() ? "" : " ") + window->name().substr(3);
  return text;
}

std::string Game::status() {
  return play.lblJ1_Estado.Caption.get() + "/" + play.lblJ2_Estado.Caption.get();
}

std::string Game::hint(const std::string& place) {
  run("over " + place);
  return screen.get(place.substr(0, place.find(' '))).ToolTipText;
}

std::string Game::shown() {
  std::ostringstream text;
  for (const auto* window : app.forms.openWindows())
    for (const auto* element : window->elements())
      if (element->Visible)
        text << element->name() << ' ' << element->Left << ',' << element->Top << ' '
             << element->Width << 'x' << element->Height << ' ' << element->spokenName() << '\n';
  return text.str();
}

} // namespace falanges
