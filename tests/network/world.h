// A world of two copies and one file, in which the protocol that ships is all that decides.
//
// A position is named by the turns that led to it, each with a letter of its own: "0" is the start,
// "0a" the board behind player 1's first turn, "0ab" the one behind player 2's answer. The winning
// move is a "!", and "idle" a board with idle moves.
#pragma once

#include <optional>

#include "network/protocol.h"

namespace falanges::network {

inline const Look Torn{Found::Torn, "torn", {}};
inline Look whole(const Position& position) {
  return {Found::Whole, position.text(), position};
}

// What a copy's worker has under way: it goes on call by call to the system, at any time or never.
struct Work {
  Action action;
  int calls = 0; // that have been made
  Look look = {};
  std::optional<Written> answer = {}; // once it has ended; of a look that is Whole
  bool underWay() const { return action.what != Action::Nothing; }
  bool operator==(const Work&) const = default;
};

struct Copy {
  std::uint8_t player, other; // by number
  State state = {};
  Work work = {};
  Position screen = {};
  Position played = {}; // behind the last turn that was played in this program
  bool open = false;    // in a game or on the way into it
  bool agreed = false;  // to go on from the last known position
  bool away = false;    // from the folder of the file
  bool hangs = false;   // the share
  bool operator==(const Copy&) const = default;

  bool joins() const { return open && state.phase < Phase::InTurn; }
  bool isAsked() const { return joins() && !state.underWay; } // whether to go on from there
  bool isTold() const { return state.player != 0 && state.phase == Phase::Ended; } // the end
  bool plays() const { return open && !joins() && !isTold(); }
  bool isInTurn() const { return open && state.phase == Phase::InTurn; }
  bool seemsInTurn() const { return screen.JugadorActual == player; }
};

struct World {
  Copy a{1, 2}, b{2, 1};
  Look file = whole({"0", 1});
  Position latest = {"0", 1};   // behind the last turn that has stood whole in the file
  char letter = 'a';            // of the next turn
  int faults = 0;               // that were counted
  const char* broken = nullptr; // the promise that is
  const char* excuse = nullptr; // what no file without a lock can prevent, before it is broken
  bool operator==(const World&) const = default;

  // --- What may happen ---------------------------------------------------------------------------

  void joins(Copy& copy) {
    copy.open = true;
    copy.agreed = false;
    happens(copy, Join{copy.player, 0});
  }
  void saysYes(Copy& copy) {
    copy.agreed = true;
    happens(copy, GoOn{});
  }
  // A poll is due, or a second has gone by while something is under way.
  void ticks(Copy& copy) { happens(copy, Tick{copy.seemsInTurn()}); }
  // The worker's answer comes.
  void hears(Copy& copy) {
    const Work work = std::exchange(copy.work, {});
    if (work.action.what == Action::LookAtFile)
      happens(copy, LookCame{work.look});
    else
      happens(copy, WriteCame{*work.answer});
  }
  void passesTurn(Copy& copy) {
    copy.screen.squares += letter++;
    turnLeadsBack(copy);
  }
  // To the board that it began with: by two moves, the second of which takes back the first.
  void turnLeadsBack(Copy& copy) {
    copy.screen.JugadorActual = copy.other;
    copy.played = copy.screen;
    happens(copy, TurnPassed{copy.screen});
  }
  void wins(Copy& copy) {
    copy.screen.squares += "!";
    happens(copy, MoveWins{copy.screen});
  }
  // By a move that would win, and that passes the turn on the screen.
  void movesIdly(Copy& copy) {
    copy.screen = {"idle", copy.seemsInTurn() ? copy.other : copy.player};
    happens(copy, MoveWins{copy.screen});
    happens(copy, TurnPassed{copy.screen});
  }
  void leaves(Copy& copy) { copy.open = false; }
  void isKilled(Copy& copy) { copy = {copy.player, copy.other}; }
  void isToldAFailure(Copy& copy) { copy.work.answer = Written::Failed; }
  void goesAwayOrComesBack(Copy& copy) { copy.away = !copy.away; }
  void hangsOrAnswers(Copy& copy) { copy.hangs = !copy.hangs; }
  void seesFileTorn(Copy& /*copy*/) { file = Torn; }

