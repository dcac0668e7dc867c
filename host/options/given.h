// A word that an option of the command line names.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "host/base/failure.h"

// None where the option was not used. Throws UsageFailure where it names nothing.
inline std::optional<std::string> given(const CLI::App& app, const char* option,
                                        const std::string& text) {
  if (app.count(option) == 0) return std::nullopt;
  if (text.empty()) throw UsageFailure(std::string(option) + ": nothing named");
  return text;
}
