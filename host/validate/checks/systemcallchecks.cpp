// Checks that a thread that processes calls nothing of the system's.
#include <unistd.h>

#include <array>
#include <csignal>
#include <thread>

#include "host/validate/check.h"
#include "host/validate/means/sanitized.h"
#include "host/validate/means/sound.h"
#include "host/validate/means/systemcalltrap.h"

namespace {

constexpr double kRate = 48000.0;                     // Hz
constexpr std::array kBlocks{1024, 64, 512, 333, 1};  // frames; the longest first

// For the handler, which runs on the trapped thread.
Trial* trapped = nullptr;               // the check's
volatile std::sig_atomic_t moved = -1;  // the parameter that is being set; -1: processing

void failForCall(int number) {
  const int parameter = moved;
  if (parameter < 0)
    trapped->failAtOnce("calls the system while processing: %s (number %d)", systemCallName(number),
                        number);
  trapped->failAtOnce("calls the system when parameter %d moves between two blocks: %s (number %d)",
                      parameter, systemCallName(number), number);
}

// Everything that the thread needs is made before the trap; it ends with the process.
template <typename Sample>
void playTrapped(Trial& trial, Subject& subject) {
  Stretch<Sample> stretch(subject, kBlocks[0]);
  stretch.fillWithNoise(trial);
  const int parameters = subject.record().numParams;
  const auto play = [&](int rounds) {
    for (int round = 0; round < rounds; ++round) {
      for (const int frames : kBlocks) {
        if (parameters > 0) {
          moved = trial.randomInt(0, parameters - 1);
          subject.setParameter(moved, trial.randomUnit());
          moved = -1;
        }
        stretch.play(subject, 0, frames);
      }
    }
  };
  play(10);
  trapped = &trial;
  if (!trapSystemCalls(failForCall)) return;
  play(100);
  trial.passSoFar();
  _exit(0);
}

template <typename Sample>
[[noreturn]] void playOnTrappedThread(Trial& trial, Subject& subject) {
  if (kSanitized) trial.leaveOut("a sanitizer calls the system itself");
  trial.step("processing on a thread that may not call the system (%s)", kPrecision<Sample>);
  subject.start(kRate, kBlocks[0], kIsDouble<Sample>);
  std::thread([&] { playTrapped<Sample>(trial, subject); }).join();
  trial.leaveOut("this system cannot forbid a thread its calls");
}

void noSystemCall(Trial& trial) {
  LoadedEffect effect(trial);
  playOnTrappedThread<float>(trial, effect.subject);
}

void noSystemCallInDouble(Trial& trial) {
  LoadedEffect effect(trial);
  needDouble(trial, effect.subject);
  playOnTrappedThread<double>(trial, effect.subject);
}

// Pages that a block touches for the first time are fetched by the kernel meanwhile. Delay lines
// are full in the end; whoever goes on then has none.
void memoryStays(Trial& trial) {
  constexpr int kBlock = 512;         // frames
  constexpr int kPiece = 10 * 48000;  // frames
  constexpr int kPieces = 6;
  constexpr long kSome = 16;  // pages, for what is not the effect's
  if (kSanitized) trial.leaveOut("a sanitizer touches memory of its own");
  LoadedEffect effect(trial);
  if (pagesTouched() < 0) trial.leaveOut("this system does not tell what a thread touches");
  effect.subject.start(kRate, kBlock);
  Stretch<float> stretch(effect.subject, kBlock);
  stretch.fillWithNoise(trial);
  long touched = 0;
  for (int piece = 0; piece < kPieces; ++piece) {
    trial.step("playing ten seconds, number %d", piece + 1);
    const long before = pagesTouched();
    for (int frames = 0; frames < kPiece; frames += kBlock) stretch.playAll(effect.subject, kBlock);
    touched = pagesTouched() - before;
    if (piece > 0 && touched <= kSome) return;
  }
  trial.fail("touches %ld new pages of memory in ten seconds, after %d s of sound", touched,
             kPieces * kPiece / 48000);
}

constexpr std::array kChecks{
    Check{"processing touches no new memory after a minute", 10, 120, memoryStays},
    Check{"processing calls nothing of the system", 10, 30, noSystemCall},
    Check{"processing in double precision calls nothing of the system", 10, 30,
          noSystemCallInDouble},
};

}  // namespace

std::span<const Check> systemCallChecks() {
  return kChecks;
}
