#include "network/worker.h"

#include <memory>
#include <utility>

#include "forms/text_file.h"
#include "persistence/game_file.h"

namespace falanges::network {

namespace {

// The position as this program writes it, so that only a difference in the game counts. A closing
// 0 means that player 1 begins.
Position positionOf(const GameText& game) {
  Principal scratch;
  Position position;
  takeGame(game, scratch, position.JugadorActual);
  if (position.JugadorActual == 0)
    position.JugadorActual = 1;
  position.squares = squaresText(scratch);
  return position;
}

Look lookAt(const std::string& path) {
  const auto text = forms::readTextFile(path, LargestGameFile + 1);
  if (!text)
    return {forms::isMissing(path) ? Found::Missing : Found::Unreachable, {}, {}};
  const GameText game = parseGame(*text).game;
  if (!game.whole)
    return {Found::Torn, *text, {}};
  return {game.resultLine ? Found::Result : Found::Whole, *text, positionOf(game)};
}

// The file is emptied and written anew, never replaced by another: the other copy may hold it open.
Written write(const std::string& path, const Action& action) {
  if (action.look.found == Found::Unreachable || lookAt(path) != action.look)
    return Written::Overtaken;
  const std::string text = action.position.text();
  if (!forms::writeTextFile(path, text))
    return Written::Failed;
  if (action.what == Action::Write)
    return Written::Whole;
  // The line of a victory may stand only behind a complete position, and nobody writes it again:
  // what stands there is looked at once more.
  const std::string result = resultLine(action.position.JugadorActual);
  return forms::appendTextFile(path, result) && lookAt(path).text == text + result
             ? Written::Whole
             : Written::Failed;
}

} // namespace

std::thread atOnce(const std::function<void()>& operation) {
  operation();
  return {};
}

std::thread onOwnThread(std::function<void()> operation) {
  return std::thread(std::move(operation));
}

Worker::~Worker() {
  if (ended(std::chrono::steady_clock::now()))
    takeResult();
  if (thread_.joinable())
    thread_.detach();
}

void Worker::begin(const Action& action) {
  const bool looks = action.what == Action::LookAtFile;
  inVain_ = looks ? Event(LookCame{}) : Event(WriteCame{});
  const auto task =
      std::make_shared<std::packaged_task<Event()>>([path = path_, action, looks]() -> Event {
        return looks ? Event(LookCame{lookAt(path)}) : Event(WriteCame{write(path, action)});
      });
  result_ = task->get_future();
  try {
    thread_ = start_([task] { (*task)(); });
  } catch (...) {
    // The task goes, and its future tells so.
  }
}

bool Worker::ended(std::chrono::steady_clock::time_point until) {
  return result_.valid() && result_.wait_until(until) == std::future_status::ready;
}

// The thread is waited for, for its last steps: where MinGW's threads are let go while they end,
// both sides free the same memory.
Event Worker::takeResult() {
  if (thread_.joinable())
    thread_.join();
  try {
    return result_.get();
  } catch (...) {
    return inVain_;
  }
}

} // namespace falanges::network
