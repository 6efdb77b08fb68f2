// The whole program under a person who does anything at any moment, on files that change under it.
#include <array>
#include <cstdlib>
#include <random>
#include <set>

#include "fuzz/rules.h"

namespace falanges {

namespace {

using namespace forms;

constexpr std::array FileNames = {"VornathFalangesZTEE.cfg", "a", "b", "c"};

class Anybody final : public Game {
public:
  // Begins on one of the screens: the way there is long for random clicks.
  Anybody(unsigned seed, std::set<std::string>& won)
      : Game(std::make_unique<Screen>(*this)), wins(won), random(seed) {
    for (const char* name : FileNames)
      swapFile(name);
    app.start();
    MenuEntry* const ways[] = {&frame.mnuNuevoJuego, &frame.mnuCargarJuego, &frame.mnuOpciones};
    touch(*ways[below(3)]);
    if (app.opciones.isOpen())
      touch(app.opciones.btnCargarJuegoRed);
  }
  void TestBody() override {}
  void act() {
    const auto& open = app.forms.openWindows();
    Window& window = *open[below(open.size())];
    Window* const active = app.forms.activeChild();
    const std::function<void()> acts[] = {
        [&] { swapFile(FileNames[below(4)]); },
        [&] { screen.tick(static_cast<int>(1 + below(30))); },
        [&] { app.forms.keyPressed(window, Key(below(9)), static_cast<int>(below(10))); },
        [&] { app.forms.tabbed(window, below(2) == 0); },
        [&] { app.forms.closeRequested(window); },
        [&] { passOver(app.forms.activated(window)); },
        [&] { touchOne(window); }};
    for (unsigned clicks = below(4) == 0 ? 40 : 0; clicks > 0; --clicks)
      playByTheRules();
    if (const unsigned what = below(18); what < std::size(acts))
      acts[what]();
    else
      touchOne(active ? *active : window);
    check();
  }

private:
  // Acts also behind the boxes, and answers them at random.
  class Screen final : public scripted::Player {
  public:
    explicit Screen(Anybody& before) : person(before) {}
    Answer messageBox(const MessageBox& box) override {
      lastBox = box;
      person.meanwhile();
      // The frame stays open most of the time.
      const bool yes = person.below(16) < (box.style == BoxStyle::WarningYesNo ? 1 : 8);
      return box.style == BoxStyle::Information ? Answer::Ok : yes ? Answer::Yes : Answer::No;
    }
    std::optional<std::string> fileDialog(const FileDialog&) override {
      person.meanwhile();
      const unsigned which = person.below(12);
      return which == 0 ? "" : person.file(which == 1 ? "no\\no" : FileNames[1 + which % 3]);
    }
    void waitModal(Window& window) override { person.act(), window.close(); }

  private:
    Anybody& person;
  };

  unsigned below(std::size_t bound) { return static_cast<unsigned>(random() % bound); }
  void meanwhile() {
    ++boxes;
    for (unsigned acts = boxes > 3 || !frame.isOpen() ? 0 : below(4); acts > 0; --acts)
      act();
    --boxes;
  }

  // Now and then torn, gone, or a folder.
  void swapFile(const std::string& name) {
    std::string text = std::to_string(below(2)) + ";1;5;" + std::to_string(1 + below(5)) + ";\r\n";
    if (name.size() == 1) {
      const unsigned crowd = 15 + below(80);
      std::string board = blank(5 + static_cast<int>(below(4)));
      for (char& square : board)
        if (const unsigned unit = below(crowd); square == '.' && unit < 10)
          square = "BICEGbiceg"[unit];
      text = gameFile(board, below(4) ? "1\r\n" : below(4) ? "2\r\n" : "2\r\n12\r\n");
    }
    const unsigned kind = below(12);
    std::filesystem::remove_all(scripted::toPath(file(name)));
    if (kind == 0)
      std::filesystem::create_directory(scripted::toPath(file(name)));
    else if (kind > 1)
      write(name, text.substr(0, kind == 2 ? below(text.size()) : std::string::npos));
  }

