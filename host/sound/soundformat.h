// Sample formats and file types that widen writes, and how they follow from an input and
// a file name.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// lossy: what an encoder makes of floating-point samples; the only one in such file types.
enum class SampleFormat { pcm8, pcm16, pcm24, pcm32, float32, float64, lossy };
enum class FileType { wav, aiff, flac, caf, w64, rf64, vorbis, opus, mp3 };

// pcm16, pcm24, pcm32, float, double; nothing else has a name.
std::optional<SampleFormat> sampleFormatNamed(std::string_view name);
std::string textOf(SampleFormat format);  // "16-bit"
std::string textOf(FileType type);        // "WAV"
int bytesPerSample(SampleFormat format);
// Significant bits of an integer format; 0 for the others.
int integerBits(SampleFormat format);
// Whether samples beyond full scale are lost: in integer formats, and in lossy ones, where a player
// would clip them.
bool endsAtFullScale(SampleFormat format);
// The sample that such a file holds in place of this one: the nearest, and none beyond full scale
// where the format ends there. Of a lossy format what its encoder gets.
double heldSample(SampleFormat format, double sample);

// From the extension, in either case.
std::optional<FileType> fileTypeOf(const std::filesystem::path& file);
// By an extension without its dot: "wav", "ogg".
std::optional<FileType> fileTypeNamed(std::string_view name);
// What sound files of the types that the library reads are called, without the dot, in lower case;
// raw samples are not among them, since nothing tells what they are.
const std::vector<std::string>& soundExtensions();
std::string writtenExtensions();  // ".wav, .aif and .flac", all of them
bool isLossy(FileType type);
bool canHold(FileType type, SampleFormat format);
// Why such a file cannot have this sample rate, in Hz, and which ones it can; empty where it can or
// where the library has to say.
std::string refusedRate(FileType type, int sampleRate);

// libFormat: libsndfile's format word of an input. Lossy and companded inputs count as 16 bits.
SampleFormat sampleFormatOf(int libFormat);
// What becomes of a kept format in a file type that cannot hold it: the widest integer format that
// it can, or lossy.
SampleFormat keptFormat(SampleFormat input, FileType type);

// libsndfile's word for an output of `frames` stereo frames, or of a number that nobody knows. A
// WAV that comes to more than 4 GB, or may, becomes RF64, its successor of the same look; none
// where the type cannot hold so much.
std::optional<int> libFormatFor(FileType type, SampleFormat format,
                                std::optional<std::int64_t> frames);
// Stereo frames that fit into such a file.
std::int64_t mostFrames(int libFormat, SampleFormat format);
