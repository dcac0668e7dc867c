// The table of the bar's tooltips: what a click does, and what a second kind of click does.
#include "presetsystem/bar/bartips.h"

#include "editor/controls/commandkey.h"
#include "presetsystem/bar/presetbar.h"

namespace {

struct Tip {
  std::int32_t tag;
  const char* text;
  const char* withCommandKey;  // after the key's name; null: nothing
};

constexpr Tip kTips[] = {
    {kNameEditTag, "Rename the preset: click\nReturn keeps the name, Escape does not", nullptr},
    {kPresetMenuTag, "Choose from all 32 presets: click", nullptr},
    {kPresetRockerTag, "Step to the preset before or after:\nclick or wheel", nullptr},
    {kSavePresetTag, "Save this preset as a file", nullptr},
    {kSaveBankTag, "Save the bank, all 32 presets, as a file", nullptr},
    {kLoadPresetTag, "Load a preset from a file\nOther byte order: right click", nullptr},
    {kLoadBankTag, "Load a bank of presets from a file\nOther byte order: right click", nullptr},
    {kDefaultPresetTag,
     "Make this preset the default: double click\nReset the default: ", " double click"},
    {kDefaultBankTag,
     "Make this bank the default: double click\nReset the default: ", " double click"},
    {kMemoryAStoreTag, "Keep this preset in memory A", nullptr},
    {kMemoryBStoreTag, "Keep this preset in memory B", nullptr},
    {kMemoryARecallTag, "Put memory A into this preset", nullptr},
    {kMemoryBRecallTag, "Put memory B into this preset", nullptr},
    {kManualTag, "Open the manual", nullptr},
};

}  // namespace

std::string barTip(std::int32_t tag) {
  for (const Tip& tip : kTips) {
    if (tip.tag != tag) continue;
    std::string text = tip.text;
    if (tip.withCommandKey != nullptr) text.append(commandKeyName()).append(tip.withCommandKey);
    return text;
  }
  return {};
}
