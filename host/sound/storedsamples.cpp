// Interleaved samples in the type that a file stores.
#include "host/sound/storedsamples.h"

#include <algorithm>
#include <limits>
#include <type_traits>

#include "host/sound/heldsamples.h"

namespace {

sf_count_t readSamples(SNDFILE* file, std::int16_t* to, sf_count_t count) {
  return sf_read_short(file, to, count);
}
sf_count_t readSamples(SNDFILE* file, std::int32_t* to, sf_count_t count) {
  return sf_read_int(file, to, count);
}
sf_count_t readSamples(SNDFILE* file, float* to, sf_count_t count) {
  return sf_read_float(file, to, count);
}
sf_count_t readSamples(SNDFILE* file, double* to, sf_count_t count) {
  return sf_read_double(file, to, count);
}

sf_count_t writeSamples(SNDFILE* file, const std::int16_t* from, sf_count_t count) {
  return sf_write_short(file, from, count);
}
sf_count_t writeSamples(SNDFILE* file, const std::int32_t* from, sf_count_t count) {
  return sf_write_int(file, from, count);
}
sf_count_t writeSamples(SNDFILE* file, const float* from, sf_count_t count) {
  return sf_write_float(file, from, count);
}
sf_count_t writeSamples(SNDFILE* file, const double* from, sf_count_t count) {
  return sf_write_double(file, from, count);
}

// The library's subtypes say what is stored; all others it decodes.
StoredSamples samplesRead(int libFormat, std::size_t count) {
  switch (libFormat & SF_FORMAT_SUBMASK) {
    case SF_FORMAT_PCM_16:
      return std::vector<std::int16_t>(count);
    case SF_FORMAT_FLOAT:
      return std::vector<float>(count);
    default:
      return std::vector<double>(count);
  }
}

StoredSamples samplesWritten(SampleFormat format, std::size_t count) {
  if (format == SampleFormat::pcm16) return std::vector<std::int16_t>(count);
  if (integerBits(format) != 0) return std::vector<std::int32_t>(count);
  if (format == SampleFormat::float32 || format == SampleFormat::lossy)
    return std::vector<float>(count);
  return std::vector<double>(count);
}

template <typename Sample>
void separate(const Sample* from, std::size_t channels, double* left, double* right,
              std::size_t frames) {
  // a power of two: no rounding
  constexpr double kStep = std::is_integral_v<Sample> ? 1.0 / 32768 : 1.0;
  if (channels == 1) {
    for (std::size_t i = 0; i < frames; ++i) left[i] = right[i] = from[i] * kStep;
    return;
  }
  for (std::size_t i = 0; i < frames; ++i) {
    left[i] = from[2 * i] * kStep;
    right[i] = from[2 * i + 1] * kStep;
  }
}

}  // namespace

StoredInput::StoredInput(const SF_INFO& info, std::size_t frames)
    : channels(static_cast<std::size_t>(info.channels)), capacity(frames) {
  samples = samplesRead(info.format, capacity * channels);
}

sf_count_t StoredInput::readFrom(SNDFILE* file) {
  const sf_count_t count = std::visit(
      [&](auto& all) { return readSamples(file, all.data(), static_cast<sf_count_t>(all.size())); },
      samples);
  position = 0;
  filled = static_cast<std::size_t>(std::max<sf_count_t>(count, 0)) / channels;
  return count / static_cast<sf_count_t>(channels);
}

int StoredInput::take(double* left, double* right, int count) {
  const std::size_t frames = std::min(static_cast<std::size_t>(count), filled - position);
  std::visit(
      [&](const auto& all) {
        separate(all.data() + position * channels, channels, left, right, frames);
      },
      samples);
  position += frames;
  return static_cast<int>(frames);
}

// The library's own conversion to integers scales by one step less than full scale, so that a
// signal read and written again would not come back the same.
StoredOutput::StoredOutput(SampleFormat format, std::size_t frames)
    : samples(samplesWritten(format, 2 * frames)),
      fullScale(static_cast<double>(std::uint64_t{1} << (std::max(integerBits(format), 1) - 1))),
      word(format == SampleFormat::pcm16 ? 1.0 : (1U << 31U) / fullScale),
      highest(endsAtFullScale(format) ? 1.0 : std::numeric_limits<double>::infinity()),
      capacity(frames) {}

void StoredOutput::add(const double* left, const double* right, std::size_t frames) {
  std::visit(
      [&](auto& all) {
        using Sample = typename std::decay_t<decltype(all)>::value_type;
        Sample* to = all.data() + 2 * filled;
        // of its own for the loop, whose stores might change a member
        const double scale = fullScale;
        const double step = word;
        const double limit = highest;
        for (std::size_t i = 0; i < frames; ++i) {
          if constexpr (std::is_integral_v<Sample>) {
            const double l = heldSteps(left[i], scale) * step;
            const double r = heldSteps(right[i], scale) * step;
            to[2 * i] = static_cast<Sample>(static_cast<std::int32_t>(l));
            to[2 * i + 1] = static_cast<Sample>(static_cast<std::int32_t>(r));
          } else {
            to[2 * i] = static_cast<Sample>(std::clamp(left[i], -limit, limit));
            to[2 * i + 1] = static_cast<Sample>(std::clamp(right[i], -limit, limit));
          }
        }
      },
      samples);
  filled += frames;
}

bool StoredOutput::writeTo(SNDFILE* file) {
  const auto count = static_cast<sf_count_t>(2 * filled);
  filled = 0;
  return std::visit([&](auto& all) { return writeSamples(file, all.data(), count) == count; },
                    samples);
}
