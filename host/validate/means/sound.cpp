// What checks of the sound share: an effect that takes and gives sound, and what came of a stretch.
#include "host/validate/means/sound.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

namespace {

// Quiet NaNs that no calculation makes.
constexpr std::uint32_t kSpoiltFloat = 0x7FD5'B011;
constexpr std::uint64_t kSpoiltDouble = 0x7FF8'5B01'17ED'5B01;

float spoilt(float) {
  return std::bit_cast<float>(kSpoiltFloat);
}
double spoilt(double) {
  return std::bit_cast<double>(kSpoiltDouble);
}
std::uint32_t bitsOf(float sample) {
  return std::bit_cast<std::uint32_t>(sample);
}
std::uint64_t bitsOf(double sample) {
  return std::bit_cast<std::uint64_t>(sample);
}

struct Place {
  std::size_t pin;
  std::size_t frame;
};

// Zeros of both signs are one value to the ear and to every calculation here.
template <typename Sample>
bool isSame(Sample a, Sample b, Sample tolerance) {
  return a == b || bitsOf(a) == bitsOf(b) || std::abs(a - b) <= tolerance;
}

template <typename Sample>
bool isSameShape(const Sound<Sample>& one, const Sound<Sample>& other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](const auto& a, const auto& b) { return a.size() == b.size(); });
}

// Of two of the same shape.
template <typename Sample>
std::optional<Place> firstDifference(const Sound<Sample>& one, const Sound<Sample>& other,
                                     Sample tolerance = 0) {
  std::optional<Place> first;
  for (std::size_t pin = 0; pin < one.size(); ++pin) {
    const std::size_t end = first ? first->frame : one[pin].size();
    for (std::size_t frame = 0; frame < end; ++frame) {
      if (isSame(one[pin][frame], other[pin][frame], tolerance)) continue;
      first = {pin, frame};
      break;
    }
  }
  return first;
}

template <typename Sample>
void needSame(Trial& trial, const Sound<Sample>& expected, const Sound<Sample>& heard,
              const char* what, Sample tolerance) {
  if (!isSameShape(expected, heard)) trial.leaveOut("it has not the same outputs each time");
  const std::optional<Place> place = firstDifference(expected, heard, tolerance);
  if (!place) return;
  trial.fail("output %zu, frame %zu is %.9g %s, and %.9g otherwise (%s)", place->pin + 1,
             place->frame, static_cast<double>(heard[place->pin][place->frame]), what,
             static_cast<double>(expected[place->pin][place->frame]), kPrecision<Sample>);
}

}  // namespace

LoadedEffect::LoadedEffect(Trial& trial) : module(trial.plugin()), subject(module) {
  needSoundIn(trial, subject);
}

template <typename Sample>
void spoilOutputs(Stretch<Sample>& stretch) {
  stretch.spoilOutputs(spoilt(Sample()));
}

template <typename Sample>
void needNumbers(Trial& trial, const Stretch<Sample>& stretch, int frames, const char* when) {
  const auto& outs = stretch.outputChannels();
  for (std::size_t pin = 0; pin < outs.size(); ++pin) {
    for (int frame = 0; frame < frames; ++frame) {
      const Sample sample = outs[pin][static_cast<std::size_t>(frame)];
      if (std::isfinite(sample)) continue;
      const char* what = std::isnan(sample) ? "is no number" : "is infinite";
      if (bitsOf(sample) == bitsOf(spoilt(Sample()))) what = "is not written";
      trial.fail("output %zu, frame %d %s %s (%s)", pin + 1, frame, what, when, kPrecision<Sample>);
    }
  }
}

template <typename Sample>
void needUntouched(Trial& trial, const Stretch<Sample>& stretch, int frames, const char* when) {
  const auto& outs = stretch.outputChannels();
  for (std::size_t pin = 0; pin < outs.size(); ++pin) {
    for (int frame = frames; frame < stretch.length(); ++frame) {
      if (bitsOf(outs[pin][static_cast<std::size_t>(frame)]) == bitsOf(spoilt(Sample()))) continue;
      trial.fail("output %zu, frame %d is written %s (%s)", pin + 1, frame, when,
                 kPrecision<Sample>);
    }
  }
}

template <typename Sample>
bool sameBits(const Sound<Sample>& one, const Sound<Sample>& other) {
  return isSameShape(one, other) && !firstDifference(one, other);
}

template <typename Sample>
void needSameBits(Trial& trial, const Sound<Sample>& expected, const Sound<Sample>& heard,
                  const char* what) {
  needSame(trial, expected, heard, what, Sample(0));
}

template <typename Sample>
void needSameSound(Trial& trial, const Sound<Sample>& expected, const Sound<Sample>& heard,
                   const char* what) {
  constexpr double kUnheard = 1e-3;  // of the peak
  const auto length = expected.empty() ? 0 : static_cast<int>(expected.front().size());
  needSame(trial, expected, heard, what,
           static_cast<Sample>(kUnheard * peakOf(expected, 0, length)));
}

// By std::max, which passes over what is no number as fmax does: g++ 12 for arm64 breaks down over
// that.
template <typename Sample>
double peakOf(const Sound<Sample>& sound, int begin, int end) {
  double peak = 0.0;
  for (const auto& channel : sound) {
    for (int frame = begin; frame < end; ++frame)
      peak = std::max<double>(peak, std::fabs(channel[static_cast<std::size_t>(frame)]));
  }
  return peak;
}

template void spoilOutputs(Stretch<float>&);
template void spoilOutputs(Stretch<double>&);
template void needNumbers(Trial&, const Stretch<float>&, int, const char*);
template void needNumbers(Trial&, const Stretch<double>&, int, const char*);
template void needUntouched(Trial&, const Stretch<float>&, int, const char*);
template void needUntouched(Trial&, const Stretch<double>&, int, const char*);
template bool sameBits(const Sound<float>&, const Sound<float>&);
template bool sameBits(const Sound<double>&, const Sound<double>&);
template void needSameBits(Trial&, const Sound<float>&, const Sound<float>&, const char*);
template void needSameBits(Trial&, const Sound<double>&, const Sound<double>&, const char*);
template void needSameSound(Trial&, const Sound<float>&, const Sound<float>&, const char*);
template void needSameSound(Trial&, const Sound<double>&, const Sound<double>&, const char*);
template double peakOf(const Sound<float>&, int, int);
template double peakOf(const Sound<double>&, int, int);
