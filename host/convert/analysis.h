// The figures of a sound file that is only looked at.
#pragma once

#include <filesystem>
#include <string>

#include "host/convert/conversion.h"
#include "host/measure/figures.h"

struct Analysis {
  int libFormat = 0;  // libsndfile's format word
  int channels = 0;
  int sampleRate = 0;  // Hz
  Figures figures;
};

// Reads it to its end. Throws Failure. Any thread.
Analysis analyse(const std::filesystem::path& file, const Progress& progress);

// In words.
std::string reportOf(const Analysis& analysis, const std::filesystem::path& file);
