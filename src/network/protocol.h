// One copy's part in a network game, as a value: what it knows, what may happen to it, and what is
// to be done then. It knows no file, clock, thread or window; whoever carries it out decides
// nothing.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace falanges::network {

// clang-format off
//
//   state           what happens                           what is done          next state
//   --------------  -------------------------------------  --------------------  -----------------
//   (any)           Join                                   look                  Joining
//                   Join while an operation is under way   nothing               Rejoining
//   Rejoining       that operation is over                 look                  Joining
//   Joining         the file is whole                      it is opened          InTurn, FirstLook
//                   it is torn or missing, `own` is known  it is asked for GoOn  Joining
//                   none of these                          it is refused         Joining
//                   GoOn                                   `own` is written      GoingOn
//   GoingOn         the write is whole                     `own` is opened       InTurn, FirstLook
//                   a look after a write in vain finds     `own` is written      GoingOn
//                     what the last turn began with
//                   it finds anything else                 as in Joining
//   InTurn          a look, whatever it finds              nothing               InTurn
//                   TurnPassed                             nothing               TurnFinished
//                   MoveWins                               look                  Won
//   TurnFinished    a look, whatever it finds              `own` is written      TurnFinished
//                   the write fails                        nothing               MaybePublished
//   MaybePublished  a look finds another position than     it is taken over      InTurn, Waiting
//                     the one that the turn began with
//                   it finds that one or none              `own` is written      MaybePublished
//   FirstLook       a look finds another position          it is taken over      InTurn, Waiting
//                   it finds the very text of `own`        nothing               Waiting
//                   it finds `own` in other words          `own` is written      FirstLook
//   Waiting         a look finds a position                it is taken over      InTurn, Waiting
//   the last 2      a look finds the position that the     `own` is written      as before
//                     last turn began with, or for a full
//                     interval a torn or no file
//   the last 4      the write is whole                     nothing               Waiting
//   the last 5      two looks find the same result         this copy loses       Ended
//   Won             a look                                 result is written     Won
//                   the write is whole                     nothing               Ended
//
// In this order: behind the first three the game is on the screen.
enum class Phase { Rejoining, Joining, GoingOn, InTurn, TurnFinished,
                   MaybePublished, FirstLook, Waiting, Won, Ended };
// clang-format on

// One operation on the file is under way at a time; what another state asks for waits until it is
// over, also when the game was left and joined again meanwhile: a write of this copy must not come
// behind its next look. Each write goes only over what the last look found.
//
// An operation in vain leaves the state as it is, and the next tick looks again.
//
// In all states but InTurn the moves on this copy's screen are idle: nothing of them is written or
// wins, and the next position that is taken over drops them. While they make it look as if this
// player were in turn, FirstLook and Waiting look for a result alone.

// A board and who is in turn on it.
struct Position {
  std::string squares; // the lines of the squares; empty: no board is known
  std::uint8_t JugadorActual = 0;

  std::string text() const { return squares + std::to_string(JugadorActual) + "\r\n"; }
  bool operator==(const Position&) const = default;
};

enum class Found { Unreachable, Missing, Torn, Whole, Result };

// What one look at the file found.
struct Look {
  Found found = Found::Unreachable;
  std::string text;  // all of it, as it stands there
  Position position; // of a whole file, in this program's own words; without any result
  bool operator==(const Look&) const = default;
};

enum class Written { Failed, Overtaken, Whole };

// --- What may happen -----------------------------------------------------------------------------

// The player wants to play in this file, as this player, with so many seconds between two looks.
struct Join {
  std::uint8_t player;
  int interval;
};
struct GoOn {}; // from the position that Action::Ask was about
// A poll is due. While an operation is under way or the file is not to be had, once a second.
struct Tick {
  bool seemsInTurn = false; // this player, by the screen, and able to pass the turn back
};
struct LookCame {
  Look look;
};
struct WriteCame {
  Written written = Written::Failed;
};
// A move on this copy's screen has passed the turn, or would win the game: the position behind it.
struct TurnPassed {
  Position position;
};
struct MoveWins {
  Position position;
};
using Event = std::variant<Join, GoOn, Tick, LookCame, WriteCame, TurnPassed, MoveWins>;

// --- What is to be done --------------------------------------------------------------------------

struct Action {
  enum What {
    Nothing,
    LookAtFile,  // until LookCame
    Write,       // `position`, unless the file is no longer as `look` found it; until WriteCame
    WriteResult, // the same, and behind it the line of this copy's victory; until WriteCame
    Open,        // the game begins on the screen, as `look` found it
    TakeOver,    // the screen shows what `look` found
    Lose,        // the same, and the game has ended by its result
    Ask,         // whether the game shall go on from `position`
    Refuse,      // to join: `look` found no game that can be joined
  };
  What what = Nothing;
  Look look;
  Position position;
  bool operator==(const Action&) const = default;
};

// --- The state of one copy -----------------------------------------------------------------------

struct State {
  Phase phase = Phase::Ended;
  std::uint8_t player = 0;
  int interval = 0;

  // What this copy writes: the position that its turn ended with, else the last one taken over.
  // Without squares: nothing.
  Position own;
  Position playedFrom; // what this copy's turn, the present or the last one, began with

  bool seemsInTurn = false;   // as the last poll found the screen
  bool underWay = false;      // an operation on the file
  Look seen;                  // by the first of two looks, or at joining
  int waited = 0;             // ticks since the operation began, up to Patience
  int inVain = 0;             // looks that found a torn or no file
  bool withoutAccess = false; // the file is not to be had, and the player is told so

  bool operator==(const State&) const = default;
};

// Ticks that an operation may take until the file counts as not to be had. The winner, who has
// nothing else to wait for, is told at the first.
constexpr int Patience = 2;

struct Step {
  State state;
  Action action;
};

// The state behind the event, and what is to be done then.
Step happen(State state, const Event& event);

} // namespace falanges::network
