// Sound files for the tests.
#include "tests/host/sounds.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <random>

void writeSound(const std::filesystem::path& file, const Sound& sound, int libFormat) {
  SF_INFO info{};
  info.samplerate = sound.rate;
  info.channels = sound.channels;
  info.format = libFormat;
  SNDFILE* out = sf_open(file.c_str(), SFM_WRITE, &info);
  ASSERT_NE(out, nullptr) << sf_strerror(nullptr);
  sf_command(out, SFC_SET_CLIPPING, nullptr, SF_TRUE);
  const auto count = static_cast<sf_count_t>(sound.samples.size());
  EXPECT_EQ(sf_write_double(out, sound.samples.data(), count), count);
  EXPECT_EQ(sf_close(out), 0);
}

Sound readSound(const std::filesystem::path& file) {
  Sound sound;
  SF_INFO info{};
  SNDFILE* in = sf_open(file.c_str(), SFM_READ, &info);
  EXPECT_NE(in, nullptr) << file << ": " << sf_strerror(nullptr);
  if (in == nullptr) return sound;
  sound.rate = info.samplerate;
  sound.channels = info.channels;
  sound.samples.resize(static_cast<std::size_t>(info.frames * info.channels));
  sf_read_double(in, sound.samples.data(), static_cast<sf_count_t>(sound.samples.size()));
  sf_close(in);
  return sound;
}

int libFormatOf(const std::filesystem::path& file) {
  SF_INFO info{};
  SNDFILE* in = sf_open(file.c_str(), SFM_READ, &info);
  if (in != nullptr) sf_close(in);
  return info.format;
}

std::vector<std::int32_t> readIntegers(const std::filesystem::path& file) {
  SF_INFO info{};
  SNDFILE* in = sf_open(file.c_str(), SFM_READ, &info);
  EXPECT_NE(in, nullptr) << file;
  if (in == nullptr) return {};
  std::vector<std::int32_t> samples(static_cast<std::size_t>(info.frames * info.channels));
  sf_read_int(in, samples.data(), static_cast<sf_count_t>(samples.size()));
  sf_close(in);
  return samples;
}

Sound noise(std::size_t frames, int channels, unsigned seed) {
  std::minstd_rand random(seed);
  Sound sound;
  sound.channels = channels;
  for (std::size_t i = 0; i < frames * static_cast<std::size_t>(channels); ++i) {
    sound.samples.push_back((static_cast<int>(random() >> 8 & 0x7FFF) - 0x4000) / 16384.0);
  }
  return sound;
}

Sound impulse(std::size_t frames, int channels, std::size_t at) {
  Sound sound;
  sound.channels = channels;
  sound.samples.resize(frames * static_cast<std::size_t>(channels));
  for (std::size_t channel = 0; channel < static_cast<std::size_t>(channels); ++channel) {
    sound.samples[at * static_cast<std::size_t>(channels) + channel] = 0.5;
  }
  return sound;
}
