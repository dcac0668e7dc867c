// Reads a mono or stereo sound file as doubles, a piece at a time.
#pragma once

#include <sndfile.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/sound/inputfile.h"
#include "host/sound/metadata.h"
#include "host/sound/soundfilehandle.h"
#include "host/sound/soundformat.h"
#include "host/sound/storedsamples.h"

struct SoundReaderOptions {
  bool salvage = false;    // of a damaged file what can be read, in place of a failure
  bool asItComes = false;  // a WAV from a pipe, which is then read once
};

// Any thread, one thread a reader. Memory does not grow with the file.
class SoundReader {
 public:
  // file: "-" is the standard input. Throws Failure: no such file, not a sound file, shorter than
  // it says, no frames, more than two channels.
  explicit SoundReader(const std::filesystem::path& file, const SoundReaderOptions& options = {});

  int channels() const { return static_cast<int>(info.channels); }
  int sampleRate() const { return info.samplerate; }  // Hz
  // As the file's header says, an estimate in MP3; none where a writer into a pipe could not know.
  std::optional<std::int64_t> frames() const {
    return info.frames == SF_COUNT_MAX ? std::nullopt : std::optional<std::int64_t>(info.frames);
  }
  // The same, where it is sure that so many come or reading fails.
  std::optional<std::int64_t> certainFrames() const;
  SampleFormat format() const { return sampleFormatOf(info.format); }
  int libFormat() const { return info.format; }  // libsndfile's format word

  // Fills left and right (the same for mono) with up to `count` frames and returns how many; fewer
  // only at the end. Integer formats are scaled so that full scale is 1, without a rounding error.
  // Throws Failure where reading fails and where the file ends before the last frame that its
  // header names.
  int read(double* left, double* right, int count);

  // Back to the first frame, for another pass. Throws Failure where the file is not the same any
  // more.
  void rewind();

  // What is wrong with a salvaged file, once all is read; to be put after its name. Empty: nothing.
  const std::string& damage() const { return found; }

  // What the file says beside its sound.
  const Metadata& metadata() const { return data; }
  const std::vector<std::pair<int, std::string>>& texts() const { return data.texts; }

 private:
  void openFile();
  bool namesFrames() const;
  bool refill();
  void checkDamage(sf_count_t frames);
  void tell(const std::string& damage);
  void tellMissing(std::int64_t reached);
  bool leapOverDamage();
  [[noreturn]] void failWithoutSound() const;

  SoundReaderOptions options;
  std::filesystem::path path;
  InputFile input;
  SF_INFO info{};
  SoundFileHandle file;
  Metadata data;
  std::string found;            // damage
  bool namedInMp3 = false;      // the number of frames, nearly
  bool broken = false;          // the decoder gave up, with frames to come
  bool over = false;            // nothing more can be read
  std::int64_t framesRead = 0;  // with silent ones
  std::int64_t silent = 0;      // frames to hand out in place of damaged ones
  std::int64_t lost = 0;        // such frames so far
  std::optional<StoredInput> buffer;
};
