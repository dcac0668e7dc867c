// An input opened for reading; what comes through a pipe becomes a file first.
#pragma once

#include <filesystem>

// Sound files are read with steps back, which a pipe does not allow: its contents go into a
// temporary file without a name, so that memory stays bounded and nothing is left
// behind whatever happens.
class InputFile {
 public:
  // Waits for a pipe's end. Throws Failure: cannot be read, or nowhere to keep what a pipe brings.
  explicit InputFile(const std::filesystem::path& path);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  int descriptor() const { return handle; }  // stays this object's
  bool isPipe() const { return pipe; }

 private:
  bool pipe = false;
  int handle = -1;
};
