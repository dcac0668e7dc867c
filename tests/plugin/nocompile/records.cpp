// Compiled on purpose with records of a wrong shape, one CASE at a time: the assertions beside the
// records must see it.
#include <array>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if CASE == 1
#pragma pack(push, 1)
#elif CASE == 2
#define int32_t int64_t
#elif CASE == 3
#define float double
#endif

#include "plugin/vst24.h"
#include "presetsystem/image/acombprogram.h"

#if CASE == 4
struct FourWords {
  std::int64_t words[4];
};
Relaxed<FourWords> shared;
#endif

int main() {
  return static_cast<int>(sizeof(AEffect) + sizeof(ACombProgram));
}
