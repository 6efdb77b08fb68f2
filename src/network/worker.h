// Who alone reads and writes the shared file of a network game. A share may keep one waiting for
// minutes, and the windows must not wait with it.
#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <string>
#include <thread>

#include "network/protocol.h"

namespace falanges::network {

// Runs an operation, at once or on the thread that it gives back. The operation owns all that it
// touches: whoever started it may be gone when it ends. An exception says that it will never run.
using Start = std::function<std::thread(std::function<void()> operation)>;

std::thread atOnce(const std::function<void()>& operation);
std::thread onOwnThread(std::function<void()> operation);

// One game's worker. Whatever fails, also a thread that cannot be made, is a look or a write in
// vain.
class Worker {
public:
  Worker(std::string path, Start start) : path_(std::move(path)), start_(std::move(start)) {}
  // An operation that hangs ends with the process.
  ~Worker();
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  // LookAtFile, Write or WriteResult; only while none is under way.
  void begin(const Action& action);
  // Waits at most until then. True when an operation has ended: takeResult then tells how, once.
  bool ended(std::chrono::steady_clock::time_point until);
  Event takeResult();
  bool underWay() const { return result_.valid(); }

private:
  std::string path_;
  Start start_;
  std::future<Event> result_;
  std::thread thread_; // of the operation under way
  Event inVain_;       // the result of an operation that could not run
};

} // namespace falanges::network
