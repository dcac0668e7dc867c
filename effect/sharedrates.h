// What the kernel needs of a sample rate: one table for all instances that run at that rate, since
// hundreds of them would push each other's out of the processor's caches.
#pragma once

#include "effect/kernel.h"

// An instance's hold on a table. Neither locks nor allocates, since hosts switch effects on from
// the audio thread, too; calls of one object one after the other.
class SharedRates {
 public:
  SharedRates() = default;
  ~SharedRates() { release(); }
  SharedRates(const SharedRates&) = delete;
  SharedRates& operator=(const SharedRates&) = delete;

  void take(float hz);  // lets go of the one before
  const kernel::Rates& operator*() const { return *rates; }

  struct Slot;

 private:
  void release();

  const kernel::Rates* rates = &own;
  Slot* slot = nullptr;  // null: our own
  kernel::Rates own;     // where there are more rates at a time than slots
};
