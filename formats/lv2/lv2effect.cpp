// Ports, blocks, and what the window and the effect say to each other.
#include "formats/lv2/lv2effect.h"

#include <lv2/atom/atom.h>

#include <algorithm>
#include <cmath>

#include "formats/lv2/uris.h"

std::unique_ptr<Lv2Effect> Lv2Effect::make(const Lv2Shape& shape, double rate,
                                           const LV2_URID_Map* map) {
  constexpr double kHighestRate = 1e9;  // Hz: the record holds whole numbers
  if (!(rate > 0.0 && rate <= kHighestRate)) return nullptr;
  std::unique_ptr<Lv2Effect> made(new Lv2Effect(shape, map));
  made->effect = HostedEffect::make(*made, rate, shape.inputs);
  if (!made->effect) return nullptr;
  made->controls = std::vector<Control>(static_cast<std::size_t>(made->effect->parameterCount()));
  return made;
}

Lv2Effect::Lv2Effect(const Lv2Shape& itsShape, const LV2_URID_Map* map) : shape(itsShape) {
  if (map == nullptr) return;
  chunkKey = map->map(map->handle, lv2uris::kChunk);
  chunkType = map->map(map->handle, LV2_ATOM__Chunk);
}

Lv2Effect::~Lv2Effect() {
  if (window != nullptr) window->effectEnds();
}

void Lv2Effect::connect(std::uint32_t port, void* place) {
  if (port < shape.firstControl()) {
    audio[port] = static_cast<float*>(place);
    wired = std::count(audio, audio + shape.firstControl(), nullptr) == 0;
  } else if (port - shape.firstControl() < controls.size()) {
    controls[port - shape.firstControl()].port = static_cast<const float*>(place);
  }
}

void Lv2Effect::activate() {
  effect->start();
  portsAreNew = true;
}

void Lv2Effect::deactivate() {
  effect->stop();
}

void Lv2Effect::run(std::uint32_t frames) {
  if (!effect->isStarted()) return silence(frames);
  takeControls();
  if (wired) {
    process(frames);
  } else {
    silence(frames);
  }
}

// Where the first values of the ports are not the effect's, it starts with them and does not glide
// there.
void Lv2Effect::takeControls() {
  bool changed = false;
  for (Control& control : controls) {
    if (control.port == nullptr || *control.port == control.seen || control.held) continue;
    control.seen = *control.port;
    const float value = std::clamp(control.seen, 0.0F, 1.0F);
    if (std::isnan(value)) continue;
    const int index = static_cast<int>(&control - controls.data());
    changed = changed || effect->parameter(index) != value;
    effect->setParameter(index, value);
  }
  if (portsAreNew && changed) effect->startAgain();
  portsAreNew = false;
}

void Lv2Effect::process(std::uint32_t frames) {
  constexpr std::uint32_t kMost = 1U << 30U;  // frames; the record counts with a sign
  for (std::uint32_t done = 0; done < frames;) {
    const std::uint32_t now = std::min(frames - done, kMost);
    float* ins[] = {audio[0] + done, audio[shape.inputs - 1] + done};
    float* outs[] = {audio[shape.firstOutput()] + done, audio[shape.firstOutput() + 1] + done};
    effect->process(ins, outs, static_cast<VstInt32>(now));
    done += now;
  }
}

void Lv2Effect::silence(std::uint32_t frames) const {
  for (std::uint32_t port = shape.firstOutput(); port < shape.firstControl(); ++port) {
    if (audio[port] != nullptr) std::fill_n(audio[port], frames, 0.0F);
  }
}

bool Lv2Effect::attach(Lv2EffectWindow* newWindow) {
  if (window != nullptr) return false;
  window = newWindow;
  return true;
}

void Lv2Effect::detach() {
  window = nullptr;
  for (Control& control : controls) control.held = false;
}

bool Lv2Effect::windowHears(int index) const {
  return restoring.load() != std::this_thread::get_id() && window != nullptr && index >= 0 &&
         static_cast<std::size_t>(index) < controls.size();
}

void Lv2Effect::parameterEdited(int index, float value) {
  if (windowHears(index)) window->parameterEdited(index, value);
}

void Lv2Effect::editBegun(int index) {
  if (!windowHears(index)) return;
  controls[static_cast<std::size_t>(index)].held = true;
  window->editBegun(index);
}

void Lv2Effect::editEnded(int index) {
  if (!windowHears(index)) return;
  controls[static_cast<std::size_t>(index)].held = false;
  window->editEnded(index);
}
