// Images between the effect's bank and buffers: what is written, read, refused, selected and told.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "effect/trelvan.h"
#include "tests/support/recordingeditor.h"
#include "tests/support/recordinghost.h"
#include "tests/support/records.h"

namespace {

using imagebytes::Bytes;
using imagebytes::distinctBank;
using imagebytes::Writer;
using testing::ElementsAre;
using testing::Pair;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

class Images : public testing::Test {
 protected:
  Images() {
    effect.setEditor(editor);
    effect.bank() = recordsOf(distinctBank());
    host.calls.clear();
    editor->parameters.clear();
  }

  using Producer = long (CPresetSystemEditor::*)(char**);
  Bytes written(Producer producer) {
    char* image = nullptr;
    const long length = (editor->*producer)(&image);
    const std::unique_ptr<char[]> owned(image);
    return {image, image + length};
  }

  using Reader = void (CPresetSystemEditor::*)(char*, newpresetheader*, bool);
  // Reads an image as the file operations do: header first, turned if need be, then the entries.
  void read(Reader reader, Bytes image, bool swapped = false) {
    newpresetheader header = newpresetheader::read(image);
    if (swapped) byteSwapHeader(&header);
    (editor->*reader)(reinterpret_cast<char*>(image.data() + 41), &header, swapped);
  }
  void readBank(const Bytes& image, bool swapped = false) {
    read(&CPresetSystemEditor::BufferToBank, image, swapped);
  }
  void readPreset(const Bytes& image, bool swapped = false) {
    read(&CPresetSystemEditor::BufferToPreset, image, swapped);
  }
  void readMidi(const Bytes& image, bool swapped = false) {
    read(&CPresetSystemEditor::BufferToMidi, image, swapped);
  }

  Bytes writtenBank() { return written(&CPresetSystemEditor::BankToBuffer); }
  Bytes writtenPreset() { return written(&CPresetSystemEditor::PresetToBuffer); }

  // An image of one kind around entries.
  static Bytes image(int kind, std::int32_t count, std::int32_t current, const Bytes& entries) {
    return Writer()
        .header(kind, count, current, static_cast<std::int32_t>(entries.size()))
        .append(entries)
        .bytes;
  }

