// A world of two copies and one file, in which the protocol that ships is all that decides.
//
// A position is named by the turns that led to it: "0" is the start, "0a" the board behind player
// 1's first turn, "0aa" the one behind player 2's. A turn that was lost before it stood in the file
// and is played anew gets another letter, the winning move a "!". An operation goes on call by
// call, at any time or never.
#pragma once

#include <functional>

#include "network/protocol.h"

namespace falanges::network {

inline Look whole(const Position& position) {
  return {Found::Whole, position.text(), position};
}

// What a copy's worker has under way.
struct Work {
  Action action;
  int calls = 0; // to the system, that have been made
  bool ended = false;
  Look look;
  Written written{};
  bool underWay() const { return action.what != Action::Nothing; }
};

struct Copy {
  State state;
  Work work;
  bool open = false;  // in a game or on the way into it
  bool asked = false; // whether to go on from the last known position
  bool told = false;  // how the game has ended
  bool away = false;  // from the folder of the file
  bool hangs = false; // the share: the work goes on call by call
  bool stuck = false; // an idle move has left no unit to move
};

// What no file without a lock can prevent. What breaks a promise then is no fault of the program.
enum class Excuse { None, LateWrite, TwoWrites, WinnerGone, NobodyKnows, WriterGone };

struct World {
  Copy copies[2];
  Look file = whole({"0", 1});
  Work orphan;                // of a process that was killed
  Position latest = {"0", 1}; // behind the last turn that has stood whole in the file
  Position final;             // behind the winning move
  bool resultSeen = false;    // the result has stood in the file
  bool writerGone = false;    // the copy that published it was left or killed since
  bool oldIsBack = false;     // an older one stands in a file that was torn or deleted
  int played[9] = {};         // how often each turn was played
  int faults = 0;             // of the kinds that are counted
  Excuse excuse = Excuse::None;
  const char* fault = nullptr; // the promise that is broken

  // --- What may happen ---------------------------------------------------------------------------

  void joins(int who) {
    copies[who].open = true;
    happens(who, Join{number(who), 0});
  }
  // A poll is due, or a second has gone by while something is under way.
  void ticks(int who) { happens(who, Tick{}); }
  // The worker's answer comes.
  void hears(int who) {
    const Work work = std::exchange(copies[who].work, {});
    if (work.action.what == Action::LookAtFile)
      happens(who, LookCame{work.look});
    else
      happens(who, WriteCame{work.written});
  }
  void passesTurn(int who) {
    const std::string& before = copies[who].state.playedFrom.squares;
    const char letter = static_cast<char>('a' + played[before.size()]++);
    happens(who, TurnPassed{{before + letter, number(1 - who)}});
  }
  void wins(int who) {
    final = {copies[who].state.playedFrom.squares + "!", number(who)};
    happens(who, MoveWins{final});
  }
  void movesIdly(int who) {
    const auto other = static_cast<std::uint8_t>(3 - copies[who].state.shown);
    happens(who, TurnPassed{{"idle", other}});
  }
  void winsIdly(int who) {
    copies[who].stuck = true;
    happens(who, MoveWins{{"idle", copies[who].state.shown}});
    movesIdly(who);
  }
  // The write has come through, and its end is told as a failure.
  void answerIsLost(int who) { copies[who].work.written = Written::Failed; }
  // With yes or no.
  void answers(int who, bool yes) {
    copies[who].asked = false;
    if (yes)
      happens(who, GoOn{});
    else
      copies[who].open = false;
  }
  void leaves(int who) {
    if (copies[who].state.phase == Phase::Won)
      because(Excuse::WinnerGone);
    copies[who].open = copies[who].asked = false;
    writerGone = writerGone || latest.JugadorActual == number(1 - who);
    if (oldIsBack && writerGone)
      because(Excuse::WriterGone);
  }
  // What it had under way is lost with it, or comes to its end all the same.
  void isKilled(int who, bool workGoesOn) {
    leaves(who);
    if (workGoesOn)
      orphan = copies[who].work;
    const bool told = copies[who].told;
    copies[who] = {};
    copies[who].told = told;
    somethingIsLost();
  }
  void fileBecomes(const Look& look) {
    file = look;
    somethingIsLost();
  }
  // All that does not hang comes to its end, and what that leads to.
  void finishWork() {
    for (const int who : {0, 1}) {
      Copy& copy = copies[who];
      while (copy.work.underWay() && !copy.hangs && (copy.open || !copy.work.ended))
        if (copy.work.ended)
          hears(who);
        else
          goesOn(copy.work, copy.away);
    }
  }

