// Small files read at once: states, presets, banks.
#pragma once

#include <filesystem>
#include <span>
#include <vector>

// Throws Failure: no such file, a folder, empty, larger than any state, not readable.
std::vector<unsigned char> readWholeFile(const std::filesystem::path& file);
// Through a temporary file. Throws Failure.
void writeWholeFile(const std::filesystem::path& file, std::span<const unsigned char> bytes, bool replace);
