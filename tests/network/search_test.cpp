// Every order of events of a network game, up to a bound: what the players are promised is held
// against each state that they lead to.
#include <cstdlib>
#include <deque>
#include <iostream>
#include <map>
#include <unordered_set>

#include <gtest/gtest.h>

#include "network/world.h"

namespace falanges::network {

namespace {

// --- A world by all that it holds ----------------------------------------------------------------

// Each list of names is as long as the structure has members, or it does not compile.
class Hash {
public:
  template <class T> explicit Hash(const T& all) { add(all); }
  std::size_t value = 0;

private:
  template <class... Parts> void all(const Parts&... parts) { (add(parts), ...); }
  template <class Number>
  requires(std::is_integral_v<Number> || std::is_enum_v<Number>) void add(Number number) {
    value = (value ^ static_cast<std::size_t>(number)) * 0x9E3779B97F4A7C15;
    value ^= value >> 32;
  }
  void add(const std::string& text) { add(std::hash<std::string>()(text)); }
  void add(const Position& position) {
    const auto& [squares, turn] = position;
    all(squares, turn);
  }
  void add(const Look& look) {
    const auto& [found, text, position] = look;
    all(found, text, position);
  }
  void add(const Action& action) {
    const auto& [what, look, position] = action;
    all(what, look, position);
  }
  void add(const State& state) {
    const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m, n, o] = state;
    all(a, b, c, d, e, f, g, h, i, j, k, l, m, n, o);
  }
  void add(const Work& work) {
    const auto& [action, calls, ended, look, written] = work;
    all(action, calls, ended, look, written);
  }
  void add(const Copy& copy) {
    const auto& [state, work, open, asked, told, away, hangs, stuck] = copy;
    all(state, work, open, asked, told, away, hangs, stuck);
  }
  void add(const World& world) {
    const auto& [copies, file, orphan, latest, final, seen, gone, old, played, faults, excuse,
                 fault] = world;
    all(copies[0], copies[1], file, orphan, latest, final, seen, gone, old, faults, excuse);
    for (const int times : played)
      add(times);
  }
};

// --- All that may happen next --------------------------------------------------------------------

struct Bound {
  int turns;
  int faults; // of all kinds together
};

using Change = std::function<void(World&)>;
using Visit = std::function<void(const std::string& what, const Change& change)>;

// What one copy may do, or what may be done to it.
void forEachOf(int who, const World& world, const Visit& happens, const Visit& fault) {
  const Copy& copy = world.copies[who];
  const std::string name = who == 0 ? "A" : "B";
  const bool works = copy.work.underWay() && !copy.work.ended;
  if (!copy.open && !copy.told)
    happens(name + " joins", [=](World& then) { then.joins(who); });
  if (copy.asked)
    for (const bool yes : {true, false})
      happens(name + (yes ? " says yes" : " says no"),
              [=](World& then) { then.answers(who, yes); });
  if (copy.open && copy.work.ended)
    happens(name + " hears", [=](World& then) { then.hears(who); });
  if (works)
    happens(name + "'s work goes on",
            [=](World& then) { then.goesOn(then.copies[who].work, copy.away); });
  if (world.plays(who) && !copy.work.ended)
    happens(name + " ticks", [=](World& then) { then.ticks(who); });
  if (world.inTurn(who)) {
    happens(name + " passes the turn", [=](World& then) { then.passesTurn(who); });
    happens(name + " wins", [=](World& then) { then.wins(who); });
  } else if (world.plays(who) && copy.state.phase != Phase::Won) {
    if (!copy.stuck)
      fault(name + " moves idly", [=](World& then) { then.movesIdly(who); });
    if (!copy.stuck)
      fault(name + " wins idly", [=](World& then) { then.winsIdly(who); });
  }
  if (copy.work.ended && copy.work.written == Written::Whole)
    fault(name + " is told a failure", [=](World& then) { then.answerIsLost(who); });
  if (works)
    fault(name + "'s work is refused",
          [=](World& then) { then.goesOn(then.copies[who].work, true); });
  if (copy.open)
    fault(name + " leaves", [=](World& then) { then.leaves(who); });
  if (copy.open)
    fault(name + " is killed", [=](World& then) { then.isKilled(who, false); });
  if (copy.open && works && !world.orphan.underWay())
    fault(name + " is killed, its work goes on", [=](World& then) { then.isKilled(who, true); });
  (copy.away ? happens : fault)(name + (copy.away ? "'s folder comes back" : "'s folder goes away"),
                                [=](World& then) { then.copies[who].away = !copy.away; });
  (copy.hangs ? happens : fault)(name + (copy.hangs ? "'s share answers" : "'s share hangs"),
                                 [=](World& then) { then.copies[who].hangs = !copy.hangs; });
}

void forEachNext(const World& world, const Bound& bound,
                 const std::function<void(const std::string& what, World next)>& visit) {
  const Visit happens = [&](const std::string& what, const Change& change) {
    World then = world;
    change(then);
    then.finishWork();
    visit(what, std::move(then));
  };
  const Visit fault = [&](const std::string& what, const Change& change) {
    if (world.faults < bound.faults && world.excuse == Excuse::None)
      happens(what, [&](World& then) { ++then.faults, change(then); });
  };
  if (world.latest.squares.size() > static_cast<std::size_t>(bound.turns) + 1)
    return;
  for (const int who : {0, 1})
    forEachOf(who, world, happens, fault);
  if (world.orphan.underWay() && !world.orphan.ended)
    happens("the orphan goes on", [](World& then) { then.goesOn(then.orphan, false); });
  fault("the file is torn", [](World& then) { then.fileBecomes({Found::Torn, "torn", {}}); });
  fault("the file is deleted", [](World& then) { then.fileBecomes({Found::Missing, "", {}}); });
}

// --- Calm ----------------------------------------------------------------------------------------

// Both players sit before their copies and move nothing, and the file answers.
void calmRound(World& world) {
  while (world.orphan.underWay() && !world.orphan.ended)
    world.goesOn(world.orphan, false);
  for (const int who : {0, 1}) {
    Copy& copy = world.copies[who];
    copy.away = copy.hangs = false;
    world.finishWork();
    if (!copy.open && !copy.told)
      world.joins(who);
    if (copy.asked)
      world.answers(who, true);
    else if (world.plays(who) && !copy.work.underWay())
      world.ticks(who);
    world.finishWork();
    const State& state = copy.state;
    if (world.plays(who) && state.phase != Phase::InTurn && state.shown == state.player &&
        !copy.stuck)
      world.movesIdly(who); // as the manual tells who seems to be in turn
    else if (world.inTurn(who) && !world.copies[1 - who].open && !world.copies[1 - who].told)
      world.passesTurn(who); // the other could not join: the next turn makes the file whole
  }
}

// --- The search ----------------------------------------------------------------------------------

class Search {
public:
  explicit Search(const Bound& bound) : bound_(bound) {}

