// Sample formats and file types that widen writes.
#include "host/sound/soundformat.h"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <limits>
#include <vector>

#include "host/base/text.h"

namespace {

struct FormatRow {
  SampleFormat format;
  std::string_view name;  // on the command line
  const char* text;
  int bytes;
  int bits;
  int libSubtype;
};

constexpr std::array<FormatRow, 7> kFormats = {{
    {SampleFormat::pcm8, "", "8-bit", 1, 8, SF_FORMAT_PCM_S8},
    {SampleFormat::pcm16, "pcm16", "16-bit", 2, 16, SF_FORMAT_PCM_16},
    {SampleFormat::pcm24, "pcm24", "24-bit", 3, 24, SF_FORMAT_PCM_24},
    {SampleFormat::pcm32, "pcm32", "32-bit", 4, 32, SF_FORMAT_PCM_32},
    {SampleFormat::float32, "float", "float", 4, 0, SF_FORMAT_FLOAT},
    {SampleFormat::float64, "double", "double", 8, 0, SF_FORMAT_DOUBLE},
    {SampleFormat::lossy, "", "lossy", 4, 0, -1},  // bytes: a float, as the encoder gets it
}};

struct TypeRow {
  FileType type;
  const char* text;
  std::string_view extensions;  // each between two spaces, in lower case
  int libMajor;
  int lossySubtype;  // 0: not lossy
};

constexpr std::array<TypeRow, 9> kTypes = {{
    {FileType::wav, "WAV", " .wav .wave .bwf ", SF_FORMAT_WAV, 0},
    {FileType::aiff, "AIFF", " .aif .aiff .aifc ", SF_FORMAT_AIFF, 0},
    {FileType::flac, "FLAC", " .flac ", SF_FORMAT_FLAC, 0},
    {FileType::caf, "CAF", " .caf ", SF_FORMAT_CAF, 0},
    {FileType::w64, "W64", " .w64 ", SF_FORMAT_W64, 0},
    {FileType::rf64, "RF64", " .rf64 ", SF_FORMAT_RF64, 0},
    {FileType::vorbis, "Ogg Vorbis", " .ogg .oga ", SF_FORMAT_OGG, SF_FORMAT_VORBIS},
    {FileType::opus, "Opus", " .opus ", SF_FORMAT_OGG, SF_FORMAT_OPUS},
    {FileType::mp3, "MP3", " .mp3 ", SF_FORMAT_MPEG, SF_FORMAT_MPEG_LAYER_III},
}};

const FormatRow& rowOf(SampleFormat format) {
  return kFormats[static_cast<std::size_t>(format)];
}

const TypeRow& rowOf(FileType type) {
  return kTypes[static_cast<std::size_t>(type)];
}

// Hz that its encoder takes as they are; of all other types any.
std::vector<int> ratesOf(FileType type) {
  if (type == FileType::opus) return {8000, 12000, 16000, 24000, 48000};
  if (type == FileType::mp3) return {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000};
  return {};
}

// "a, b and c"
std::string listed(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i != 0) text += i + 1 == words.size() ? " and " : ", ";
    text += words[i];
  }
  return text;
}

}  // namespace

std::optional<SampleFormat> sampleFormatNamed(std::string_view name) {
  for (const FormatRow& row : kFormats) {
    if (!row.name.empty() && row.name == name) return row.format;
  }
  return std::nullopt;
}

std::string textOf(SampleFormat format) {
  return rowOf(format).text;
}

std::string textOf(FileType type) {
  return rowOf(type).text;
}

int bytesPerSample(SampleFormat format) {
  return rowOf(format).bytes;
}

int integerBits(SampleFormat format) {
  return rowOf(format).bits;
}

bool endsAtFullScale(SampleFormat format) {
  return integerBits(format) != 0 || format == SampleFormat::lossy;
}

double heldSample(SampleFormat format, double sample) {
  if (format == SampleFormat::float64) return sample;
  if (format == SampleFormat::float32) return static_cast<float>(sample);
  if (format == SampleFormat::lossy) return static_cast<float>(std::clamp(sample, -1.0, 1.0));
  const auto fullScale = static_cast<double>(std::uint64_t{1} << (integerBits(format) - 1));
  return std::clamp(std::nearbyint(sample * fullScale), -fullScale, fullScale - 1.0) / fullScale;
}

