// Runs widen on one file and reads what it made of it.
#pragma once

#include <gtest/gtest.h>
#include <sndfile.h>

#include <string>
#include <vector>

#include "tests/host/program.h"
#include "tests/host/sounds.h"

class Conversions : public ProgramTest {
 protected:
  static constexpr int kFloatWav = SF_FORMAT_WAV | SF_FORMAT_FLOAT;

  // Runs it, expects success without a word on the error stream but that the result is narrower,
  // and reads it.
  Sound result(std::vector<std::string> words, const std::string& output = "out.wav") {
    words.insert(words.end(), {"-o", output, "--force"});
    const Outcome outcome = widen(words);
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_EQ(butForNarrowing(outcome), "");
    return readSound(in(output));
  }
};
