// A world of two copies and one file, in which the protocol that ships is all that decides.
//
// A position is named by the turns that led to it, each with a letter of its own: "0" is the start,
// "0a" the board behind player 1's first turn, "0ab" the one behind player 2's answer. The winning
// move is a "!".
#pragma once

#include "network/protocol.h"

namespace falanges::network {

inline Look whole(const Position& position) {
  return {Found::Whole, position.text(), position};
}

// What a copy's worker has under way: it goes on call by call to the system, at any time or never.
struct Work {
  Action action;
  int calls = 0; // that have been made
  bool ended = false;
  Look look;
  Written written = Written::Failed;
  bool underWay() const { return action.what != Action::Nothing; }
  bool operator==(const Work&) const = default;
};

struct Copy {
  State state;
  Work work;
  Position screen;     // without idle moves
  Position played;     // behind the last turn that was played in this program
  bool idle = false;   // idle moves make it look as if this player were in turn
  bool open = false;   // in a game or on the way into it
  bool asked = false;  // whether to go on from the last known position
  bool agreed = false; // to that
  bool told = false;   // how the game has ended
  bool away = false;   // from the folder of the file
  bool hangs = false;  // the share
  bool operator==(const Copy&) const = default;
};

struct World {
  Copy copies[2];
  Look file = whole({"0", 1});
  Position latest = {"0", 1};   // behind the last turn that has stood whole in the file
  std::string won;              // the board behind the winning move
  char letter = 'a';            // of the next turn
  int faults = 0;               // that were counted
  const char* broken = nullptr; // the promise that is
  const char* excuse = nullptr; // what no file without a lock can prevent, before it is broken
  bool operator==(const World&) const = default;

  // --- What may happen ---------------------------------------------------------------------------

  void joins(int who) {
    copies[who].open = true;
    copies[who].agreed = false;
    happens(who, Join{number(who), 0});
  }
  void saysYes(int who) {
    copies[who].asked = false;
    copies[who].agreed = true;
    happens(who, GoOn{});
  }
  // A poll is due, or a second has gone by while something is under way.
  void ticks(int who) { happens(who, Tick{copies[who].idle}); }
  // The worker's answer comes.
  void hears(int who) {
    const Work work = std::exchange(copies[who].work, {});
    if (work.action.what == Action::LookAtFile)
      happens(who, LookCame{work.look});
    else
      happens(who, WriteCame{work.written});
  }
  void passesTurn(int who) {
    copies[who].screen.squares += letter++;
    turnLeadsBack(who);
  }
  // To the board that it began with: by two moves, the second of which takes back the first.
  void turnLeadsBack(int who) {
    copies[who].screen.JugadorActual = number(1 - who);
    copies[who].played = copies[who].screen;
    happens(who, TurnPassed{copies[who].screen});
  }
  void wins(int who) {
    won = copies[who].screen.squares += "!";
    happens(who, MoveWins{copies[who].screen});
  }
  // By a move that would win, and that passes the turn on the screen.
  void movesIdly(int who) {
    copies[who].idle = !copies[who].idle;
    happens(who, MoveWins{{"idle", number(who)}});
    happens(who, TurnPassed{{"idle", number(1 - who)}});
  }
  void leaves(int who) { copies[who].open = copies[who].asked = copies[who].idle = false; }
  void isKilled(int who) { copies[who] = {}; }
  void isToldAFailure(int who) { copies[who].work.written = Written::Failed; }
  void goesAwayOrComesBack(int who) { copies[who].away = !copies[who].away; }
  void hangsOrAnswers(int who) { copies[who].hangs = !copies[who].hangs; }
  void fileIsTorn(int /*who*/) { file = {Found::Torn, "torn", {}}; }

  // The next call to the system.
  void workGoesOn(int who) {
    Work& work = copies[who].work;
    if (work.action.what == Action::LookAtFile)
      looks(work, copies[who].away);
    else
      writes(work, copies[who].away);
    ++work.calls;
  }
  // All that does not hang comes to its end, and what that leads to.
  void comesToRest() {
    for (const int who : {0, 1}) {
      const Copy& copy = copies[who];
      while (copy.work.underWay() && !copy.hangs && (copy.open || !copy.work.ended))
        if (copy.work.ended)
          hears(who);
        else
          workGoesOn(who);
    }
    check();
  }

  // --- What the search asks ----------------------------------------------------------------------