  // The work's next call to the system. A write compares, empties the file and puts the text there;
  // the winner's does not compare, but puts the result behind the text and reads both back.
  void goesOn(Work& work, bool away) {
    if (work.action.what == Action::LookAtFile) {
      const Look begun = std::exchange(work.look, away ? Look{} : file);
      work.ended = away || work.calls++ > 0;
      // The end of the file may be younger than what was read before.
      if (work.ended && work.look.found == Found::Result && begun.found == Found::Whole)
        work.look.position = begun.position;
      return;
    }
    const bool compares = work.action.what == Action::Write;
    enum { Compare, Empty, Put, AddResult, ReadBack };
    const int call = work.calls++ + (compares ? 0 : 1);
    if (call == Compare) {
      work.ended = away || file != work.action.look;
      work.written = Written::Overtaken;
      return;
    }
    if (compares && !away && file != (call == Empty ? work.action.look : Emptied))
      because(Excuse::TwoWrites);
    if (&work == &orphan && call != ReadBack)
      because(Excuse::LateWrite);
    work.ended = away || call == (compares ? Put : ReadBack);
    work.written = away ? Written::Failed : Written::Whole;
    if (away)
      return;
    if (call == Empty)
      file = Emptied;
    else if (call == Put)
      put(work.action.position, work.action.look);
    else if (call == AddResult)
      addResult(work.action.position);
    else if (file.found != Found::Result)
      work.written = Written::Failed;
  }

  // --- What is promised --------------------------------------------------------------------------

  void check() {
    if (file.position.squares == "idle")
      fault = "an idle move is written";
    if (file.found == Found::Result && file.position != final)
      fault = "the result stands behind another position";
    if (inTurn(0) && inTurn(1))
      fault = "both copies are in turn";
    for (const int who : {0, 1})
      if (inTurn(who) && copies[who].state.playedFrom != latest)
        fault = "a turn is taken back";
  }
  bool inTurn(int who) const {
    return copies[who].open && copies[who].state.phase == Phase::InTurn;
  }
  // In the network game, and not yet at its end.
  bool plays(int who) const {
    const Phase phase = copies[who].state.phase;
    return copies[who].open && phase != Phase::Joining && phase != Phase::Ended;
  }
  // One is in turn, and the other waits before the same board; or both know the end.
  bool isSettled() const {
    if (!final.squares.empty())
      return copies[0].told && copies[1].told;
    const int turn = inTurn(0) ? 0 : 1;
    return inTurn(turn) && plays(1 - turn) && copies[1 - turn].state.phase == Phase::Waiting &&
           copies[1 - turn].state.own == latest && file == whole(latest);
  }

private:
  inline static const Look Emptied{Found::Torn, "", {}};

  static std::uint8_t number(int who) { return static_cast<std::uint8_t>(who + 1); }

  // What the protocol makes of it.
  void happens(int who, const Event& event) {
    Copy& copy = copies[who];
    const bool wins = copy.state.phase == Phase::Won;
    Step step = happen(copy.state, event);
    copy.state = std::move(step.state);
    switch (step.action.what) {
    case Action::LookAtFile:
    case Action::Write:
    case Action::WriteResult:
      if (copy.work.underWay())
        fault = "two operations of a copy are under way";
      copy.work = {};
      copy.work.action = std::move(step.action);
      break;
    case Action::Ask:
      copy.asked = true;
      break;
    case Action::TakeOver:
      copy.stuck = false;
      break;
    case Action::Refuse:
      copy.open = false;
      break;
    case Action::Lose:
      if (!resultSeen || step.action.look.position != final)
        fault = "a copy loses a game that is not won so";
      break;
    default:
      break;
    }
    copy.told =
        copy.told || step.action.what == Action::Lose || (wins && copy.state.phase == Phase::Ended);
  }

  void because(Excuse reason) {
    if (excuse == Excuse::None)
      excuse = reason;
  }

  void put(const Position& position, const Look& before) {
    file = whole(position);
    const std::string &news = position.squares, &last = latest.squares;
    if (!news.starts_with(last) && !last.starts_with(news))
      fault = "a turn is written over another";
    if (before.position == latest && news.size() < last.size())
      fault = "a turn is taken back";
    oldIsBack = news.size() < last.size() && before.found != Found::Whole;
    if (oldIsBack && writerGone)
      because(Excuse::WriterGone);
    if (news.size() > last.size()) {
      latest = position;
      writerGone = !plays(2 - position.JugadorActual);
    }
  }

  void addResult(const Position& position) {
    const bool whole = file.found == Found::Whole;
    if (whole && file.position != position)
      because(Excuse::TwoWrites);
    file.found = whole ? Found::Result : Found::Torn;
    file.text += "1" + std::to_string(position.JugadorActual);
    resultSeen = resultSeen || whole;
  }

  // Unless the file holds the last position or result, or a copy that may put it back.
  void somethingIsLost() {
    bool known = resultSeen ? file.found == Found::Result : file.position == latest;
    for (const auto& [state, work, open, asked, told, away, hangs, stuck] : copies)
      known = known || (resultSeen ? state.phase == Phase::Won && work.written != Written::Whole
                                   : state.known == latest || state.own == latest);
    if (!known)
      because(Excuse::NobodyKnows);
  }
};

} // namespace falanges::network
