#include "network/protocol.h"

#include <algorithm>
#include <utility>

namespace falanges::network {

namespace {

// What becomes of one copy by one event.
class Reaction {
public:
  explicit Reaction(State before) : state(std::move(before)) {}

  void to(const Join& join);
  void to(const GoOn& yes);
  void to(const Tick& tick);
  void to(const LookCame& event);
  void to(const WriteCame& event);
  void to(const TurnPassed& event);
  void to(const MoveWins& event);

  State state;
  Action action;

private:
  void joinOn(const Look& look);
  void open(const Look& look);

  void turnSteps(const Look& look);
  void afterTurn(const Look& look);
  void afterJoining(const Look& look);
  void whileWaiting(const Look& look);
  void heal(const Look& look);
  bool takesTurnBack(const Position& position) const;

  void begin(Operation operation, Action::What what, const Look& over = {});
  void show(const Position& position);
  void takeOver(const Look& look);
  void published();
  void loseAccess() { state.withoutAccess = true; }
  void regainAccess();
};

// --- Joining -------------------------------------------------------------------------------------

// Of an earlier game in this file counts what is known of it, and what is under way still.
void Reaction::to(const Join& join) {
  const State earlier = std::exchange(state, {});
  state.phase = Phase::Joining;
  state.player = join.player;
  state.interval = join.interval;
  state.own = earlier.own;
  state.playedFrom = earlier.playedFrom;
  state.known = earlier.known;
  state.underWay = earlier.underWay;
  state.ofEarlierGame = state.underWay != Operation::None;
  if (!state.ofEarlierGame)
    begin(Operation::Look, Action::LookAtFile);
}

void Reaction::joinOn(const Look& look) {
  if (look.found == Found::Whole || look.found == Found::Result) {
    open(look);
  } else if (look.found != Found::Unreachable && !state.known.squares.empty()) {
    state.seen = look;
    action = {Action::Ask, look, state.known};
  } else {
    state.phase = Phase::Ended;
    action = {Action::Refuse, look, {}};
  }
}

void Reaction::to(const GoOn& /*yes*/) {
  state.own = state.known;
  begin(Operation::Write, Action::Write, std::exchange(state.seen, {}));
}

// Who comes back to the position that it wrote last knows what its turn began with.
void Reaction::open(const Look& look) {
  const Position position = look.found == Found::Whole ? look.position : Position{};
  if (position != state.own)
    state.playedFrom = {};
  state.phase = Phase::FirstLook;
  state.known = state.own = position;
  show(look.position);
  action = {Action::Open, look, {}};
}

// --- The player ----------------------------------------------------------------------------------

void Reaction::to(const TurnPassed& event) {
  state.shown = event.position.JugadorActual;
  if (state.phase != Phase::InTurn)
    return;
  state.phase = Phase::TurnFinished;
  state.own = event.position;
  state.writeFailed = false;
}

void Reaction::to(const MoveWins& event) {
  if (state.phase != Phase::InTurn) {
    state.idleWin = true;
    return;
  }
  state.phase = Phase::Won;
  state.own = event.position;
  state.known = {};
  if (state.underWay == Operation::None) // else behind the look that is under way
    begin(Operation::Write, Action::WriteResult);
}

// --- The file ------------------------------------------------------------------------------------

void Reaction::to(const Tick& /*tick*/) {
  if (state.underWay == Operation::None) {
    begin(Operation::Look, Action::LookAtFile);
    return;
  }
  state.waited = std::min(state.waited + 1, Patience);
  if (state.waited == Patience || state.phase == Phase::Won)
    loseAccess();
}

void Reaction::to(const LookCame& event) {
  const Look& look = event.look;
  const Operation was = std::exchange(state.underWay, Operation::None);
  const Look first = std::exchange(state.seen, {});
  if (std::exchange(state.ofEarlierGame, false)) {
    begin(Operation::Look, Action::LookAtFile);
  } else if (state.phase == Phase::Won) {
    begin(Operation::Write, Action::WriteResult);
  } else if (state.phase == Phase::Joining) {
    joinOn(look);
  } else if (was == Operation::Look && look.found == Found::Result) {
    // Position and result may be of two moments. What stays the same belongs together.
    state.seen = look;
    begin(Operation::SecondLook, Action::LookAtFile);
  } else if (was == Operation::Look) {
    turnSteps(look);
  } else if (look == first) {
    state.phase = Phase::Ended;
    state.known = {};
    action = {Action::Lose, look, {}};
  } else {
    loseAccess();
  }
}

void Reaction::turnSteps(const Look& look) {
  if (look.found == Found::Whole)
    state.known = look.position;
  const bool seemsInTurn = state.shown == state.player && !state.idleWin;
  if (state.phase == Phase::TurnFinished)
    afterTurn(look);
  else if (state.phase == Phase::InTurn || seemsInTurn)
    regainAccess(); // no file is needed
  else if (state.phase == Phase::FirstLook)
    afterJoining(look);
  else
    whileWaiting(look);
}

// What a write that failed has yet brought into the file may have been answered.
void Reaction::afterTurn(const Look& look) {
  if (look.found == Found::Unreachable)
    loseAccess();
  else if (look.found == Found::Whole && look.position == state.own)
    published();
  else if (look.found == Found::Whole && state.writeFailed && look.position != state.playedFrom)
    takeOver(look);
  else
    begin(Operation::Write, Action::Write, look);
}

// The other copy may have gone on since this one joined: its news must not be written over, and
// what stands there already need not be written.
void Reaction::afterJoining(const Look& look) {
  if (look.found != Found::Whole)
    heal(look);
  else if (look.text == state.own.text())
    published();
  else if (look.position == state.own || takesTurnBack(look.position))
    begin(Operation::Write, Action::Write, look);
  else
    takeOver(look);
}

void Reaction::whileWaiting(const Look& look) {
  if (look.found != Found::Whole)
    heal(look);
  else if (takesTurnBack(look.position))
    begin(Operation::Write, Action::Write, look);
  else
    takeOver(look);
}

// The other copy may have put its last text back before it had seen this copy's turn, or a slow
// writing of it may have come late. No answer to a turn can be the position that the turn began
// with, unless the turn itself led back to it.
bool Reaction::takesTurnBack(const Position& position) const {
  return position == state.playedFrom && position.squares != state.own.squares;
}

// Whoever was writing may have died. A folder that is away may come back with a newer file, so that
// only looks into one that answers count.
void Reaction::heal(const Look& look) {
  const int fullInterval = state.interval + 2; // from the first look to the one after a poll's
  loseAccess();
  state.inVain = look.found == Found::Unreachable ? 0 : std::min(state.inVain + 1, fullInterval);
  if (state.inVain == fullInterval && !state.own.squares.empty())
    begin(Operation::Write, Action::Write, look);
}

void Reaction::to(const WriteCame& event) {
  const bool whole = event.written == Written::Whole;
  state.underWay = Operation::None;
  if (std::exchange(state.ofEarlierGame, false)) {
    if (whole)
      state.known = state.own;
    begin(Operation::Look, Action::LookAtFile);
  } else if (state.phase == Phase::Joining && whole) {
    const Position position = state.own;
    open({Found::Whole, position.text(), position});
  } else if (state.phase == Phase::Joining) {
    begin(Operation::Look, Action::LookAtFile);
  } else if (!whole) {
    state.writeFailed = state.writeFailed || event.written == Written::Failed;
    loseAccess();
  } else if (state.phase == Phase::Won) {
    state.phase = Phase::Ended;
    regainAccess();
  } else {
    published();
  }
}

// --- What the cases share ------------------------------------------------------------------------

void Reaction::begin(Operation operation, Action::What what, const Look& over) {
  state.underWay = operation;
  state.waited = 0;
  action = {what, over, operation == Operation::Write ? state.own : Position{}};
}

void Reaction::show(const Position& position) {
  state.shown = position.JugadorActual;
  state.idleWin = false;
  if (position.JugadorActual == state.player) {
    state.phase = Phase::InTurn;
    state.playedFrom = position;
  }
  regainAccess();
}

void Reaction::takeOver(const Look& look) {
  if (look.position != state.own)
    state.playedFrom = {};
  state.phase = Phase::Waiting;
  state.own = look.position;
  show(look.position);
  action = {Action::TakeOver, look, {}};
}

// `own` stands in the file.
void Reaction::published() {
  state.phase = Phase::Waiting;
  state.known = state.own;
  regainAccess();
}

void Reaction::regainAccess() {
  state.withoutAccess = false;
  state.inVain = 0;
}

} // namespace

Step happen(State state, const Event& event) {
  Reaction reaction(std::move(state));
  std::visit([&reaction](const auto& what) { reaction.to(what); }, event);
  return {std::move(reaction.state), std::move(reaction.action)};
}

} // namespace falanges::network