  bool inTurn(int who) const {
    return copies[who].open && copies[who].state.phase == Phase::InTurn;
  }
  // In the network game, and not yet at its end.
  bool plays(int who) const {
    const Phase phase = copies[who].state.phase;
    return copies[who].open && phase >= Phase::InTurn && phase != Phase::Ended;
  }
  // One is in turn, and the other waits before the same board; or both know the end.
  bool isSettled() const {
    if (!won.empty())
      return copies[0].told && copies[1].told;
    const int turn = inTurn(0) ? 0 : 1;
    const Copy& other = copies[1 - turn];
    return inTurn(turn) && other.open && other.state.phase == Phase::Waiting &&
           other.screen == latest && file == whole(latest);
  }
  void nothingLeadsOn() {
    broken = "nothing leads on";
    if (copies[0].screen == Position{} && copies[1].screen == Position{})
      excuse = "nobody knows what the file held";
  }

private:
  inline static const Look Torn{Found::Torn, "", {}};

  static std::uint8_t number(int who) { return static_cast<std::uint8_t>(who + 1); }

  void check() {
    if (file.found == Found::Whole && !file.position.squares.starts_with('0'))
      broken = "what nobody in turn has played is written";
    if (inTurn(0) && inTurn(1))
      broken = "both copies are in turn";
    for (const int who : {0, 1})
      if (inTurn(who) && copies[who].screen.squares != latest.squares)
        broken = "a turn is taken back";
  }

  // What the protocol makes of it.
  void happens(int who, const Event& event) {
    Copy& copy = copies[who];
    const Phase before = copy.state.phase;
    const auto [state, action] = happen(copy.state, event);
    copy.state = state;
    copy.state.waited = 0; // of these two come captions alone
    copy.state.withoutAccess = false;
    copy.told = copy.told || (before != Phase::Ended && state.phase == Phase::Ended);
    copy.asked = action.what == Action::Ask;
    copy.open = copy.open && action.what != Action::Refuse;
    if (action.what == Action::Open || action.what == Action::TakeOver)
      shows(who, action);
    if (action.what == Action::TakeOver && before == Phase::InTurn)
      broken = "what a player in turn does is dropped";
    if (action.what == Action::Lose && action.look.position.squares != won)
      broken = "a copy loses a game that is not won so";
    if (state.underWay && action.what != Action::Nothing) {
      if (copy.work.underWay())
        broken = "two operations of a copy are under way";
      copy.work = {};
      copy.work.action = action;
    }
  }

  // The other copy, or a player, may have put an older text back. Only who has played on from it,
  // and is in the game or has said that it shall go on, knows better.
  void shows(int who, const Action& action) {
    Copy& copy = copies[who];
    copy.screen = action.look.position;
    copy.idle = false;
    const bool older = copy.screen.squares.size() < latest.squares.size();
    const bool knows = action.what == Action::TakeOver || copy.agreed;
    if (older && inTurn(who) && !(knows && copy.played == latest))
      excuse = "an older text is believed";
  }

  // First at the position, then at the result, which may be younger.
  void looks(Work& work, bool away) const {
    const Look begun = std::exchange(work.look, away ? Look{} : file);
    if (work.look.found == Found::Result && begun.found == Found::Whole)
      work.look.position = begun.position;
    work.ended = away || work.calls == 1;
  }

  // The winner's write goes on behind the position.
  void writes(Work& work, bool away) {
    enum { Compare, Empty, Put, AddResult };
    const auto& [what, look, position] = work.action;
    const bool isOvertaken = work.calls == Compare && (away || file != look);
    const bool isLast = work.calls == (what == Action::Write ? Put : AddResult);
    work.ended = away || isOvertaken || isLast;
    if (isOvertaken)
      work.written = Written::Overtaken;
    if (away || work.calls == Compare)
      return;
    const Look left[] = {look, look, Torn, whole(position)}; // by the call before
    if (file != left[work.calls])
      excuse = "two write at once";
    if (work.calls == Empty)
      file = Torn;
    if (work.calls == Put)
      put(position, look);
    if (work.calls == AddResult) {
      file.found = file == whole(position) ? Found::Result : Found::Torn;
      file.text += "1" + std::to_string(position.JugadorActual);
      file.position.JugadorActual = 0; // nobody's turn
    }
    if (isLast)
      work.written = Written::Whole;
  }

  void put(const Position& position, const Look& over) {
    file = whole(position);
    const std::string &news = position.squares, &last = latest.squares;
    if (!news.starts_with(last) && !last.starts_with(news))
      broken = "a turn is written over another";
    if (over.position == latest && news.size() < last.size())
      broken = "a turn is taken back";
    if (news.size() >= last.size())
      latest = position;
  }
};

} // namespace falanges::network
