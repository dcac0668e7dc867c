// A WAV that is read from a pipe as it comes.
#pragma once

#include <sndfile.h>

#include <cstdint>
#include <string>

// The library steps to and fro in a file; here it steps in the header, which is kept, and reads the
// sound in order. What follows the sound is not looked at.
class WavStream {
 public:
  // descriptor: of the pipe, at its beginning; outlives it. Reads up to the first sample.
  explicit WavStream(int descriptor);

  // Whether it is a WAV that can be read so. If not, head() is what was read of the pipe.
  bool isWav() const { return wav; }
  const std::string& head() const { return header; }

  // Opened for reading by the library, once.
  SNDFILE* open(SF_INFO& info);

  // The writer did not know how much would come.
  bool isOpen() const { return left; }
  // The library has it as RF64, which the pipe does not.
  bool isRenamed() const { return renamed; }
  // After the last sample: what is wrong, to be put after the file's name. Empty: nothing.
  std::string damage() const;

 private:
  bool have(std::size_t bytes);
  bool parse();
  void nameOpenLength(std::size_t afterDataHead);
  void keep(const char* bytes, std::int64_t count);
  std::int64_t readSome(char* to, std::int64_t count);
  std::int64_t length() const { return static_cast<std::int64_t>(header.size()) + soundBytes; }

  int pipe;
  std::string header;
  bool wav = false;
  bool left = false;  // open
  bool renamed = false;
  bool opening = false;
  std::int64_t early = 0;       // bytes of sound that are kept with the header
  std::int64_t soundBytes = 0;  // after those, as the header names them
  std::int64_t received = 0;    // bytes of them
  std::int64_t position = 0;    // byte where the library is
  int error = 0;                // the system's
};
