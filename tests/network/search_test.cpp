// Every order of events of a network game, up to a bound: what the players are promised is held
// against each state that they lead to.
//
// The promises:
//   - never are both copies in turn;
//   - no turn that has stood in the file is lost or taken back, and no idle move is written;
//   - a win reaches the other copy, as it was won;
//   - calm leads every state on: nobody waits for ever.
//
// The events, of which every order is tried, of two copies: A plays player 1, B player 2.
//   - free: a copy joins, is asked whether to go on from the last known position and says yes, or
//     gives up joining; it ticks (a poll, or a second of waiting); while its share hangs, its
//     worker works on call by call, and it hears the answer; it passes the turn, or wins;
//   - counted as faults: its folder goes away; its share hangs; a write that came through is told
//     as a failure; it moves idly, out of turn; its turn ends where it began, by two moves; it
//     leaves, or is killed; the file is torn.
//
// `World` (world.h) is the state of both copies and the file. Of a copy it knows whether it is
// `open`, in a game or on its way into it; was `asked` whether to go on from the last known
// position; was `told` how the game has ended; sees `idle` moves on its screen; has its file `away`
// or `hangs`; what `work` it has under way; and the `state` of its protocol. `broken` is the
// promise that is, `excuse` why no program could have kept it.
#include <cstdlib>
#include <deque>
#include <functional>
#include <iostream>
#include <map>
#include <unordered_map>

#include <gtest/gtest.h>

#include "network/world.h"

namespace falanges::network {

namespace {

// So many turns are played, so many faults happen at most.
struct Bound {
  std::size_t turns;
  int faults; // of all kinds together
};

// Each world that may come next, with what leads to it.
void forEachNext(const World& world, const Bound& bound,
                 const std::function<void(const std::string& what, World next)>& visit) {
  int who = 0;
  using Operation = void (World::*)(int who);
  const auto free = [&](bool may, const char* what, Operation operation, int cost = 0) {
    if (!may)
      return;
    World next = world;
    next.faults += cost;
    (next.*operation)(who);
    next.comesToRest();
    visit((who == 0 ? "A " : "B ") + std::string(what), std::move(next));
  };
  const auto fault = [&](bool may, const char* what, Operation operation) {
    free(may && world.faults < bound.faults && !world.excuse, what, operation, 1);
  };
  if (world.latest.squares.size() > bound.turns + 1)
    return;
  for (; who < 2; ++who) {
    const Copy& copy = world.copies[who];
    const bool works = copy.work.underWay() && !copy.work.ended;
    const bool plays = world.plays(who);
    const bool inTurn = world.inTurn(who);
    const bool hasWon = copy.state.phase == Phase::Won;
    const bool done = copy.work.ended && copy.work.written == Written::Whole;

    free(!copy.open && !copy.told, "joins", &World::joins);
    free(copy.asked, "says yes", &World::saysYes);
    free(copy.open && !plays && !copy.told, "gives up joining", &World::leaves);
    free(works, "works on", &World::workGoesOn);
    free(copy.open && copy.work.ended, "hears", &World::hears);
    free(plays && !copy.work.ended, "ticks", &World::ticks);
    free(inTurn, "passes the turn", &World::passesTurn);
    free(inTurn, "wins", &World::wins);
    free(copy.away, "comes back", &World::goesAwayOrComesBack);
    free(copy.hangs, "hangs no more", &World::hangsOrAnswers);

    fault(!copy.away, "goes away", &World::goesAwayOrComesBack);
    fault(!copy.hangs, "hangs", &World::hangsOrAnswers);
    fault(done, "is told a failure", &World::isToldAFailure);
    fault(plays && !inTurn && !hasWon, "moves idly", &World::movesIdly);
    fault(inTurn, "ends the turn where it began", &World::turnLeadsBack);
    fault(plays && !hasWon, "leaves", &World::leaves);
    fault(plays && !hasWon, "is killed", &World::isKilled);
    fault(world.won.empty(), "sees the file torn", &World::fileIsTorn);
  }
}

// Both players sit before their copies and move nothing, and the file answers.
void calmRound(World& world) {
  for (const int who : {0, 1}) {
    Copy& copy = world.copies[who];
    copy.away = copy.hangs = false;
    world.comesToRest();
    if (!copy.open && !copy.told)
      world.joins(who);
    else if (copy.asked)
      world.saysYes(who);
    else if (world.plays(who))
      world.ticks(who);
    world.comesToRest();
    if (copy.idle)
      world.movesIdly(who); // as the manual tells who seems to be in turn
    else if (world.inTurn(who) && !world.copies[1 - who].open && !world.copies[1 - who].told)
      world.passesTurn(who); // the other could not join: the next turn makes the file whole
  }
}

// Leads to a state in which the game goes on or has ended for both.
void leadOn(World& world) {
  for (int rounds = 0; !world.broken && !world.isSettled(); ++rounds) {
    calmRound(world);
    if (rounds == 12)
      world.nothingLeadsOn();
  }
}

// Some members tell most worlds apart; all are compared.
struct Hash {
  std::size_t operator()(const World& world) const {
    std::string key = world.file.text + world.latest.squares + char(world.faults);
    for (const Copy& copy : world.copies)
      key += copy.state.own.squares + copy.state.seen.text + copy.screen.squares +
             char(copy.state.phase) + char(copy.state.inVain) + char(copy.work.action.what) +
             char(copy.work.calls) + char(copy.away) + char(copy.hangs) + char(copy.open);
    return std::hash<std::string>()(key);
  }
};

class Search {
public:
  explicit Search(const Bound& bound) {
    add(World{}, nullptr, "");
    // The same game with a blank behind it, as another program might have written it.
    World otherWords;
    otherWords.file.text += " ";
    add(std::move(otherWords), nullptr, "the file is in other words");
    for (; !waiting_.empty() && fault.empty(); waiting_.pop_front())
      forEachNext(*waiting_.front(), bound, [&](const std::string& what, World next) {
        add(std::move(next), waiting_.front(), what);
      });
  }

