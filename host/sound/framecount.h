// How long a sound file says that it is.
#pragma once

#include <cstdint>
#include <filesystem>

// From the header alone, without a look at whether the file is whole, so that many files are asked
// quickly. 0 where it does not say, and for what is no sound file or no regular file.
std::int64_t statedFrames(const std::filesystem::path& file);
