// The lines on the standard error stream, and that there are no others.
#include <gtest/gtest.h>

#include <limits>

#include "tests/module/instance.h"

namespace {

using imagebytes::distinctBank;

class Diagnostics : public ModuleTest {
 protected:
  // What is written while `action` runs.
  template <typename Action>
  static std::string linesOf(Action action) {
    testing::internal::CaptureStderr();
    action();
    return testing::internal::GetCapturedStderr();
  }
  static void rename(Instance& instance, std::string name) {
    instance.send(effSetProgramName, 0, 0, name.data());
  }
};

TEST_F(Diagnostics, AreAbsentInANormalLife) {
  EXPECT_EQ(linesOf([&] {
              Instance instance(module);
              instance.send(effOpen);
              instance.setChunk(imagebytes::chunk(distinctBank(), 9));
              instance.setChunk(imagebytes::chunk(distinctBank(), 9, true));
              instance.setChunk(imagebytes::oldChunk(distinctBank(), 32, 5, 9));
              instance.setChunk({1, 2, 3});
              instance.chunk();
              instance.mainsChanged(true);
              instance.render(noise(1000));
              instance.close();
            }),
            "");
}

TEST_F(Diagnostics, NameAValueOutsideTheRangeOnSave) {
  Instance instance(module);
  instance.setParameter(0, 1.25F);
  EXPECT_EQ(linesOf([&] { instance.chunk(); }),
            "Invalid parameter 0 value 1.250000 on save of preset 0 init\n");
  EXPECT_EQ(instance.getParameter(0), 1.25F);
}

TEST_F(Diagnostics, NameAValueOutsideTheRangeOnLoad) {
  Instance instance(module);
  imagebytes::Bank damaged = distinctBank();
  damaged[3].values[2] = -0.25F;
  EXPECT_EQ(linesOf([&] { instance.setChunk(imagebytes::chunk(damaged, 3)); }),
            "Invalid parameter 2 value -0.250000 on load of preset 3 preset number 3\n");
  EXPECT_EQ(instance.getParameter(2), 0.0F);
}

// What was met before the value for which the bank is refused is told, what stands after it is not.
TEST_F(Diagnostics, NameWhatWasMetInABankThatIsRefused) {
  Instance instance(module);
  const imagebytes::Bytes before = instance.chunk();
  imagebytes::Bank damaged = distinctBank();
  damaged[3].values[2] = -0.25F;
  damaged[20].values[0] = 1.5F;
  damaged[20].values[1] = std::numeric_limits<float>::quiet_NaN();
  damaged[20].values[2] = 2.0F;
  damaged[30].values[0] = 2.0F;
  EXPECT_EQ(linesOf([&] { instance.setChunk(imagebytes::chunk(damaged, 3)); }),
            "Invalid parameter 2 value -0.250000 on load of preset 3 preset number 3\n"
            "Invalid parameter 0 value 1.500000 on load of preset 20 preset number 20\n");
  EXPECT_EQ(instance.chunk(), before);
}

TEST_F(Diagnostics, TakeAPresetsNameAsData) {
  Instance instance(module);
  instance.setParameter(4, 2.0F);
  const std::pair<const char*, const char*> names[] = {{"%n%n%s%p", "%n%n%s%p"},
                                                       {"100%% wet", "100% wet"},
                                                       {"%%n", "%n"},
                                                       {"%", "%"},
                                                       {"%%%%%s", "%%%s"}};
  for (const auto& [name, shown] : names) {
    rename(instance, name);
    EXPECT_EQ(
        linesOf([&] { instance.chunk(); }),
        std::string("Invalid parameter 4 value 2.000000 on save of preset 0 ") + shown + "\n");
  }
}

TEST_F(Diagnostics, ComeOncePerValue) {
  Instance instance(module);
  imagebytes::Bank damaged = distinctBank();
  for (imagebytes::Preset& preset : damaged) preset.values.fill(2.0F);
  const std::string lines = linesOf([&] { instance.setChunk(imagebytes::chunk(damaged, 0)); });
  EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 32 * 5);
}

}  // namespace