  std::size_t states() const { return seen_.size(); }
  std::string fault;                             // the order that leads to it, and what it is
  std::map<std::string, std::string> exceptions; // the same of what is excused

private:
  void add(World&& next, const World* before, const std::string& what) {
    const auto [place, isNew] = seen_.try_emplace(std::move(next), std::pair(before, what));
    if (!isNew)
      return;
    World end = place->first;
    leadOn(end);
    if (!end.broken)
      waiting_.push_back(&place->first);
    else if (end.excuse)
      exceptions.try_emplace(end.excuse, orderTo(place->first) + " => " + end.broken);
    else
      fault = orderTo(place->first) + " => " + end.broken;
  }

  std::string orderTo(const World& world) const {
    const auto& [before, what] = seen_.at(world);
    const std::string order = before ? orderTo(*before) : "";
    return order.empty() ? what : order + ", " + what;
  }

  // With the world before, and what led on from there.
  std::unordered_map<World, std::pair<const World*, std::string>, Hash> seen_;
  std::deque<const World*> waiting_;
};

} // namespace

// Three turns and two faults, or as many as FALANGES_TURNS and FALANGES_FAULTS in the environment
// say.
TEST(NetworkSearch, EveryOrderOfEventsKeepsWhatIsPromised) {
  const char* const turns = std::getenv("FALANGES_TURNS");
  const char* const faults = std::getenv("FALANGES_FAULTS");
  const Search search({turns ? std::stoul(turns) : 3, faults ? std::stoi(faults) : 2});
  std::cout << search.states() << " states\n";
  EXPECT_EQ(search.fault, "");
  if (turns || faults)
    return;
  // What no file without a lock can prevent, each by its shortest order: the excuse, then the
  // events and " => " the promise that they break.
  const std::map<std::string, std::string> exceptions = {
      {"nobody knows what the file held", "A sees the file torn => nothing leads on"},
      {"an older text is believed",
       "A joins, A passes the turn, B joins, A ticks, A is killed, A sees the file torn => "
       "a turn is taken back"},
      {"two write at once",
       "the file is in other words, A joins, B joins, B hangs, B ticks, B works on, B works on, "
       "B hears, B works on, A wins => nothing leads on"}};
  EXPECT_EQ(search.exceptions, exceptions);
}

} // namespace falanges::network
