// The preset store: values, selection, names and the host's program calls.
#include "presetsystem/store/cpresetsystemeffect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <thread>

#include "effect/trelvan.h"
#include "tests/support/recordingeditor.h"
#include "tests/support/recordinghost.h"
#include "tests/support/records.h"

namespace {

using testing::ElementsAre;
using testing::Pair;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

class PresetStore : public testing::Test {
 protected:
  PresetStore() {
    effect.setEditor(editor);
    host.calls.clear();
  }

  std::string programName() {
    char text[32];
    std::memset(text, '#', sizeof text);
    effect.getProgramName(text);
    EXPECT_EQ(text[24], 0);
    EXPECT_EQ(text[25], '#') << "25 bytes and no more";
    return text;
  }
  void hostRenames(std::string name) { effect.setProgramName(name.data()); }

  RecordingHost host;
  Trelvan effect{RecordingHost::callback};
  RecordingEditor* editor = new RecordingEditor(&effect);  // the effect's
};

TEST_F(PresetStore, PushesAllValuesOfThePresetInAscendingOrder) {
  effect.preset(7) = recordOf({"seven", {0.1F, 0.2F, 0.3F, 0.4F, 0.5F}});
  editor->parameters.clear();
  effect.setPresetNo(7);
  EXPECT_EQ(effect.getPresetNo(), 7);
  EXPECT_THAT(editor->parameters, ElementsAre(Pair(0, 0.1F), Pair(1, 0.2F), Pair(2, 0.3F),
                                              Pair(3, 0.4F), Pair(4, 0.5F)));
  for (VstInt32 index = 0; index < 5; ++index)
    EXPECT_EQ(effect.getParameter(index), effect.preset(7).parameter(index));
}

TEST_F(PresetStore, TellsTheHostWithAnEmptyGestureOnTheFirstParameter) {
  effect.setPresetNo(7);
  ASSERT_THAT(host.opcodes(),
              ElementsAre(audioMasterUpdateDisplay, audioMasterBeginEdit, audioMasterEndEdit));
  EXPECT_EQ(host.calls[1].index, 0);
  EXPECT_EQ(host.calls[2].index, 0);
}

TEST_F(PresetStore, AnswersWhatTheHostAnswersToTheEndOfTheGesture) {
  EXPECT_FALSE(effect.setPresetNo(7));
  host.answers[audioMasterEndEdit] = 1;
  EXPECT_TRUE(effect.setPresetNo(7));
}

TEST_F(PresetStore, IsInAPresetChangeUntilTheGestureHasEnded) {
  std::vector<bool> during;
  host.onCall = [&](const RecordingHost::Call&) {
    during.push_back(effect.isPresetChangeInProgress());
  };
  EXPECT_FALSE(effect.isPresetChangeInProgress());
  effect.setPresetNo(7);
  EXPECT_FALSE(effect.isPresetChangeInProgress());
  EXPECT_THAT(during, ElementsAre(true, true, true));
}

TEST_F(PresetStore, HasTheNewPresetBeforeTheHostIsTold) {
  host.onCall = [&](const RecordingHost::Call&) {
    EXPECT_EQ(effect.getPresetNo(), 14);
    EXPECT_EQ(effect.getParameter(0), 1.0F) << "guitar 3 is the one with the full width";
  };
  effect.setPresetNo(14);
}

// A preset change does not write into the bank, not even what a host sets from inside it.
TEST_F(PresetStore, KeepsTheBankDuringAPresetChange) {
  host.onCall = [&](const RecordingHost::Call& call) {
    call.effect->setParameter(call.effect, 0, 0.987F);
    EXPECT_EQ(call.effect->getParameter(call.effect, 0), 0.987F);
  };
  effect.setPresetNo(7);
  EXPECT_EQ(effect.preset(7).width, 0.75F);
}

// It is heard, and so it is saved.
TEST_F(PresetStore, StoresWhatAnotherThreadSetsDuringAPresetChange) {
  int heard = 0;
  host.onCall = [&](const RecordingHost::Call& call) {
    const float value = 0.25F * static_cast<float>(++heard);
    std::thread([&] { call.effect->setParameter(call.effect, 0, value); }).join();
    EXPECT_EQ(effect.getParameter(0), value);
    EXPECT_EQ(effect.preset(7).width, value) << call.opcode;
  };
  effect.setPresetNo(7);
  EXPECT_EQ(heard, 3);
}

// As hosts do that load a state in answer to a change.
TEST_F(PresetStore, IsStillInAPresetChangeAfterOneInsideIt) {
  host.onCall = [&](const RecordingHost::Call& call) {
    if (call.opcode == audioMasterUpdateDisplay) effect.setPresetNo(9);
    EXPECT_TRUE(effect.isPresetChangeInProgress());
  };
  effect.setPresetNo(7);
  EXPECT_FALSE(effect.isPresetChangeInProgress());
  EXPECT_EQ(effect.getPresetNo(), 9);
}

TEST_F(PresetStore, WritesIntoTheBankAgainAfterwards) {
  effect.setPresetNo(7);
  effect.setParameter(0, 0.125F);
  EXPECT_EQ(effect.preset(7).width, 0.125F);
}

TEST_F(PresetStore, LeavesAParameterWhosePresetValueIsOutsideTheRange) {
  for (const float value : {1.5F, -0.001F, kNaN, std::numeric_limits<float>::infinity()}) {
    effect.setPresetNo(0);
    effect.setParameter(2, 0.875F);
    effect.preset(7) = recordOf({"seven", {0.1F, 0.2F, value, 0.4F, 0.5F}});
    editor->parameters.clear();
    effect.setPresetNo(7);
    EXPECT_THAT(editor->parameters,
                ElementsAre(Pair(0, 0.1F), Pair(1, 0.2F), Pair(3, 0.4F), Pair(4, 0.5F)));
    EXPECT_EQ(effect.getParameter(2), 0.875F) << value;
    EXPECT_EQ(std::bit_cast<std::uint32_t>(effect.preset(7).emphasis.load()),
              std::bit_cast<std::uint32_t>(value))
        << "the bank still holds it";
  }
}

TEST_F(PresetStore, PushesTheEndsOfTheRange) {
  effect.preset(7) = recordOf({"seven", {0.0F, 1.0F, 0.0F, 1.0F, 0.0F}});
  effect.setPresetNo(14);
  effect.setPresetNo(7);
  EXPECT_EQ(effect.getParameter(0), 0.0F);
  EXPECT_EQ(effect.getParameter(1), 1.0F);
}

TEST_F(PresetStore, IgnoresAPresetNumberThatItHasNot) {
  effect.setPresetNo(7);
  host.calls.clear();
  for (const long number : {-1L, 32L, 1000000000000L, std::numeric_limits<long>::min()}) {
    effect.setPresetNo(number);
    effect.initializePreset(number);
  }
  EXPECT_EQ(effect.getPresetNo(), 7);
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(PresetStore, ShowsTheHostProgramZeroAlways) {
  AEffect* record = effect.getAeffect();
  for (long number = 0; number < 32; ++number) {
    effect.setPresetNo(number);
    EXPECT_EQ(effect.getProgram(), 0);
    EXPECT_EQ(record->dispatcher(record, effGetProgram, 0, 0, nullptr, 0.0F), 0);
  }
}

TEST_F(PresetStore, DoesNothingWhenTheHostSelectsAProgram) {
  effect.setPresetNo(7);
  effect.setParameter(0, 0.125F);
  host.calls.clear();
  AEffect* record = effect.getAeffect();
  for (const VstIntPtr program : {0, 1, 5, -1, 31})
    record->dispatcher(record, effSetProgram, 0, program, nullptr, 0.0F);
  EXPECT_EQ(effect.getPresetNo(), 7);
  EXPECT_EQ(effect.getParameter(0), 0.125F);
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(PresetStore, HasTheCurrentPresetsNameAsProgramName) {
  effect.setPresetNo(21);
  EXPECT_EQ(programName(), "toms");
}

TEST_F(PresetStore, EndsAProgramNameThatFillsAllItsBytes) {
  std::memset(effect.preset(0).name, 'x', 24);
  EXPECT_EQ(programName(), std::string(24, 'x'));
}

TEST_F(PresetStore, NamesTheThirtyTwoPresetsByIndex) {
  char text[32];
  for (const VstInt32 category : {-1, 0, 99}) {
    std::memset(text, '#', sizeof text);
    EXPECT_TRUE(effect.getProgramNameIndexed(category, 23, text));
    EXPECT_STREQ(text, "over heads 2");
    EXPECT_EQ(text[24], 0);
    EXPECT_EQ(text[25], '#');
  }
  effect.preset(31).rename("the last one");
  std::memset(text, '#', sizeof text);
  EXPECT_TRUE(effect.getProgramNameIndexed(0, 31, text));
  EXPECT_STREQ(text, "the last one");
  EXPECT_EQ(text[24], 0);
  EXPECT_EQ(text[25], '#');
}

TEST_F(PresetStore, HasNoNameOutsideTheThirtyTwo) {
  char text[32] = "untouched";
  for (const VstInt32 index : {32, 33, std::numeric_limits<VstInt32>::max(), -1}) {
    EXPECT_FALSE(effect.getProgramNameIndexed(0, index, text)) << index;
  }
  EXPECT_STREQ(text, "untouched");
}

TEST_F(PresetStore, KeepsTwentyThreeCharactersOfTheHostsNameAndTellsTheEditorTwentyFour) {
  const std::string thirty = "abcdefghijklmnopqrstuvwxyz1234";
  hostRenames(thirty);
  EXPECT_EQ(nameBytes(effect.preset(0)), thirty.substr(0, 23) + std::string(1, '\0'));
  EXPECT_THAT(editor->names, ElementsAre(thirty.substr(0, 24)));
}

TEST_F(PresetStore, KeepsShorterHostNamesWhole) {
  for (const std::size_t length : {0U, 1U, 21U, 22U, 23U}) {
    const std::string name(length, 'n');
    editor->names.clear();
    effect.preset(0).rename("what was there before.");
    hostRenames(name);
    EXPECT_EQ(nameBytes(effect.preset(0)), name + std::string(24 - length, '\0'));
    EXPECT_THAT(editor->names, ElementsAre(name));
  }
}

TEST_F(PresetStore, KeepsTwentyThreeOfExactlyTwentyFourCharactersOfTheHost) {
  const std::string name = "abcdefghijklmnopqrstuvwx";
  hostRenames(name);
  EXPECT_STREQ(effect.preset(0).name, "abcdefghijklmnopqrstuvw");
  EXPECT_THAT(editor->names, ElementsAre(name));
}

TEST_F(PresetStore, TellsTheHostNothingWhenTheHostRenames) {
  hostRenames("name");
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(PresetStore, RenamesOnlyTheCurrentPreset) {
  effect.setPresetNo(5);
  hostRenames("mine");
  EXPECT_STREQ(effect.preset(5).name, "mine");
  EXPECT_STREQ(effect.preset(4).name, "room 1");
  EXPECT_STREQ(effect.preset(6).name, "room 3");
}

TEST_F(PresetStore, KeepsAnEditorsNameUpToTwentyThreeCharacters) {
  for (const std::size_t length : {0U, 1U, 22U, 23U, 24U, 30U}) {
    const std::string name = std::string("abcdefghijklmnopqrstuvwxyz1234").substr(0, length);
    effect.preset(0).rename("what was there before.");
    effect.setPresetName(name.c_str());
    const std::string kept = name.substr(0, 23);
    EXPECT_EQ(nameBytes(effect.preset(0)), kept + std::string(24 - kept.size(), '\0')) << length;
  }
}

TEST_F(PresetStore, TellsTheHostAndNotTheEditorWhenTheEditorRenames) {
  effect.setPresetName("name");
  EXPECT_THAT(host.opcodes(), ElementsAre(audioMasterUpdateDisplay));
  EXPECT_TRUE(editor->names.empty());
}

TEST_F(PresetStore, RefreshesTheHostEvenWithoutAName) {
  effect.setPresetName(nullptr);
  EXPECT_STREQ(effect.preset(0).name, "init");
  EXPECT_THAT(host.opcodes(), ElementsAre(audioMasterUpdateDisplay));
}

TEST_F(PresetStore, InitializesAPresetToTheFirstFactoryPreset) {
  effect.initializePreset(14);
  EXPECT_TRUE(sameRecord(effect.preset(14), recordOf({"init", {0.0F, 0.5F, 0.0F, 1.0F, 0.0F}})));
  EXPECT_TRUE(
      sameRecord(effect.preset(13), recordOf({"guitar 2", {0.6F, 0.23F, 0.0F, 1.0F, 0.0F}})));
}

TEST_F(PresetStore, KeepsTheDefaultPresetWhenPresetZeroChanges) {
  effect.preset(0) = recordOf({"mine", {0.9F, 0.9F, 0.9F, 0.9F, 0.9F}});
  effect.initializePreset(14);
  EXPECT_STREQ(effect.preset(14).name, "init");
}

TEST_F(PresetStore, TakesPresetZeroAsDefaultAndThenLetsTheEditorLoad) {
  effect.preset(0) = recordOf({"mine", {0.9F, 0.9F, 0.9F, 0.9F, 0.9F}});
  effect.loadDefaults();
  EXPECT_TRUE(sameRecord(effect.getDefaultPreset(), effect.preset(0)));
  EXPECT_EQ(editor->defaultsLoaded, 1);
}

// A stored bank takes preset 0's place, and not the default preset's.
TEST_F(PresetStore, HasItsDefaultPresetBeforeTheEditorLoadsTheStoredBank) {
  class LoadingEditor final : public RecordingEditor {
   public:
    explicit LoadingEditor(Trelvan* owner) : RecordingEditor(owner), effect(owner) {}
    void loadDefaults() override {
      found = effect->getDefaultPreset();
      effect->preset(0).rename("stored");
      effect->preset(0).width = 0.9F;
    }
    Trelvan* effect;
    ACombProgram found;
  };
  auto* loading = new LoadingEditor(&effect);
  effect.setEditor(loading);
  effect.preset(0) = recordOf({"factory's", {0.1F, 0.2F, 0.3F, 0.4F, 0.5F}});
  effect.loadDefaults();
  EXPECT_STREQ(effect.preset(0).name, "stored");
  const ACombProgram expected = recordOf({"factory's", {0.1F, 0.2F, 0.3F, 0.4F, 0.5F}});
  EXPECT_TRUE(sameRecord(loading->found, expected)) << "there for what the stored bank leaves out";
  EXPECT_TRUE(sameRecord(effect.getDefaultPreset(), expected));
  effect.initializePreset(5);
  EXPECT_TRUE(sameRecord(effect.preset(5), expected));
}

TEST_F(PresetStore, LeavesNoPlaceholderAmongTheFive) {
  EXPECT_THAT(effect.dummySlots(), ElementsAre(false, false, false, false, false));
  EXPECT_THAT(effect.oldDummySlots(), ElementsAre(false, false, false, false, false));
}

}  // namespace
