// Which adapter an effect gets.
#include "host/state/effectadapter.h"

#include <filesystem>

#include "effect/parameters.h"
#include "host/base/text.h"

namespace {

constexpr const char* kPresetExtension = ".orv";

}  // namespace

std::unique_ptr<EffectAdapter> adapterFor(Effect& effect) {
  if (effect.record().uniqueID == kTrelvanID) return trelvanAdapter(effect);
  return genericAdapter(effect);
}

bool isPresetFile(const std::string& preset) {
  return sameLetters(std::filesystem::path(preset).extension().string(), kPresetExtension);
}
