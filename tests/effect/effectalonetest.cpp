// The effect without the window: the library alone plays, names its presets and takes and
// hands out chunks.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "effect/parameters.h"
#include "effect/trelvan.h"
#include "plugin/aeffeditor.h"
#include "plugin/createeditor.h"
#include "presetsystem/store/presetlistener.h"

// In the place of the window's: an editor that shows nothing and writes down what it is told.
class Listener final : public AEffEditor, public PresetListener {
 public:
  explicit Listener(AudioEffect* effect) : AEffEditor(effect) {
    static_cast<Trelvan*>(effect)->setPresetListener(this);
  }
  void setParameter(VstInt32 index, float) override { changed.push_back(index); }
  void presetsChanged() override { ++banks; }
  void nameChangedExternal(const char* name) override { lastName = name; }
  void loadDefaults() override { ++defaults; }

  std::vector<VstInt32> changed;
  std::string lastName;
  int banks = 0;
  int defaults = 0;
};

AEffEditor* createEditor(AudioEffect* effect) {
  return new Listener(effect);
}

namespace {

VstIntPtr host(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
  return opcode == audioMasterVersion ? kVstVersion : 0;
}

class EffectAlone : public testing::Test {
 protected:
  Listener& listener() { return static_cast<Listener&>(*effect.getEditor()); }
  VstIntPtr send(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr) {
    AEffect* record = effect.getAeffect();
    return record->dispatcher(record, opcode, index, value, ptr, 0.0F);
  }
  std::vector<unsigned char> chunk() {
    void* data = nullptr;
    const VstIntPtr size = send(effGetChunk, 0, 0, &data);
    const auto* bytes = static_cast<const unsigned char*>(data);
    return {bytes, bytes + size};
  }

  Trelvan effect{host};
};

TEST_F(EffectAlone, AsksForTheDefaultsOnceAndTellsEachParameterOfTheFirstPreset) {
  EXPECT_EQ(listener().defaults, 1);
  EXPECT_EQ(listener().changed, (std::vector<VstInt32>{0, 1, 2, 3, 4}));
}

TEST_F(EffectAlone, TellsWhatHostsChange) {
  listener().changed.clear();
  send(effSetProgramName, 0, 0, const_cast<char*>("a name"));
  EXPECT_EQ(listener().lastName, "a name");
  effect.setParameter(kEmphasisIndex, 0.5F);
  EXPECT_EQ(listener().changed, (std::vector<VstInt32>{2}));
}

TEST_F(EffectAlone, RestoresItsBankFromItsChunk) {
  effect.setPresetNo(14);
  effect.setParameter(kWidthIndex, 0.25F);
  std::vector<unsigned char> state = chunk();
  ASSERT_EQ(state.size(), 10545U);
  Trelvan other(host);
  EXPECT_EQ(other.setChunk(state.data(), static_cast<VstInt32>(state.size()), false), 0);
  EXPECT_EQ(static_cast<Listener&>(*other.getEditor()).banks, 1);
  EXPECT_EQ(other.getPresetNo(), 14);
  EXPECT_EQ(other.getParameter(kWidthIndex), 0.25F);
  EXPECT_STREQ(other.preset(14).name, "guitar 3");
}

using Work = void (*)(AEffect*);

void process(AEffect* effect) {
  effect->processReplacing(effect, nullptr, nullptr, 0);
}
void switchOn(AEffect* effect) {
  effect->dispatcher(effect, effMainsChanged, 0, 1, nullptr, 0.0F);
}
void switchOff(AEffect* effect) {
  effect->dispatcher(effect, effMainsChanged, 0, 0, nullptr, 0.0F);
}
void close(AEffect* effect) {
  effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0F);
}

Work meanwhile = nullptr;  // done once, on another thread, while an effect asks its host something

VstIntPtr hostOfTwoThreads(AEffect* effect, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
  if (const Work work = std::exchange(meanwhile, nullptr); work != nullptr)
    std::thread(work, effect).join();
  return opcode == audioMasterVersion ? kVstVersion : 0;
}

void doBoth(Work one, Work other) {
  auto* effect = new Trelvan(hostOfTwoThreads);
  meanwhile = other;
  one(effect->getAeffect());
}

TEST(EffectAloneDeathTest, HasOneThreadAtATimeForTheSignalWhereThatIsChecked) {
  if (!kThreadsAreChecked) GTEST_SKIP() << "not in this build";
  EXPECT_DEATH(doBoth(process, process), "process: another thread is processing");
  EXPECT_DEATH(doBoth(process, switchOn), "resume: another thread is processing");
  EXPECT_DEATH(doBoth(process, switchOff), "suspend: another thread is processing");
  EXPECT_DEATH(doBoth(process, close), "close: another thread is processing");
  EXPECT_DEATH(doBoth(switchOn, process), "process: another thread is processing or switching on");
  EXPECT_DEATH(doBoth(switchOff, switchOn), "resume: another thread is processing or switching on");
}

TEST_F(EffectAlone, Widens) {
  effect.setPresetNo(14);  // guitar 3: wide
  effect.resume();
  std::vector<float> left(1024, 0.0F);
  std::vector<float> right(1024, 0.0F);
  left[0] = right[0] = 1.0F;
  float* channels[] = {left.data(), right.data()};
  effect.processReplacing(channels, channels, 1024);
  EXPECT_NE(left, right);
  for (std::size_t i = 1; i < left.size(); ++i)
    EXPECT_EQ(left[i] + right[i], 0.0F) << "the mono fold is untouched";
}

}  // namespace
