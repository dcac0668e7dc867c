// Sound files as bytes to be damaged, and what can be read of them then.
#pragma once

#include <gtest/gtest.h>
#include <sndfile.h>

#include <optional>
#include <string>
#include <vector>

#include "host/base/failure.h"
#include "host/sound/soundreader.h"
#include "tests/host/foldertest.h"
#include "tests/host/sounds.h"

class Completeness : public FolderTest {
 protected:
  static constexpr std::size_t kFrames = 20001;  // odd, and no multiple of any block

  // How many frames can be read, or why not all.
  struct Reading {
    std::int64_t frames = 0;
    std::string failure;
  };
  Reading reading(const std::string& name) const {
    Reading done;
    try {
      SoundReader reader(in(name));
      std::vector<double> left(1000);
      std::vector<double> right(1000);
      int frames = 0;
      while ((frames = reader.read(left.data(), right.data(), 1000)) > 0) done.frames += frames;
    } catch (const Failure& failure) {
      done.failure = failure.what();
    }
    return done;
  }

  // The file's bytes; empty where the library cannot write so.
  std::string bytesOf(int libFormat, int channels, std::size_t frames = kFrames) const {
    SF_INFO info{0, 48000, channels, libFormat, 0, 0};
    if (sf_format_check(&info) == 0) return {};
    SNDFILE* file = sf_open(in("written").c_str(), SFM_WRITE, &info);
    if (file == nullptr) return {};
    sf_set_string(file, SF_STR_TITLE, "Title");
    const Sound sound = noise(frames, channels, 1);
    sf_write_double(file, sound.samples.data(), static_cast<sf_count_t>(sound.samples.size()));
    sf_close(file);
    return textOf(in("written"));
  }

  // What the library alone reads, in the same pieces; none where it does not take its own file.
  std::optional<std::int64_t> framesByTheLibrary(const std::string& name) const {
    SF_INFO info{};
    SNDFILE* file = sf_open(in(name).c_str(), SFM_READ, &info);
    if (file == nullptr) return std::nullopt;
    std::vector<double> piece(16384 * static_cast<std::size_t>(info.channels));
    std::int64_t all = 0;
    sf_count_t frames = 0;
    while ((frames = sf_readf_double(file, piece.data(), 16384)) > 0) all += frames;
    sf_close(file);
    return all;
  }

  static std::string number(std::uint64_t value, int bytes, bool bigEndian) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
      text += static_cast<char>(value >> 8 * (bigEndian ? bytes - 1 - i : i));
    return text;
  }
};
