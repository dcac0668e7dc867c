// Several threads that share a row of tasks.
#include "host/cli/workers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

TEST(Workers, DoEachTaskOnce) {
  for (const int threads : {0, 1, 3, 50}) {
    std::vector<std::atomic<int>> done(20);
    workOnAll(done.size(), threads, [&](std::size_t task) { ++done[task]; });
    for (const auto& count : done) EXPECT_EQ(count, 1);
  }
  workOnAll(0, 2, [](std::size_t) { FAIL() << "there is none"; });
}

TEST(Workers, AreAsManyAsAreAskedFor) {
  // Each waits until all have come: fewer would wait for ever, and the test would run out of time.
  std::atomic<int> waiting = 0;
  workOnAll(3, 3, [&](std::size_t) {
    ++waiting;
    while (waiting < 3) std::this_thread::yield();
  });
  std::mutex lock;
  std::set<std::thread::id> seen;
  workOnAll(20, 1, [&](std::size_t) {
    const std::lock_guard guard(lock);
    seen.insert(std::this_thread::get_id());
  });
  EXPECT_EQ(seen, std::set<std::thread::id>{std::this_thread::get_id()});
}
