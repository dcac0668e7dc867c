// Writes a stereo sound file from doubles, rounding to the nearest and never wrapping.
#pragma once

#include <sndfile.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/base/temporaryfile.h"
#include "host/sound/metadata.h"
#include "host/sound/soundfilehandle.h"
#include "host/sound/soundformat.h"
#include "host/sound/storedsamples.h"

// Where the sound goes in place of a file: in order, each block at once.
struct SoundStream {
  int descriptor = -1;                 // stays the caller's
  bool header = true;                  // of a WAV; else the samples alone
  std::optional<std::int64_t> frames;  // that will be written, where that is sure
};

struct SoundWriterOptions {
  static constexpr double kBestQuality = 10.0;
  static constexpr double kUsualQuality = 8.0;  // above what most ears tell from the original

  FileType type = FileType::wav;
  SampleFormat format = SampleFormat::pcm16;
  int sampleRate = 0;                  // Hz
  std::optional<std::int64_t> frames;  // as many as can come, to choose a file type that holds them
  double quality = kUsualQuality;      // of a lossy type, from 0
  bool replace = false;                // an existing file
  Metadata metadata;                   // of the input
  std::optional<SoundStream> stream;   // the target is its name then, for messages
};

// Any thread, one thread a writer. Without finish() nothing is left behind but what went into a
// stream.
class SoundWriter {
 public:
  // Throws Failure: the target is there, cannot be written, or cannot hold the format,
  // rate or length.
  SoundWriter(const std::filesystem::path& target, const SoundWriterOptions& options);

  // Integer formats are rounded to the nearest step and held at full scale. Throws Failure where
  // writing fails.
  void write(const double* left, const double* right, int frames);
  // Completes the file and gives it its name.
  void finish();

  std::int64_t framesWritten() const { return written; }
  double peak() const { return highest; }  // largest magnitude met, before clipping
  // Beyond full scale, in integer formats, and how much of (L+R)/2 was lost with them at most.
  std::int64_t clippedSamples() const { return clipped; }
  double clippedFold() const { return foldLost; }
  // After finish(), what of the metadata the file could not keep, in words.
  const std::vector<std::string>& notKept() const { return lost; }

 private:
  // Where the library's bytes go. It keeps the errors of its last steps to itself (what an encoder
  // holds back and the header's lengths are written when it closes), so each one
  // is remembered here.
  struct Sink {
    int descriptor;
    int error = 0;         // the system's, of the first write that failed
    sf_count_t begin = 0;  // of what the library writes: a tag may be in front
    bool isStream = false;
    std::int64_t bytes = 0;  // written into a stream

    void put(const void* from, std::size_t count);
  };
  static SF_VIRTUAL_IO writingTo();
  int libFormat(const SoundWriterOptions& options) const;

  void findLost();
  void setQuality(double quality);
  void flush();
  void countClipped(const double* left, const double* right, int frames);
  [[noreturn]] void fail(const std::string& reason) const;

  std::filesystem::path path;
  FileType fileType;
  SampleFormat format;
  std::int64_t most = 0;  // frames that the type holds
  std::optional<SoundStream> stream;
  std::unique_ptr<TemporaryFile> temporary;  // null: a stream
  std::string header;                        // still to be written into the stream
  Sink sink;
  SoundFileHandle file;
  Metadata metadata;
  std::vector<std::string> lost;
  StoredOutput samples;
  std::int64_t written = 0;  // frames
  double highest = 0.0;
  std::int64_t clipped = 0;
  double foldLost = 0.0;
};