std::optional<FileType> fileTypeOf(const std::filesystem::path& file) {
  const std::string extension = file.extension().string();
  if (extension.empty()) return std::nullopt;
  return fileTypeNamed(std::string_view(extension).substr(1));
}

std::optional<FileType> fileTypeNamed(std::string_view name) {
  const bool isWord = std::all_of(name.begin(), name.end(),
                                  [](unsigned char letter) { return std::isalnum(letter) != 0; });
  if (!isWord || name.empty()) return std::nullopt;
  const std::string word = " ." + lowerCase(std::string(name)) + " ";
  for (const TypeRow& row : kTypes) {
    if (row.extensions.find(word) != std::string_view::npos) return row.type;
  }
  return std::nullopt;
}

const std::vector<std::string>& soundExtensions() {
  static const std::vector<std::string> kExtensions = {
      "wav",  "wave", "bwf", "rf64", "w64", "aif", "aiff", "aifc",
      "flac", "ogg",  "oga", "opus", "mp3", "caf", "au",   "snd"};
  return kExtensions;
}

std::string writtenExtensions() {
  std::vector<std::string> words;
  words.reserve(kTypes.size());
  for (const TypeRow& row : kTypes) {
    words.emplace_back(row.extensions.substr(1, row.extensions.find(' ', 1) - 1));
  }
  return listed(words);
}

bool isLossy(FileType type) {
  return rowOf(type).lossySubtype != 0;
}

bool canHold(FileType type, SampleFormat format) {
  if (isLossy(type) || format == SampleFormat::lossy)
    return isLossy(type) && format == SampleFormat::lossy;
  if (type != FileType::flac) return true;
  return format == SampleFormat::pcm8 || format == SampleFormat::pcm16 ||
         format == SampleFormat::pcm24;
}

std::string refusedRate(FileType type, int sampleRate) {
  const std::vector<int> rates = ratesOf(type);
  if (rates.empty() || std::find(rates.begin(), rates.end(), sampleRate) != rates.end()) return {};
  std::vector<std::string> words;
  words.reserve(rates.size());
  for (const int rate : rates) words.push_back(std::to_string(rate));
  return textOf(type) + " takes " + listed(words) + " Hz, not " + std::to_string(sampleRate);
}

SampleFormat sampleFormatOf(int libFormat) {
  const int subtype = libFormat & SF_FORMAT_SUBMASK;
  if (subtype == SF_FORMAT_PCM_U8) return SampleFormat::pcm8;
  for (const FormatRow& row : kFormats) {
    if (row.libSubtype == subtype) return row.format;
  }
  if (subtype == SF_FORMAT_ALAC_24 || subtype == SF_FORMAT_ALAC_20 ||
      subtype == SF_FORMAT_DWVW_24) {
    return SampleFormat::pcm24;
  }
  if (subtype == SF_FORMAT_ALAC_32) return SampleFormat::pcm32;
  return SampleFormat::pcm16;
}

SampleFormat keptFormat(SampleFormat input, FileType type) {
  if (isLossy(type)) return SampleFormat::lossy;
  return canHold(type, input) ? input : SampleFormat::pcm24;
}

std::int64_t mostFrames(int libFormat, SampleFormat format) {
  // bytes that a 32-bit size counts, less room for headers
  constexpr std::int64_t kLargestForm = 0xFFFFFFFF - 0x10000;
  const int type = libFormat & SF_FORMAT_TYPEMASK;
  if (type != SF_FORMAT_WAV && type != SF_FORMAT_AIFF)
    return std::numeric_limits<std::int64_t>::max();
  return kLargestForm / 2 / bytesPerSample(format);
}

std::optional<int> libFormatFor(FileType type, SampleFormat format,
                                std::optional<std::int64_t> frames) {
  const TypeRow& row = rowOf(type);
  if (row.lossySubtype != 0) return row.libMajor | row.lossySubtype;
  const std::int64_t most = mostFrames(SF_FORMAT_WAV, format);
  if (type == FileType::aiff && frames && *frames > most) return std::nullopt;
  const bool isLong = type == FileType::wav && (!frames || *frames > most);
  const int major = isLong ? static_cast<int>(SF_FORMAT_RF64) : row.libMajor;
  // 8 bits are unsigned in WAV's family.
  const bool isUnsigned = type == FileType::wav || type == FileType::rf64 || type == FileType::w64;
  if (format == SampleFormat::pcm8 && isUnsigned) return major | SF_FORMAT_PCM_U8;
  return major | rowOf(format).libSubtype;
}
