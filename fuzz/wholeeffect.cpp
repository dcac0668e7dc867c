// Makes the effect as a host does, in an empty temporary folder.
#include "fuzz/wholeeffect.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "fuzz/records.h"
#include "fuzz/require.h"
#include "plugin/createeffectinstance.h"
#include "tests/support/silenthost.h"

namespace fuzz {
namespace {

class Fixture {
 public:
  Fixture() {
    const std::filesystem::path memory = "/dev/shm";
    const bool hasMemory = access(memory.c_str(), W_OK) == 0;
    std::string pattern =
        ((hasMemory ? memory : std::filesystem::temp_directory_path()) / "trelvan-fuzz-XXXXXX")
            .string();
    require(mkdtemp(pattern.data()) != nullptr, "a temporary folder can be made");
    folder = pattern;
    setenv("XDG_CONFIG_HOME", pattern.c_str(), 1);
    unsetenv("DISPLAY");
    record = createEffectRecord(silentHost);
    require(record != nullptr, "the effect can be made");
  }
  ~Fixture() {
    record->dispatcher(record, effClose, 0, 0, nullptr, 0.0F);
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  Fixture(const Fixture&) = delete;
  Fixture& operator=(const Fixture&) = delete;

  std::filesystem::path preferences() const { return folder / "orv/trelvan.conf"; }
  Trelvan& effect() { return *static_cast<Trelvan*>(static_cast<AudioEffect*>(record->object)); }

 private:
  std::filesystem::path folder;
  AEffect* record = nullptr;
};

Fixture& fixture() {
  static Fixture one;
  return one;
}

}  // namespace

Trelvan& wholeEffect() {
  return fixture().effect();
}

std::filesystem::path preferencesFile() {
  return fixture().preferences();
}

CPresetSystemEditor& wholeEffectsEditor() {
  return *static_cast<CPresetSystemEditor*>(wholeEffect().getEditor());
}

void resetWholeEffect(const presetimage::Bank& bank, long current) {
  wholeEffect().bank() = bank;
  wholeEffect().setPresetNo(current);
}

void requireSoundState() {
  Trelvan& effect = wholeEffect();
  require(normalised(effect.bank()), "all values of the effect's bank lie in 0..1");
  require(effect.getPresetNo() >= 0 && effect.getPresetNo() < presetimage::kPresetCount,
          "the current preset is one of the bank");
  require(!effect.isPresetChangeInProgress(), "no preset change is left open");
  for (int index = 0; index < presetimage::kParameterCount; ++index) {
    const float value = effect.getParameter(index);
    require(value >= 0.0F && value <= 1.0F, "all parameters of the effect lie in 0..1");
  }
}

void requireCurrentPresetPlays() {
  Trelvan& effect = wholeEffect();
  for (int index = 0; index < presetimage::kParameterCount; ++index) {
    require(effect.getParameter(index) == effect.preset(effect.getPresetNo()).parameter(index),
            "the current preset's values are the effect's");
  }
}

}  // namespace fuzz
