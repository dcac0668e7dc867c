// The sound card that the user hears.
#pragma once

#include <memory>
#include <string>

// Opened and ended on any thread; in between one thread writes.
class SoundCard {
 public:
  // None where there is none, with the reason in `reason`: never a Failure.
  static std::unique_ptr<SoundCard> open(int sampleRate, std::string& reason);
  ~SoundCard();  // what was not heard yet is dropped
  SoundCard(const SoundCard&) = delete;
  SoundCard& operator=(const SoundCard&) = delete;

  // frames: left and right by turns, 1 is full scale. Waits for room, 50 ms at most. Returns how
  // many frames were taken, and a negative number where the card is there no more.
  int write(const float* frames, int count);

 private:
  struct System;
  explicit SoundCard(std::unique_ptr<System> opened);

  std::unique_ptr<System> system;
};