  void run() {
    add(World{}, -1, "");
    World otherWords;
    otherWords.file.text += " ";
    add(std::move(otherWords), 0, "the file is in other words");
    for (World world; !waiting_.empty();) {
      world = std::move(waiting_.front().second);
      const int from = waiting_.front().first;
      waiting_.pop_front();
      forEachNext(world, bound_,
                  [&](const std::string& what, World next) { add(std::move(next), from, what); });
      if (!fault.empty())
        return;
    }
  }

  std::size_t states() const { return seen_.size(); }
  std::string fault;                        // the order that leads to it, and what it is
  std::map<Excuse, std::string> exceptions; // the same of what is excused

private:
  void add(World&& world, int from, const std::string& what) {
    world.check();
    if (!seen_.insert(Hash(world).value).second)
      return;
    orders_.emplace_back(from, what);
    const int here = static_cast<int>(orders_.size()) - 1;
    World end = world;
    leadOn(end);
    if (!end.fault) {
      waiting_.emplace_back(here, std::move(world));
      return;
    }
    const std::string broken = orderTo(here) + " => " + end.fault;
    if (end.excuse == Excuse::None)
      fault = broken;
    else
      exceptions.try_emplace(end.excuse, broken);
  }

  // Calm leads each state to one in which the game goes on or has ended for both.
  void leadOn(World& world) {
    std::vector<std::size_t> way;
    for (int rounds = 0; !world.fault && !world.isSettled(); ++rounds) {
      way.push_back(Hash(world).value);
      if (good_.contains(way.back()))
        break;
      if (rounds == 12)
        world.fault = "nothing leads on";
      calmRound(world);
      world.check();
    }
    if (!world.fault)
      good_.insert(way.begin(), way.end());
  }

  std::string orderTo(int state) const {
    const auto& [from, what] = orders_[static_cast<std::size_t>(state)];
    return from < 0 ? "" : orderTo(from) + (from == 0 ? "" : ", ") + what;
  }

  Bound bound_;
  std::deque<std::pair<int, World>> waiting_;
  std::vector<std::pair<int, std::string>> orders_; // whence each state was come to, and how
  std::unordered_set<std::size_t> seen_, good_;
};

} // namespace

// FALANGES_TURNS and FALANGES_FAULTS: a larger bound.
TEST(NetworkSearch, EveryOrderOfEventsKeepsWhatIsPromised) {
  const char* const turns = std::getenv("FALANGES_TURNS");
  const char* const faults = std::getenv("FALANGES_FAULTS");
  Search search({turns ? std::stoi(turns) : 2, faults ? std::stoi(faults) : 2});
  search.run();
  EXPECT_EQ(search.fault, "");
  std::cout << search.states() << " states\n";
  if (turns || faults)
    return;
  // What no file without a lock can prevent, each by its shortest order.
  const std::map<Excuse, std::string> exceptions = {
      {Excuse::NobodyKnows, "the file is torn => nothing leads on"},
      {Excuse::WinnerGone, "A joins, A's folder goes away, A wins, A leaves => nothing leads on"},
      {Excuse::WriterGone,
       "A joins, A passes the turn, B joins, A ticks, A leaves, the file is torn, "
       "B ticks => a turn is taken back"},
      {Excuse::TwoWrites,
       "A joins, A's share hangs, A wins, B joins, A's work goes on, A's work goes on, "
       "the file is torn, B ticks, B ticks => the result stands behind another position"},
      {Excuse::LateWrite,
       "A joins, A passes the turn, A's share hangs, A ticks, A's work goes on, A's work "
       "goes on, A hears, A is killed, its work goes on, A joins => a turn is written over "
       "another"}};
  EXPECT_EQ(search.exceptions, exceptions);
}

} // namespace falanges::network