  RecordingHost host;
  Trelvan effect{RecordingHost::callback};
  RecordingEditor* editor = new RecordingEditor(&effect);  // the effect's
  const ACombProgram factoryInit = recordOf({"init", {0.0F, 0.5F, 0.0F, 1.0F, 0.0F}});
};

TEST_F(Images, WriteTheBankWithTheCurrentPresetsNumber) {
  effect.setPresetNo(17);
  EXPECT_EQ(writtenBank(), imagebytes::bankImage(distinctBank(), 17));
}

TEST_F(Images, WriteTheCurrentPresetAsPresetZero) {
  effect.setPresetNo(17);
  EXPECT_EQ(writtenPreset(), imagebytes::presetImage(distinctBank()[17]));
}

TEST_F(Images, WriteAMidiMapOfTheFiveParametersBehindTheFive) {
  effect.setParameter(6, 0.625F);
  EXPECT_EQ(written(&CPresetSystemEditor::MidiToBuffer),
            imagebytes::midiMapImage({0.0F, 0.625F, 0.0F, 0.0F, 0.0F}));
}

TEST_F(Images, ReadTheBankThatWasWrittenAndSelectItsPreset) {
  effect.setPresetNo(17);
  const Bytes image = writtenBank();
  effect.initPresets();
  effect.setPresetNo(3);
  readBank(image);
  EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
  EXPECT_EQ(effect.getPresetNo(), 17);
  for (VstInt32 i = 0; i < 5; ++i)
    EXPECT_EQ(effect.getParameter(i), effect.preset(17).parameter(i)) << "applied";
}

TEST_F(Images, ReadABankOfTheOtherByteOrder) {
  effect.initPresets();
  readBank(imagebytes::bankImage(distinctBank(), 30, true), true);
  EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
  EXPECT_EQ(effect.getPresetNo(), 30);
}

TEST_F(Images, TellTheHostOnceThatTheBankIsAnother) {
  readBank(imagebytes::bankImage(distinctBank(), 30));
  EXPECT_THAT(host.opcodes(),
              ElementsAre(audioMasterUpdateDisplay, audioMasterBeginEdit, audioMasterEndEdit));
}

TEST_F(Images, SelectPresetZeroForANumberThatTheBankHasNot) {
  for (const std::int32_t number : {32, 40, -1, std::numeric_limits<std::int32_t>::min()}) {
    effect.setPresetNo(9);
    readBank(imagebytes::bankImage(distinctBank(), number));
    EXPECT_EQ(effect.getPresetNo(), 0) << number;
  }
}

TEST_F(Images, OnlySelectWhereTheBankHasNoEntries) {
  readBank(image(imagebytes::kBankKind, 0, 9, {}));
  EXPECT_EQ(effect.getPresetNo(), 9);
  EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
}

TEST_F(Images, DoNothingForANegativeEntryCountOfABank) {
  Bytes bank = imagebytes::bankImage({}, 9);
  std::memset(bank.data() + 13, 0xFF, 4);
  readBank(bank);
  EXPECT_EQ(effect.getPresetNo(), 0);
  EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(Images, PutTheWholeBankBackAtANaNAndSelectNothing) {
  imagebytes::Bank damaged{};
  damaged[31].values[4] = kNaN;
  effect.setPresetNo(5);
  host.calls.clear();
  readBank(imagebytes::bankImage(damaged, 9));
  EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
  EXPECT_EQ(effect.getPresetNo(), 5);
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(Images, ResetAPresetToTheDefaultWhereItsEntriesAreMissing) {
  const Bytes entries = Writer().nameEntry(7, "seven").parameterEntry(7, 0, 0.5F).bytes;
  readBank(image(imagebytes::kBankKind, 2, 0, entries));
  EXPECT_TRUE(sameRecord(effect.preset(7), recordOf({"seven", {0.5F, 0.5F, 0.0F, 1.0F, 0.0F}})));
}

TEST_F(Images, SaveABankWithARepairedValueAndSaySoOnce) {
  effect.preset(3).emphasis = 1.25F;
  testing::internal::CaptureStderr();
  const Bytes bank = writtenBank();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Invalid parameter 2 value 1.250000 on save of preset 3 preset number 3\n");
  imagebytes::Bank repaired = distinctBank();
  repaired[3].values[2] = 1.0F;
  EXPECT_EQ(bank, imagebytes::bankImage(repaired, 0));
  EXPECT_EQ(effect.preset(3).emphasis, 1.25F) << "the bank itself keeps it";
}

TEST_F(Images, LoadABankWithRepairedValuesAndSaySoForEach) {
  imagebytes::Bank damaged = distinctBank();
  damaged[3].values[2] = 1.25F;
  damaged[31].values[0] = -2.0F;
  testing::internal::CaptureStderr();
  readBank(imagebytes::bankImage(damaged, 0));
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Invalid parameter 2 value 1.250000 on load of preset 3 preset number 3\n"
            "Invalid parameter 0 value -2.000000 on load of preset 31 preset number 31\n");
  EXPECT_EQ(effect.preset(3).emphasis, 1.0F);
  EXPECT_EQ(effect.preset(31).width, 0.0F);
}

TEST_F(Images, SayNothingAboutABankInOrder) {
  testing::internal::CaptureStderr();
  readBank(writtenBank());
  writtenPreset();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Images, TakeANameInALineAsData) {
  const char* const names[] = {"%n%n%n%n", "%s %d", "100%%", "%"};
  const char* const shown[] = {"%n%n%n%n", "%s %d", "100%", "%"};
  for (int i = 0; i < 4; ++i) {
    effect.preset(3).rename(names[i]);
    effect.preset(3).emphasis = 2.0F;
    testing::internal::CaptureStderr();
    writtenBank();
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(),
        std::string("Invalid parameter 2 value 2.000000 on save of preset 3 ") + shown[i] + "\n");
  }
}

TEST_F(Images, ReadThePresetThatWasWrittenIntoTheCurrentOne) {
  effect.setPresetNo(17);
  const Bytes preset = writtenPreset();
  effect.setPresetNo(4);
  readPreset(preset);
  EXPECT_EQ(effect.getPresetNo(), 4);
  EXPECT_TRUE(sameRecord(effect.preset(4), recordOf(distinctBank()[17])));
  EXPECT_TRUE(sameRecord(effect.preset(5), recordOf(distinctBank()[5])));
  for (VstInt32 i = 0; i < 5; ++i)
    EXPECT_EQ(effect.getParameter(i), effect.preset(17).parameter(i)) << "applied";
}

TEST_F(Images, ReadAPresetOfTheOtherByteOrder) {
  readPreset(imagebytes::presetImage({"other", {0.9F, 0.8F, 0.7F, 0.6F, 0.5F}}, true), true);
  EXPECT_TRUE(sameRecord(effect.preset(0), recordOf({"other", {0.9F, 0.8F, 0.7F, 0.6F, 0.5F}})));
}

TEST_F(Images, TellTheHostTheNameAndThenTheValuesOfAPreset) {
  readPreset(imagebytes::presetImage(distinctBank()[17]));
  EXPECT_THAT(host.opcodes(), ElementsAre(audioMasterUpdateDisplay, audioMasterUpdateDisplay,
                                          audioMasterBeginEdit, audioMasterEndEdit));
}

TEST_F(Images, CutANameOf24CharactersWhenItIsTaken) {
  readPreset(imagebytes::presetImage({std::string(24, 'x'), {}}));
  EXPECT_EQ(nameBytes(effect.preset(0)), std::string(23, 'x') + std::string(1, '\0'));
}

TEST_F(Images, WriteAPresetsValueOutsideTheRangeAndRefuseToReadIt) {
  effect.setPresetNo(3);
  effect.preset(3).emphasis = 1.25F;
  testing::internal::CaptureStderr();
  const Bytes preset = writtenPreset();
  imagebytes::Preset expected = distinctBank()[3];
  expected.values[2] = 1.25F;
  EXPECT_EQ(preset, imagebytes::presetImage(expected));
  effect.preset(3) = recordOf(distinctBank()[4]);
  host.calls.clear();
  readPreset(preset);
  EXPECT_TRUE(sameRecord(effect.preset(3), recordOf(distinctBank()[4]))) << "as it was";
  EXPECT_TRUE(host.calls.empty());
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "no line on this path";
}

TEST_F(Images, RefuseAPresetWithANaN) {
  readPreset(imagebytes::presetImage({"bad", {0.5F, 0.5F, 0.5F, 0.5F, kNaN}}));
  EXPECT_TRUE(sameRecord(effect.preset(0), recordOf(distinctBank()[0])));
}

TEST_F(Images, ResetAPresetWithoutApplyingItForANegativeEntryCount) {
  effect.setPresetNo(14);
  editor->parameters.clear();
  host.calls.clear();
  readPreset(image(imagebytes::kPresetKind, -1, 0, {}));
  EXPECT_TRUE(sameRecord(effect.preset(14), factoryInit));
  EXPECT_TRUE(editor->parameters.empty());
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(Images, ResetAndApplyAPresetWithoutEntries) {
  effect.setPresetNo(14);
  readPreset(image(imagebytes::kPresetKind, 0, 0, {}));
  EXPECT_TRUE(sameRecord(effect.preset(14), factoryInit));
  EXPECT_EQ(effect.getParameter(0), 0.0F);
  EXPECT_EQ(effect.getParameter(1), 0.5F);
}

TEST_F(Images, HandAMidiMapToTheParametersBehindTheFive) {
  for (const bool swapped : {false, true}) {
    editor->parameters.clear();
    readMidi(imagebytes::midiMapImage({0.1F, 0.2F, 0.3F, 0.4F, 0.5F}, swapped), swapped);
    EXPECT_THAT(editor->parameters, ElementsAre(Pair(5, 0.1F), Pair(6, 0.2F), Pair(7, 0.3F),
                                                Pair(8, 0.4F), Pair(9, 0.5F)));
    EXPECT_EQ(effect.getParameter(6), 0.2F);
  }
  EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank()))) << "no preset holds them";
}

