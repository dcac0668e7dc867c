// Writes a stereo sound file.
#include "host/sound/soundwriter.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "host/base/failure.h"
#include "host/base/writeall.h"

namespace {

constexpr std::size_t kBufferSamples = 32768;  // interleaved, before they go to the file

}  // namespace

SoundWriter::SoundWriter(const std::filesystem::path& target, const SoundWriterOptions& options)
    : path(target),
      fileType(options.type),
      format(options.format),
      temporary(target, options.replace),
      sink{temporary.descriptor()} {
  const auto libFormat = libFormatFor(options.type, options.format, options.frames);
  if (!libFormat) fail("too long for " + textOf(fileType));
  most = mostFrames(*libFormat, options.format);
  SF_INFO info{};
  info.samplerate = options.sampleRate;
  info.channels = 2;
  info.format = *libFormat;
  if (sf_format_check(&info) == 0) {
    fail(textOf(options.type) + " cannot hold " + textOf(options.format) + " samples at " +
         std::to_string(options.sampleRate) + " Hz");
  }
  SF_VIRTUAL_IO io = writingTo();
  file.reset(sf_open_virtual(&io, SFM_WRITE, &info, &sink));
  if (!file) fail(sf_strerror(nullptr));
  // Its time stamp would make every run's file another.
  sf_command(file.get(), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
  // A guess that turned out too high gives a plain WAV after all.
  if ((info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_RF64) {
    sf_command(file.get(), SFC_RF64_AUTO_DOWNGRADE, nullptr, SF_TRUE);
  }
  for (const auto& [type, text] : options.texts) sf_set_string(file.get(), type, text.c_str());
  samples.reserve(kBufferSamples);
}

SF_VIRTUAL_IO SoundWriter::writingTo() {
  SF_VIRTUAL_IO io{};
  io.get_filelen = [](void* to) -> sf_count_t {
    struct stat status {};
    return fstat(static_cast<Sink*>(to)->descriptor, &status) == 0 ? status.st_size : -1;
  };
  io.seek = [](sf_count_t offset, int whence, void* to) -> sf_count_t {
    return lseek(static_cast<Sink*>(to)->descriptor, offset, whence);
  };
  io.read = [](void* bytes, sf_count_t count, void* to) -> sf_count_t {
    return read(static_cast<Sink*>(to)->descriptor, bytes, static_cast<std::size_t>(count));
  };
  io.write = [](const void* bytes, sf_count_t count, void* to) -> sf_count_t {
    Sink& output = *static_cast<Sink*>(to);
    if (output.error == 0)
      output.error = writeAll(output.descriptor, bytes, static_cast<std::size_t>(count));
    return output.error == 0 ? count : 0;
  };
  io.tell = [](void* to) -> sf_count_t {
    return lseek(static_cast<Sink*>(to)->descriptor, 0, SEEK_CUR);
  };
  return io;
}

void SoundWriter::fail(const std::string& reason) const {
  throw cannotWrite(path, sink.error != 0 ? std::strerror(sink.error) : reason);
}

void SoundWriter::write(const double* left, const double* right, int frames) {
  if (frames > most - written) fail("too long for " + textOf(fileType));
  for (int frame = 0; frame < frames; ++frame) {
    highest = std::max({highest, std::abs(left[frame]), std::abs(right[frame])});
    if (integerBits(format) != 0) countClipped(left[frame], right[frame]);
    samples.push_back(left[frame]);
    samples.push_back(right[frame]);
    if (samples.size() >= kBufferSamples) flush();
  }
  written += frames;
}

// The library's own conversion scales by one step less than full scale when it writes, so that a
// signal read and written again would not come back the same.
std::int32_t SoundWriter::toInteger(double sample) const {
  constexpr double kFullScale = 1U << 31U;  // of the word; a power of two, so nothing is rounded
  return static_cast<std::int32_t>(heldSample(format, sample) * kFullScale);
}

void SoundWriter::countClipped(double left, double right) {
  const double lostLeft = left - std::clamp(left, -1.0, 1.0);
  const double lostRight = right - std::clamp(right, -1.0, 1.0);
  clipped += (lostLeft != 0.0 ? 1 : 0) + (lostRight != 0.0 ? 1 : 0);
  foldLost = std::max(foldLost, std::abs(lostLeft + lostRight) / 2.0);
}

void SoundWriter::flush() {
  const auto count = static_cast<sf_count_t>(samples.size());
  sf_count_t done = 0;
  if (integerBits(format) == 0) {
    done = sf_write_double(file.get(), samples.data(), count);
  } else {
    integers.resize(samples.size());
    std::transform(samples.begin(), samples.end(), integers.begin(),
                   [this](double sample) { return toInteger(sample); });
    done = sf_write_int(file.get(), integers.data(), count);
  }
  if (done != count) fail(sf_strerror(file.get()));
  samples.clear();
}

void SoundWriter::finish() {
  if (!samples.empty()) flush();
  const int error = sf_close(file.release());
  if (error != SF_ERR_NO_ERROR || sink.error != 0) fail(sf_error_number(error));
  temporary.keep();
}
