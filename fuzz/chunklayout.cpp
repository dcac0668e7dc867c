// Reads a chunk with nothing but offsets.
#include "fuzz/chunklayout.h"

#include <bit>
#include <cstring>
#include <memory>

#include "fuzz/imagelayout.h"
#include "fuzz/records.h"
#include "fuzz/require.h"

namespace fuzz {
namespace {

constexpr std::size_t kChunkSize = 10545;

// Steps through the chunk's words and compares them.
class Walk {
 public:
  explicit Walk(const presetimage::Bytes& data) : chunk(data) {}

  void word(std::int32_t expected, const char* statement) {
    require(wordAt(chunk, at, false) == expected, statement);
    at += 4;
  }
  void bytes(const void* expected, std::size_t count, const char* statement) {
    require(std::memcmp(chunk.data() + at, expected, count) == 0, statement);
    at += count;
  }
  void zeros(std::size_t count, const char* statement) {
    for (; count > 0; --count) require(chunk[at++] == 0, statement);
  }
  bool atEnd() const { return at == chunk.size(); }

 private:
  const presetimage::Bytes& chunk;
  std::size_t at = 0;
};

void requireHeader(Walk& chunk, long current) {
  chunk.word(0x02000000, "the chunk begins with its tag");
  chunk.word(kUniqueID, "the unique ID follows");
  chunk.word(kUniqueID, "the bank image begins with the unique ID");
  chunk.bytes("8", 1, "it is a bank");
  chunk.word(0x01090900, "of the current version");
  chunk.word(5, "with five parameters");
  chunk.word(192, "and 192 entries");
  chunk.word(static_cast<std::int32_t>(current), "and the selection");
  chunk.word(10496, "and 10496 bytes of entries");
  chunk.zeros(16, "the reserved words are zero");
}

void requirePreset(Walk& chunk, std::int32_t number, const ACombProgram& preset) {
  chunk.word(0, "a preset begins with its name entry");
  chunk.word(156, "which has 156 bytes");
  chunk.word(number, "and the preset's number");
  chunk.bytes(preset.name, sizeof preset.name, "and the name");
  chunk.zeros(132, "and then zeros");
  for (int index = 0; index < presetimage::kParameterCount; ++index) {
    chunk.word(1, "parameter entries follow");
    chunk.word(20, "which have 20 bytes");
    chunk.word(number, "and the preset's number");
    chunk.word(index, "and the parameter's");
    chunk.zeros(8, "and two zero words");
    chunk.word(std::bit_cast<std::int32_t>(preset.parameter(index)), "and the value");
    chunk.zeros(4, "and a zero word");
  }
}

void requireName(AEffect* effect, VstInt32 number, const ACombProgram& preset) {
  constexpr std::size_t kRoom = ACombProgram::kNameSize + 1;
  const std::unique_ptr<char[]> text(new char[kRoom]);
  std::memset(text.get(), '?', kRoom);
  require(effect->dispatcher(effect, effGetProgramNameIndexed, number, 0, text.get(), 0.0F) == 1,
          "every preset has a name to ask for");
  require(text[kRoom - 1] == 0 && std::memcmp(text.get(), preset.name, sizeof preset.name) == 0,
          "a name is handed out whole and terminated");
}

}  // namespace

presetimage::Bytes validChunkOf(Trelvan& effect) {
  AEffect* record = effect.getAeffect();
  void* data = nullptr;
  const VstIntPtr size =
      record->dispatcher(record, effGetChunk, 0, 0, static_cast<void*>(&data), 0.0F);
  require(size == kChunkSize && data != nullptr, "the chunk is 10545 bytes");
  const auto* bytes = static_cast<const unsigned char*>(data);
  presetimage::Bytes chunk(bytes, bytes + size);
  Walk walk(chunk);
  requireHeader(walk, effect.getPresetNo());
  for (int number = 0; number < presetimage::kPresetCount; ++number) {
    requirePreset(walk, number, effect.preset(number));
    requireName(record, number, effect.preset(number));
  }
  require(walk.atEnd(), "there is nothing after the last preset");
  return chunk;
}

}  // namespace fuzz
