// Images, chunks and old files byte by byte from their tables, without the writers of
// the preset system.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace imagebytes {

using Bytes = std::vector<unsigned char>;

constexpr std::uint32_t kTrelvan = 0x546C766E;  // 'Tlvn'
constexpr int kPresetKind = 34;
constexpr int kBankKind = 56;
constexpr int kMidiMapKind = 12;
constexpr int kOldPresetKind = 33;
constexpr int kOldBankKind = 55;

struct Preset {
  std::string name;  // bytes; filled with zeros up to 24
  std::array<float, 5> values{};
};
using Bank = std::array<Preset, 32>;

// What a reader is given for values that the data lacks.
inline const Preset kDefault{"the default", {0.11F, 0.22F, 0.33F, 0.44F, 0.55F}};

// The words of one writer: in this machine's byte order, or in the other.
class Writer {
 public:
  explicit Writer(bool otherOrder = false) : other(otherOrder) {}

  Writer& word(std::uint32_t value) {
    std::array<unsigned char, 4> four;
    std::memcpy(four.data(), &value, 4);
    if (other) std::reverse(four.begin(), four.end());
    return all(four);
  }
  Writer& number(std::int32_t value) { return word(static_cast<std::uint32_t>(value)); }
  Writer& real(float value) { return word(std::bit_cast<std::uint32_t>(value)); }
  Writer& byte(int value) {
    bytes.push_back(static_cast<unsigned char>(value));
    return *this;
  }
  Writer& zeros(std::size_t count) {
    for (; count > 0; --count) bytes.push_back(0);
    return *this;
  }
  Writer& text(const std::string& name, std::size_t size) {
    std::string padded = name;
    padded.resize(size);
    return all(padded);
  }
  Writer& append(const Bytes& more) { return all(more); }

  // The 41 bytes in front of an image's entries.
  Writer& header(int kind, std::int32_t entryCount, std::int32_t currentPreset,
                 std::int32_t dataSize) {
    word(kTrelvan)
        .byte(kind)
        .word(0x01090900)
        .number(5)
        .number(entryCount)
        .number(currentPreset)
        .number(dataSize);
    return zeros(16);
  }
  Writer& entryHead(std::int32_t kind, std::int32_t payload, std::int32_t preset) {
    return number(kind).number(payload).number(preset);
  }
  Writer& nameEntry(std::int32_t preset, const std::string& name) {
    return entryHead(0, 156, preset).text(name, 24).zeros(132);
  }
  Writer& valueEntry(std::int32_t kind, std::int32_t preset, std::int32_t index, float value) {
    return entryHead(kind, 20, preset).number(index).zeros(8).real(value).zeros(4);
  }
  Writer& parameterEntry(std::int32_t preset, std::int32_t index, float value) {
    return valueEntry(1, preset, index, value);
  }
  Writer& presetEntries(std::int32_t number, const Preset& preset) {
    nameEntry(number, preset.name);
    for (std::int32_t index = 0; index < 5; ++index) {
      parameterEntry(number, index, preset.values[static_cast<std::size_t>(index)]);
    }
    return *this;
  }

  Bytes bytes;

 private:
  template <typename Range>
  Writer& all(const Range& range) {
    for (const auto one : range) bytes.push_back(static_cast<unsigned char>(one));
    return *this;
  }

  bool other;
};

inline Bytes presetImage(const Preset& preset, bool otherOrder = false) {
  return Writer(otherOrder).header(kPresetKind, 6, 0, 328).presetEntries(0, preset).bytes;
}

inline Bytes bankEntries(const Bank& bank, bool otherOrder = false) {
  Writer writer(otherOrder);
  for (std::size_t i = 0; i < bank.size(); ++i)
    writer.presetEntries(static_cast<std::int32_t>(i), bank[i]);
  return writer.bytes;
}

inline Bytes bankImage(const Bank& bank, std::int32_t currentPreset, bool otherOrder = false) {
  const Bytes entries = bankEntries(bank, otherOrder);
  return Writer(otherOrder)
      .header(kBankKind, 192, currentPreset, static_cast<std::int32_t>(entries.size()))
      .append(entries)
      .bytes;
}

