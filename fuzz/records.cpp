// Sample records and comparisons.
#include "fuzz/records.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstring>

namespace fuzz {

presetimage::Bank sampleBank() {
  presetimage::Bank bank;
  for (int number = 0; number < presetimage::kPresetCount; ++number) {
    ACombProgram& preset = bank[static_cast<std::size_t>(number)];
    char name[64];
    std::snprintf(name, sizeof name, "preset %d%s", number,
                  number % 2 == 0 ? "" : ", with a long, long name");
    preset.rename(name);
    // full: not terminated among its 24 bytes
    if (number % 4 == 3) preset.name[ACombProgram::kNameSize - 1] = '!';
    for (int index = 0; index < presetimage::kParameterCount; ++index) {
      // 160 different values strictly between 0 and 1.
      const int slot = number * presetimage::kParameterCount + index + 1;
      preset.setParameter(index, static_cast<float>(slot) / 161.0F);
    }
  }
  return bank;
}

ACombProgram sampleDefault() {
  ACombProgram preset;
  preset.rename("default");
  for (int index = 0; index < presetimage::kParameterCount; ++index) {
    preset.setParameter(index, 0.001F * static_cast<float>(index + 1));
  }
  return preset;
}

bool identical(const ACombProgram& a, const ACombProgram& b) {
  static_assert(sizeof(ACombProgram) == 44);  // a field that is new has to be compared too
  if (std::memcmp(a.name, b.name, sizeof a.name) != 0) return false;
  for (int index = 0; index < presetimage::kParameterCount; ++index) {
    const auto bits = [index](const ACombProgram& preset) {
      return std::bit_cast<std::uint32_t>(preset.parameter(index));
    };
    if (bits(a) != bits(b)) return false;
  }
  return true;
}

bool identical(const presetimage::Bank& a, const presetimage::Bank& b) {
  return std::equal(a.begin(), a.end(), b.begin(),
                    [](const ACombProgram& x, const ACombProgram& y) { return identical(x, y); });
}

bool normalised(const ACombProgram& preset) {
  for (int index = 0; index < presetimage::kParameterCount; ++index) {
    const float value = preset.parameter(index);
    if (!(value >= 0.0F && value <= 1.0F)) return false;
  }
  return true;
}

bool normalised(const presetimage::Bank& bank) {
  return std::all_of(bank.begin(), bank.end(),
                     [](const ACombProgram& preset) { return normalised(preset); });
}

Image imageFrom(std::span<const unsigned char> data) {
  Image image{newpresetheader::read(data.first(newpresetheader::kSize)), false, {}};
  image.swapped = presetimage::identify(data, kUniqueID).swapped;
  if (image.swapped) byteSwapHeader(&image.header);
  image.entries.assign(data.begin() + newpresetheader::kSize, data.end());
  return image;
}

presetimage::DummySlots dummiesFrom(std::uint32_t bits) {
  presetimage::DummySlots dummies{};
  for (std::size_t slot = 0; slot < dummies.size(); ++slot)
    dummies[slot] = ((bits >> slot) & 1U) != 0;
  return dummies;
}

}  // namespace fuzz
