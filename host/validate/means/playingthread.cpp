// A thread that plays noise through an effect all the time.
#include "host/validate/means/playingthread.h"

#include <chrono>

namespace {

// Short, so that blocks and what else is called meet often.
constexpr auto kBetweenBlocks = std::chrono::microseconds(200);

}  // namespace

PlayingThread::PlayingThread(Trial& itsTrial, Subject& itsSubject)
    : trial(itsTrial), subject(itsSubject), sound(itsSubject, kBlock) {
  sound.fillWithNoise(trial);
  thread = std::thread([this] { play(); });
}

PlayingThread::~PlayingThread() {
  end();
}

void PlayingThread::play() {
  while (wanted) {
    sound.playAll(subject, kBlock);
    if (sound.firstNotFinite() >= 0 && badBlock < 0) badBlock = blocks.load();
    ++blocks;
    std::this_thread::sleep_for(kBetweenBlocks);
  }
}

void PlayingThread::end() {
  wanted = false;
  if (thread.joinable()) thread.join();
}

void PlayingThread::waitForBlocks(int count) const {
  const int last = blocks + count;
  while (blocks < last) std::this_thread::sleep_for(kBetweenBlocks);
}

void PlayingThread::endAndCheck(const char* meanwhile) {
  trial.step("waiting for the last block of the audio thread");
  end();
  if (badBlock >= 0) {
    trial.fail("block %d of %d frames, played %s, holds what is no number", badBlock.load(), kBlock,
               meanwhile);
  }
  if (blocks == 0) trial.fail("no block was played %s", meanwhile);
}
