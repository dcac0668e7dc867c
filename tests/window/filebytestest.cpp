// Files in the other byte order, damaged and foreign ones, chosen with the left and with the right
// mouse button.
#include <algorithm>
#include <cstdint>
#include <cstring>

#include "filestest.h"

namespace {

using ::testing::Contains;

constexpr int kRight = 3;  // mouse button
constexpr std::size_t kHeader = 41;

using Bytes = std::string;

void swapWord(Bytes& bytes, std::size_t at) {
  std::reverse(bytes.begin() + static_cast<std::ptrdiff_t>(at),
               bytes.begin() + static_cast<std::ptrdiff_t>(at) + 4);
}

std::int32_t word(const Bytes& bytes, std::size_t at) {  // of a file of this machine's order
  std::int32_t value = 0;
  std::memcpy(&value, bytes.data() + at, sizeof value);
  return value;
}

// Everything but the unique ID turned into the other byte order: the header's nine words after the
// kind, the head of each entry, and the index and value of each parameter entry.
Bytes withForeignContent(Bytes bytes) {
  const std::size_t size = bytes.size();
  for (std::size_t at = kHeader; at < size;) {
    const std::int32_t kind = word(bytes, at);
    const auto payload = static_cast<std::size_t>(word(bytes, at + 4));
    for (const std::size_t field : {0U, 4U, 8U}) swapWord(bytes, at + field);
    if (kind == 1) {
      for (std::size_t field = 12; field < 32; field += 4) swapWord(bytes, at + field);
    }
    at += 12 + payload;
  }
  for (std::size_t at = 5; at < kHeader; at += 4) swapWord(bytes, at);
  return bytes;
}

Bytes withForeignId(Bytes bytes) {
  swapWord(bytes, 0);
  return bytes;
}

class FileBytes : public FilesTest {
 protected:
  FileBytes() {
    select(3);
    dialogOf(places::kSavePreset);
    answer(file("native.orv") + "\n");
    dialogOf(places::kSaveBank);
    answer(file("native.orb") + "\n");
    preset = contentOf(file("native.orv"));
    bank = contentOf(file("native.orb"));
    select(20);
    host.setParameter(0, 0.22F);
    before = host.chunk();
  }

  void expectPresetLoaded() {
    EXPECT_EQ(host.programName(20), "mix 3");
    EXPECT_EQ(host.parameter(0), 0.6F);
    EXPECT_EQ(host.parameter(1), 0.15F);
  }
  void expectUnchanged() { EXPECT_EQ(host.chunk(), before); }

  Bytes preset, bank;
  std::vector<unsigned char> before;
};

}  // namespace

TEST_F(FileBytes, ARightClickSaysThatTheOrderIsReversed) {
  EXPECT_THAT(dialogOf(places::kLoadPreset, kRight),
              Contains("--title=Load preset (endian-reversed)"));
  answer("", 1);
  EXPECT_THAT(dialogOf(places::kLoadBank, kRight), Contains("--title=Load bank (endian-reversed)"));
  answer("", 1);
  EXPECT_THAT(dialogOf(places::kSavePreset, kRight), Contains("--title=Save preset"));
  answer("", 1);
}

TEST_F(FileBytes, ARightClickWithShiftIsALeftOne) {
  host.keyDown(XKB_KEY_Shift_L);
  EXPECT_THAT(dialogOf(places::kLoadPreset, kRight), Contains("--title=Load preset"));
  host.keyUp(XKB_KEY_Shift_L);
  answer("", 1);
}

TEST_F(FileBytes, AFileOfTheOtherOrderIsRecognised) {
  writeFile(file("other.orv"), withForeignId(withForeignContent(preset)));
  load(places::kLoadPreset, file("other.orv"));
  expectPresetLoaded();
}

TEST_F(FileBytes, AFileWithTheWrongOrderRecordedNeedsTheRightButton) {
  writeFile(file("wrong.orv"), withForeignContent(preset));
  load(places::kLoadPreset, file("wrong.orv"));
  expectUnchanged();
  load(places::kLoadPreset, file("wrong.orv"), kRight);
  expectPresetLoaded();
}

TEST_F(FileBytes, ANativeFileIsRefusedWithTheRightButton) {
  load(places::kLoadPreset, file("native.orv"), kRight);
  expectUnchanged();
  load(places::kLoadPreset, file("native.orv"));
  expectPresetLoaded();
}

