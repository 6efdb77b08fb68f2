// Random games against a second statement of the rules of moving and winning.
#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <random>

#include "shell/game.h"

namespace falanges {

namespace {

// The game told in rows and columns of a drawing.
struct Model {
  std::string board;
  int side;
  std::string flags; // the option
  int moves;         // of a turn
  int player;
  int made = 0;

  bool owns(char unit) const { return unit != '.' && (std::isupper(unit) != 0) == (player == 1); }
  // All go one step and never onto their own: infantry towards the enemy, also askew, cavalry
  // askew, elephants straight, the general like both. Flags stay.
  bool mayGo(int from, int to) const {
    if (to > side * side)
      return false;
    const char unit = board[place(from, side)], there = board[place(to, side)];
    const int rows = (to - 1) / side - (from - 1) / side, columns = (to - from) - rows * side;
    const int distance = rows * rows + columns * columns; // 1 straight, 2 askew
    if (!owns(unit) || owns(there) || distance > 2)
      return false;
    switch (std::tolower(unit)) {
    case 'i':
      return rows == (player == 1 ? -1 : 1);
    case 'c':
      return distance == 2;
    case 'e':
      return distance == 1;
    default:
      return unit != 'B' && unit != 'b';
    }
  }
  // The victory's words, empty while the game goes on. A won game keeps board and turn.
  std::string move(int from, int to) {
    char &origin = board[place(from, side)], &target = board[place(to, side)];
    const std::string enemies = player == 1 ? "icegb" : "ICEGB";
    const auto left = [&](const std::string& kinds) {
      return std::count_if(board.begin(), board.end(),
                           [&](char unit) { return kinds.find(unit) != kinds.npos; });
    };
    const bool flag = target == enemies[4];
    if (flag && flags == "0")
      return "CONQUISTADO la Bandera";
    if (flag && flags == "1" && left(enemies.substr(4)) == 1)
      return "CONQUISTADO TODAS las Banderas";
    if (target != '.' && !flag && left(enemies.substr(0, 4)) == 1)
      return "ELIMINADO todas las unidades enemigas";
    target = std::exchange(origin, '.');
    if (++made == moves) {
      made = 0;
      player = 3 - player;
    }
    return "";
  }
};

} // namespace

class RulesModel : public Game {
protected:
  RulesModel() { start(); }
  int below(unsigned bound) { return static_cast<int>(random() % bound); }
  void click(forms::Picture& picture) {
    if (app.forms.pressed(picture, forms::MouseButton::Left))
      app.forms.clicked(picture);
  }

  // The selected unit and the markers of its reach, and nothing else.
  void expectSelection(const Model& model, int selected) {
    for (int n = 1; n <= 64; ++n) {
      const auto* unit = app.enJuego.picUnidad(n);
      ASSERT_EQ(unit && unit->Appearance == 1, n == selected);
      ASSERT_EQ(app.enJuego.picMovimientoPermitido(n) != nullptr,
                selected > 0 && model.mayGo(selected, n))
          << selected << " to " << n << " on " << model.board;
    }
  }
  // Pictures as drawn, records, the saved bytes and the labels.
  void expectTable(const Model& model, const std::string& pictures) {
    for (int n = 1; n <= 64; ++n) {
      const auto* unit = app.enJuego.picUnidad(n);
      const char drawn = n <= model.side * model.side ? pictures[place(n, model.side)] : '.';
      ASSERT_EQ(unit != nullptr, drawn != '.');
      const std::string file = unit ? unit->picturePath() : "/._j.jpg";
      const char letter = file[file.find_last_of("/\\") + 1];
      ASSERT_EQ(file.ends_with("_j1.jpg") ? std::toupper(letter) : letter, drawn);
      ASSERT_TRUE(!unit || (unit->Top == 380 + (n - 1) / model.side * 1180 &&
                            unit->Left == 1340 + (n - 1) % model.side * 1180));
    }
    ASSERT_EQ(gameText(principal, app.enJuego.JugadorActual),
              gameFile(model.board, std::to_string(model.player) + "\r\n"));
    ASSERT_EQ(app.enJuego.lblJ1_Estado.Caption.get() + app.enJuego.lblJ2_Estado.Caption.get(),
              model.player == 1 ? "En TurnoEn Espera" : "En EsperaEn Turno");
  }

