// The whole program under a person who does anything at any moment, on files that change under it.
#include <algorithm>
#include <filesystem>

#include "forms/text_file.h"
#include "fuzz/bytes.h"
#include "model/units.h"
#include "scripted/temporary_folder.h"
#include "shell/app.h"

namespace fuzz {

using namespace falanges;
using forms::Element, forms::Window;
namespace fs = std::filesystem;

class Player final : public forms::Desktop {
public:
  // Begins on one of the screens: the way there is long for random clicks.
  explicit Player(Bytes bytes) : bytes_(bytes) {
    for (const auto& entry : fs::directory_iterator(folder()))
      fs::remove_all(entry.path());
    write(path(0), bytes_.changed("1;1;5;1;\r\n"));
    write(path(1), bytes_.game());
    app_.start();
    Element* const ways[] = {&frame.mnuNuevoJuego, &frame.mnuCargarJuego, &frame.mnuOpciones};
    touch(*ways[bytes_.below(3)]);
    if (app_.opciones.isOpen())
      touch(app_.opciones.btnCargarJuegoRed);
  }
  void play() {
    while (!bytes_.empty() && frame.isOpen())
      act();
  }

private:
  static std::string folder() {
    static const scripted::TemporaryFolder temporary;
    return temporary.path();
  }
  // The configuration, three games, one that cannot be, and no path.
  static std::string path(unsigned number) {
    static const char* const names[] = {"/VornathFalangesZTEE.cfg", "/a", "/b", "/c", "/no/no"};
    return number < std::size(names) ? folder() + names[number] : "";
  }

  void act() {
    const auto& open = app_.forms.openWindows();
    Window& window = *open[bytes_.below(open.size())];
    const unsigned what = bytes_.below(10), digit = bytes_.below(10);
    if (what == 0)
      swapFile();
    else if (what == 1)
      for (unsigned seconds = 0; seconds <= 3 * digit; ++seconds, check())
        app_.forms.ticked(frame.tmrRed);
    else if (what == 2)
      app_.forms.keyPressed(window, static_cast<forms::Key>(bytes_.below(9)),
                            static_cast<int>(digit));
    else if (what == 3)
      app_.forms.tabbed(window, digit < 5);
    else if (what == 4)
      digit < 2 ? app_.forms.closeRequested(window) : forms::passOver(app_.forms.activated(window));
    else
      touchOne(what == 5 || !app_.forms.activeChild() ? window : *app_.forms.activeChild());
    check();
  }

  void swapFile() {
    const std::string target = path(bytes_.below(4));
    std::error_code ignored;
    fs::remove_all(target, ignored);
    if (const unsigned what = bytes_.below(6); what == 0)
      fs::create_directory(target, ignored);
    else if (what > 1)
      write(target, what == 2 ? bytes_.changed("1;0;5;2;\r\n") : bytes_.game());
  }

  // Also what is hidden, disabled or behind a box: nothing must come of it.
  void touchOne(const Window& window) {
    const auto& all = window.elements();
    // Units and markers stand last.
    const std::size_t from = bytes_.below(2) && all.size() > 4 ? all.size() - 4 : 0;
    touch(*all[from + bytes_.below(all.size() - from)]);
  }

  void touch(Element& element) {
    forms::Forms& forms = app_.forms;
    const Window& window = element.window();
    const unsigned number = bytes_.below(8);
    const auto button = number < 2 ? forms::MouseButton::Right : forms::MouseButton::Left;
    if (auto* const entry = dynamic_cast<forms::MenuEntry*>(&element))
      return forms.menuChosen(*entry);
    if (auto* const developers = dynamic_cast<forms::Button*>(&element); developers && number < 2)
      return forms.shortcutPressed(*developers);
    if (auto* const picture = dynamic_cast<forms::Picture*>(&element))
      forms.moved(*picture, 40 * static_cast<float>(bytes_.below(256)) - 300,
                  40 * static_cast<float>(bytes_.below(256)) - 300);
    const bool let = number == 2 ? forms.focusMoved(element) : forms.pressed(element, button);
    const auto& standing = window.elements();
    if (!let || std::find(standing.begin(), standing.end(), &element) == standing.end())
      return; // the press took it away
    if (auto* const box = dynamic_cast<forms::TextBox*>(&element))
      forms.typed(*box, bytes_.changed(std::to_string(number)));
    else if (auto* const list = dynamic_cast<forms::DropList*>(&element))
      forms.chosen(*list, static_cast<int>(number) - 1);
    else if (button == forms::MouseButton::Left)
      forms.clicked(element);
  }

  // --- What must always hold ---------------------------------------------------------------------

