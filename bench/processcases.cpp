// The cases, and how one is played.
#include "bench/processcases.h"

namespace {

template <typename Sample>
Stereo<Sample> inputOf(Case::Input input, std::size_t frames) {
  switch (input) {
    case Case::Input::silence:
      return makeSignal<Sample>(Signal::kSilence, frames);
    case Case::Input::denormals:
      return makeSignal<Sample>(Signal::kDenormals, frames);
    default:
      break;
  }
  auto noise = makeSignal<Sample>(Signal::kNoise, frames);
  if (input == Case::Input::tiny) {
    for (auto* channel : {&noise.left, &noise.right})
      for (Sample& sample : *channel) sample *= static_cast<Sample>(1e-20);
  }
  return noise;
}

}  // namespace

std::vector<Case> processCases() {
  using Gliding = Case::Gliding;
  using Input = Case::Input;
  return {
      {.name = "single, settled"},
      {.name = "double, settled", .inDouble = true},
      {.name = "process off, single", .process = 0.0F},
      {.name = "process off, double", .inDouble = true, .process = 0.0F},
      {.name = "gliding width and emphasis", .gliding = Gliding::gains},
      {.name = "gliding all three", .gliding = Gliding::all},
      {.name = "double, gliding width and emphasis", .inDouble = true, .gliding = Gliding::gains},
      {.name = "double, gliding all three", .inDouble = true, .gliding = Gliding::all},
      {.name = "single, settled", .block = 64},
      {.name = "single, settled", .block = 32},
      {.name = "single, settled", .block = 16},
      {.name = "double, settled", .inDouble = true, .block = 64},
      {.name = "single, settled", .block = 4096},
      {.name = "500 instances in turn", .instances = 500},
      {.name = "500 of 2000 instances in turn", .instances = 500, .together = false},
      {.name = "silence", .input = Input::silence},
      {.name = "noise near 1e-20", .input = Input::tiny},
      {.name = "width 0", .width = 0.0F},
      {.name = "denormal numbers", .input = Input::denormals},
      {.name = "denormal numbers, double", .inDouble = true, .input = Input::denormals},
  };
}

std::vector<Case> presetCases() {
  std::vector<Case> cases;
  for (int preset = 0; preset < 32; ++preset)
    cases.push_back({.name = "preset " + std::to_string(preset), .preset = preset});
  return cases;
}

CasePlayer::CasePlayer(const Case& what, const kernel::Form* form) : played(what) {
  const auto frames = static_cast<std::size_t>(played.block);
  singles.in = inputOf<float>(played.input, frames);
  singles.out = singles.in;
  doubles.in = inputOf<double>(played.input, frames);
  doubles.out = doubles.in;
  for (int instance = 0; instance < played.instances; ++instance) {
    if (form != nullptr) {
      plugins.push_back(std::make_unique<Trelvan>(processHost));
      plugins.back()->useKernel(*form);
      prepare(*plugins.back());
    } else {
      references.push_back(std::make_unique<Reference>());
      prepare(*references.back());
    }
  }
  play(44100 / played.block);
}

template <typename Widener>
void CasePlayer::prepare(Widener& widener) const {
  float values[] = {played.width, 0.3F, 0.6F, played.process, 0.0F};
  if (played.preset >= 0) {
    Trelvan factory(processHost);
    for (int index = 0; index < kParameterCount; ++index)
      values[index] = factory.preset(played.preset).parameter(index);
  }
  widener.setSampleRate(44100.0F);
  for (int index = 0; index < kParameterCount; ++index) widener.setParameter(index, values[index]);
  widener.resume();
}

void CasePlayer::moveParameters(bool upward) {
  const auto move = [&](auto& widener) {
    widener->setParameter(0, upward ? 0.9F : 0.4F);
    widener->setParameter(2, upward ? 0.6F : 0.2F);
    if (played.gliding == Case::Gliding::all) widener->setParameter(1, upward ? 0.3F : 0.1F);
  };
  for (auto& plugin : plugins) move(plugin);
  for (auto& reference : references) move(reference);
}

template <typename Sample>
void CasePlayer::playBlock(Buffers<Sample>& buffers, std::size_t instance) {
  Sample* in[] = {buffers.in.left.data(), buffers.in.right.data()};
  Sample* out[] = {buffers.out.left.data(), buffers.out.right.data()};
  if constexpr (sizeof(Sample) == sizeof(float)) {
    if (!plugins.empty()) {
      plugins[instance]->processReplacing(in, out, played.block);
    } else {
      references[instance]->processReplacing(in, out, played.block, true, true);
    }
  } else {
    if (!plugins.empty()) {
      plugins[instance]->processDoubleReplacing(in, out, played.block);
    } else {
      references[instance]->processDoubleReplacing(in, out, played.block, true, true);
    }
  }
}

void CasePlayer::play(int blocks) {
  for (int block = 0; block < blocks; ++block) {
    if (played.gliding != Case::Gliding::none && (sinceMove += played.block) >= kMoveEvery) {
      sinceMove = 0;
      moveParameters(up);
      up = !up;
    }
    for (std::size_t instance = 0; instance < static_cast<std::size_t>(played.instances);
         ++instance) {
      if (played.inDouble) {
        playBlock(doubles, instance);
      } else {
        playBlock(singles, instance);
      }
    }
  }
}

void CasePlayer::playNothing(int calls) const {
  for (int call = 0; call < calls; ++call) plugins.front()->processReplacing(nullptr, nullptr, 0);
}
