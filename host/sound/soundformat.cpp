// Sample formats and file types that widen writes.
#include "host/sound/soundformat.h"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

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

constexpr std::array<FormatRow, 6> kFormats = {{
    {SampleFormat::pcm8, "", "8-bit", 1, 8, SF_FORMAT_PCM_S8},
    {SampleFormat::pcm16, "pcm16", "16-bit", 2, 16, SF_FORMAT_PCM_16},
    {SampleFormat::pcm24, "pcm24", "24-bit", 3, 24, SF_FORMAT_PCM_24},
    {SampleFormat::pcm32, "pcm32", "32-bit", 4, 32, SF_FORMAT_PCM_32},
    {SampleFormat::float32, "float", "float", 4, 0, SF_FORMAT_FLOAT},
    {SampleFormat::float64, "double", "double", 8, 0, SF_FORMAT_DOUBLE},
}};

const FormatRow& rowOf(SampleFormat format) {
  return kFormats[static_cast<std::size_t>(format)];
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
  switch (type) {
    case FileType::wav:
      return "WAV";
    case FileType::aiff:
      return "AIFF";
    case FileType::flac:
      return "FLAC";
  }
  return {};
}

int bytesPerSample(SampleFormat format) {
  return rowOf(format).bytes;
}

int integerBits(SampleFormat format) {
  return rowOf(format).bits;
}

double heldSample(SampleFormat format, double sample) {
  if (format == SampleFormat::float64) return sample;
  if (format == SampleFormat::float32) return static_cast<float>(sample);
  const auto fullScale = static_cast<double>(std::uint64_t{1} << (integerBits(format) - 1));
  return std::clamp(std::nearbyint(sample * fullScale), -fullScale, fullScale - 1.0) / fullScale;
}

std::optional<FileType> fileTypeOf(const std::filesystem::path& file) {
  const std::string extension = lowerCase(file.extension().string());
  if (extension == ".wav" || extension == ".wave") return FileType::wav;
  if (extension == ".aif" || extension == ".aiff" || extension == ".aifc") return FileType::aiff;
  if (extension == ".flac") return FileType::flac;
  return std::nullopt;
}

bool canHold(FileType type, SampleFormat format) {
  if (type != FileType::flac) return true;
  return format == SampleFormat::pcm8 || format == SampleFormat::pcm16 ||
         format == SampleFormat::pcm24;
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
  const std::int64_t most = mostFrames(SF_FORMAT_WAV, format);
  const int subtype = rowOf(format).libSubtype;
  switch (type) {
    case FileType::wav:
      // 8 bits are unsigned in this family.
      return (!frames || *frames > most ? SF_FORMAT_RF64 : SF_FORMAT_WAV) |
             (format == SampleFormat::pcm8 ? static_cast<int>(SF_FORMAT_PCM_U8) : subtype);
    case FileType::aiff:
      if (frames && *frames > most) return std::nullopt;
      return SF_FORMAT_AIFF | subtype;
    case FileType::flac:
      return SF_FORMAT_FLAC | subtype;
  }
  return std::nullopt;
}
