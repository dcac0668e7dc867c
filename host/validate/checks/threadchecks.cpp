// Checks with several threads: parameters, instances beside each other, making and closing.
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <deque>
#include <functional>
#include <memory>
#include <random>
#include <thread>
#include <utility>
#include <vector>

#include "host/validate/check.h"
#include "host/validate/means/meanwhile.h"
#include "host/validate/means/stretch.h"
#include "host/validate/subject.h"

namespace {

constexpr double kRate = 48000.0;  // Hz
constexpr int kBlock = 256;        // frames

using Clock = std::chrono::steady_clock;
constexpr auto kLongest = std::chrono::seconds(10);  // as long as a check goes on

// Automation comes from another thread in many hosts.
void isSetWhileItProcesses(Trial& trial) {
  constexpr int kBlocks = 2000;
  constexpr int kMovements = 1000;  // at least, however the system shares its time out
  PluginModule module(trial.plugin());
  Subject subject(module);
  const int count = subject.record().numParams;
  if (count == 0) trial.leaveOut("it has no parameters");
  needSoundIn(trial, subject);
  subject.start(kRate, kBlock);
  std::atomic<VstInt32> outside = -1;  // parameter that was not within 0..1
  Stretch<float> stretch(subject, kBlock);
  int block = 0;
  trial.step("processing while another thread sets and gets parameters");
  {
    std::mt19937_64 chance(trial.random()());
    const Meanwhile other([&] {
      constexpr auto kSteps = std::uint64_t{1} << 24;  // of a float's unit
      const auto index = static_cast<VstInt32>(chance() % static_cast<std::uint64_t>(count));
      subject.setParameter(index, static_cast<float>(chance() % kSteps) / kSteps);
      if (!isUnit(subject.parameter(index))) outside = index;
    });
    const auto end = Clock::now() + kLongest;
    const auto goesOn = [&] {
      return (block < trial.rounds(kBlocks) || other.timesDone() < kMovements) &&
             stretch.firstNotFinite() < 0 && Clock::now() < end;
    };
    for (; goesOn(); ++block) {
      stretch.fillWithNoise(trial);
      stretch.playAll(subject, kBlock);
    }
  }
  if (stretch.firstNotFinite() >= 0)
    trial.fail(
        "block %d of %d frames has samples that are no numbers while another thread sets "
        "parameters",
        block, kBlock);
  if (outside >= 0)
    trial.fail("parameter %d is not between 0 and 1 while another thread sets it", outside.load());
}

// A fresh effect, switched on, and what it is to play.
struct Player {
  Player(PluginModule& module, Stretch<float>* like) : subject(module) {
    subject.start(kRate, kBlock);
    stretch = std::make_unique<Stretch<float>>(subject, kFrames);
    if (like == nullptr) return;
    for (int pin = 0; pin < std::min(stretch->inputs(), like->inputs()); ++pin)
      std::copy_n(like->in(pin), kFrames, stretch->in(pin));
  }
  void play() { stretch->playAll(subject, kBlock); }

  static constexpr int kFrames = 64 * kBlock;
  Subject subject;
  std::unique_ptr<Stretch<float>> stretch;
};

// The largest difference between two sounds of the same shape.
float differenceOf(const Player& a, const Player& b) {
  float largest = 0.0F;
  const auto& left = a.stretch->outputChannels();
  const auto& right = b.stretch->outputChannels();
  for (std::size_t pin = 0; pin < std::min(left.size(), right.size()); ++pin) {
    for (std::size_t frame = 0; frame < left[pin].size(); ++frame)
      largest = std::max(largest, std::abs(left[pin][frame] - right[pin][frame]));
  }
  return largest;
}

// Hosts process tracks in parallel. Compared with what the same number of instances plays one after
// the other; where buffers lie may decide how an effect rounds, and what comes from another
// instance is louder.
void playsOnThreadsOfTheirOwn(Trial& trial) {
  constexpr int kInstances = 4;
  constexpr float kRounding = 1e-4F;
  PluginModule module(trial.plugin());
  Player first(module, nullptr);
  needSoundIn(trial, first.subject);
  first.stretch->fillWithNoise(trial);
  first.play();
  bool isReliable = true;
  const auto end = Clock::now() + kLongest;
  for (int round = -1; round < trial.rounds(3) && Clock::now() < end; ++round) {
    const bool inParallel = round >= 0;
    trial.step("processing in %d instances, %s", kInstances,
               inParallel ? "each on a thread of its own" : "one after the other");
    std::deque<Player> players;
    for (int i = 0; i < kInstances; ++i) players.emplace_back(module, first.stretch.get());
    std::vector<std::thread> threads;
    for (Player& player : players) {
      if (inParallel)
        threads.emplace_back([&player] { player.play(); });
      else
        player.play();
    }
    for (std::thread& thread : threads) thread.join();
    for (const Player& player : players) {
      if (player.stretch->firstNotFinite() >= 0)
        trial.fail("samples are no numbers when %d instances process", kInstances);
      const float difference = differenceOf(first, player);
      if (!inParallel) isReliable = isReliable && difference <= kRounding;
      if (isReliable && difference > kRounding)
        trial.fail("sounds otherwise when %d instances process in parallel (by up to %g)",
                   kInstances, difference);
    }
  }
  if (!isReliable) trial.note("its sound differs from instance to instance, and was not compared");
}

// Somebody adds and removes effects while others sound.
void isMadeWhileAnotherPlays(Trial& trial) {
  PluginModule module(trial.plugin());
  Player player(module, nullptr);
  needSoundIn(trial, player.subject);
  player.stretch->fillWithNoise(trial);
  {
    const Meanwhile audio([&] { player.play(); });
    const auto end = Clock::now() + kLongest;
    for (int round = 0; round < trial.rounds(20) && Clock::now() < end; ++round) {
      trial.step("waiting for the instance that processes");
      for (const int before = audio.timesDone(); audio.timesDone() == before;)
        std::this_thread::yield();
      trial.step("making and closing an instance while another one processes, the %d. time",
                 round + 1);
      Subject other(module);
      other.start(kRate, kBlock);
    }
  }
  if (player.stretch->firstNotFinite() >= 0)
    trial.fail("samples are no numbers while other instances are made and closed");
}

constexpr std::array kChecks{
    Check{"parameters are set while it processes", 8, 60, isSetWhileItProcesses},
    Check{"instances process on threads of their own", 8, 60, playsOnThreadsOfTheirOwn},
    Check{"an instance is made and closed while another one processes", 8, 30,
          isMadeWhileAnotherPlays},
};

}  // namespace

std::span<const Check> threadChecks() {
  return kChecks;
}
