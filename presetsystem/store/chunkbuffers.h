// The memory that the host's chunks are handed out in.
#pragma once

#include <algorithm>
#include <array>
#include <memory>
#include <thread>

#include "presetsystem/image/presetimage.h"

// A buffer for each thread that asks: a host that saves on two threads copies one chunk while the
// other is written. The caller sees to it that one thread is in here at a time.
class ChunkBuffers {
 public:
  using Buffer = std::array<unsigned char, presetimage::kChunkSize>;

  // Most hosts ask on one thread only: its buffer is there from the start.
  ChunkBuffers() { slots.front().buffer = std::make_unique<Buffer>(); }

  // Nobody else gets it before this thread asks again, or as many others as there are buffers have
  // asked. Throws on lack of memory.
  Buffer& ofThisThread() {
    const std::thread::id self = std::this_thread::get_id();
    const auto isMine = [self](const Slot& slot) { return slot.owner == self; };
    const auto isFree = [](const Slot& slot) { return slot.owner == std::thread::id(); };
    auto slot = std::find_if(slots.begin(), slots.end(), isMine);
    if (slot == slots.end()) slot = std::find_if(slots.begin(), slots.end(), isFree);
    if (slot == slots.end()) slot = slots.end() - 1;
    if (!slot->buffer) slot->buffer = std::make_unique<Buffer>();
    slot->owner = self;
    std::rotate(slots.begin(), slot, slot + 1);
    return *slots.front().buffer;
  }

 private:
  struct Slot {
    std::thread::id owner;
    std::unique_ptr<Buffer> buffer;
  };
  // The one asked for last is in front. So many threads that save at once have not been seen.
  std::array<Slot, 4> slots;
};
