// One preset: its name and the five raw parameter values.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>

#include "platform/relaxed.h"

// The record that the bank, the chunk and the files hold. The values are words of their own because
// automation may write one on the audio thread while another thread saves the bank; the name is
// read and written under the store's lock.
struct ACombProgram {
  static constexpr int kNameSize = 24;       // bytes; a stored name ends with a zero among them
  static constexpr int kParameterCount = 5;  // in parameter-index order

  char name[kNameSize] = "init";
  Relaxed<float> width{0.5F};
  Relaxed<float> baseFreq{0.5F};
  Relaxed<float> emphasis{0.5F};
  Relaxed<float> process{1.0F};
  Relaxed<float> phase{0.0F};

  // A record of zero bytes: no name, all values 0.
  static ACombProgram zeroed();

  // Keeps the first 23 characters; the bytes after them are zero.
  void rename(const char* text) {
    const std::size_t length = strnlen(text, kNameSize - 1);
    std::memset(name, 0, sizeof name);
    std::memcpy(name, text, length);
  }

  // index: 0 .. kParameterCount - 1.
  float parameter(int index) const { return this->*kParameters[static_cast<std::size_t>(index)]; }
  void setParameter(int index, float value) {
    this->*kParameters[static_cast<std::size_t>(index)] = value;
  }

 private:
  // to_array: a list that is too short does not compile.
  static constexpr std::array<Relaxed<float> ACombProgram::*, kParameterCount> kParameters =
      std::to_array<Relaxed<float> ACombProgram::*>({&ACombProgram::width, &ACombProgram::baseFreq,
                                                     &ACombProgram::emphasis,
                                                     &ACombProgram::process, &ACombProgram::phase});
};

static_assert(offsetof(ACombProgram, width) == ACombProgram::kNameSize);
static_assert(sizeof(ACombProgram) ==
              ACombProgram::kNameSize + ACombProgram::kParameterCount * sizeof(float));

inline ACombProgram ACombProgram::zeroed() {
  ACombProgram record;
  for (char& letter : record.name) letter = 0;
  for (int index = 0; index < kParameterCount; ++index) record.setParameter(index, 0.0F);
  return record;
}
