// The file of an effect's state, which tells whose it is.
#include "host/state/savedstate.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

#include "effect/parameters.h"
#include "host/base/failure.h"
#include "host/base/text.h"
#include "presetsystem/image/image.h"

namespace {

// Then the number in eight hexadecimal digits, a blank, the name, a newline, and the chunk.
constexpr std::string_view kMark = "widen-state ";
constexpr std::size_t kDigits = 8;
constexpr std::size_t kLongestLine = 2048;  // bytes; a name has 1023 at most

struct Origin {
  std::uint32_t id;
  std::string name;
  std::size_t size;  // of the line, with its newline
};

std::optional<Origin> originOf(const Effect::Bytes& file) {
  const std::string_view bytes(reinterpret_cast<const char*>(file.data()),
                               std::min(file.size(), kLongestLine));
  const auto end = bytes.find('\n');
  if (!bytes.starts_with(kMark) || end == std::string_view::npos) return std::nullopt;
  const std::string_view line = bytes.substr(kMark.size(), end - kMark.size());
  if (line.size() <= kDigits || line[kDigits] != ' ') return std::nullopt;
  std::uint32_t id = 0;
  const char* const digits = line.data();
  const auto [rest, error] = std::from_chars(digits, digits + kDigits, id, 16);
  if (error != std::errc() || rest != digits + kDigits) return std::nullopt;
  return Origin{id, std::string(line.substr(kDigits + 1)), end + 1};
}

std::string nameOf(Effect& effect) {
  const std::string name = effect.text(effGetEffectName);
  return name.empty() ? effect.plugin() : name;
}

std::uint32_t idOf(const Effect& effect) {
  return static_cast<std::uint32_t>(effect.record().uniqueID);
}

}  // namespace

Effect::Bytes namedState(Effect& effect) {
  const std::string line =
      std::string(kMark) + formatted("%08X ", idOf(effect)) + onOneLine(nameOf(effect)) + "\n";
  Effect::Bytes file(line.begin(), line.end());
  const Effect::Bytes chunk = effect.chunk();
  file.insert(file.end(), chunk.begin(), chunk.end());
  return file;
}

std::span<const unsigned char> chunkOf(const Effect::Bytes& file, Effect& effect,
                                       const std::string& source) {
  auto origin = originOf(file);
  // Trelvan's chunk itself tells whose it is.
  if (!origin && presetimage::identify(file, kTrelvanID).isChunk)
    origin = Origin{static_cast<std::uint32_t>(kTrelvanID), "Trelvan", 0};
  if (!origin) return file;
  if (origin->id != idOf(effect)) {
    throw Failure(source + ": is a state of " + onOneLine(origin->name) + ", not of " +
                  nameOf(effect));
  }
  return std::span(file).subspan(origin->size);
}
