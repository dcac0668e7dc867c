// The tables that instances share, and how one is made.
#include "effect/sharedrates.h"

#include <array>
#include <atomic>
#include <bit>
#include <cmath>

#include "platform/saturate.h"

namespace {

constexpr double kRemainder = 0.0625;  // of a step after one closing time: 1 - 15/16
constexpr float kGlideTime = 277.0F;   // ms
constexpr double kMeterTime = 600.0;   // ms
constexpr double kSecondsPerMillisecond = 0.001;

// Coefficients, and powers of what they leave.
void make(kernel::Rates& rates, float hz) {
  const double levelFrames = static_cast<double>(hz) * kMeterTime * kSecondsPerMillisecond;
  rates.level = 1.0 - std::pow(kRemainder, 1.0 / levelFrames);
  double left = 1.0;
  for (std::size_t frame = std::size(rates.left); frame-- > 0; left *= 1.0 - rates.level)
    rates.left[frame] = left;

  const auto wholeHz = static_cast<float>(truncatedToInt32(static_cast<double>(hz)));
  const double glideFrames = static_cast<double>(wholeHz * kGlideTime) * kSecondsPerMillisecond;
  rates.glide = static_cast<float>(1.0 - std::pow(kRemainder, 1.0 / glideFrames));
  double power = 1.0;
  for (int frame = 0; frame < kernel::kGlidingFrames; ++frame) {
    rates.finePowers[frame] = power;
    rates.powers[frame] = static_cast<float>(power);
    power *= 1.0 - static_cast<double>(rates.glide);
  }
}

// A slot's word: the rate's bits, whether its table is being made, and how many hold it.
constexpr int kRateShift = 32;
constexpr std::uint64_t kMaking = 1ULL << (kRateShift - 1);

std::uint64_t rateWord(float hz) {
  return static_cast<std::uint64_t>(std::bit_cast<std::uint32_t>(hz)) << kRateShift;
}
std::uint64_t usersOf(std::uint64_t word) {
  return static_cast<std::uint32_t>(word);
}

}  // namespace

struct SharedRates::Slot {
  std::atomic<std::uint64_t> word{0};
  kernel::Rates rates;
};

namespace {

constexpr int kSlots = 8;  // rates at a time; hosts run at one, seldom at two
constinit std::array<SharedRates::Slot, kSlots> slots;

// Null where nobody holds a table of this rate.
SharedRates::Slot* joined(std::uint64_t rate) {
  for (auto& slot : slots) {
    std::uint64_t word = slot.word.load();
    while ((word & ~(kMaking - 1)) == rate && usersOf(word) > 0) {
      if (slot.word.compare_exchange_weak(word, word + 1)) return &slot;
    }
  }
  return nullptr;
}

// Null where all are held.
SharedRates::Slot* made(float hz) {
  const std::uint64_t rate = rateWord(hz);
  for (auto& slot : slots) {
    std::uint64_t word = slot.word.load();
    if (usersOf(word) > 0 || !slot.word.compare_exchange_strong(word, rate | kMaking)) continue;
    make(slot.rates, hz);
    slot.word.store(rate | 1);
    return &slot;
  }
  return nullptr;
}

}  // namespace

void SharedRates::take(float hz, kernel::Rates& own) {
  Slot* taken = joined(rateWord(hz));
  if (taken == nullptr) taken = made(hz);
  release();
  slot = taken;
  if (slot == nullptr) make(own, hz);
  rates = slot != nullptr ? &slot->rates : &own;
}

void SharedRates::release() {
  if (slot != nullptr) --slot->word;
  slot = nullptr;
}
