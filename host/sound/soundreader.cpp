// Reads a mono or stereo sound file.
#include "host/sound/soundreader.h"

#include <unistd.h>

#include <algorithm>
#include <system_error>

#include "host/base/failure.h"
#include "host/sound/completeness.h"

namespace {

constexpr std::size_t kBufferFrames = 16384;

// What the library would word as a system error, or not notice at all.
const std::filesystem::path& existing(const std::filesystem::path& file) {
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

// Whether the named number of frames is to be there: MP3 has an estimate, and of two old types the
// library itself loses the last frames.
bool countsFrames(const SF_INFO& info) {
  const int type = info.format & SF_FORMAT_TYPEMASK;
  return info.frames != SF_COUNT_MAX && type != SF_FORMAT_MPEG && type != SF_FORMAT_SDS &&
         type != SF_FORMAT_PAF;
}

std::vector<std::pair<int, std::string>> textsOf(SNDFILE* file) {
  std::vector<std::pair<int, std::string>> texts;
  for (const int type : {SF_STR_TITLE, SF_STR_COPYRIGHT, SF_STR_ARTIST, SF_STR_COMMENT, SF_STR_DATE,
                         SF_STR_ALBUM, SF_STR_LICENSE, SF_STR_TRACKNUMBER, SF_STR_GENRE}) {
    const char* text = sf_get_string(file, type);
    if (text != nullptr && *text != 0) texts.emplace_back(type, text);
  }
  return texts;
}

}  // namespace

// A file that is opened by its name may also be of a type that only the name shows.
void SoundReader::openFile() {
  info = {};
  lseek(input.descriptor(), 0, SEEK_SET);
  file.reset(input.isPipe() ? sf_open_fd(input.descriptor(), SFM_READ, &info, SF_FALSE)
                            : sf_open(path.c_str(), SFM_READ, &info));
  if (!file) {
    const int error = sf_error(nullptr);
    const std::string text = sf_strerror(nullptr);
    if (error == SF_ERR_SYSTEM) throw cannotRead(path, text);
    throw Failure(path.string() + ": not a sound file (" + text + ")");
  }
}

SoundReader::SoundReader(const std::filesystem::path& from) : path(existing(from)), input(path) {
  const std::string damage = damageOf(input.descriptor());
  if (!damage.empty()) throw Failure(path.string() + ": " + damage);
  openFile();
  if (info.channels < 1 || info.channels > 2) {
    throw Failure(path.string() + ": has " + std::to_string(info.channels) +
                  " channels; only mono and stereo can be widened");
  }
  if (info.samplerate < 1) throw Failure(path.string() + ": names no sample rate");
  if (info.frames < 1) throw Failure(path.string() + ": holds no sound (0 frames)");
  tags = textsOf(file.get());
  buffer.emplace(info, kBufferFrames);
}

// Opened anew: some decoders cannot step back, and that of MP3 does not come to the same samples.
void SoundReader::rewind() {
  const SF_INFO before = info;
  file.reset();
  openFile();
  if (info.channels != before.channels || info.samplerate != before.samplerate ||
      info.frames != before.frames || info.format != before.format) {
    throw Failure(path.string() + ": was changed while it was read");
  }
  framesRead = 0;
  buffer.emplace(info, kBufferFrames);
}

// The library returns what it has before a damage as if the file ended there, with an error that
// the next call forgets. After the last frame an error says nothing: a decoder stumbles over tags
// that follow the sound.
void SoundReader::checkDamage(sf_count_t frames) const {
  const std::int64_t reached = framesRead + std::max<sf_count_t>(frames, 0);
  const bool failed = sf_error(file.get()) != SF_ERR_NO_ERROR;
  const bool ended = frames < static_cast<sf_count_t>(kBufferFrames);
  const bool endsKnown = countsFrames(info);
  const bool whole = endsKnown ? reached >= info.frames : !failed;
  if (whole || !(failed || ended)) return;
  std::string text = path.string() + ": is damaged: only " + std::to_string(reached);
  if (endsKnown) text += " of " + std::to_string(info.frames);
  text += " frames can be read";
  if (failed) text += std::string(" (") + sf_strerror(file.get()) + ")";
  throw Failure(text);
}

bool SoundReader::refill() {
  const sf_count_t frames = buffer->readFrom(file.get());
  checkDamage(frames);
  framesRead += std::max<sf_count_t>(frames, 0);
  return frames > 0;
}

int SoundReader::read(double* left, double* right, int count) {
  int done = 0;
  while (done < count) {
    const int piece = buffer->take(left + done, right + done, count - done);
    if (piece == 0 && !refill()) break;
    done += piece;
  }
  return done;
}
