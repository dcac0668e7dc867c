// Several threads that share a row of tasks.
#include "host/cli/workers.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

std::size_t workersFor(std::size_t tasks, int asked) {
  const std::size_t workers = asked == 0 ? std::max(1U, std::thread::hardware_concurrency())
                                         : static_cast<std::size_t>(asked);
  return std::min(workers, tasks);
}

void workOnAll(std::size_t count, int threads, const std::function<void(std::size_t)>& task) {
  std::atomic<std::size_t> next = 0;
  const auto work = [&] {
    for (std::size_t index = next++; index < count; index = next++) task(index);
  };
  std::vector<std::thread> helpers;
  for (std::size_t helper = 1; helper < workersFor(count, threads); ++helper) {
    try {
      helpers.emplace_back(work);
    } catch (const std::system_error&) {
      break;  // fewer threads do it too
    }
  }
  work();
  for (std::thread& helper : helpers) helper.join();
}