inline Bytes midiMapImage(const std::array<float, 5>& values, bool otherOrder = false) {
  Writer writer(otherOrder);
  writer.header(kMidiMapKind, 5, 0, 160);
  for (std::int32_t i = 0; i < 5; ++i)
    writer.valueEntry(2, 0, i, values[static_cast<std::size_t>(i)]);
  return writer.bytes;
}

inline Bytes chunk(const Bank& bank, std::int32_t currentPreset, bool otherOrder = false) {
  return Writer(otherOrder)
      .word(0x02000000)
      .word(kTrelvan)
      .append(bankImage(bank, currentPreset, otherOrder))
      .bytes;
}

// What a record of the old layouts holds: a name and the first `floats` values; values after the
// fifth are 0.25.
inline Writer& oldRecord(Writer& writer, const Preset& preset, int floats) {
  writer.text(preset.name, 24);
  for (int i = 0; i < floats; ++i)
    writer.real(i < 5 ? preset.values[static_cast<std::size_t>(i)] : 0.25F);
  return writer;
}

inline Bytes oldPresetData(const Preset& preset, int floats, bool otherOrder = false) {
  Writer writer(otherOrder);
  return oldRecord(writer, preset, floats).bytes;
}

inline Bytes oldBankData(const Bank& bank, int floats, bool otherOrder = false) {
  Writer writer(otherOrder);
  for (const Preset& preset : bank) oldRecord(writer, preset, floats);
  return writer.bytes;
}

// An old chunk with the bank's first `count` records; reserved words that are not zero, because
// nobody reads them.
inline Bytes oldChunk(const Bank& bank, int count, int floats, std::int32_t currentPreset,
                      bool otherOrder = false) {
  Writer writer(otherOrder);
  writer.word(0x01000000).word(kTrelvan).number(count).number(currentPreset);
  for (int i = 0; i < 4; ++i) writer.word(0xDEADBEEF);
  for (int i = 0; i < count; ++i)
    oldRecord(writer, bank[static_cast<std::size_t>(i) % bank.size()], floats);
  return writer.bytes;
}

// Reverses every word of a whole bank, preset or MIDI-map image as the tables lay them out; names
// are bytes.
inline void turnImage(Bytes& image, std::size_t start) {
  const auto turn = [&image](std::size_t at) {
    std::reverse(image.begin() + static_cast<long>(at), image.begin() + static_cast<long>(at) + 4);
  };
  const auto wordAt = [&image](std::size_t at) {
    std::uint32_t value;
    std::memcpy(&value, image.data() + at, 4);
    return value;
  };
  turn(start);
  for (std::size_t at = 5; at < 41; at += 4) turn(start + at);
  for (std::size_t entry = start + 41; entry < image.size();) {
    const bool isName = wordAt(entry) == 0;
    const std::size_t payload = wordAt(entry + 4);
    for (std::size_t at = 0; at < 12; at += 4) turn(entry + at);
    for (std::size_t at = 12; !isName && at < 12 + payload; at += 4) turn(entry + at);
    entry += 12 + payload;
  }
}

// A bank that has no two equal names or values, so that a mix-up shows.
inline Bank distinctBank() {
  Bank bank;
  for (std::size_t i = 0; i < bank.size(); ++i) {
    bank[i].name = "preset number " + std::to_string(i);
    for (std::size_t j = 0; j < 5; ++j)
      bank[i].values[j] = static_cast<float>(i * 5 + j + 1) / 256.0F;
  }
  return bank;
}

// Names of 0 to 23 printable characters, and values in 0..1 with both ends among them.
inline Bank randomBank(std::mt19937& random) {
  std::uniform_int_distribution<int> length(0, 23);
  std::uniform_int_distribution<int> letter(32, 126);
  std::uniform_real_distribution<float> value(0.0F, 1.0F);
  std::uniform_int_distribution<int> end(0, 9);
  Bank bank;
  for (Preset& preset : bank) {
    for (int left = length(random); left > 0; --left)
      preset.name += static_cast<char>(letter(random));
    for (float& v : preset.values) {
      const int pick = end(random);
      v = pick == 0 ? 0.0F : pick == 1 ? 1.0F : std::min(value(random), 1.0F);
    }
  }
  return bank;
}

}  // namespace imagebytes