  void check() {
    const Principal& principal = app_.principal;
    frmEnJuego& play = app_.enJuego;
    const bool deployment = app_.nuevoJuego.isOpen();
    require(!play.isOpen() || !deployment, "one screen at a time");
    require(frame.tmrRed.Enabled == principal.JuegoEnRed, "the timer runs in a network game");
    require(!principal.JuegoEnRed || play.isOpen(), "a network game has a screen");
    int selected = 0;
    for (int n = 1; play.isOpen() && n <= TablaCasillas::Last; ++n) {
      selected += play.picUnidad(n) && play.picUnidad(n)->Appearance == 1;
      require(n <= principal.NumCasillas || !play.picMovimientoPermitido(n),
              "markers on the board");
    }
    const bool markers = play.isOpen() && play.picMovimientoPermitido.count() > 1;
    require(selected == (markers ? 1 : 0), "markers of the one selected unit");
    if (boxes_ > 0 || !frame.isOpen())
      return; // a box that tells of a move stands before its end
    std::string shown;
    for (const auto* entry : {&frame.mnuNuevoJuego, &frame.mnuCargarJuego, &frame.mnuGuardarJuego,
                              &frame.mnuCargarPlantilla, &frame.mnuGuardarPlantilla})
      shown += entry->Visible ? 'S' : 'H';
    const char* const row = deployment                      ? "HSHSS"
                            : !play.isOpen()                ? "SSHSH"
                            : over_ || principal.JuegoEnRed ? "HHHHH"
                                                            : "HHSHH";
    require(shown == row, row, shown);
    if (play.isOpen() && !(over_ && play.Caption == "En Juego")) // a local win leaves the table
      checkPictures(play.picUnidad, principal.NumCasillas);
    if (deployment)
      checkPictures(app_.nuevoJuego.picUnidad, TablaCasillas::Last);
  }

  void checkPictures(forms::PictureArray& units, int squares) {
    for (int n = 1; n <= TablaCasillas::Last; ++n) {
      const Casilla& square = app_.principal.Casillas(n);
      const auto* unit = units(n);
      require((unit != nullptr) == (n <= squares && square.Jugador != 0), "a unit has a picture");
      const std::string picture = unit ? unitPicture(square.TUnidad, square.Jugador) : "";
      require(picture.empty() || unit->picturePath() == forms::programPath(folder(), picture),
              "the picture is the unit's", picture);
      require(
          !unit || &units != &app_.enJuego.picUnidad ||
              (unit->Visible && unit->Top == square.PosXTwips && unit->Left == square.PosYTwips),
          "it stands on its square");
    }
  }

  // --- Desktop -----------------------------------------------------------------------------------

  void windowOpened(Window& window) override { over_ = over_ && &window != &app_.enJuego; }
  void windowClosed(Window& window) override { windowOpened(window); }
  void changed(Element& element) override { require(element.window().isOpen(), "it shows"); }
  void removed(Element& element) override { changed(element); }
  void focusAsked(Element& element) override { changed(element); }
  void waitModal(Window& window) override {
    while (!bytes_.empty() && window.isOpen())
      act();
    window.close();
  }
  void meanwhile() {
    ++boxes_;
    for (unsigned acts = boxes_ > 3 || !frame.isOpen() ? 0 : bytes_.below(4); acts > 0; --acts)
      act();
    --boxes_;
  }
  forms::Answer messageBox(const forms::MessageBox& box) override {
    over_ = over_ || box.text.find("Cierre la ventana del Tablero") != box.text.npos;
    meanwhile();
    if (box.style == forms::BoxStyle::Information)
      return forms::Answer::Ok;
    // The frame stays open most of the time.
    const unsigned yes = box.style == forms::BoxStyle::WarningYesNo ? 1 : 8;
    return bytes_.below(16) - 1 < yes ? forms::Answer::Yes : forms::Answer::No;
  }
  std::optional<std::string> fileDialog(const forms::FileDialog&) override {
    meanwhile();
    const unsigned which = bytes_.below(16);
    return which == 0 ? std::nullopt : std::optional(path(which < 8 ? 1 + which % 3 : which - 8));
  }
  std::optional<forms::PictureSize> pictureSize(const std::string&) override {
    return forms::PictureSize{400, 400};
  }
  forms::DateTime now() override { return {2005, 3, 9, 8, 5, 7}; }
  std::string programFolder() override { return folder(); }

  Bytes bytes_;
  int boxes_ = 0;
  bool over_ = false; // the game on the play screen has been won or lost
  App app_{*this};
  frmPrincipal& frame = app_.frame;
};

} // namespace fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Player(fuzz::Bytes(data, size)).play();
  return 0;
}
