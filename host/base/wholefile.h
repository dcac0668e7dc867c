// Small files read and written at once: states, presets, banks.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

constexpr std::uintmax_t kLargestState = 1 << 28;  // bytes: more than any effect keeps

// Throws Failure: no such file, a folder, empty, larger than any state, not readable.
std::vector<unsigned char> readWholeFile(const std::filesystem::path& file);
// Through a temporary file. Throws Failure.
void writeWholeFile(const std::filesystem::path& file, std::span<const unsigned char> bytes,
                    bool replace);
