// The names of what a sound file can be.
#pragma once

#include <string>

// libFormat: libsndfile's format word. "WAV", "FLAC", "Ogg".
std::string fileTypeText(int libFormat);
// "16-bit", "float", "Vorbis": the words for outputs where there are such, else the library's.
std::string encodingText(int libFormat);
