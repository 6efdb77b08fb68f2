// The whole program under a person who does anything at any moment: steps like "click
// frmOpciones.chk", "type ELEMENT TEXT", "choose LIST ITEM", "menu ENTRY", "close WINDOW", "tick 7"
// (seconds), or a key. Besides what is checked here, a step that the program cannot take stops the
// test.
#include <cstdlib>
#include <fstream>

#include "fuzz/chance.h"

namespace falanges {

namespace {

using namespace forms;

class Anybody final : public scripted::Player {
public:
  explicit Anybody(unsigned seed) : chance(seed) {}
  // Meanwhile the clock goes on.
  Answer messageBox(const MessageBox& box) override {
    if (forms_)
      run("tick 7");
    if (box.style == BoxStyle::Information)
      return Answer::Ok;
    // The frame stays open most of the time.
    return chance.below(box.text == LeaveQuestion ? 16 : 2) == 0 ? Answer::Yes : Answer::No;
  }
  // Any game to be loaded, player 2 in turn, or the second half of its text; no file to save one
  // in.
  std::optional<std::string> fileDialog(const FileDialog& dialog) override {
    if (dialog.save)
      return std::nullopt;
    const std::string path = folder_.file("partida"), text = gameFile(chance.board(), "2\r\n");
    std::ofstream(path, std::ios::binary)
        << text.substr(chance.below(4) == 0 ? text.size() / 2 : 0);
    return path;
  }
  std::string anyStep() {
    static const std::map<Kind, std::string> uses = {{Kind::Window, "close "},
                                                     {Kind::TextBox, "type "},
                                                     {Kind::DropList, "choose "},
                                                     {Kind::MenuEntry, "menu "},
                                                     {Kind::Timer, "tick 7 "}};
    Window& window = *chance.anyOf(forms_->openWindows());
    if (&window == forms_->activeChild() && chance.below(4) == 0)
      return chance.anyOf<std::string>({"Tab", "Shift+Tab", "Left", "Right", "Up", "Down", "Enter",
                                        "Space", "Delete", "Escape", "1", "5"});
    std::vector<Element*> usable = {&window};
    for (Element* element : window.elements())
      if (element->isReachable())
        usable.push_back(element);
    const Element& element = *chance.anyOf(usable);
    // A text, an item of a list, or a place on a picture.
    const auto value = chance.anyOf<std::string>({"1", "2", "5", "6x6", "600;600", "4000;5000"});
    const auto use = uses.find(element.kind());
    return (use == uses.end() ? "click " : use->second) + window.name() + "." + element.name() +
           " " + value;
  }

private:
  Chance chance;
};

// Never are deployment (nuevoJuego) and play (enJuego) open at once; a network game needs play and
// the timer of its polls; the menu begins a game where there is none, and saves one only in play.
void checkWhatAlwaysHolds(App& app) {
  const bool deploying = app.nuevoJuego.isOpen(), playing = app.enJuego.isOpen();
  EXPECT_FALSE(deploying && playing);
  EXPECT_TRUE(playing || !app.principal.JuegoEnRed);
  EXPECT_EQ(app.frame.tmrRed.Enabled, app.principal.JuegoEnRed);
  EXPECT_EQ(app.frame.mnuNuevoJuego.Visible, !deploying && !playing);
  EXPECT_TRUE(playing || !app.frame.mnuGuardarJuego.Visible);
}

} // namespace

// 200 persons, each with another seed of chance, who take 100 steps or until the program is closed.
// In the environment FALANGES_SCRIPTS sets another number of persons.
TEST(Anything, MayBeDoneAtAnyMoment) {
  const char* const wanted = std::getenv("FALANGES_SCRIPTS");
  const unsigned long last = wanted ? std::stoul(wanted) : 200;
  for (unsigned seed = 1; seed <= last && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    Anybody person(seed);
    App app(person);
    app.start();
    for (int steps = 100; steps > 0 && app.frame.isOpen(); --steps) {
      person.run(person.anyStep());
      checkWhatAlwaysHolds(app);
    }
  }
}

} // namespace falanges
