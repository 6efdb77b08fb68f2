// The whole program under a person who does anything at any moment, on files that change under it.
#include <cstdlib>
#include <fstream>

#include "fuzz/chance.h"

namespace falanges {

namespace {

using namespace forms;

class Anybody final : public scripted::Player {
public:
  explicit Anybody(unsigned seed) : chance(seed) {}
  void act() {
    changeFile();
    run(anyStep());
  }
  // Meanwhile the clock goes on.
  Answer messageBox(const MessageBox& box) override {
    if (forms_)
      tick(chance.below(30));
    if (box.style == BoxStyle::Information)
      return Answer::Ok;
    // The frame stays open most of the time.
    return chance.below(box.text == LeaveQuestion ? 16 : 2) == 0 ? Answer::Yes : Answer::No;
  }
  std::optional<std::string> fileDialog(const FileDialog& dialog) override {
    if (dialog.save && chance.below(8) > 0)
      return std::nullopt; // a save waits for the disk
    return chance.anyOf(files);
  }

private:
  // Now and then to a torn one.
  void changeFile() {
    const std::string turn = "2\r\n", victory = "12\r\n";
    const std::string text =
        gameFile(chance.board(), chance.anyOf<std::string>({turn, turn + victory}));
    std::ofstream(scripted::toPath(chance.anyOf(files)), std::ios::binary)
        << text.substr(chance.below(8) == 0 ? text.size() / 2 : 0);
  }

  std::string anyStep() {
    static const std::map<Kind, std::string> uses = {
        {Kind::Window, "close "}, {Kind::Picture, "click "},  {Kind::Label, "click "},
        {Kind::TextBox, "type "}, {Kind::CheckBox, "click "}, {Kind::DropList, "choose "},
        {Kind::Button, "click "}, {Kind::MenuEntry, "menu "}, {Kind::Timer, "tick 7 "}};
    Window& window = *chance.anyOf(forms_->openWindows());
    if (&window == forms_->activeChild() && chance.below(4) == 0)
      return chance.anyOf<std::string>({"Tab", "Shift+Tab", "Left", "Right", "Up", "Down", "Enter",
                                        "Space", "Delete", "Escape", "1", "5"});
    std::vector<Element*> usable = {&window};
    for (Element* element : window.elements())
      if (element->isReachable())
        usable.push_back(element);
    const Element& element = *chance.anyOf(usable);
    // Text, item of a list, or place on a picture.
    const std::string place =
        std::to_string(chance.below(10000)) + ";" + std::to_string(chance.below(10000));
    const auto value = chance.anyOf<std::string>({"1", "2", "5", "6x6", "8x8", place, place});
    return uses.at(element.kind()) + window.name() + "." + element.name() + " " + value;
  }

  Chance chance;
  const std::vector<std::string> files = {folder_.file("a"), folder_.file("b"), folder_.file("c")};
};

void checkWhatAlwaysHolds(App& app) {
  const bool deploying = app.nuevoJuego.isOpen(), playing = app.enJuego.isOpen();
  const frmPrincipal& frame = app.frame;
  EXPECT_FALSE(deploying && playing);
  EXPECT_TRUE(playing || !app.principal.JuegoEnRed);
  EXPECT_EQ(frame.tmrRed.Enabled, app.principal.JuegoEnRed);
  EXPECT_EQ(frame.mnuNuevoJuego.Visible, !deploying && !playing);
  if (!frame.mnuGuardarJuego.Visible)
    return;
  EXPECT_TRUE(playing && !app.principal.JuegoEnRed);
  for (int n = 1; n <= app.principal.NumCasillas; ++n)
    EXPECT_EQ(app.enJuego.picUnidad(n) != nullptr, app.principal.Casillas(n).Jugador != 0);
}

} // namespace

// FALANGES_SCRIPTS: how many.
TEST(Anything, MayBeDoneAtAnyMoment) {
  const char* const wanted = std::getenv("FALANGES_SCRIPTS");
  const unsigned long last = wanted ? std::stoul(wanted) : 200;
  for (unsigned seed = 1; seed <= last && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    Anybody person(seed);
    App app(person);
    app.start();
    for (int acts = 100; acts > 0 && app.frame.isOpen(); --acts) {
      person.act();
      checkWhatAlwaysHolds(app);
    }
  }
}

} // namespace falanges