TEST_F(Images, SkipWhatIsNoMidiAssignment) {
  const Bytes entries = Writer()
                            .parameterEntry(0, 0, 0.5F)
                            .valueEntry(2, 0, -5, 0.5F)
                            .valueEntry(2, 0, 1, 1.5F)
                            .valueEntry(2, 0, 1, 0.5F)
                            .bytes;
  readMidi(image(imagebytes::kMidiMapKind, 4, 0, entries));
  EXPECT_THAT(editor->parameters, ElementsAre(Pair(6, 0.5F)));
}

TEST_F(Images, ReadAnOldBankAndSelectPresetZero) {
  for (const bool swapped : {false, true}) {
    effect.initPresets();
    effect.setPresetNo(9);
    Bytes data = imagebytes::oldBankData(distinctBank(), 5, swapped);
    editor->BufferToBankOld(reinterpret_cast<char*>(data.data()), swapped, 32, 5);
    EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
    EXPECT_EQ(effect.getPresetNo(), 0);
    EXPECT_EQ(effect.getParameter(0), distinctBank()[0].values[0]) << "applied";
  }
}

TEST_F(Images, FillAnOldBanksMissingValuesWithTheDefaults) {
  Bytes data = imagebytes::oldBankData(distinctBank(), 3);
  editor->BufferToBankOld(reinterpret_cast<char*>(data.data()), false, 32, 3);
  imagebytes::Preset expected = distinctBank()[14];
  expected.values[3] = 1.0F;
  expected.values[4] = 0.0F;
  EXPECT_TRUE(sameRecord(effect.preset(14), recordOf(expected)));
}

