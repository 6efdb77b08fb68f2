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

Action writeResult(State& state) {
  return begin(state, {Action::WriteResult, {}, state.own});
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
  state.known = state.own;
  return withAccess(state);
}

Action show(State& state, Phase outOfTurn, Action::What what, const Look& shown) {
  const Position position = shown.found == Found::Whole ? shown.position : Position{};
  // Who comes back to the position that it wrote last knows what its turn began with.
  if (position != state.own)
    state.playedFrom = {};
  state.phase = outOfTurn;
  state.known = state.own = position;
  state.shown = shown.position.JugadorActual;
  state.idleWin = false;
  if (state.shown == state.player) {
    state.phase = Phase::InTurn;
    state.playedFrom = position;
  }
  withAccess(state);
  return {what, shown, {}};
}

Action takeOver(State& state, const Look& look) {
  return show(state, Phase::Waiting, Action::TakeOver, look);
}

Action open(State& state, const Look& look) {
  return show(state, Phase::FirstLook, Action::Open, look);
}

// Whoever was writing may have died. A folder that is away may come back with a newer file, so that
// only looks into one that answers count.
Action heal(State& state, const Look& look) {
  const int fullInterval = state.interval + 2; // from the first look to the one after a poll's
  state.inVain = look.found == Found::Unreachable ? 0 : std::min(state.inVain + 1, fullInterval);
  state.withoutAccess = true;
  if (state.inVain < fullInterval || state.own.squares.empty())
    return {};
  return write(state, look);
}

// The other copy may have put its last text back before it had seen this copy's turn, or a slow
// writing of it may have come late. No answer to a turn can be the position that the turn began
// with, unless the turn itself led back to it.
bool takesTurnBack(const State& state, const Position& position) {
  return position == state.playedFrom && position.squares != state.own.squares;
}

// --- What a look leads to ------------------------------------------------------------------------

Action joinOn(State& state, const Look& look) {
  if (look.found == Found::Whole || look.found == Found::Result)
    return open(state, look);
  if (look.found != Found::Unreachable && !state.known.squares.empty()) {
    state.seen = look;
    return {Action::Ask, look, state.known};
  }
  state.phase = Phase::Ended;
  return {Action::Refuse, look, {}};
}

// What a write that failed has yet brought into the file may have been answered.
Action afterTurn(State& state, const Look& look) {
  if (look.found == Found::Unreachable)
    return withoutAccess(state);
  if (look.found == Found::Whole && look.position == state.own)
    return published(state);
  if (look.found == Found::Whole && state.writeFailed && look.position != state.playedFrom)
    return takeOver(state, look);
  return write(state, look);
}

// The other copy may have gone on since this one joined: its news must not be written over, and
// what stands there already need not be written.
Action afterJoining(State& state, const Look& look) {
  if (look.found != Found::Whole)
    return heal(state, look);
  if (look.text == state.own.text())
    return published(state);
  if (look.position == state.own || takesTurnBack(state, look.position))
    return write(state, look);
  return takeOver(state, look);
}

Action whileWaiting(State& state, const Look& look) {
  if (look.found != Found::Whole)
    return heal(state, look);
  return takesTurnBack(state, look.position) ? write(state, look) : takeOver(state, look);
}

Action turnSteps(State& state, const Look& look) {
  if (look.found == Found::Whole)
    state.known = look.position;
  if (state.phase == Phase::TurnFinished)
    return afterTurn(state, look);
  if (state.phase == Phase::InTurn || (state.shown == state.player && !state.idleWin))
    return withAccess(state); // no file is needed
  return state.phase == Phase::FirstLook ? afterJoining(state, look) : whileWaiting(state, look);
}

// --- The events ----------------------------------------------------------------------------------

// Of an earlier game in this file counts what is known of it, and what is under way still.
Action on(State& state, const Join& join) {
  const State earlier = std::exchange(state, {});
  state.phase = Phase::Joining;
  state.player = join.player;
  state.interval = join.interval;
  state.own = earlier.own;
  state.playedFrom = earlier.playedFrom;
  state.known = earlier.known;
  state.underWay = earlier.underWay;
  state.ofEarlierGame = state.underWay;
  return state.ofEarlierGame ? Action{} : look(state);
}

Action on(State& state, const GoOn& /*yes*/) {
  state.own = state.known;
  return write(state, std::exchange(state.seen, {}));
}

Action on(State& state, const Tick& /*tick*/) {
  if (!state.underWay)
    return look(state);
  state.waited = std::min(state.waited + 1, Patience);
  return state.waited == Patience || state.phase == Phase::Won ? withoutAccess(state) : Action{};
}

Action on(State& state, const LookCame& event) {
  state.underWay = false;
  const Look first = std::exchange(state.seen, {});
  if (std::exchange(state.ofEarlierGame, false))
    return look(state);
  if (state.phase == Phase::Won)
    return writeResult(state);
  if (state.phase == Phase::Joining)
    return joinOn(state, event.look);
  if (first.found != Found::Result && event.look.found != Found::Result)
    return turnSteps(state, event.look);
  // Position and result may be of two moments. What stays the same belongs together.
  if (first.found != Found::Result) {
    state.seen = event.look;
    return look(state);
  }
  if (event.look != first)
    return withoutAccess(state);
  state.phase = Phase::Ended;
  state.known = {};
  return {Action::Lose, first, {}};
}

Action on(State& state, const WriteCame& event) {
  const bool whole = event.written == Written::Whole;
  state.underWay = false;
  if (std::exchange(state.ofEarlierGame, false)) {
    if (whole)
      state.known = state.own;
    return look(state);
  }
  if (state.phase == Phase::Joining)
    return whole ? open(state, {Found::Whole, state.own.text(), state.own}) : look(state);
  if (!whole) {
    state.writeFailed = state.writeFailed || event.written == Written::Failed;
    return withoutAccess(state);
  }
  if (state.phase != Phase::Won)
    return published(state);
  state.phase = Phase::Ended;
  return withAccess(state);
}

Action on(State& state, const TurnPassed& event) {
  state.shown = event.position.JugadorActual;
  if (state.phase == Phase::InTurn) {
    state.phase = Phase::TurnFinished;
    state.own = event.position;
    state.writeFailed = false;
  }
  return {};
}

Action on(State& state, const MoveWins& event) {
  state.idleWin = state.phase != Phase::InTurn;
  if (state.idleWin)
    return {};
  state.phase = Phase::Won;
  state.own = event.position;
  state.known = {};
  // Behind the look that may be under way.
  return state.underWay ? Action{} : writeResult(state);
}

} // namespace

Step happen(State state, const Event& event) {
  Action action = std::visit([&state](const auto& what) { return on(state, what); }, event);
  return {std::move(state), std::move(action)};
}

} // namespace falanges::network
