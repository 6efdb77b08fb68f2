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
  constexpr std::string_view units = ".BICEG.biceg";
  std::ostringstream text;
  int row = 1, column = 1;
  for (const char c : drawing)
    if (const std::size_t unit = units.find(c); unit == units.npos)
      ++row, column = 1;
    else
      text << (c == '.' ? 0 : unit / 6 + 1) << ';' << unit % 6 << ';' << row * 1180 - 800 << ';'
           << column * 1180 + 160 << ';' << row << ';' << column << ";\r\n",
          ++column;
  return text.str() + closing;
}

std::string victory(const std::string& player, const std::string& how) {
  return "JUGADOR -" + player + "- HA " + how + "\r\n\r\nJUGADOR -" + player +
         "- GANA\r\n\r\nCierre la ventana del Tablero para iniciar otro juego";
}

// --- What the player does ------------------------------------------------------------------------

Game::Game(std::unique_ptr<scripted::Player> before, std::unique_ptr<Runner> runner)
    : player(std::move(before)), app(*player, std::move(runner)) {
  auto& does = screen.verbs;
  does["expect"] = [this](auto& box, auto& answer) {
    screen.expectBox(Boxes.at(box), answer == "yes" ? Answer::Yes : Answer::Ok);
  };
  does["move"] = [this](auto& from, auto& to) {
    run("click picUnidad(" + from + "), click picMovimientoPermitido(" + to + ")");
  };
  does["square"] = [this](auto& number, auto& inset) { // so many twips from its corner
    const int n = std::stoi(number) - 1, side = principal.NumFilas;
    const int in = inset.empty() ? 590 : std::stoi(inset);
    run("click picTablero " + std::to_string(n % side * 1180 + in) + ";" +
        std::to_string(n / side * 1180 + in));
  };
  does["load"] = [this](auto& board, auto& turn) { load(gameFile(board, turn + "\r\n")); };
  does["layOut"] = [this](auto& board, auto&) { layOut(gameFile(board)); };
  does["save"] = [this](auto& kind, auto& name) { choose("menu Guardar" + kind, file(name)); };
  // From poll to poll, or so many seconds; a poll at once.
  does["tick"] = [this](auto& seconds, auto&) {
    screen.tick(seconds.empty() ? principal.SegundosActualizacion + 1 : std::stoi(seconds));
  };
  does["look"] = [this](auto&, auto&) { principal.SegundosRestantes = 0, screen.tick(); };
}

void Game::start() {
  screen.expectBox(informationBox().text);
  app.start();
}

void Game::TearDown() {
  screen.finish();
  if (!frame.isOpen())
    return;
  screen.expectBox(Boxes.at("leave"), Answer::Yes);
  screen.expectBox(informationBox().text);
  EXPECT_TRUE(screen.closeWindow(frame));
}

void Game::choose(const std::string& step, const std::optional<std::string>& path,
                  const std::string& box) {
  const auto has = [&](const char* word) { return step.find(word) != step.npos; };
  screen.expectFile(std::string(has("Guardar") ? "Guardar" : "Cargar") +
                        (has("Juego") ? " Juego" : " Plantilla"),
                    path);
  if (!box.empty())
    screen.expectBox(box);
  run(step);
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

std::string Game::menus() {
  std::string text;
  for (const auto* entry : {&frame.mnuNuevoJuego, &frame.mnuCargarJuego, &frame.mnuGuardarJuego,
                            &frame.mnuCargarPlantilla, &frame.mnuGuardarPlantilla})
    text += entry->Visible ? 'S' : 'H';
  EXPECT_TRUE(frame.mnuOpciones.Visible && frame.mnuDeclararRendicion.Visible &&
              !frame.mnuDeclararRendicion.Enabled && !frame.mnuSeparadorV1.Visible);
  return text + (frame.tmrRed.Enabled ? " running" : "");
}

std::string Game::state() {
  std::string text = menus();
  for (const auto* window : app.forms.openWindows())
    text += window == &frame ? "" : " " + window->name().substr(3);
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
