// What the processing is measured with: cases, and the plug-in or the reference that plays one.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "effect/trelvan.h"
#include "tests/support/processhost.h"
#include "tests/support/reference.h"
#include "tests/support/testsignals.h"

struct Case {
  enum class Gliding { none, gains, all };
  enum class Input { noise, silence, tiny, denormals };

  std::string name;
  bool inDouble = false;
  int block = 512;  // frames
  Gliding gliding = Gliding::none;
  Input input = Input::noise;
  float process = 1.0F;
  float width = 0.9F;
  int preset = -1;  // its values instead
  int instances = 1;
  bool together = true;  // many instances: several blocks of each before the next contestant's turn
};

std::vector<Case> processCases();
std::vector<Case> presetCases();  // each factory preset, at rest

// Plays a case over and over. form: of the kernel; null: the reference.
class CasePlayer {
 public:
  CasePlayer(const Case& played, const kernel::Form* form);

  void play(int blocks);              // of each instance
  void playNothing(int calls) const;  // of 0 frames; the plug-in only

 private:
  static constexpr int kMoveEvery =
      4096;  // frames at 44100 Hz: a third of the glides' closing time

  template <typename Sample>
  struct Buffers {
    Stereo<Sample> in;
    Stereo<Sample> out;
  };

  void moveParameters(bool up);
  template <typename Widener>
  void prepare(Widener& widener) const;
  template <typename Sample>
  void playBlock(Buffers<Sample>& buffers, std::size_t instance);

  Case played;
  std::vector<std::unique_ptr<Trelvan>> plugins;
  std::vector<std::unique_ptr<Reference>> references;
  Buffers<float> singles;
  Buffers<double> doubles;
  int sinceMove = 0;
  bool up = false;
};