  // The next call to the system.
  void worksOn(Copy& copy) {
    if (copy.away) {
      copy.work.look = {};
      copy.work.answer = copy.work.calls == 0 ? Written::Overtaken : Written::Failed;
    } else if (copy.work.action.what == Action::LookAtFile) {
      looks(copy.work);
    } else {
      writes(copy.work);
    }
    ++copy.work.calls;
  }
  // All that does not hang comes to its end, and what that leads to. What the players are promised
  // holds then.
  void comesToRest() {
    for (Copy* const copy : {&a, &b})
      while (copy->work.underWay() && !copy->hangs && (copy->open || !copy->work.answer))
        if (copy->work.answer)
          hears(*copy);
        else
          worksOn(*copy);
    if (file.found == Found::Whole && !file.position.squares.starts_with('0'))
      broken = "what nobody in turn has played is written";
    if (a.isInTurn() && b.isInTurn())
      broken = "both copies are in turn";
    for (const Copy* const copy : {&a, &b})
      if (copy->isInTurn() && copy->screen.squares != latest.squares)
        broken = "a turn is taken back";
  }

  // --- What the search asks ----------------------------------------------------------------------

  // One is in turn, and the other waits before the same board; or both know the end.
  bool isSettled() const {
    const Copy& other = a.isInTurn() ? b : a;
    const bool goesOn = a.isInTurn() != b.isInTurn() && other.open && file == whole(latest) &&
                        other.state.phase == Phase::Waiting && other.screen == latest;
    return goesOn || (a.isTold() && b.isTold());
  }
  void nothingLeadsOn() {
    broken = "nothing leads on";
    if (a.screen == Position{} && b.screen == Position{})
      excuse = "nobody knows what the file held";
  }

private:
  // What the protocol makes of it.
  void happens(Copy& copy, const Event& event) {
    const bool wasInTurn = copy.isInTurn();
    const auto [state, action] = happen(copy.state, event);
    copy.state = state;
    copy.state.waited = 0; // of these two come captions alone
    copy.state.withoutAccess = false;
    copy.open = copy.open && action.what != Action::Refuse;
    if (action.what == Action::Open || action.what == Action::TakeOver)
      shows(copy, action);
    if (action.what == Action::TakeOver && wasInTurn)
      broken = "what a player in turn does is dropped";
    if (action.what == Action::Lose && !action.look.position.squares.ends_with('!'))
      broken = "a copy loses a game that is not won";
    if (!state.underWay || action.what == Action::Nothing)
      return;
    if (copy.work.underWay())
      broken = "two operations of a copy are under way";
    copy.work = {action};
  }

  // The other copy, or a player, may have put an older text back. Only who has played on from it,
  // and is in the game or has said that it shall go on, knows better.
  void shows(Copy& copy, const Action& action) {
    copy.screen = action.look.position;
    const bool older = copy.screen.squares.size() < latest.squares.size();
    const bool knows = action.what == Action::TakeOver || copy.agreed;
    if (older && copy.isInTurn() && !(knows && copy.played == latest))
      excuse = "an older text is believed";
  }

  // First at the position, then at the result, which may be younger.
  void looks(Work& work) const {
    const Look begun = std::exchange(work.look, file);
    if (file.found == Found::Result && begun.found == Found::Whole)
      work.look.position = begun.position;
    if (work.calls == 1)
      work.answer = Written::Whole;
  }

  // Compares the file with what was looked at, empties it and puts the position there; the winner's
  // goes on to the result.
  void writes(Work& work) {
    const auto& [what, over, position] = work.action;
    const Look result{Found::Result, position.text() + "result", {position.squares, 0}};
    const Look stages[] = {over, over, Torn, whole(position), result}; // a call between two
    if (file != stages[work.calls] && work.calls == 0) {
      work.answer = Written::Overtaken;
      return;
    }
    if (file != stages[work.calls])
      excuse = "two write at once";
    file = stages[work.calls + 1];
    if (file == whole(position) && position.squares.starts_with(latest.squares))
      latest = position;
    else if (file == whole(position) && over.position == latest)
      broken = "a turn is taken back";
    if (file == (what == Action::Write ? whole(position) : result))
      work.answer = Written::Whole;
  }
};

} // namespace falanges::network
