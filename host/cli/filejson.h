// What became of a sound file, for scripts.
#pragma once

#include <filesystem>
#include <string>

#include "host/cli/json.h"
#include "host/convert/analysis.h"
#include "host/convert/report.h"

// warnings: a line for each.
Json analysisJson(const Analysis& analysis, const std::filesystem::path& file,
                  const std::string& warnings);
Json conversionJson(const Conversion& done, const Job& job, const std::string& warnings);
