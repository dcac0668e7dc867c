// Writes a stereo sound file.
#include "host/sound/soundwriter.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "host/base/blockarithmetic.h"
#include "host/base/failure.h"
#include "host/base/writeall.h"
#include "host/sound/id3tag.h"
#include "host/sound/metadataloss.h"
#include "host/sound/metadatawriting.h"
#include "host/sound/oggpages.h"
#include "host/sound/streamheader.h"

namespace {

constexpr std::size_t kBufferFrames = 16384;  // before they go to the file

}  // namespace

SoundWriter::SoundWriter(const std::filesystem::path& target, const SoundWriterOptions& options)
    : path(target),
      fileType(options.type),
      format(options.format),
      stream(options.stream),
      temporary(stream ? nullptr : std::make_unique<TemporaryFile>(target, options.replace)),
      header(stream && stream->header
                 ? wavStreamHeader(options.format, options.sampleRate, stream->frames)
                 : std::string()),
      sink{stream ? stream->descriptor : temporary->descriptor(), 0, 0, stream.has_value(), 0},
      metadata(options.metadata),
      samples(options.format, kBufferFrames) {
  const std::string rate = refusedRate(fileType, options.sampleRate);
  if (!rate.empty()) fail(rate);
  const int wanted = libFormat(options);
  most = mostFrames(wanted, options.format);
  SF_INFO info{};
  info.samplerate = options.sampleRate;
  info.channels = 2;
  info.format = wanted;
  if (sf_format_check(&info) == 0) {
    fail(textOf(options.type) + " cannot hold " + textOf(options.format) + " samples at " +
         std::to_string(options.sampleRate) + " Hz");
  }
  if (fileType == FileType::mp3) {
    const std::string tag = id3Tag(metadata.texts);
    sink.error = writeAll(sink.descriptor, tag.data(), tag.size());
    if (sink.error != 0) fail("");
    sink.begin = static_cast<sf_count_t>(tag.size());
  }
  SF_VIRTUAL_IO io = writingTo();
  file.reset(sf_open_virtual(&io, SFM_WRITE, &info, &sink));
  if (!file) fail(sf_strerror(nullptr));
  if (isLossy(fileType)) setQuality(options.quality);
  // Its time stamp would make every run's file another.
  sf_command(file.get(), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
  // A guess that turned out too high gives a plain WAV after all.
  if (fileType == FileType::wav && (info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_RF64) {
    sf_command(file.get(), SFC_RF64_AUTO_DOWNGRADE, nullptr, SF_TRUE);
  }
  if (fileType != FileType::mp3 && !stream) writeMetadata(file.get(), fileType, metadata);
}

// Into a stream the library writes samples alone, so that it has no header to go back to.
int SoundWriter::libFormat(const SoundWriterOptions& options) const {
  const auto wanted = libFormatFor(options.type, options.format, options.frames);
  if (stream && wanted) return SF_FORMAT_RAW | SF_ENDIAN_LITTLE | (*wanted & SF_FORMAT_SUBMASK);
  if (!wanted) fail("too long for " + textOf(fileType));
  return *wanted;
}

// Vorbis has the scale itself, MP3 turned round, and Opus knows kbit/s only, in the library as one
// minus a fraction of what a channel can have.
void SoundWriter::setQuality(double quality) {
  double share = quality / SoundWriterOptions::kBestQuality;
  if (fileType == FileType::opus) {
    constexpr double kLowest = 48.0, kStep = 20.0;         // kbit/s, stereo: 48 to 248
    constexpr double kLibLowest = 6.0, kLibRange = 250.0;  // kbit/s, of one channel
    share = ((kLowest + kStep * quality) / 2.0 - kLibLowest) / kLibRange;
  }
  if (fileType == FileType::mp3) {
    share = std::max(share, 0.0001);  // its worst is 9.999
    int mode = SF_BITRATE_MODE_VARIABLE;
    sf_command(file.get(), SFC_SET_BITRATE_MODE, &mode, sizeof mode);
  }
  if (sf_command(file.get(), SFC_SET_VBR_ENCODING_QUALITY, &share, sizeof share) == 0)
    fail(textOf(fileType) + " does not take the quality");
}

SF_VIRTUAL_IO SoundWriter::writingTo() {
  SF_VIRTUAL_IO io{};
  io.get_filelen = [](void* to) -> sf_count_t {
    const Sink& output = *static_cast<Sink*>(to);
    if (output.isStream) return output.bytes;
    struct stat status {};
    return fstat(output.descriptor, &status) == 0 ? status.st_size - output.begin : -1;
  };
  io.seek = [](sf_count_t offset, int whence, void* to) -> sf_count_t {
    const Sink& output = *static_cast<Sink*>(to);
    if (output.isStream) return output.bytes;
    const sf_count_t from = whence == SEEK_SET ? output.begin : 0;
    return lseek(output.descriptor, from + offset, whence) - output.begin;
  };
  io.read = [](void* bytes, sf_count_t count, void* to) -> sf_count_t {
    return read(static_cast<Sink*>(to)->descriptor, bytes, static_cast<std::size_t>(count));
  };
  io.write = [](const void* bytes, sf_count_t count, void* to) -> sf_count_t {
    Sink& output = *static_cast<Sink*>(to);
    output.put(bytes, static_cast<std::size_t>(count));
    return output.error == 0 ? count : 0;
  };
  io.tell = [](void* to) -> sf_count_t {
    const Sink& output = *static_cast<Sink*>(to);
    if (output.isStream) return output.bytes;
    return lseek(output.descriptor, 0, SEEK_CUR) - output.begin;
  };
  return io;
}

void SoundWriter::Sink::put(const void* from, std::size_t count) {
  if (error == 0) error = writeAll(descriptor, from, count);
  if (isStream) bytes += static_cast<std::int64_t>(count);
}

void SoundWriter::fail(const std::string& reason) const {
  throw cannotWrite(path, sink.error != 0 ? std::strerror(sink.error) : reason);
}

void SoundWriter::write(const double* left, const double* right, int frames) {
  if (frames > most - written) fail("too long for " + textOf(fileType));
  const double largest = std::max(largestMagnitude(left, frames), largestMagnitude(right, frames));
  highest = std::max(highest, largest);
  if (largest > 1.0 && endsAtFullScale(format)) countClipped(left, right, frames);
  written += frames;
  for (auto rest = static_cast<std::size_t>(frames); rest > 0;) {
    const std::size_t piece = std::min(rest, samples.room());
    samples.add(left, right, piece);
    if (samples.room() == 0) flush();
    left += piece;
    right += piece;
    rest -= piece;
  }
  if (stream) flush();
}

void SoundWriter::countClipped(const double* left, const double* right, int frames) {
  for (int frame = 0; frame < frames; ++frame) {
    const double lostLeft = left[frame] - std::clamp(left[frame], -1.0, 1.0);
    const double lostRight = right[frame] - std::clamp(right[frame], -1.0, 1.0);
    clipped += (lostLeft != 0.0 ? 1 : 0) + (lostRight != 0.0 ? 1 : 0);
    foldLost = std::max(foldLost, std::abs(lostLeft + lostRight) / 2.0);
  }
}

void SoundWriter::flush() {
  const int error = writeAll(sink.descriptor, header.data(), header.size());
  if (error != 0) fail(std::strerror(error));
  header.clear();
  if (!samples.writeTo(file.get())) fail(sf_strerror(file.get()));
}

void SoundWriter::finish() {
  flush();
  if (stream && stream->frames && *stream->frames != written)
    fail("not as long as its header says");
  const int error = sf_close(file.release());
  if (error == SF_ERR_NO_ERROR && sink.error == 0 &&
      (fileType == FileType::vorbis || fileType == FileType::opus)) {
    sink.error = ogg::numberStreamByContents(sink.descriptor);
  }
  if (error != SF_ERR_NO_ERROR || sink.error != 0) fail(sf_error_number(error));
  findLost();
  if (temporary) temporary->keep();
}

// The finished file has the last word, whatever the library said. But the decoder of MP3 writes
// lines of its own about short files, and its tag is ours.
void SoundWriter::findLost() {
  if (metadata.empty()) return;
  if (!stream && FileBytes(sink.descriptor).size == 0) return;
  Metadata there;
  if (fileType == FileType::mp3) {
    there.texts = metadata.texts;
  } else if (!stream) {
    SF_INFO info{};
    lseek(sink.descriptor, 0, SEEK_SET);
    SF_VIRTUAL_IO io = writingTo();  // it reads as well
    const SoundFileHandle back(sf_open_virtual(&io, SFM_READ, &info, &sink));
    if (back) there = readMetadata(back.get(), sink.descriptor);
  }
  lost = ::notKept(metadata, there, stream ? std::nullopt : chunksOf(fileType));
}
