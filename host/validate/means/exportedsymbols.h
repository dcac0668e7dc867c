// The names that a binary gives to every other one in its process.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

// In the order of its table. Nothing where this system's binaries cannot be read here, or where
// this one has no table of sections. Throws Failure where it is damaged.
std::optional<std::vector<std::string>> exportedSymbols(const std::filesystem::path& binary);
