// The factory presets.
#include <iterator>

#include "effect/parameters.h"
#include "effect/trelvan.h"

namespace {

struct FactoryPreset {
  const char* name;
  float width;
  float baseFreq;
  float emphasis;
};

// From slot 1 on; whatever is not said here is as in the initial preset.
constexpr FactoryPreset kFactoryPresets[] = {
    {"mix 1", 0.75F, 0.25F, 0.25F},
    {"mix 2", 0.5F, 0.61F, 0.12F},
    {"mix 3", 0.6F, 0.15F, 0.5F},
    {"room 1", 0.75F, 0.2F, 0.5F},
    {"room 2", 0.5F, 0.11F, 0.5F},
    {"room 3", 0.63F, 0.64F, 0.0F},
    {"techno space 1", 0.75F, 0.25F, 0.25F},
    {"techno space 2", 0.75F, 0.25F, 0.5F},
    {"piano 1", 0.6F, 0.24F, 0.0F},
    {"piano 2", 0.75F, 0.15F, 0.24F},
    {"piano 3", 0.75F, 0.58F, 0.3F},
    {"guitar 1", 0.55F, 0.8F, 0.0F},
    {"guitar 2", 0.6F, 0.23F, 0.0F},
    {"guitar 3", 1.0F, 0.44F, 0.5F},
    {"bas 1", 0.4F, 0.5F, 0.0F},
    {"bas 2", 0.65F, 0.18F, 0.37F},
    {"bas 3", 0.75F, 0.25F, 0.5F},
    {"bas 4", 0.6F, 0.52F, 0.19F},
    {"kick 1", 0.5F, 0.38F, 0.0F},
    {"kick 2", 0.7F, 0.35F, 0.2F},
    {"toms", 0.7F, 0.5F, 0.25F},
    {"over heads 1", 0.8F, 0.3F, 0.4F},
    {"over heads 2", 0.9F, 0.38F, 0.6F},
};
static_assert(std::size(kFactoryPresets) < CPresetSystemEffect::kPresetCount);

}  // namespace

void Trelvan::initPresets() {
  bank().fill(initialPreset());
  long slot = 1;
  for (const FactoryPreset& factory : kFactoryPresets) {
    preset(slot).rename(factory.name);
    preset(slot).width = factory.width;
    preset(slot).baseFreq = factory.baseFreq;
    preset(slot).emphasis = factory.emphasis;
    ++slot;
  }
}