TEST_F(Images, PutTheWholeBankBackAtABadValueOfAnOldOne) {
  for (const float value : {1.25F, -0.5F, kNaN}) {
    imagebytes::Bank damaged{};
    damaged[31].values[4] = value;
    effect.setPresetNo(5);
    host.calls.clear();
    Bytes data = imagebytes::oldBankData(damaged, 5);
    editor->BufferToBankOld(reinterpret_cast<char*>(data.data()), false, 32, 5);
    EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
    EXPECT_EQ(effect.getPresetNo(), 5);
    EXPECT_TRUE(host.calls.empty());
  }
}

TEST_F(Images, ReadAnOldPresetIntoTheCurrentOne) {
  for (const bool swapped : {false, true}) {
    effect.bank() = recordsOf(distinctBank());
    effect.setPresetNo(9);
    host.calls.clear();
    Bytes data = imagebytes::oldPresetData({"old", {0.9F, 0.8F, 0.7F, 0.6F, 0.5F}}, 5, swapped);
    editor->BufferToPresetOld(reinterpret_cast<char*>(data.data()), swapped, 5);
    EXPECT_TRUE(sameRecord(effect.preset(9), recordOf({"old", {0.9F, 0.8F, 0.7F, 0.6F, 0.5F}})));
    EXPECT_EQ(effect.getPresetNo(), 9);
    EXPECT_EQ(effect.getParameter(0), 0.9F);
    EXPECT_THAT(host.opcodes(), ElementsAre(audioMasterUpdateDisplay, audioMasterUpdateDisplay,
                                            audioMasterBeginEdit, audioMasterEndEdit));
  }
}

TEST_F(Images, FillAnOldPresetsMissingValuesWithTheDefaults) {
  Bytes data = imagebytes::oldPresetData({"old", {0.9F}}, 1);
  editor->BufferToPresetOld(reinterpret_cast<char*>(data.data()), false, 1);
  EXPECT_TRUE(sameRecord(effect.preset(0), recordOf({"old", {0.9F, 0.5F, 0.0F, 1.0F, 0.0F}})));
}

TEST_F(Images, PutTheOldPresetBackAtABadValue) {
  for (const float value : {1.25F, -0.5F, kNaN}) {
    Bytes data = imagebytes::oldPresetData({"old", {0.5F, 0.5F, 0.5F, 0.5F, value}}, 5);
    host.calls.clear();
    editor->BufferToPresetOld(reinterpret_cast<char*>(data.data()), false, 5);
    EXPECT_TRUE(sameRecord(effect.preset(0), recordOf(distinctBank()[0])));
    EXPECT_TRUE(host.calls.empty());
  }
}

TEST_F(Images, HandAnOldMidiMapOverUpToItsFirstBadValue) {
  for (const bool swapped : {false, true}) {
    editor->parameters.clear();
    Bytes data = Writer(swapped).real(0.1F).real(0.2F).real(1.5F).real(0.4F).real(0.5F).bytes;
    editor->BufferToMidiOld(reinterpret_cast<char*>(data.data()), swapped, 5);
    EXPECT_THAT(editor->parameters, ElementsAre(Pair(5, 0.1F), Pair(6, 0.2F)));
  }
}

}  // namespace
