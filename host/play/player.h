// Plays a sound file round and round through an effect.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <exception>
#include <memory>
#include <thread>
#include <vector>

#include "host/play/loop.h"
#include "host/play/pace.h"
#include "host/play/soundcard.h"
#include "host/vst/blockrunner.h"
#include "host/vst/hostcallback.h"

struct PlayerOptions {
  int blockSize = 0;  // frames
  bool doublePrecision = false;
  double gain = 1.0;  // factor, after the effect
};

// While it lives, a thread of its own takes the loop through the effect and to the card, and by the
// clock alone where there is none. Between what is read and what is handed to the card that thread
// allocates nothing and locks nothing. Made and ended on one thread, the one that may ask.
class Player {
 public:
  // effect: started, with `callback`. All but the card outlive the player. card: may be none.
  Player(Effect& effect, HostCallback& callback, Loop& loop, std::unique_ptr<SoundCard> card,
         const PlayerOptions& options);
  ~Player();
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  // True once, after the card was lost: the rest is silent.
  bool takeCardLost() { return cardLost.exchange(false); }
  // Throws what ended the thread before its time, a Failure of the effect's.
  void check();

 private:
  using Clock = std::chrono::steady_clock;

  void run();
  void play();
  void interleave(int frames);
  void deliver(int frames);
  int offer(const float* frames, int count);

  HostCallback& callback;
  Loop& loop;
  const std::unique_ptr<SoundCard> card;
  const double gain;
  const std::unique_ptr<BlockRunner> runner;
  std::vector<double> left;
  std::vector<double> right;
  std::vector<float> out;  // interleaved

  // The thread's own.
  bool audible;
  Pace pace;
  std::int64_t paced = 0;  // frames
  Clock::time_point lastTaken;

  std::atomic<bool> stopping = false;
  std::atomic<bool> cardLost = false;
  std::atomic<bool> failed = false;
  std::exception_ptr failure;  // set before `failed`
  std::thread thread;          // last: it uses all the rest
};
