// Checks of what stays in the host's process when an effect is gone.
#include <array>
#include <chrono>
#include <thread>

#include "host/validate/check.h"
#include "host/validate/means/possessions.h"
#include "host/validate/means/sanitized.h"
#include "host/validate/subject.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kTimeToEnd = std::chrono::milliseconds(500);  // for threads that are about to
constexpr auto kLookAgain = std::chrono::milliseconds(5);

void liveOnce(Trial& trial, int round) {
  trial.step("loading, making, opening, closing and unloading, the %d. time", round);
  PluginModule module(trial.plugin());
  const Subject subject(module);
}

Possessions possessionsNow(Trial& trial) {
  const auto found = possessions();
  if (!found) trial.leaveOut("what a process holds is not counted on this system");
  return *found;
}

// Once the threads that are ending have done so.
Possessions settledPossessions(Trial& trial, int threads) {
  const auto end = Clock::now() + kTimeToEnd;
  while (true) {
    const Possessions now = possessionsNow(trial);
    if (now.threads <= threads || Clock::now() > end) return now;
    std::this_thread::sleep_for(kLookAgain);
  }
}

// What is there after the first rounds and after many more. A library that stays once it is
// loaded, and what that keeps, is there after the first ones.
struct Rounds {
  int done;
  Possessions start;
  Possessions before;
  Possessions after;
};

Rounds liveOften(Trial& trial) {
  constexpr int kFirstRounds = 3;
  constexpr auto kLongest = std::chrono::seconds(25);
  constexpr std::size_t kEnoughGrowth = std::size_t{64} << 20;  // bytes: no need to go on
  const auto end = Clock::now() + kLongest;
  Rounds rounds{0, possessionsNow(trial), {}, {}};
  for (int round = 0; round < kFirstRounds; ++round) liveOnce(trial, round + 1);
  rounds.before = settledPossessions(trial, rounds.start.threads);
  const int wanted = trial.rounds(100);
  const auto goesOn = [&] {
    return rounds.done < wanted && Clock::now() < end &&
           residentBytes() < rounds.before.resident + kEnoughGrowth;
  };
  while (goesOn()) {
    ++rounds.done;
    liveOnce(trial, kFirstRounds + rounds.done);
  }
  rounds.after = settledPossessions(trial, rounds.before.threads);
  return rounds;
}

void leavesNothing(Trial& trial) {
  const auto [done, start, before, after] = liveOften(trial);
  if (after.hasChildren) trial.fail("a process that it started is left after %d rounds", done);
  if (after.threads > before.threads)
    trial.fail("%d threads are left after %d rounds", after.threads - before.threads, done);
  if (after.descriptors > before.descriptors)
    trial.fail("%d descriptors are left open after %d rounds",
               after.descriptors - before.descriptors, done);
  const int mappings = after.mappings - before.mappings;
  if (mappings >= done && done > 0)
    trial.fail("%d mappings are left after %d rounds", mappings, done);
  if (after.threads > start.threads || after.descriptors > start.descriptors)
    trial.note("%d rounds; what the first one left is %d threads and %d descriptors", done,
               after.threads - start.threads, after.descriptors - start.descriptors);
}

void growsByNothing(Trial& trial) {
  constexpr std::size_t kMostGrowth = std::size_t{1} << 20;  // bytes a round
  if (kSanitized) trial.leaveOut("a sanitizer keeps memory back");
  const auto [done, start, before, after] = liveOften(trial);
  if (done == 0) trial.leaveOut("its rounds take too long");
  const std::size_t grown = after.resident > before.resident ? after.resident - before.resident : 0;
  const std::size_t eachRound = grown / static_cast<std::size_t>(done);
  if (eachRound > kMostGrowth)
    trial.fail("memory grows by %zu KiB a round (%d rounds)", eachRound >> 10, done);
  trial.note("%zu KiB in %d rounds", grown >> 10, done);
}

void leavesWithItsUnloading(Trial& trial) {
  possessionsNow(trial);
  {
    PluginModule module(trial.plugin());
    const Subject subject(module);
    if (asksToStay(trial.plugin())) trial.leaveOut("it is linked never to be unloaded");
  }
  if (isMapped(trial.plugin()))
    trial.fail(
        "its binary stays in memory after it was unloaded: a new one is not taken until "
        "the host is started again");
}

constexpr std::array kChecks{
    Check{"loading and unloading again and again leaves nothing", 5, 60, leavesNothing},
    Check{"loading and unloading again and again takes no memory", 5, 60, growsByNothing},
    Check{"its binary leaves when it is unloaded", 10, 30, leavesWithItsUnloading},
};

}  // namespace

std::span<const Check> remainsChecks() {
  return kChecks;
}
