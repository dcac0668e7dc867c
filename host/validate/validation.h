// The validator: runs the checks on a plug-in and says how each of them ended.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

struct ValidationRequest {
  std::filesystem::path plugin;  // the binary
  int strictness = 5;            // 1..10
  std::uint64_t seed = 0;
  std::optional<std::string> check;  // this one alone, whatever its strictness
};

// print: takes the lines, one by one as they come to be known. Returns whether none failed.
// Throws UsageFailure where no check has the name; Failure.
bool validate(const ValidationRequest& request,
              const std::function<void(const std::string&)>& print);
