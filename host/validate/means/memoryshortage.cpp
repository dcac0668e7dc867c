// Lets a binary's allocations fail.
#include "host/validate/means/memoryshortage.h"

namespace {

struct Shortage {
  MappedRange binary;
  long left;  // allocations until one fails; below 0: none does
  bool goesOn;
  bool failed;
};

// Reached without a call, which would ask for memory in its turn.
__attribute__((tls_model("initial-exec"))) constinit thread_local Shortage shortage{
    {}, -1, false, false};

}  // namespace

MemoryShortage::MemoryShortage(const MappedRange& binary, long succeeding, Fails fails) {
  shortage = {binary, succeeding, fails == Fails::allFromThere, false};
}

MemoryShortage::~MemoryShortage() {
  shortage.left = -1;
}

bool MemoryShortage::hasFailed() {
  return shortage.failed;
}

bool MemoryShortage::allows(const void* caller) noexcept {
  if (shortage.left < 0 || !shortage.binary.contains(caller)) return true;
  if (shortage.left > 0) {
    --shortage.left;
    return true;
  }
  shortage.failed = true;
  if (!shortage.goesOn) shortage.left = -1;
  return false;
}
