// A thread that plays noise through an effect all the time, as a host's audio thread does.
#pragma once

#include <atomic>
#include <thread>

#include "host/validate/means/stretch.h"
#include "host/validate/subject.h"

// The effect is switched on, and stays so while one lives. Nobody else processes meanwhile.
class PlayingThread {
 public:
  static constexpr int kBlock = 256;  // frames

  PlayingThread(Trial& trial, Subject& subject);
  ~PlayingThread();  // ended
  PlayingThread(const PlayingThread&) = delete;
  PlayingThread& operator=(const PlayingThread&) = delete;

  // Fails the check where sound came that is no number, and where no block was ended.
  void endAndCheck(const char* meanwhile);
  // Returns after that many further blocks.
  void waitForBlocks(int count) const;

 private:
  void play();
  void end();

  Trial& trial;
  Subject& subject;
  Stretch<float> sound;
  std::atomic<bool> wanted = true;
  std::atomic<int> blocks = 0;
  std::atomic<int> badBlock = -1;
  std::thread thread;
};
