// What runs the file operations of a network game: a share may keep one waiting for minutes, and
// the windows must not wait with it.
#pragma once

#include <chrono>
#include <functional>
#include <future>

namespace falanges {

// Runs one operation at a time.
class Runner {
public:
  virtual ~Runner() = default;
  // Only while none is under way. An operation owns all that it touches: whoever started it may be
  // gone when it ends.
  virtual void start(std::function<void()> operation) = 0;
  // Waits until none is under way, at most so long. False when one still is.
  virtual bool finished(std::chrono::milliseconds patience) = 0;
};

// Runs the operation before start returns: for who can wait.
class RunnerAtOnce final : public Runner {
public:
  void start(std::function<void()> operation) override { operation(); }
  bool finished(std::chrono::milliseconds /*patience*/) override { return true; }
};

// Runs it on a thread of its own. Destroying the runner gives an operation under way half a second
// to end, and then leaves it to the system, which ends it with the process.
class ThreadRunner final : public Runner {
public:
  ThreadRunner() = default;
  ~ThreadRunner() override;
  ThreadRunner(const ThreadRunner&) = delete;
  ThreadRunner& operator=(const ThreadRunner&) = delete;

  void start(std::function<void()> operation) override;
  bool finished(std::chrono::milliseconds patience) override;

private:
  std::future<void> underWay_;
};

} // namespace falanges