  // Also what is hidden, disabled or behind a box: nothing must come of it.
  void touchOne(const Window& window) {
    const auto& all = window.elements();
    // Units and markers stand last.
    const std::size_t from = below(2) && all.size() > 4 ? all.size() - 4 : 0;
    if (!all.empty())
      touch(*all[from + below(all.size() - from)]);
  }
  void touch(Element& element) {
    const auto& standing = element.window().elements();
    const unsigned number = below(8);
    if (auto* const entry = dynamic_cast<MenuEntry*>(&element))
      return app.forms.clicked(*entry);
    if (auto* const developers = dynamic_cast<Button*>(&element); developers && number < 2)
      return app.forms.shortcutPressed(*developers);
    if (auto* const picture = dynamic_cast<Picture*>(&element))
      app.forms.moved(*picture, 40 * static_cast<float>(below(256)) - 300,
                      40 * static_cast<float>(below(256)) - 300);
    if (!app.forms.pressed(element, number < 2 ? MouseButton::Right : MouseButton::Left) ||
        std::ranges::count(standing, &element) == 0)
      return; // the press took it away
    if (auto* const box = dynamic_cast<TextBox*>(&element))
      app.forms.typed(*box, number < 6 ? "5" : std::to_string(number));
    else if (auto* const list = dynamic_cast<DropList*>(&element))
      app.forms.chosen(*list, static_cast<int>(number) - 1);
    else if (number > 1)
      app.forms.clicked(element);
  }

  // The selected unit and the markers.
  std::string reach() {
    std::string marks = blank(principal.NumFilas);
    for (int n = 1; n <= principal.NumCasillas; ++n)
      if (play.picMovimientoPermitido(n) || (unit(n) && unit(n)->Appearance == 1))
        marks[place(n, principal.NumFilas)] = play.picMovimientoPermitido(n) ? '*' : 'S';
    return marks;
  }
  std::string game() {
    return menu() + " " + reach() + pictures() + status() + gameText(principal, play.JugadorActual);
  }
  // Clicks on a unit or a marker of a local game.
  void playByTheRules() {
    if (boxes > 0 || app.forms.activeChild() != &play || menu() != "Guardar Juego" ||
        play.JugadorActual > 2 || principal.NumFilas == 0)
      return;
    const std::string marks = reach(), mover = std::to_string(play.JugadorActual);
    Rules rules{pictures(),
                principal.NumFilas,
                principal.OpcPermitirBanderas,
                play.JugadorActual,
                principal.MovRealizados + 1 == principal.MovPorTurno,
                marks.find('S')};
    // A torn file may leave records astray, or no unit.
    if (gameText(principal, 1) != gameFile(rules.board) || rules.board == blank(rules.side))
      return;
    EXPECT_EQ(game(), rules.game());
    std::size_t at = 0;
    do
      at = below(marks.size());
    while (marks[at] != '*' && rules.board[at] < 'A');
    const int n = static_cast<int>(at - at / (marks.find('/') + 1)) + 1;
    rules.click(at);
    screen.lastBox.text = "";
    boxes = 4; // nobody acts behind the victory's
    run((marks[at] == '*' ? "click picMovimientoPermitido(" : "click picUnidad(") +
        std::to_string(n) + ")");
    boxes = 0;
    EXPECT_EQ(game(), rules.game()) << marks;
    EXPECT_EQ(screen.lastBox.text, rules.won.empty() ? "" : victory(mover, rules.won));
    EXPECT_TRUE(unit(n) && unit(n)->Enabled == rules.won.empty());
    wins.insert(rules.won);
  }

  // What must always hold.
  void check() {
    const bool deployment = app.nuevoJuego.isOpen();
    EXPECT_FALSE(play.isOpen() && deployment);
    EXPECT_EQ(frame.tmrRed.Enabled, principal.JuegoEnRed);
    EXPECT_TRUE(!principal.JuegoEnRed || play.isOpen());
    if (boxes > 0 || !frame.isOpen())
      return; // a box that tells of a move stands before its end
    if (deployment)
      EXPECT_EQ(menu(), "Cargar Juego, Cargar Plantilla, Guardar Plantilla");
    else if (!play.isOpen())
      EXPECT_EQ(menu(), "Nuevo Juego, Cargar Juego, Cargar Plantilla");
    else // nothing after the end
      EXPECT_TRUE(menu().empty() || (menu() == "Guardar Juego" && !principal.JuegoEnRed));
  }

  std::set<std::string>& wins; // the words of the victories that came; "": moves that won nothing
  std::mt19937 random;
  int boxes = 0;
};

} // namespace

// FALANGES_SCRIPTS: how many.
TEST(Anything, MayBeDoneAtAnyMoment) {
  std::set<std::string> wins;
  const char* const wanted = std::getenv("FALANGES_SCRIPTS");
  const unsigned long last = wanted ? std::stoul(wanted) : 200;
  for (unsigned seed = 1; seed <= last && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    Anybody person(seed, wins);
    for (int acts = 100; acts > 0 && person.frame.isOpen(); --acts)
      person.act();
  }
  EXPECT_EQ(wins.size(), 4U) << "each of the three ways to win has been seen";
}

} // namespace falanges
