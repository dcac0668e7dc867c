// Tests of loading and saving preset and bank files.
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/presetsystem/filesfixture.h"

namespace {

using imagebytes::Bank;
using imagebytes::Bytes;
using imagebytes::Preset;
using imagebytes::Writer;

// Values whose bytes mean something invalid in the other order: 0.3 is 3E99999A, reversed a
// negative number.
const Preset kPad = {"soft pad", {0.3F, 0.25F, 0.5F, 1.0F, 0.0F}};

Bytes oldFile(int kind, const Bytes& data, bool otherOrder = false) {
  return Writer(otherOrder).word(imagebytes::kTrelvan).byte(kind).append(data).bytes;
}

int openFiles() {
  int count = 0;
  DIR* folder = opendir("/proc/self/fd");
  while (readdir(folder) != nullptr) ++count;
  closedir(folder);
  return count;
}

TEST_F(Files, SavingAPresetAndLoadingItBackRestoresNameAndValues) {
  begin(imagebytes::distinctBank());
  instance->effect.setPresetNo(4);
  const presetimage::Bank before = bankNow();
  savePreset(files / "soft pad.orv");
  instance->effect.setPresetNo(9);
  loadPreset(files / "soft pad.orv");

  EXPECT_EQ(current(), 9);
  presetimage::Bank expected = before;
  expected[9] = before[4];
  EXPECT_TRUE(sameBank(bankNow(), expected));
  for (int index = 0; index < 5; ++index)
    EXPECT_EQ(instance->effect.getParameter(index), before[4].parameter(index));
  EXPECT_STREQ(editor().currentDirectory, (files.path + "/").c_str());
  EXPECT_STREQ(editor().presetFileName, "soft pad.orv");
  EXPECT_STREQ(editor().bankFileName, "");
}

// Another user's, say. The superuser may write everything, and so is another one here.
TEST_F(Files, AFileThatMayOnlyBeReadIsLoaded) {
  constexpr uid_t kNobody = 65534;
  preset(0) = recordOf(kPad);
  savePreset(files / "pad.orv");
  ASSERT_EQ(chmod((files / "pad.orv").c_str(), 0444), 0);
  ASSERT_EQ(chmod(files.path.c_str(), 0755), 0);
  preset(0) = recordOf({"another", {}});
  userChooses(files / "pad.orv");
  editor().loadPreset(false);
  const uid_t before = geteuid();
  for (int pass = 0; pass < 5000 && editor().fileOperationRunning(); ++pass) {
    if (before == 0) {
      ASSERT_EQ(seteuid(kNobody), 0);
    }
    editor().completeFileOperation();
    ASSERT_EQ(seteuid(before), 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_TRUE(sameRecord(preset(0), recordOf(kPad)));
  EXPECT_EQ(bytesOf(files / "pad.orv"), imagebytes::presetImage(kPad));
}

TEST_F(Files, ASavedPresetIsOnePresetImage) {
  preset(0) = recordOf(kPad);
  writeFile(files / "pad.orv", std::string(1000, 'x'));  // longer than the image: it must go
  savePreset(files / "pad.orv");
  EXPECT_EQ(bytesOf(files / "pad.orv"), imagebytes::presetImage(kPad));
}

TEST_F(Files, ASavedBankIsOneBankImage) {
  const Bank bank = imagebytes::distinctBank();
  begin(bank);
  instance->effect.setPresetNo(5);
  saveBank(files / "all.orb");
  EXPECT_EQ(bytesOf(files / "all.orb"), imagebytes::bankImage(bank, 5));
  EXPECT_STREQ(editor().currentDirectory, (files.path + "/").c_str());
  EXPECT_STREQ(editor().bankFileName, "all.orb");
  EXPECT_STREQ(editor().presetFileName, "");
}

TEST_F(Files, LoadingABankWhoseImageSelectsPreset5LeavesPreset0Selected) {
  const Bank bank = imagebytes::distinctBank();
  instance->effect.setPresetNo(7);
  loadBank(put("all.orb", imagebytes::bankImage(bank, 5)));
  EXPECT_EQ(current(), 0);
  EXPECT_TRUE(sameBank(bankNow(), recordsOf(bank)));
  EXPECT_EQ(instance->effect.getParameter(0), bank[0].values[0]);
  EXPECT_STREQ(editor().bankFileName, "all.orb");
}

TEST_F(Files, FilesOfTheOtherByteOrderLoadToo) {
  const Bank bank = imagebytes::distinctBank();
  loadBank(put("all.orb", imagebytes::bankImage(bank, 5, true)));
  EXPECT_TRUE(sameBank(bankNow(), recordsOf(bank)));
  loadPreset(put("pad.orv", imagebytes::presetImage(kPad, true)));
  EXPECT_TRUE(sameRecord(preset(0), recordOf(kPad)));
}

TEST_F(Files, OldFilesLoadInBothByteOrders) {
  for (const bool other : {false, true}) {
    for (const int floats : {5, 7}) {  // further values are left out
      begin({});
      const Bank bank = imagebytes::distinctBank();
      loadBank(put("old.orb", oldFile(imagebytes::kOldBankKind,
                                      imagebytes::oldBankData(bank, floats, other), other)));
      EXPECT_TRUE(sameBank(bankNow(), recordsOf(bank)));
      loadPreset(put("old.orv", oldFile(imagebytes::kOldPresetKind,
                                        imagebytes::oldPresetData(kPad, floats, other), other)));
      EXPECT_TRUE(sameRecord(preset(0), recordOf(kPad)));
    }
  }
}

TEST_F(Files, EndianReversedRefusesANativePresetAndLeavesTheCurrentOne) {
  instance->effect.setPresetNo(3);
  const presetimage::Bank before = bankNow();
  loadPreset(put("pad.orv", imagebytes::presetImage(kPad)), true);
  EXPECT_TRUE(sameBank(bankNow(), before));
  loadPreset(
      put("old.orv", oldFile(imagebytes::kOldPresetKind, imagebytes::oldPresetData(kPad, 5))),
      true);
  EXPECT_TRUE(sameBank(bankNow(), before));
  EXPECT_EQ(current(), 3);
}

TEST_F(Files, EndianReversedSwapsEveryValueOfANativeFile) {
  // 0.5 is 3F000000: reversed a number that is tiny and valid.
  const Preset half = {"half", {0.5F, 0.5F, 0.5F, 0.5F, 0.5F}};
  loadPreset(
      put("old.orv", oldFile(imagebytes::kOldPresetKind, imagebytes::oldPresetData(half, 5))),
      true);
  const float tiny = std::bit_cast<float>(std::uint32_t{0x0000003F});
  EXPECT_TRUE(sameRecord(preset(0), recordOf({"half", {tiny, tiny, tiny, tiny, tiny}})));
}

TEST_F(Files, EndianReversedLoadsAFileWhoseOrderWasRecordedWrongly) {
  Bytes presetFile = imagebytes::presetImage(kPad, true);
  std::reverse(presetFile.begin(), presetFile.begin() + 4);
  loadPreset(put("pad.orv", presetFile), true);
  EXPECT_TRUE(sameRecord(preset(0), recordOf(kPad)));

  const Bank bank = imagebytes::distinctBank();
  Bytes bankFile = imagebytes::bankImage(bank, 5, true);
  std::reverse(bankFile.begin(), bankFile.begin() + 4);
  loadBank(put("all.orb", bankFile), true);
  EXPECT_TRUE(sameBank(bankNow(), recordsOf(bank)));

  // The other way round: marked as swapped and native behind the mark.
  Bytes marked = imagebytes::presetImage(kPad);
  std::reverse(marked.begin(), marked.begin() + 4);
  loadPreset(put("marked.orv", marked), true);
  EXPECT_TRUE(sameRecord(preset(0), recordOf(kPad)));
}

TEST_F(Files, EndianReversedLeavesTheBankOnANativeBankFile) {
  const presetimage::Bank before = bankNow();
  loadBank(put("all.orb", imagebytes::bankImage(imagebytes::distinctBank(), 5)), true);
  EXPECT_TRUE(sameBank(bankNow(), before));
}

TEST_F(Files, AFileOfAnotherPluginIsIgnored) {
  instance->effect.setPresetNo(6);
  const presetimage::Bank before = bankNow();
  for (const std::uint32_t id : {0x4F746872U, 0U, 0x546C766FU}) {
    Bytes presetFile = imagebytes::presetImage(kPad);
    Bytes bankFile = imagebytes::bankImage(imagebytes::distinctBank(), 5);
    std::memcpy(presetFile.data(), &id, 4);
    std::memcpy(bankFile.data(), &id, 4);
    for (const bool reversed : {false, true}) {
      loadPreset(put("other.orv", presetFile), reversed);
      loadBank(put("other.orb", bankFile), reversed);
    }
  }
  EXPECT_TRUE(sameBank(bankNow(), before));
  EXPECT_EQ(current(), 6);
}

TEST_F(Files, AFileOfFourBytesOrLessIsIgnored) {
  instance->effect.setPresetNo(6);
  const presetimage::Bank before = bankNow();
  const Bytes whole = imagebytes::bankImage(imagebytes::distinctBank(), 5);
  for (long size = 0; size <= 4; ++size) {
    const std::string file = put("short.orb", Bytes(whole.begin(), whole.begin() + size));
    loadBank(file);
    loadPreset(file);
  }
  EXPECT_TRUE(sameBank(bankNow(), before));
  EXPECT_EQ(current(), 6);
}

TEST_F(Files, AnotherKindLoadsNothingAndABankLoadStillGoesToPreset0) {
  instance->effect.setPresetNo(6);
  const presetimage::Bank before = bankNow();
  loadPreset(put("all.orv", imagebytes::bankImage(imagebytes::distinctBank(), 5)));
  EXPECT_TRUE(sameBank(bankNow(), before));
  EXPECT_EQ(current(), 6);
  loadBank(put("pad.orb", imagebytes::presetImage(kPad)));
  EXPECT_TRUE(sameBank(bankNow(), before));
  EXPECT_EQ(current(), 0);
}

TEST_F(Files, ARefusedPresetLeavesTheCurrentOne) {
  const presetimage::Bank before = bankNow();
  Preset invalid = kPad;
  invalid.values[2] = 1.25F;
  loadPreset(put("pad.orv", imagebytes::presetImage(invalid)));
  EXPECT_TRUE(sameBank(bankNow(), before));
}

TEST_F(Files, AFileThatEndsEarlyIsReadAsFarAsItGoes) {
  const Bytes whole = imagebytes::presetImage(kPad);
  const ACombProgram before = preset(0);
  // The header ends at byte 41, the name entry at 209, then come five entries of 32.
  for (const std::size_t size :
       {5, 6, 40, 41, 52, 53, 208, 209, 220, 240, 241, 242, 336, 337, 368}) {
    preset(0) = before;
    loadPreset(put("pad.orv", Bytes(whole.begin(), whole.begin() + static_cast<long>(size))));
    ACombProgram expected = instance->effect.getDefaultPreset();
    if (size < 41) expected = before;
    if (size >= 209) expected.rename("soft pad");
    for (int index = 0; index < 5; ++index) {
      if (size >= 209 + 32 * (static_cast<std::size_t>(index) + 1)) {
        expected.setParameter(index, kPad.values[static_cast<std::size_t>(index)]);
      }
    }
    EXPECT_TRUE(sameRecord(preset(0), expected)) << size;
  }
}

TEST_F(Files, OldFilesThatEndEarlyDoNotHurt) {
  const Bytes oldPreset = oldFile(imagebytes::kOldPresetKind, imagebytes::oldPresetData(kPad, 5));
  const ACombProgram before = preset(0);
  for (const std::size_t size : {5, 6, 28, 29, 32, 33, 48}) {
    preset(0) = before;
    loadPreset(
        put("old.orv", Bytes(oldPreset.begin(), oldPreset.begin() + static_cast<long>(size))));
    const bool hasName = size >= 29;
    EXPECT_EQ(nameBytes(preset(0)), hasName ? nameBytes(recordOf(kPad)) : nameBytes(before))
        << size;
    if (hasName) {
      EXPECT_EQ(preset(0).parameter(4),
                size >= 49 ? 0.0F : instance->effect.getDefaultPreset().parameter(4));
    }
  }
  const Bytes oldBank =
      oldFile(imagebytes::kOldBankKind, imagebytes::oldBankData(imagebytes::distinctBank(), 5));
  const presetimage::Bank bankBefore = bankNow();
  // 5 + 32 * 24 = 773 is the first with whole names
  for (const std::size_t size : {5, 6, 36, 37, 772}) {
    loadBank(put("old.orb", Bytes(oldBank.begin(), oldBank.begin() + static_cast<long>(size))));
    EXPECT_TRUE(sameBank(bankNow(), bankBefore)) << size;
  }
}

TEST_F(Files, SizesInAFileAreNotBelieved) {
  const ACombProgram before = preset(0);
  for (const std::int32_t size :
       {0x7FFFFFFF, 0x10000000, -1, std::numeric_limits<std::int32_t>::min()}) {
    preset(0) = before;
    loadPreset(
        put("pad.orv",
            Writer().header(imagebytes::kPresetKind, 6, 0, size).presetEntries(0, kPad).bytes));
    EXPECT_TRUE(
        sameRecord(preset(0), size > 0 ? recordOf(kPad) : instance->effect.getDefaultPreset()))
        << size;
  }
}

TEST_F(Files, HugeFilesAreHandledInTheirBeginning) {
  const std::uintmax_t huge = std::uintmax_t{40} << 30;  // 40 GiB, nearly all of it a hole
  const auto begin = std::chrono::steady_clock::now();
  const std::string presetFile = put("huge.orv", imagebytes::presetImage(kPad));
  std::filesystem::resize_file(presetFile, huge);
  loadPreset(presetFile);
  EXPECT_TRUE(sameRecord(preset(0), recordOf(kPad)));

  preset(0) = recordOf({"other", {}});
  const std::string oldPreset =
      put("hugeold.orv", oldFile(imagebytes::kOldPresetKind, imagebytes::oldPresetData(kPad, 5)));
  std::filesystem::resize_file(oldPreset, huge);
  loadPreset(oldPreset);
  EXPECT_TRUE(sameRecord(preset(0), recordOf(kPad)));

  const Bank bank = imagebytes::distinctBank();
  const std::string bankFile = put("huge.orb", imagebytes::bankImage(bank, 5));
  std::filesystem::resize_file(bankFile, huge);
  loadBank(bankFile);
  EXPECT_TRUE(sameBank(bankNow(), recordsOf(bank)));

  // The records of an old bank are as far apart as the file's size says: nothing to find
  // in its beginning.
  const std::string oldBank =
      put("hugeold.orb", oldFile(imagebytes::kOldBankKind, imagebytes::oldBankData({}, 5)));
  std::filesystem::resize_file(oldBank, huge);
  loadBank(oldBank);
  EXPECT_TRUE(sameBank(bankNow(), recordsOf(bank)));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

TEST_F(Files, FoldersPipesAndMissingFilesLoadNothing) {
  const presetimage::Bank before = bankNow();
  std::filesystem::create_directory(files / "folder.orv");
  ASSERT_EQ(mkfifo((files / "pipe.orv").c_str(), 0600), 0);
  for (const char* name : {"folder.orv", "pipe.orv", "missing.orv"}) loadPreset(files / name);
  EXPECT_TRUE(sameBank(bankNow(), before));
}

TEST_F(Files, SavingWhereNothingCanBeWrittenIsSilent) {
  std::filesystem::create_directory(files / "folder.orv");
  savePreset(files / "folder.orv");
  savePreset(files / "missing/pad.orv");
  EXPECT_FALSE(desktop.wasCalled("zenity", 3));  // two dialogs, no alert
}

TEST_F(Files, EveryPathClosesItsFile) {
  const Bytes whole = imagebytes::presetImage(kPad);
  Bytes foreign = whole;
  foreign[0] ^= 0xFFU;
  const int before = openFiles();
  loadPreset(put("good.orv", whole));
  loadPreset(put("foreign.orv", foreign));
  loadPreset(put("short.orv", Bytes(whole.begin(), whole.begin() + 4)));
  loadPreset(put("kind.orv", imagebytes::bankImage({}, 0)));
  loadBank(put("kind.orb", whole));
  loadPreset(files / "missing.orv");
  savePreset(files / "saved.orv");
  saveBank(files / "saved.orb");
  EXPECT_EQ(openFiles(), before);
}

}  // namespace
