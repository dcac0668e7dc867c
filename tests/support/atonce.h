// Two threads that do their work at the same moment, round by round.
#pragma once

#include <atomic>
#include <functional>
#include <thread>
#include <utility>

// One of the works is the constructor's, on a thread of its own; the other one is each round's.
class AtOnce {
 public:
  // theirs: called with the number of the round, from 1 on.
  AtOnce(int lastRound, std::function<void(int)> theirs)
      : rounds(lastRound), thread([this, work = std::move(theirs)] {
          for (int number = 1; number <= rounds; ++number) {
            waitFor(begun, number);
            ready = number;
            delay(number % kDelays);
            work(number);
            ended = number;
          }
        }) {}
  ~AtOnce() {
    begun = rounds;  // where a test has broken off, the rest of their works is done
    thread.join();
  }
  AtOnce(const AtOnce&) = delete;
  AtOnce& operator=(const AtOnce&) = delete;

  // Returns when both have ended.
  template <typename Work>
  void round(int number, Work&& mine) {
    begun = number;
    waitFor(ready, number);
    delay(number / kDelays % kDelays);
    mine();
    waitFor(ended, number);
  }

 private:
  static constexpr int kDelays = 64;  // of some nanoseconds each: every one meets every other

  static void waitFor(const std::atomic<int>& reached, int number) {
    // Who yields at once comes late; who never does keeps a busy machine's processor.
    for (int looks = 0; reached.load(std::memory_order_acquire) < number; ++looks) {
      if (looks > 10000) std::this_thread::yield();
    }
  }
  static void delay(int steps) {
    for (std::atomic<int> left{steps}; left > 0; left.fetch_sub(1, std::memory_order_relaxed)) {
    }
  }

  const int rounds;
  std::atomic<int> begun{0};
  std::atomic<int> ready{0};
  std::atomic<int> ended{0};
  std::thread thread;  // last: it uses the others
};
