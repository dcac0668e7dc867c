// Properties of the image layer over seeded random banks and random garbage.
#include "presetsystem/image/presetimage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "presetsystem/image/image.h"
#include "tests/support/records.h"

namespace {

using imagebytes::Bytes;
using presetimage::Bank;
using presetimage::Reading;

constexpr auto kID = static_cast<std::int32_t>(imagebytes::kTrelvan);
constexpr int kRounds = 200;
constexpr unsigned kSeed = 20200517;

class PresetImage : public testing::Test {
 protected:
  // The bank that a whole image gives to one that held something else.
  Bank readBack(const Bytes& image, bool swapped) {
    newpresetheader header = newpresetheader::read(image);
    if (swapped) byteSwapHeader(&header);
    Bank bank;
    presetimage::InvalidParameters repaired;
    const auto entries = std::span(image).subspan(41);
    EXPECT_EQ(presetimage::readBank(entries, header, swapped, ACombProgram(), bank, repaired),
              Reading::done);
    EXPECT_TRUE(repaired.empty());
    return bank;
  }
  Bytes write(const Bank& bank, std::int32_t current) {
    presetimage::InvalidParameters repaired;
    return presetimage::writeBank(bank, kID, current, {}, repaired);
  }
  int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); }

  std::mt19937 random{kSeed};
};

TEST_F(PresetImage, OfAnyBankIsReadBackIdentically) {
  for (int round = 0; round < kRounds; ++round) {
    const Bank bank = recordsOf(imagebytes::randomBank(random));
    const int current = below(32);
    const Bytes image = write(bank, current);
    EXPECT_TRUE(sameBank(readBack(image, false), bank));
    EXPECT_EQ(newpresetheader::read(image).currentPreset, current);
  }
}

TEST_F(PresetImage, TurnedWordForWordIsTheSameBank) {
  for (int round = 0; round < kRounds; ++round) {
    const Bank bank = recordsOf(imagebytes::randomBank(random));
    Bytes image = write(bank, below(32));
    imagebytes::turnImage(image, 0);
    EXPECT_EQ(byteOrderOf(newpresetheader::read(image).uniqueID, kID), ByteOrder::swapped);
    EXPECT_TRUE(sameBank(readBack(image, true), bank));
  }
}

TEST_F(PresetImage, IsWrittenAsTheTablesSay) {
  for (int round = 0; round < kRounds; ++round) {
    const imagebytes::Bank bank = imagebytes::randomBank(random);
    const int current = below(32);
    EXPECT_EQ(write(recordsOf(bank), current), imagebytes::bankImage(bank, current));
    EXPECT_EQ(presetimage::writePreset(recordOf(bank[0]), kID, {}),
              imagebytes::presetImage(bank[0]));
    EXPECT_EQ(presetimage::writeMidiMap(bank[1].values, kID, {}),
              imagebytes::midiMapImage(bank[1].values));
  }
}

TEST_F(PresetImage, OfOnePresetIsReadBackIdentically) {
  for (int round = 0; round < kRounds; ++round) {
    const ACombProgram preset = recordOf(imagebytes::randomBank(random)[0]);
    for (const bool swapped : {false, true}) {
      Bytes image = presetimage::writePreset(preset, kID, {});
      if (swapped) imagebytes::turnImage(image, 0);
      newpresetheader header = newpresetheader::read(image);
      if (swapped) byteSwapHeader(&header);
      ACombProgram read;
      EXPECT_EQ(presetimage::readPreset(std::span(image).subspan(41), header, swapped, read),
                Reading::done);
      EXPECT_TRUE(sameRecord(read, preset));
    }
  }
}

// All values that a reader leaves behind can be applied.
bool isValid(const Bank& bank) {
  for (const ACombProgram& preset : bank) {
    for (int i = 0; i < 5; ++i) {
      if (!(preset.parameter(i) >= 0.0F && preset.parameter(i) <= 1.0F)) return false;
    }
  }
  return true;
}

// Garbage between nothing at all and an image with some bytes changed.
TEST_F(PresetImage, OfGarbageIsRefusedOrGivesAValidBank) {
  const Bank before = recordsOf(imagebytes::randomBank(random));
  int changed = 0;
  int refused = 0;
  for (int round = 0; round < 3000; ++round) {
    Bank written = recordsOf(imagebytes::randomBank(random));
    if (below(20) == 0)
      written[static_cast<std::size_t>(below(32))].width = std::numeric_limits<float>::quiet_NaN();
    Bytes image = write(written, below(32));
    const bool swapped = below(2) == 1;
    if (swapped) imagebytes::turnImage(image, 0);
    const int damage = below(40);
    for (int i = 0; i < damage; ++i)
      image[static_cast<std::size_t>(below(2000))] = static_cast<unsigned char>(below(256));
    image.resize(static_cast<std::size_t>(below(static_cast<int>(image.size())) + 1));
    newpresetheader header = newpresetheader::read(image);
    if (swapped) byteSwapHeader(&header);

    Bank bank = before;
    presetimage::InvalidParameters repaired;
    const auto entries =
        std::span<const unsigned char>(image).subspan(std::min<std::size_t>(41, image.size()));
    const Reading reading =
        presetimage::readBank(entries, header, swapped, ACombProgram(), bank, repaired);
    if (reading == Reading::done) {
      EXPECT_TRUE(isValid(bank));
      changed += isSame(bank, before) ? 0 : 1;
    } else {
      ++refused;
    }
    for (const auto& invalid : repaired)
      EXPECT_STRNE(presetimage::diagnosticLine(invalid, "load").text, "");
  }
  EXPECT_GT(changed, 100) << "much of it must get past the header, or the test tests nothing";
  EXPECT_GT(refused, 10);
}

TEST_F(PresetImage, OfOldGarbageIsRefusedOrGivesAValidBank) {
  for (int round = 0; round < 3000; ++round) {
    const bool other = below(2) == 1;
    Bytes data =
        imagebytes::oldChunk(imagebytes::randomBank(random), below(40), below(9), below(64), other);
    const int damage = below(6);
    for (int i = 0; i < damage && data.size() > 8; ++i) {
      data[8 + static_cast<std::size_t>(below(static_cast<int>(data.size()) - 8))] =
          static_cast<unsigned char>(below(256));
    }
    // as hosts name it, or beside it
    const std::size_t size = data.size() + static_cast<std::size_t>(below(3)) - 1;
    data.resize(std::max(size, data.size()));
    const presetimage::Image image = presetimage::identify(std::span(data).first(size), kID);
    Bank bank = recordsOf(imagebytes::randomBank(random));
    presetimage::InvalidParameters none;
    presetimage::readBank(image, {}, ACombProgram(), bank, none);
    EXPECT_TRUE(isValid(bank));
    EXPECT_TRUE(image.isChunk && image.isOld);
    EXPECT_GE(image.presetToSelect, 0);
    EXPECT_LT(image.presetToSelect, 32);
  }
}

}  // namespace
