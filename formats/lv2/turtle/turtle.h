// What a bundle says of its plug-ins in Turtle, as the effect's record says it.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "formats/lv2/shape.h"
#include "formats/record/hostedeffect.h"

namespace turtle {

struct Preset {
  std::string name;
  std::vector<float> values;  // 0..1, as the ports stand
};

// What the effect says of itself; the window is left out where `hasWindow` is not set.
struct Described {
  HostedEffect& effect;
  std::vector<Preset> presets;
  bool hasWindow;
};

// binary: its path in the bundle.
void writeManifest(std::ostream& out, const Described& described, const std::string& binary);
void writePlugins(std::ostream& out, const Described& described);  // trelvan.ttl
void writePresets(std::ostream& out, const Described& described);  // presets.ttl

// The bank of an effect that has just been made, without what only fills it.
std::vector<Preset> presetsOf(HostedEffect& effect);

}  // namespace turtle
