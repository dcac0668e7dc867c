// Which adapter an effect gets.
#include "host/state/effectadapter.h"

#include <filesystem>

#include "host/base/text.h"
#include "host/state/genericadapter.h"
#include "host/state/trelvanadapter.h"

namespace {

constexpr VstInt32 kTrelvanID = vstFourChars('T', 'l', 'v', 'n');
constexpr const char* kPresetExtension = ".orv";

}  // namespace

std::unique_ptr<EffectAdapter> adapterFor(Effect& effect) {
  if (effect.record().uniqueID == kTrelvanID) return std::make_unique<TrelvanAdapter>(effect);
  return std::make_unique<GenericAdapter>(effect);
}

bool isPresetFile(const std::string& preset) {
  return sameLetters(std::filesystem::path(preset).extension().string(), kPresetExtension);
}
