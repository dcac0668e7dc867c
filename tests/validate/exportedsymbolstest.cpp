// A binary's exported names are read from whole files, and damaged ones are read no further than
// they go.
#include "host/validate/means/exportedsymbols.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "host/base/failure.h"
#include "host/base/wholefile.h"
#include "tests/support/temporaryfolder.h"

namespace {

using Bytes = std::vector<unsigned char>;
using Names = std::vector<std::string>;

Bytes soundModule() {
  return readWholeFile(VALIDATE_PLUGINS "/sound.so");
}

// Whether anything was read at all: what damaged bytes say is nobody's business.
bool isRead(const TemporaryFolder& folder, const Bytes& bytes) {
  const std::string file = folder / "module.so";
  writeWholeFile(file, bytes, true);
  try {
    return exportedSymbols(file).has_value();
  } catch (const Failure&) {
    return false;
  }
}

}  // namespace

TEST(ExportedSymbols, OfAModuleWithAMapAreItsEntry) {
  EXPECT_EQ(exportedSymbols(VALIDATE_PLUGINS "/sound.so"), Names{"VSTPluginMain"});
}

TEST(ExportedSymbols, AreThoseOfTheModuleAndNotOfItsLibraries) {
  const auto names = exportedSymbols(VALIDATE_PLUGINS "/exportsmore.so");
  ASSERT_TRUE(names);
  EXPECT_EQ(std::count(names->begin(), names->end(), "anotherName"), 1);
  EXPECT_EQ(std::count(names->begin(), names->end(), "VSTPluginMain"), 1);
  EXPECT_EQ(std::count(names->begin(), names->end(), "dladdr"), 0);
}

TEST(ExportedSymbols, OfNoElfFileAreUnknown) {
  const TemporaryFolder folder;
  EXPECT_FALSE(isRead(folder, Bytes(4096, 'x')));
  Bytes other = soundModule();
  other[4] = 1;  // of 32 bits
  EXPECT_FALSE(isRead(folder, other));
}

// The sections' table is at the end: without it, nothing is known.
TEST(ExportedSymbols, OfAFileThatIsCutAreNotRead) {
  const TemporaryFolder folder;
  const Bytes whole = soundModule();
  ASSERT_TRUE(isRead(folder, whole));
  constexpr std::size_t kCuts = 100;
  for (std::size_t cut = 1; cut < kCuts; ++cut) {
    const std::size_t size = whole.size() * cut / kCuts;
    EXPECT_FALSE(isRead(folder, Bytes(whole.begin(), whole.begin() + static_cast<long>(size))))
        << size << " of " << whole.size() << " bytes";
  }
}

// Under the address sanitizer: a read beyond the file's bytes would end this test.
TEST(ExportedSymbols, OfADamagedFileAreReadNoFurtherThanItGoes) {
  const TemporaryFolder folder;
  const Bytes whole = soundModule();
  constexpr std::size_t kHeader = 64;      // bytes
  constexpr std::size_t kSections = 3000;  // bytes at the end, with their table
  ASSERT_GT(whole.size(), kHeader + kSections);
  std::mt19937 chance(1);
  for (int round = 0; round < 200; ++round) {
    Bytes damaged = whole;
    for (int i = 0; i < 8; ++i) {
      const bool inHeader = chance() % 4 == 0;
      const std::size_t at =
          inHeader ? 16 + chance() % (kHeader - 16) : damaged.size() - 1 - chance() % kSections;
      damaged[at] = static_cast<unsigned char>(chance());
    }
    isRead(folder, damaged);
  }
}
