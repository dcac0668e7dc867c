// Which thread is applying a preset.
#pragma once

#include <atomic>
#include <thread>

// What the host sets from inside the calls that tell it of a preset change belongs to that change;
// what other threads set meanwhile does not. Any thread.
class PresetChange {
 public:
  bool isMine() const {
    return thread.load(std::memory_order_relaxed) == std::this_thread::get_id();
  }

  // A change, on this thread, as long as it lives. One inside another is part of it. Of two threads
  // that apply presets at once the later one has the mark; to the other nothing is part of a change
  // any more.
  class Scope {
   public:
    explicit Scope(PresetChange& entered) : change(entered), isInner(entered.isMine()) {
      change.thread.store(std::this_thread::get_id(), std::memory_order_relaxed);
    }
    ~Scope() {
      std::thread::id mine = std::this_thread::get_id();
      if (!isInner) change.thread.compare_exchange_strong(mine, std::thread::id());
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    PresetChange& change;
    const bool isInner;
  };

 private:
  std::atomic<std::thread::id> thread{};
};
