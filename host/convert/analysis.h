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
  std::string damage;  // of a salvaged file, as SoundReader::damage
};

// Reads it to its end. salvage: of a damaged one what can be read. Throws Failure. Any thread.
Analysis analyse(const std::filesystem::path& file, bool salvage, const Progress& progress);

// In words; the warning is empty where nothing is damaged.
std::string reportOf(const Analysis& analysis, const std::filesystem::path& file);
std::string damageWarning(const Analysis& analysis, const std::filesystem::path& file);
