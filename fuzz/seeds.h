// The fuzz targets' seeds: where they are put, and who makes them.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "presetsystem/image/presetimage.h"

namespace fuzz {

// A folder for each target.
class Corpus {
 public:
  explicit Corpus(std::filesystem::path root) : folder(std::move(root)) {}

  void add(const std::string& target, const std::string& name, const presetimage::Bytes& seed) {
    std::filesystem::create_directories(folder / target);
    std::ofstream out(folder / target / name, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(seed.data()),
              static_cast<std::streamsize>(seed.size()));
    written = written && out.good();
  }
  bool complete() const { return written; }

 private:
  std::filesystem::path folder;
  bool written = true;
};

void addImageSeeds(Corpus& corpus);
void addCallSeeds(Corpus& corpus);
void addWordSeeds(Corpus& corpus);
void addSoundSeeds(Corpus& corpus);

}  // namespace fuzz
