#include "network/runner.h"

#include <thread>

namespace falanges {

ThreadRunner::~ThreadRunner() {
  finished(std::chrono::milliseconds(500));
}

void ThreadRunner::start(std::function<void()> operation) {
  std::packaged_task<void()> task(std::move(operation));
  underWay_ = task.get_future();
  std::thread(std::move(task)).detach();
}

bool ThreadRunner::finished(std::chrono::milliseconds patience) {
  return !underWay_.valid() || underWay_.wait_for(patience) == std::future_status::ready;
}

} // namespace falanges
