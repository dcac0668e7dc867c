// How loud a sound is, by EBU R128, and its true peak.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

// Any thread, one thread an object. The result does not depend on the pieces the sound comes in.
// Memory grows by a few bytes a second of sound.
class Loudness {
 public:
  // channels: 1 or 2; one channel is not counted twice. Outside of the rates that libebur128 takes
  // (16 Hz to 2.8 MHz) nothing is measured.
  Loudness(int channels, int sampleRate);
  ~Loudness();
  Loudness(Loudness&&) noexcept;

  // One channel: `left` alone counts.
  void add(const double* left, const double* right, int frames);

  // After the last frame; ends the measurement.
  struct Result {
    std::optional<double> integrated;  // LUFS; none: all below the gate, or shorter than 0.4 s
    std::optional<double> truePeak;    // 1 is full scale; none where nothing is measured
  };
  Result finish();

 private:
  struct Meter;
  std::unique_ptr<Meter> meter;  // null where nothing is measured
  std::size_t channelCount;
  std::vector<double> interleaved;
};
