// What stands in front of the samples where a WAV goes into a pipe.
#include "host/sound/streamheader.h"

namespace {

constexpr std::uint64_t kOpen = 0xFFFFFFFF;  // "until the end": what readers of pipes take it for
constexpr int kChannels = 2;

std::string number(std::uint64_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i);
  return text;
}

std::string chunk(const char* id, const std::string& contents) {
  return id + number(contents.size(), 4) + contents;
}

}  // namespace

std::string wavStreamHeader(SampleFormat format, int sampleRate,
                            std::optional<std::int64_t> frames) {
  constexpr std::uint64_t kInteger = 1, kFloating = 3;  // formats
  const auto frameBytes =
      std::uint64_t{kChannels} * static_cast<std::uint64_t>(bytesPerSample(format));
  const bool floating = integerBits(format) == 0;
  std::string chunks = "WAVE";
  chunks += chunk("fmt ", number(floating ? kFloating : kInteger, 2) + number(kChannels, 2) +
                              number(static_cast<std::uint64_t>(sampleRate), 4) +
                              number(static_cast<std::uint64_t>(sampleRate) * frameBytes, 4) +
                              number(frameBytes, 2) + number(frameBytes / kChannels * 8, 2));
  constexpr std::uint64_t kRest = 100;  // bytes, more than stands in front of the samples
  const bool known = frames && static_cast<std::uint64_t>(*frames) <= (kOpen - kRest) / frameBytes;
  const std::uint64_t count = known ? static_cast<std::uint64_t>(*frames) : kOpen;
  if (floating) chunks += chunk("fact", number(count, 4));
  const std::uint64_t size = known ? count * frameBytes : kOpen;
  chunks += "data" + number(size, 4);
  return "RIFF" + number(known ? chunks.size() + size : kOpen, 4) + chunks;
}
