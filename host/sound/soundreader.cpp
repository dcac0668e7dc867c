// Reads a mono or stereo sound file.
#include "host/sound/soundreader.h"

#include <unistd.h>

#include <algorithm>
#include <system_error>

#include "host/base/failure.h"
#include "host/base/standardstreams.h"
#include "host/sound/completeness.h"

namespace {

constexpr std::size_t kBufferFrames = 16384;
constexpr std::size_t kStreamFrames = 1024;  // 21 ms at 48 kHz that somebody waits for

// What the library would word as a system error, or not notice at all.
std::filesystem::path existing(const std::filesystem::path& file) {
  if (isStandardStream(file)) return file;
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (!std::filesystem::exists(status)) {
    throw Failure(file.string() + ": " +
                  (error && error.value() != ENOENT ? error.message() : "no such file"));
  }
  if (std::filesystem::is_directory(status))
    throw Failure(file.string() + ": is a folder, not a sound file");
  if (std::filesystem::is_regular_file(status) && std::filesystem::file_size(file, error) == 0 &&
      !error) {
    throw Failure(file.string() + ": is empty");
  }
  return file;
}

// Frames by which an MP3 may be shorter than it says: programs count its silent first frame or the
// decoder's delay in or out, two blocks at most.
constexpr std::int64_t kMp3Slack = 2304;

// Whether exactly the named number of frames is to be there: MP3 has an estimate, and of two old
// types the library itself loses the last frames.
bool countsFrames(const SF_INFO& info) {
  const int type = info.format & SF_FORMAT_TYPEMASK;
  return info.frames != SF_COUNT_MAX && type != SF_FORMAT_MPEG && type != SF_FORMAT_SDS &&
         type != SF_FORMAT_PAF;
}

}  // namespace

// A file that is opened by its name may also be of a type that only the name shows.
void SoundReader::openFile() {
  info = {};
  if (WavStream* stream = input.stream()) {
    file.reset(stream->open(info));
  } else if (input.hasName()) {
    file.reset(sf_open(path.c_str(), SFM_READ, &info));
  } else {
    lseek(input.descriptor(), 0, SEEK_SET);
    file.reset(sf_open_fd(input.descriptor(), SFM_READ, &info, SF_FALSE));
  }
  if (!file) {
    const int error = sf_error(nullptr);
    const std::string text = sf_strerror(nullptr);
    if (error == SF_ERR_SYSTEM) throw cannotRead(path, text);
    throw Failure(path.string() + ": not a sound file (" + text + ")");
  }
  if (input.stream() != nullptr && input.stream()->isOpen()) info.frames = SF_COUNT_MAX;
  if (input.stream() != nullptr && input.stream()->isRenamed())
    info.format = (info.format & ~SF_FORMAT_TYPEMASK) | SF_FORMAT_WAV;
  data = readMetadata(file.get(), input.descriptor());
}

