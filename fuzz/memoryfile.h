// A file that is nowhere but in memory, and that others open by its path all the same.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace fuzz {

class MemoryFile {
 public:
  MemoryFile();
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string path() const;
  int descriptor() const { return file; }  // this object's

  void write(std::span<const unsigned char> content);  // in place of what it held
  std::vector<unsigned char> content() const;

 private:
  int file;
};

}  // namespace fuzz