TEST_F(FileBytes, ABankOfTheOtherOrderIsRecognised) {
  writeFile(file("other.orb"), withForeignId(withForeignContent(bank)));
  host.setProgramName("overwritten");
  load(places::kLoadBank, file("other.orb"));
  EXPECT_EQ(host.currentPreset(), 0);
  EXPECT_EQ(host.programName(20), "kick 2");
  EXPECT_EQ(host.programName(3), "mix 3");
}

TEST_F(FileBytes, ABankWithTheWrongOrderRecordedNeedsTheRightButton) {
  writeFile(file("wrong.orb"), withForeignContent(bank));
  host.setProgramName("overwritten");
  load(places::kLoadBank, file("wrong.orb"), kRight);
  EXPECT_EQ(host.currentPreset(), 0);
  EXPECT_EQ(host.programName(20), "kick 2");
}

TEST_F(FileBytes, FilesOfAnotherPlugInAreIgnored) {
  Bytes foreign = preset;
  foreign[1] = '!';
  writeFile(file("foreign.orv"), foreign);
  load(places::kLoadPreset, file("foreign.orv"));
  load(places::kLoadPreset, file("foreign.orv"), kRight);
  expectUnchanged();
}

TEST_F(FileBytes, ShortEmptyAndMissingFilesAreIgnored) {
  for (const std::size_t size : {0U, 1U, 4U, 5U, 40U, 41U, 60U}) {
    SCOPED_TRACE(size);
    writeFile(file("short.orv"), preset.substr(0, size));
    host.setChunk(before);
    load(places::kLoadPreset, file("short.orv"));
    EXPECT_EQ(host.programName(21), "toms");
  }
  host.setChunk(before);
  load(places::kLoadPreset, file("missing.orv"));
  load(places::kLoadPreset, folder / "files");
  expectUnchanged();
}

TEST_F(FileBytes, APresetFileIsNoBankAndABankNoPreset) {
  load(places::kLoadPreset, file("native.orb"));
  expectUnchanged();
  load(places::kLoadBank, file("native.orv"));
  EXPECT_EQ(host.programName(20), "kick 2");
  // a bank dialog ends at the first preset whatever came of the file
  EXPECT_EQ(host.currentPreset(), 0);
}

TEST_F(FileBytes, AValueOutOfRangeIsRefusedInAPresetAndRepairedInABank) {
  const float tooLarge = 1.25F;
  Bytes broken = preset;
  // the first parameter's value
  std::memcpy(broken.data() + kHeader + 168 + 24, &tooLarge, sizeof tooLarge);
  writeFile(file("broken.orv"), broken);
  load(places::kLoadPreset, file("broken.orv"));
  expectUnchanged();
  broken = bank;
  std::memcpy(broken.data() + kHeader + 168 + 24, &tooLarge, sizeof tooLarge);
  writeFile(file("broken.orb"), broken);
  ::testing::internal::CaptureStderr();
  load(places::kLoadBank, file("broken.orb"));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(),
              ::testing::StartsWith("Invalid parameter 0 value 1.250000 on load of preset 0 "));
  EXPECT_EQ(host.parameter(0), 1.0F);
}

TEST_F(FileBytes, OldPresetsAndBanksAreRead) {
  const auto floats = [](std::initializer_list<float> values) {
    Bytes bytes;
    for (const float value : values)
      bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    return bytes;
  };
  const Bytes name = "old one" + Bytes(24 - 7, '\0');
  writeFile(file("old.orv"),
            preset.substr(0, 4) + "!" + name + floats({0.1F, 0.2F, 0.3F, 1.0F, 1.0F}));
  load(places::kLoadPreset, file("old.orv"));
  EXPECT_EQ(host.programName(20), "old one");
  EXPECT_EQ(host.parameter(1), 0.2F);
  EXPECT_EQ(host.parameter(4), 1.0F);

  // The count of floats in a record comes out of the division of the whole size, as the format has
  // it: with 5 + 32 * 44 bytes it is 5.
  Bytes oldBank = preset.substr(0, 4) + "7";
  for (int record = 0; record < 32; ++record)
    oldBank += name + floats({0.4F, 0.5F, 0.6F, 0.0F, 1.0F});
  writeFile(file("old.orb"), oldBank);
  load(places::kLoadBank, file("old.orb"));
  EXPECT_EQ(host.currentPreset(), 0);
  EXPECT_EQ(host.programName(31), "old one");
  EXPECT_EQ(host.parameter(0), 0.4F);
}
