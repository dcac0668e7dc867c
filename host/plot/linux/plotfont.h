// The bundle's font file, byte for byte (cmake/FileInProgram.cmake).
#pragma once

#include <cstddef>

extern const unsigned char kPlotFont[];
extern const std::size_t kPlotFontSize;  // bytes
