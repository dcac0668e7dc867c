// The window's scale among an LV2 host's options.
#include "formats/lv2/lv2scale.h"

#include <gtest/gtest.h>
#include <lv2/atom/atom.h>
#include <lv2/options/options.h>
#include <lv2/ui/ui.h>

#include <vector>

#include "tests/formats/lv2kept.h"

namespace {

class Lv2Scale : public testing::Test {
 protected:
  // As of a host that has the map where `mapped`, and these options.
  float of(std::vector<LV2_Options_Option> options, bool mapped = true) {
    options.push_back({});
    const LV2_Feature feature{LV2_OPTIONS__options, options.data()};
    const LV2_Feature* const map = mapped ? *numbers.features() : nullptr;
    const LV2_Feature* const features[] = {&feature, map, nullptr};
    return scaleOption(features);
  }
  LV2_Options_Option option(const void* value, const char* type = LV2_ATOM__Float,
                            std::uint32_t size = sizeof(float),
                            const char* key = LV2_UI__scaleFactor,
                            LV2_Options_Context context = LV2_OPTIONS_INSTANCE) {
    return {context, 0, numbers.of(key), size, numbers.of(type), value};
  }

  Lv2Numbers numbers;
  float two = 2.0F;
  float three = 3.0F;
  double wide = 2.0;
  std::int32_t whole = 2;
};

}  // namespace

TEST_F(Lv2Scale, IsFoundAmongOtherOptions) {
  EXPECT_EQ(of({option(&two)}), 2.0F);
  const auto rate = option(&three, LV2_ATOM__Float, sizeof three, LV2_UI__updateRate);
  EXPECT_EQ(of({rate, option(&two), rate}), 2.0F);
}

TEST_F(Lv2Scale, IsWhatTheHostSaysNonsenseToo) {
  const float negative = -1.0F;
  EXPECT_EQ(of({option(&negative)}), -1.0F);
}

TEST_F(Lv2Scale, IsNoneWithoutTheOptionOrWhatNamesIt) {
  EXPECT_EQ(of({}), 0.0F);
  EXPECT_EQ(of({option(&two)}, false), 0.0F);
  EXPECT_EQ(scaleOption(numbers.features()), 0.0F);
  const LV2_Feature* const nothing[] = {nullptr};
  EXPECT_EQ(scaleOption(nothing), 0.0F);
}

TEST_F(Lv2Scale, IsNoneOfAnotherTypeSizeOrContext) {
  EXPECT_EQ(of({option(&whole, LV2_ATOM__Int)}), 0.0F);
  EXPECT_EQ(of({option(&wide, LV2_ATOM__Double, sizeof wide)}), 0.0F);
  EXPECT_EQ(of({option(&wide, LV2_ATOM__Float, sizeof wide)}), 0.0F);
  EXPECT_EQ(of({option(nullptr)}), 0.0F);
  EXPECT_EQ(of({option(&two, LV2_ATOM__Float, sizeof two, LV2_UI__scaleFactor, LV2_OPTIONS_PORT)}),
            0.0F);
}

TEST_F(Lv2Scale, IsTheOneThatIsANumberAmongSeveral) {
  EXPECT_EQ(of({option(&whole, LV2_ATOM__Int), option(&three)}), 3.0F);
}
