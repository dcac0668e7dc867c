// Conversions between the tests' plain presets and the preset system's records.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "presetsystem/image/presetimage.h"
#include "tests/support/imageblocks.h"
#include "tests/support/imagebytes.h"

// All 24 bytes of the name, as they stand.
inline std::string nameBytes(const ACombProgram& preset) {
  return {preset.name, sizeof preset.name};
}

inline ACombProgram recordOf(const imagebytes::Preset& preset) {
  ACombProgram record = ACombProgram::zeroed();
  std::memcpy(record.name, preset.name.data(), std::min(preset.name.size(), sizeof record.name));
  for (int i = 0; i < 5; ++i) record.setParameter(i, preset.values[static_cast<std::size_t>(i)]);
  return record;
}

inline presetimage::Bank recordsOf(const imagebytes::Bank& bank) {
  presetimage::Bank records;
  for (std::size_t i = 0; i < bank.size(); ++i) records[i] = recordOf(bank[i]);
  return records;
}

// The header of that many entries.
inline newpresetheader headerFor(const imagebytes::Bytes& entries, std::int32_t entryCount) {
  newpresetheader header;
  header.entryCount = entryCount;
  header.dataSize = static_cast<std::int32_t>(entries.size());
  return header;
}

// Same 24 name bytes and same bits of every value.
inline bool isSame(const ACombProgram& a, const ACombProgram& b) {
  static_assert(sizeof(ACombProgram) == 44);  // a field that is new has to be compared too
  if (nameBytes(a) != nameBytes(b)) return false;
  for (int i = 0; i < 5; ++i) {
    if (std::bit_cast<std::uint32_t>(a.parameter(i)) !=
        std::bit_cast<std::uint32_t>(b.parameter(i)))
      return false;
  }
  return true;
}

inline bool isSame(const presetimage::Bank& a, const presetimage::Bank& b) {
  return std::equal(a.begin(), a.end(), b.begin(),
                    [](const auto& x, const auto& y) { return isSame(x, y); });
}

inline std::string printed(const ACombProgram& preset) {
  std::string text = "\"" + std::string(preset.name, strnlen(preset.name, 24)) + "\"";
  for (int i = 0; i < 5; ++i) text += " " + std::to_string(preset.parameter(i));
  return text;
}

inline testing::AssertionResult sameRecord(const ACombProgram& a, const ACombProgram& b) {
  if (isSame(a, b)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << printed(a) << " is not " << printed(b);
}

// Names the first record that differs.
inline testing::AssertionResult sameBank(const presetimage::Bank& a, const presetimage::Bank& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!isSame(a[i], b[i])) return sameRecord(a[i], b[i]) << " in preset " << i;
  }
  return testing::AssertionSuccess();
}
