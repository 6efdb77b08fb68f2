#include "network/protocol.h"

#include <algorithm>
#include <utility>

namespace falanges::network {

namespace {

// Each function below changes the state and gives what is to be done.

// --- What the cases share ------------------------------------------------------------------------

Action begin(State& state, const Action& operation) {
  state.underWay = true;
  state.waited = 0;
  return operation;
}

Action look(State& state) {
  return begin(state, {Action::LookAtFile, {}, {}});
}

Action write(State& state, const Look& over) {
  return begin(state, {Action::Write, over, state.own});
}

Action withoutAccess(State& state) {
  state.withoutAccess = true;
  return {};
}

Action withAccess(State& state) {
  state.withoutAccess = false;
  state.inVain = 0;
  return {};
}

// `own` stands in the file.
Action published(State& state) {
  state.phase = Phase::Waiting;
  return withAccess(state);
}

// Open or TakeOver. Of a game with a result there is nothing to write.
Action show(State& state, Action::What what, const Look& look) {
  const Position position = look.found == Found::Whole ? look.position : Position{};
  // Who comes back to the position that it wrote last knows what its turn began with.
  if (position != state.own)
    state.playedFrom = {};
  state.own = position;
  state.phase = what == Action::Open ? Phase::FirstLook : Phase::Waiting;
  if (look.position.JugadorActual == state.player) {
    state.phase = Phase::InTurn;
    state.playedFrom = position;
  }
  withAccess(state);
  return {what, look, {}};
}

// Whoever was writing may have died. A folder that is away may come back with a newer file, so that
// only looks into one that answers count.
Action heal(State& state, const Look& look) {
  const int fullInterval = state.interval + 2; // from the first look to the one after a poll's
  if (look.found == Found::Unreachable || state.own.squares.empty())
    return withoutAccess(state);
  return ++state.inVain < fullInterval ? withoutAccess(state) : write(state, look);
}

// The other copy may have put its last text back before it had seen this copy's turn, or a slow
// writing of it may have come late. No answer to a turn can be the position that the turn began
// with, unless the turn itself led back to it.
bool takesTurnBack(const State& state, const Look& look) {
  return look.found == Found::Whole && look.position == state.playedFrom &&
         look.position.squares != state.own.squares;
}

// --- What a look leads to ------------------------------------------------------------------------

Action join(State& state) {
  state.phase = Phase::Joining;
  return look(state);
}

// Who was asked gets what was offered, also where the other copy has put back an older text
// meanwhile. Unasked the file has the say: the players may have put an older one there.
Action joinOn(State& state, const Look& look) {
  if (state.phase == Phase::GoingOn && takesTurnBack(state, look))
    return write(state, look);
  if (look.found == Found::Whole || look.found == Found::Result)
    return show(state, Action::Open, look);
  if (look.found == Found::Unreachable || state.own.squares.empty())
    return {Action::Refuse, look, {}};
  state.seen = look;
  return {Action::Ask, look, state.own};
}

Action turnSteps(State& state, const Look& look) {
  const bool whole = look.found == Found::Whole;
  if (state.phase == Phase::TurnFinished)
    return write(state, look);
  // What a write that failed has yet brought into the file may have been answered.
  if (state.phase == Phase::MaybePublished)
    return whole && look.position != state.playedFrom ? show(state, Action::TakeOver, look)
                                                      : write(state, look);
  if (state.phase == Phase::InTurn || state.seemsInTurn)
    return withAccess(state); // no file is needed
  if (!whole)
    return heal(state, look);
  // What stands there already need not be written.
  if (state.phase == Phase::FirstLook && look.text == state.own.text())
    return published(state);
  const bool inOtherWords = state.phase == Phase::FirstLook && look.position == state.own;
  if (inOtherWords || takesTurnBack(state, look))
    return write(state, look);
  return show(state, Action::TakeOver, look);
}

// --- The events ----------------------------------------------------------------------------------

// Of an earlier game in this file counts what is known of it, unless it has ended, and what is
// under way still.
Action on(State& state, const Join& event) {
  const State earlier = std::exchange(state, {});
  state.player = event.player;
  state.interval = event.interval;
  if (earlier.phase < Phase::Won) {
    state.own = earlier.own;
    state.playedFrom = earlier.playedFrom;
  }
  if (!earlier.underWay)
    return join(state);
  state.phase = Phase::Rejoining;
  state.underWay = true;
  return {};
}

Action on(State& state, const GoOn& /*yes*/) {
  state.phase = Phase::GoingOn;
  return write(state, std::exchange(state.seen, {}));
}

Action on(State& state, const Tick& event) {
  if (!state.underWay) {
    state.seemsInTurn = event.seemsInTurn;
    return look(state);
  }
  state.waited = std::min(state.waited + 1, Patience);
  return state.waited == Patience || state.phase == Phase::Won ? withoutAccess(state) : Action{};
}

Action on(State& state, const LookCame& event) {
  state.underWay = false;
  const Look first = std::exchange(state.seen, {});
  if (state.phase == Phase::Rejoining)
    return join(state);
  if (state.phase == Phase::Joining || state.phase == Phase::GoingOn)
    return joinOn(state, event.look);
  if (state.phase == Phase::Won)
    return begin(state, {Action::WriteResult, event.look, state.own});
  if (event.look.found != Found::Result)
    return turnSteps(state, event.look);
  // Position and result may be of two moments. What stays the same belongs together.
  if (event.look != first) {
    state.seen = event.look;
    return look(state);
  }
  state.phase = Phase::Ended;
  return {Action::Lose, first, {}};
}

Action on(State& state, const WriteCame& event) {
  const bool whole = event.written == Written::Whole;
  state.underWay = false;
  if (state.phase == Phase::GoingOn && whole)
    return show(state, Action::Open, {Found::Whole, state.own.text(), state.own});
  if (state.phase == Phase::GoingOn && event.written == Written::Overtaken)
    return look(state);
  if (state.phase == Phase::GoingOn || state.phase == Phase::Rejoining)
    return join(state);
  if (state.phase == Phase::TurnFinished && event.written == Written::Failed)
    state.phase = Phase::MaybePublished;
  if (!whole)
    return withoutAccess(state);
  if (state.phase != Phase::Won)
    return published(state);
  state.phase = Phase::Ended;
  return withAccess(state);
}

Action on(State& state, const TurnPassed& event) {
  if (state.phase == Phase::InTurn) {
    state.phase = Phase::TurnFinished;
    state.own = event.position;
  }
  return {};
}

Action on(State& state, const MoveWins& event) {
  if (state.phase != Phase::InTurn)
    return {};
  state.phase = Phase::Won;
  state.own = event.position;
  // Behind the look that may be under way.
  return state.underWay ? Action{} : look(state);
}

} // namespace

Step happen(State state, const Event& event) {
  Action action = std::visit([&state](const auto& what) { return on(state, what); }, event);
  return {std::move(state), std::move(action)};
}

} // namespace falanges::network
