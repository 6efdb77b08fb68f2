#include "scripted/game.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "forms/text_file.h"
#include "persistence/game_file.h"
#include "shell/information_box.h"

namespace falanges {

using scripted::toPath;

std::string blank(int side) {
  std::string drawing(place(side * side, side) + 1, '.');
  for (int n = side; n < side * side; n += side)
    drawing[place(n, side) + 1] = '/';
  return drawing;
}

std::string gameFile(const std::string& drawing, const std::string& closing) {
  constexpr std::string_view units = ".BICEG.biceg";
  std::ostringstream text;
  int row = 1, column = 0;
  for (const char c : drawing) {
    const std::size_t unit = units.find(c);
    if (c == '/') {
      ++row, column = 0;
      continue;
    }
    ++column;
    text << (c == '.' ? 0 : unit / 6 + 1) << ';' << unit % 6 << ';' << row * 1180 - 800 << ';'
         << column * 1180 + 160 << ';' << row << ';' << column << ";\r\n";
  }
  return text.str() + closing;
}

std::string victory(const std::string& player, const std::string& how) {
  return "JUGADOR -" + player + "- HA " + how + "\r\n\r\nJUGADOR -" + player +
         "- GANA\r\n\r\nCierre la ventana del Tablero para iniciar otro juego";
}

std::string bytesOf(const std::string& path) {
  std::ifstream file(toPath(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::pair<std::string, std::string> halves(const std::string& row) {
  const std::size_t end = row.find(" => ");
  return {row.substr(0, end), row.substr(end + 4)};
}

void walk(const std::vector<std::string>& rows, const std::function<void(const std::string&)>& run,
          const std::function<std::string()>& seen) {
  for (const std::string& row : rows) {
    SCOPED_TRACE(row);
    run(halves(row).first);
    EXPECT_EQ(seen(), halves(row).second);
  }
}

std::vector<std::string> stepsOf(const std::string& script) {
  std::vector<std::string> all;
  std::istringstream steps(script);
  for (std::string step; std::getline(steps >> std::ws, step, ',');)
    all.push_back(step);
  return all;
}

// --- What the player does ------------------------------------------------------------------------

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

void Game::run(const std::string& script) {
  for (const std::string& step : stepsOf(script)) {
    SCOPED_TRACE(step);
    std::string what, on, value;
    std::istringstream(step) >> what >> on >> value;
    act(what, on, value);
  }
}

void Game::act(const std::string& what, const std::string& on, const std::string& value) {
  const auto number = [](const std::string& text, int otherwise = 0) {
    return text.empty() ? otherwise : std::stoi(text);
  };
  const auto square = [&] { // so many twips from its corner
    const int n = number(on) - 1, side = principal.NumFilas, inset = number(value, 590);
    screen.clickOn(get<forms::Picture>("picTablero"), static_cast<float>(n % side * 1180 + inset),
                   static_cast<float>(n / side * 1180 + inset));
  };
  const auto item = [&] {
    const auto& items = get<forms::DropList>(on).items();
    return static_cast<int>(std::find(items.begin(), items.end(), value) - items.begin());
  };
  const std::map<std::string, std::function<void()>> does = {
      {"expect",
       [&] {
         screen.expectBox(Boxes.at(on), value == "yes"  ? Answer::Yes
                                        : value == "no" ? Answer::No
                                                        : Answer::Ok);
       }},
      {"menu", [&] { screen.menu(get<forms::MenuEntry>("mnu" + on)); }},
      {"click", [&] { screen.click(get(on)); }},
      {"right", [&] { screen.rightClick(get("picUnidad(" + on + ")")); }},
      {"move", [&] { move(number(on), number(value)); }},
      {"square", square},
      {"choose", [&] { screen.choose(get<forms::DropList>(on), item()); }},
      {"type", [&] { screen.type(get<forms::TextBox>(on), value); }},
      {"tab", [&] { screen.tab(on.empty()); }},
      {"activate", [&] { screen.activate(get<forms::Window>("frm" + on)); }},
      {"close", [&] { screen.closeWindow(get<forms::Window>("frm" + on)); }},
      {"load", [&] { load(gameFile(on, value + "\r\n")); }},
      {"layOut", [&] { layOut(gameFile(on)); }},
      {"save", [&] { choose("Guardar" + on, file(value)); }},
      // From poll to poll, or so many seconds; a poll at once.
      {"tick", [&] { screen.tick(number(on, principal.SegundosActualizacion + 1)); }},
      {"look", [&] { principal.SegundosRestantes = 0, screen.tick(); }},
  };
  does.at(what)();
}

void Game::move(int from, int to) {
  screen.click(get("picUnidad(" + std::to_string(from) + ")"));
  screen.click(get("picMovimientoPermitido(" + std::to_string(to) + ")"));
}

void Game::choose(const std::string& entry, const std::optional<std::string>& path,
                  const std::string& box, const scripted::Meanwhile& meanwhile) {
  std::string title = entry;
  screen.expectFile(title.insert(title.find_first_of("JP", 1), " "), path, meanwhile);
  if (!box.empty())
    screen.expectBox(box);
  run("menu " + entry);
}

std::string Game::file(const std::string& name) {
  return forms::programPath(screen.programFolder(), '\\' + name);
}

std::string Game::write(const std::string& name, const std::string& text) {
  std::ofstream(toPath(file(name)), std::ios::binary) << text;
  return file(name);
}

// --- What the player sees ------------------------------------------------------------------------

forms::Element& Game::find(const std::string& name) {
  for (forms::Window* window : app.forms.openWindows()) {
    if (window->name() == name)
      return *window;
    for (forms::Element* element : window->elements())
      if (name.starts_with(element->arrayName()) && element->name() == name)
        return *element;
  }
  throw std::runtime_error(name + " is not there");
}

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
        kind = static_cast<char>(std::toupper(kind));
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

std::string Game::hint(const std::string& picture, float X, float Y) {
  auto& under = get<forms::Picture>(picture);
  screen.moveOver(under, X, Y);
  return under.ToolTipText;
}

std::string Game::shown() {
  std::ostringstream text;
  for (const auto* window : app.forms.openWindows())
    for (const auto* element : window->elements())
      if (element->Visible)
        text << element->name() << ' ' << element->Left << ',' << element->Top << ' '
             << element->Width << 'x' << element->Height << ' ' << element->AccessibleName.get()
             << '\n';
  return text.str();
}

} // namespace falanges
