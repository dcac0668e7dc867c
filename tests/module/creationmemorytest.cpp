// An instance that is made and ended where memory runs out.
#include <gtest/gtest.h>

#include <cstdio>
#include <utility>

#include "tests/module/instance.h"
#include "tests/support/eachfailure.h"
#include "tests/support/silenthost.h"
#include "tests/support/temporaryfolder.h"

namespace {

using imagebytes::Bytes;

// What a user of some years has stored: all keys, each with a value that fits into no short string.
std::string fullPreferences() {
  const auto text = [](const std::string& value) { return "string:" + value; };
  const auto bytes = [](const Bytes& value) {
    std::string digits = "bytes:";
    for (const unsigned char byte : value) {
      char two[3];
      std::snprintf(two, sizeof two, "%02x", byte);
      digits += two;
    }
    return digits;
  };
  const imagebytes::Bank bank = imagebytes::distinctBank();
  const std::pair<const char*, std::string> values[] = {
      {"CurrDir", text("/home/somebody/sounds/presets/")},
      {"CurrBank", text("all that I made in spring.orb")},
      {"CurrPreset", text("the one for the strings.orv")},
      {"DefaultBank", bytes(imagebytes::bankImage(bank, 9))},
      {"DefaultPreset", bytes(imagebytes::presetImage(bank[20]))},
      {"MemoAPreset", bytes(imagebytes::presetImage(bank[21]))},
      {"MemoBPreset", bytes(imagebytes::presetImage(bank[22]))},
  };
  std::string file = "[Preferences]\n";
  for (const auto& [key, value] : values) file += key + ("=" + value) + "\n";
  return file;
}

// What an instance is that starts with them: the default preset stands in the default bank's
// first place.
Bytes fullChunk() {
  imagebytes::Bank bank = imagebytes::distinctBank();
  bank[0] = bank[20];
  return imagebytes::chunk(bank, 0);
}

class MemoryOfInstances : public testing::TestWithParam<bool> {
 protected:
  MemoryOfInstances() {
    std::filesystem::create_directory(home / "orv");
    if (GetParam()) writeFile(file(), fullPreferences());
    expected = GetParam() ? fullChunk() : Instance(module, silentHost).chunk();
  }

  std::string file() const { return home / "orv/trelvan.conf"; }

  // The user's preferences are as they were, and nothing lies beside them.
  void expectPreferencesUntouched() const {
    EXPECT_TRUE(contentOf(file()) == (GetParam() ? fullPreferences() : ""));  // 30 kB
    const std::filesystem::directory_iterator all(home / "orv");
    EXPECT_EQ(std::distance(begin(all), end(all)), GetParam() ? 1 : 0);
  }

  static void expectToWork(AEffect* effect) {
    effect->dispatcher(effect, effMainsChanged, 0, 1, nullptr, 0.0F);
    effect->setParameter(effect, 3, 0.0F);
    float left[] = {0.5F, 0.25F};
    float right[] = {-0.5F, 1.0F};
    float* channels[] = {left, right};
    effect->processReplacing(effect, channels, channels, 2);
    EXPECT_EQ(left[1], 0.25F);
    EXPECT_EQ(right[1], 1.0F);
  }

  VstIntPtr close() {
    const VstIntPtr answer = effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0F);
    effect = nullptr;
    return answer;
  }

  TemporaryFolder home;
  ScopedVariable config{"XDG_CONFIG_HOME", home.path};
  ScopedVariable identifier{"TRELVAN_PREFERENCES", preferencesOf(home.path)};
  LoadedModule module;
  AEffect* effect = nullptr;
  Bytes expected;  // the chunk of an instance that is made with these preferences
};

INSTANTIATE_TEST_SUITE_P(With, MemoryOfInstances, testing::Bool(),
                         [](const auto& kind) { return kind.param ? "Preferences" : "None"; });

// A host gets no effect, or one that works where the effect can do without.
TEST_P(MemoryOfInstances, NoneOrOneThatWorksIsMade) {
  for (const auto fails : kBothWaysToFail) {
    int refused = 0;
    FailingCall making;
    making.call = [&] { effect = module.create(silentHost); };
    making.afterFailure = [&] {
      if (effect == nullptr) {
        ++refused;
      } else {
        expectToWork(effect);
        EXPECT_EQ(close(), 1);
      }
      expectPreferencesUntouched();
    };
    making.callOnceMore = [&] {
      EXPECT_EQ(Instance(module, silentHost).chunk(), expected);
      expectPreferencesUntouched();
    };
    const long allocations = failEach(making, fails);
    if (HasFailure()) return;
    ASSERT_NE(effect, nullptr);
    EXPECT_GT(allocations, GetParam() ? 20 : 3);
    EXPECT_GT(refused, 6) << "the effect, its bank, its delay line and its editor, twice";
    close();
  }
}

TEST_P(MemoryOfInstances, TheEndTakesNone) {
  for (int time = 0; time < 2; ++time) {
    effect = module.create(silentHost);
    ASSERT_NE(effect, nullptr);
    VstIntPtr answer = 0;
    bool failed = false;
    {
      const EndOfProcess end(0);
      const FailingMemory memory(0, FailingMemory::Fails::allFromThere);
      answer = close();
      failed = memory.hasFailed();
    }
    EXPECT_EQ(answer, 1);
    EXPECT_FALSE(failed);
  }
  expectPreferencesUntouched();
}

}  // namespace