SoundReader::SoundReader(const std::filesystem::path& from, const SoundReaderOptions& asked)
    : options(asked), path(shownInput(existing(from))), input(from, asked.asItComes) {
  const std::string damage =
      input.stream() != nullptr ? std::string() : damageOf(input.descriptor());
  if (!damage.empty()) tell(damage);
  openFile();
  if (info.channels < 1 || info.channels > 2) {
    throw Failure(path.string() + ": has " + std::to_string(info.channels) +
                  " channels; only mono and stereo can be widened");
  }
  if (info.samplerate < 1) throw Failure(path.string() + ": names no sample rate");
  if (info.frames < 1) failWithoutSound();
  namedInMp3 = input.stream() == nullptr && (info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_MPEG &&
               info.frames != SF_COUNT_MAX && namesMp3Frames(input.descriptor());
  buffer.emplace(info, input.stream() != nullptr ? kStreamFrames : kBufferFrames);
}

bool SoundReader::namesFrames() const {
  return countsFrames(info) || namedInMp3;
}

std::optional<std::int64_t> SoundReader::certainFrames() const {
  return countsFrames(info) && !options.salvage ? frames() : std::nullopt;
}

// Opened anew: some decoders cannot step back, and that of MP3 does not come to the same samples.
void SoundReader::rewind() {
  if (input.stream() != nullptr) throw Failure(path.string() + ": comes once only");
  const SF_INFO before = info;
  file.reset();
  openFile();
  if (info.channels != before.channels || info.samplerate != before.samplerate ||
      info.frames != before.frames || info.format != before.format) {
    throw Failure(path.string() + ": was changed while it was read");
  }
  broken = over = false;
  framesRead = silent = lost = 0;
  buffer.emplace(info, kBufferFrames);
}

void SoundReader::tell(const std::string& damage) {
  if (!options.salvage) throw Failure(path.string() + ": " + damage);
  found = damage;
}

// The library returns what it has before a damage as if the file ended there, with an error that
// the next call forgets. After the last frame an error says nothing: a decoder stumbles over tags
// that follow the sound.
void SoundReader::checkDamage(sf_count_t frames) {
  const std::int64_t reached = framesRead + std::max<sf_count_t>(frames, 0);
  const bool failed = sf_error(file.get()) != SF_ERR_NO_ERROR;
  const bool ended = frames < static_cast<sf_count_t>(buffer->room());
  const std::string cut = ended && input.stream() != nullptr ? input.stream()->damage() : "";
  if (!cut.empty()) return tell(cut);
  const std::int64_t slack = namedInMp3 ? kMp3Slack : 0;
  const bool whole = namesFrames() ? reached + slack >= info.frames : !failed;
  if (whole && lost > 0) return tellMissing(reached);
  if (whole || !(failed || ended)) return;
  broken = options.salvage && (info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_FLAC;
  over = !broken;
  tellMissing(reached);
}

void SoundReader::tellMissing(std::int64_t reached) {
  std::string text = "is damaged: only " + std::to_string(reached - lost);
  if (namesFrames()) text += " of " + std::to_string(info.frames);
  text += " frames can be read";
  if (lost > 0) text += "; " + std::to_string(lost) + " within are silent";
  if (sf_error(file.get()) != SF_ERR_NO_ERROR)
    text += std::string(" (") + sf_strerror(file.get()) + ")";
  tell(text);
}

// FLAC has blocks that stand alone, of which one is lost: a decoder that gave up finds the next one
// when it is opened anew.
bool SoundReader::leapOverDamage() {
  constexpr sf_count_t kStep = 256, kLongestBlock = 65536;  // frames
  broken = false;
  for (sf_count_t gap = kStep; gap <= kLongestBlock && framesRead + gap < info.frames;
       gap += kStep) {
    file.reset();
    openFile();
    if (sf_seek(file.get(), framesRead + gap, SEEK_SET) != framesRead + gap) continue;
    framesRead += gap;
    lost += gap;
    silent = gap;
    return true;
  }
  over = true;
  return false;
}

void SoundReader::failWithoutSound() const {
  throw Failure(path.string() + ": holds no sound (0 frames)");
}

bool SoundReader::refill() {
  if (over) return false;
  if (broken) return leapOverDamage();
  const sf_count_t frames = buffer->readFrom(file.get());
  checkDamage(frames);
  framesRead += std::max<sf_count_t>(frames, 0);
  return frames > 0 || broken;
}

int SoundReader::read(double* left, double* right, int count) {
  int done = 0;
  while (done < count) {
    const int wanted = count - done;
    int piece = static_cast<int>(std::min<std::int64_t>(silent, wanted));
    std::fill_n(left + done, piece, 0.0);
    std::fill_n(right + done, piece, 0.0);
    silent -= piece;
    if (piece == 0) piece = buffer->take(left + done, right + done, wanted);
    if (piece == 0 && !refill()) {
      if (framesRead == 0) failWithoutSound();
      break;
    }
    done += piece;
  }
  return done;
}