  // Ends when it is won, when the player in turn moves nothing, or after so many moves.
  void playOne(int longest) {
    const int side = 5 + below(4);
    const auto crowd = static_cast<unsigned>(12 + below(150));
    Model model{blank(side), side, std::vector<std::string>{"0", "1", ""}.at(random() % 3),
                1 + below(5), 1 + below(2)};
    for (char& square : model.board)
      if (const int unit = below(crowd); square == '.' && unit < 12)
        square = "BbIiCcEeGgGg"[unit];
    principal.OpcPermitirBanderas = model.flags;
    principal.MovPorTurno = static_cast<std::uint8_t>(model.moves);
    load(gameFile(model.board, std::to_string(model.player) + "\r\n"));
    ASSERT_NO_FATAL_FAILURE(expectTable(model, model.board));
    int from = 0, to = 0;
    for (int moves = 0; moves < longest && choose(model, from, to); ++moves) {
      std::string after = model.board;
      after[place(to, side)] = std::exchange(after[place(from, side)], '.');
      const std::string player = std::to_string(model.player), won = model.move(from, to);
      if (!won.empty())
        screen.expectBox(victory(player, won));
      click(*app.enJuego.picMovimientoPermitido(to));
      ++wins[won];
      ASSERT_NO_FATAL_FAILURE(expectTable(model, after)) << "after " << from << " to " << to;
      if (!won.empty())
        break;
      ASSERT_NO_FATAL_FAILURE(expectSelection(model, 0));
    }
    screen.finish();
    screen.closeWindow("frmEnJuego");
  }

  // Clicks units at random until one that can move stays selected. False: none did.
  bool choose(const Model& model, int& from, int& to) {
    std::vector<int> squares(static_cast<std::size_t>(model.side * model.side));
    std::iota(squares.begin(), squares.end(), 1);
    std::shuffle(squares.begin(), squares.end(), random);
    int selected = 0;
    for (const int n : squares) {
      const char unit = model.board[place(n, model.side)];
      if (unit == '.')
        continue;
      std::vector<int> targets;
      std::copy_if(squares.begin(), squares.end(), std::back_inserter(targets),
                   [&](int target) { return model.mayGo(n, target); });
      click(*app.enJuego.picUnidad(n));
      // Without a move a unit in turn takes the selection away; flags and enemies leave it alone.
      if (model.owns(unit) && std::tolower(unit) != 'b')
        selected = targets.empty() ? 0 : n;
      expectSelection(model, selected);
      if (HasFatalFailure())
        return false;
      if (!targets.empty() && below(3) > 0) {
        // Captures come first half of the time, so that games end.
        if (below(2) > 0)
          std::stable_partition(targets.begin(), targets.end(), [&](int target) {
            return model.board[place(target, model.side)] != '.';
          });
        from = n;
        to = targets.front();
        return true;
      }
    }
    return false;
  }

  std::mt19937 random{11};
  std::map<std::string, long> wins; // by the words of the victory; "": moves that won nothing
};

// FALANGES_GAMES: how many games.
TEST_F(RulesModel, ManyRandomGamesAgree) {
  const char* const wanted = std::getenv("FALANGES_GAMES");
  for (long games = wanted ? std::atol(wanted) : 400; games > 0 && !HasFailure(); --games)
    playOne(100);
  for (const auto& [how, times] : wins)
    std::cout << times << " " << (how.empty() ? "movimientos" : how) << "\n";
  EXPECT_EQ(wins.size(), 4U) << "each of the three ways to win has been seen";
}

} // namespace falanges
