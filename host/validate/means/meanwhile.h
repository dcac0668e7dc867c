// Something else that goes on while a check works.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>
#include <utility>

// Does it again and again on a thread of its own while it lives, with a pause in between.
class Meanwhile {
 public:
  explicit Meanwhile(std::function<void()> does,
                     std::chrono::microseconds pause = std::chrono::microseconds(0))
      : thread([this, work = std::move(does), pause] {
          for (; !ends; ++done) {
            work();
            if (pause.count() > 0) std::this_thread::sleep_for(pause);
          }
        }) {}
  ~Meanwhile() {
    ends = true;
    thread.join();
  }
  Meanwhile(const Meanwhile&) = delete;
  Meanwhile& operator=(const Meanwhile&) = delete;

  int timesDone() const { return done; }

 private:
  std::atomic<bool> ends = false;
  std::atomic<int> done = 0;
  std::thread thread;  // last: it reads what stands above
};
