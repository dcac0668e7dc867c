// One word that several threads read and write: a relaxed atomic that is used like the plain value.
#pragma once

#include <atomic>

// The same instructions as a plain load and store, and no data race. Copies copy the value, so
// records that hold such words stay plain values. Any thread.
template <typename T>
class Relaxed {
  static_assert(std::atomic<T>::is_always_lock_free);

 public:
  constexpr Relaxed() = default;
  constexpr Relaxed(T initial) : word(initial) {}
  Relaxed(const Relaxed& other) : word(other.load()) {}
  Relaxed& operator=(const Relaxed& other) {
    store(other.load());
    return *this;
  }
  Relaxed& operator=(T value) {
    store(value);
    return *this;
  }

  operator T() const { return load(); }
  T load() const { return word.load(std::memory_order_relaxed); }
  void store(T value) { word.store(value, std::memory_order_relaxed); }

 private:
  std::atomic<T> word{};
};
