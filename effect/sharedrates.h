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

  // Lets go of the one before. own: is used where there are more rates at a time than tables.
  void take(float hz, kernel::Rates& own);
  const kernel::Rates& operator*() const { return *rates; }  // after the first take

  struct Slot;

 private:
  void release();

  const kernel::Rates* rates = nullptr;
  Slot* slot = nullptr;  // null: not shared
};
