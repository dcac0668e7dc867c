// An input opened for reading; what comes through a pipe becomes a file first.
#pragma once

#include <filesystem>
#include <memory>

#include "host/sound/wavstream.h"

// Sound files are read with steps back, which a pipe does not allow: its contents go into a
// temporary file without a name, so that memory stays bounded and nothing is left
// behind whatever happens.
class InputFile {
 public:
  // path: "-" is the standard input. asItComes: a WAV from a pipe is not kept, and read once.
  // Otherwise waits for a pipe's end. Throws Failure: cannot be read, or nowhere to keep what a
  // pipe brings.
  explicit InputFile(const std::filesystem::path& path, bool asItComes = false);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  int descriptor() const { return handle; }        // stays this object's
  bool hasName() const { return named; }           // can be opened by its path as well
  WavStream* stream() const { return wav.get(); }  // null: the descriptor is a file's

 private:
  int handle = -1;
  bool named = false;
  std::unique_ptr<WavStream> wav;
};
