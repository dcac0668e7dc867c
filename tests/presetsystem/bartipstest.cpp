// The texts of the bar's tooltips.
#include "presetsystem/bar/bartips.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "editor/controls/commandkey.h"
#include "presetsystem/bar/presetbar.h"

namespace {

using ::testing::HasSubstr;

constexpr PresetBarTag kTags[] = {
    kNameEditTag,     kPresetRockerTag,  kLoadBankTag,      kSaveBankTag,      kLoadPresetTag,
    kSavePresetTag,   kPresetMenuTag,    kDefaultBankTag,   kDefaultPresetTag, kMemoryAStoreTag,
    kMemoryBStoreTag, kMemoryARecallTag, kMemoryBRecallTag, kManualTag,
};

TEST(BarTips, EveryControlHasOneOfItsOwnInOneOrTwoLines) {
  std::set<std::string> texts;
  for (const PresetBarTag tag : kTags) {
    const std::string text = barTip(tag);
    SCOPED_TRACE(text);
    EXPECT_FALSE(text.empty());
    EXPECT_LE(std::count(text.begin(), text.end(), '\n'), 1);
    EXPECT_TRUE(texts.insert(text).second);
  }
}

TEST(BarTips, NothingElseHasOne) {
  for (const std::int32_t tag : {-1, 0, 1, 2, 3, 4, 6, 1006, 1011, 1020})
    EXPECT_EQ(barTip(tag), "");
}

TEST(BarTips, TheyNameTheSecondKindOfClick) {
  const std::string withKey = std::string(commandKeyName()) + " double click";
  for (const PresetBarTag tag : {kDefaultBankTag, kDefaultPresetTag}) {
    EXPECT_THAT(barTip(tag), HasSubstr(": double click\n"));
    EXPECT_THAT(barTip(tag), HasSubstr(withKey));
  }
  for (const PresetBarTag tag : {kLoadBankTag, kLoadPresetTag})
    EXPECT_THAT(barTip(tag), HasSubstr("right click"));
  EXPECT_THAT(barTip(kPresetRockerTag), HasSubstr("wheel"));
}

}  // namespace
