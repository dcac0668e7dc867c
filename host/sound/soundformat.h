// Sample formats and file types that widen writes, and how they follow from an input and
// a file name.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

enum class SampleFormat { pcm8, pcm16, pcm24, pcm32, float32, float64 };
enum class FileType { wav, aiff, flac };

// pcm16, pcm24, pcm32, float, double; nothing else has a name.
std::optional<SampleFormat> sampleFormatNamed(std::string_view name);
std::string textOf(SampleFormat format);  // "16-bit"
std::string textOf(FileType type);        // "WAV"
int bytesPerSample(SampleFormat format);
// Significant bits of an integer format; 0 for the two floating-point formats.
int integerBits(SampleFormat format);
// The sample that such a file holds in place of this one: the nearest, and none beyond full scale
// in an integer format.
double heldSample(SampleFormat format, double sample);

// From the extension, in either case: .wav .wave .aif .aiff .aifc .flac.
std::optional<FileType> fileTypeOf(const std::filesystem::path& file);
bool canHold(FileType type, SampleFormat format);

// libFormat: libsndfile's format word of an input. Lossy and companded inputs count as 16 bits.
SampleFormat sampleFormatOf(int libFormat);
// What becomes of a kept format in a file type that cannot hold it: the widest integer format that
// it can.
SampleFormat keptFormat(SampleFormat input, FileType type);

// libsndfile's word for an output of `frames` stereo frames, or of a number that nobody knows. A
// WAV that comes to more than 4 GB, or may, becomes RF64, its successor of the same look; none
// where the type cannot hold so much.
std::optional<int> libFormatFor(FileType type, SampleFormat format,
                                std::optional<std::int64_t> frames);
// Stereo frames that fit into such a file.
std::int64_t mostFrames(int libFormat, SampleFormat format);
