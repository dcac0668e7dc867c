// Preferences on the Core Foundation test double.
#include "platform/preferencestore.h"

#include <gmock/gmock.h>

#include <cstring>
#include <string>

#include "cfobject.h"
#include "tests/support/temporaryfolder.h"

namespace {

using testing::ElementsAre;
using testing::Optional;

constexpr char kApplication[] = "com.orv.trelvan";

class PrefsCf : public testing::Test {
 protected:
  void SetUp() override {
    cfdouble::startPreferences();
    referencesBefore = cfdouble::references();
  }
  void TearDown() override { EXPECT_EQ(cfdouble::references(), referencesBefore); }

  static std::string stringOf(const PreferenceStore& store, const char* key,
                              std::size_t size = 257) {
    std::string buffer(size, '#');
    return store.getString(key, buffer.data(), size) ? buffer.c_str() : "(missing)";
  }

  long referencesBefore = 0;
};

TEST_F(PrefsCf, KeepsAStringForTheNextProcess) {
  {
    PreferenceStore store(kApplication);
    store.setString("CurrDir", "/Users/me/Presets/");
    EXPECT_TRUE(store.synchronise());
  }
  cfdouble::restartPreferences();
  EXPECT_EQ(stringOf(PreferenceStore(kApplication), "CurrDir"), "/Users/me/Presets/");
}

TEST_F(PrefsCf, KeepsOthersWhereTheEnvironmentNamesThem) {
  PreferenceStore own(kApplication);
  own.setString("CurrBank", "own");
  EXPECT_TRUE(own.synchronise());
  {
    const ScopedVariable named("TRELVAN_PREFERENCES", "com.orv.others");
    PreferenceStore others(kApplication);
    EXPECT_EQ(stringOf(others, "CurrBank"), "(missing)");
    others.setString("CurrBank", "others");
    EXPECT_TRUE(others.synchronise());
  }
  EXPECT_THAT(cfdouble::storedText("com.orv.others", "CurrBank"),
              Optional(std::u16string(u"others")));
  const ScopedVariable empty("TRELVAN_PREFERENCES", "");
  EXPECT_EQ(stringOf(PreferenceStore(kApplication), "CurrBank"), "own");
}

TEST_F(PrefsCf, StoresStringsInTheRomanEncoding) {
  PreferenceStore store(kApplication);
  store.setString("CurrDir", "/M\x8Asik/");  // a with diaeresis in that encoding
  EXPECT_TRUE(store.synchronise());
  EXPECT_THAT(cfdouble::storedText(kApplication, "CurrDir"),
              Optional(std::u16string(u"/M\u00E4sik/")));
}

TEST_F(PrefsCf, GivesEveryByteOfAStringBack) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  {
    PreferenceStore store(kApplication);
    store.setString("CurrBank", all.c_str());
    EXPECT_TRUE(store.synchronise());
  }
  cfdouble::restartPreferences();
  EXPECT_EQ(stringOf(PreferenceStore(kApplication), "CurrBank"), all);
}

TEST_F(PrefsCf, KeepsBytesForTheNextProcess) {
  const unsigned char bytes[] = {0, 255, 0, 7};
  {
    PreferenceStore store(kApplication);
    store.setBytes("DefaultBank", bytes, sizeof bytes);
    EXPECT_TRUE(store.synchronise());
  }
  cfdouble::restartPreferences();
  std::vector<unsigned char> out;
  EXPECT_TRUE(PreferenceStore(kApplication).getBytes("DefaultBank", out));
  EXPECT_THAT(out, ElementsAre(0, 255, 0, 7));
}

TEST_F(PrefsCf, KeepsNoBytesAsAValue) {
  PreferenceStore store(kApplication);
  store.setBytes("MemoAPreset", "", 0);
  EXPECT_TRUE(store.synchronise());
  std::vector<unsigned char> out = {1};
  EXPECT_TRUE(store.getBytes("MemoAPreset", out));
  EXPECT_TRUE(out.empty());
}

TEST_F(PrefsCf, LeavesTheBufferAloneWhereTheKeyIsMissing) {
  char buffer[] = "unchanged";
  EXPECT_FALSE(PreferenceStore(kApplication).getString("CurrDir", buffer, sizeof buffer));
  EXPECT_STREQ(buffer, "unchanged");
}

TEST_F(PrefsCf, LeavesTheBufferAloneWhereTheStringDoesNotFit) {
  PreferenceStore store(kApplication);
  store.setString("CurrPreset", "0123456789");
  char buffer[11] = "unchanged";
  EXPECT_FALSE(store.getString("CurrPreset", buffer, 10));
  EXPECT_STREQ(buffer, "unchanged");
  EXPECT_TRUE(store.getString("CurrPreset", buffer, 11));
  EXPECT_STREQ(buffer, "0123456789");
}

TEST_F(PrefsCf, TakesAValueOfTheOtherTypeForMissing) {
  PreferenceStore store(kApplication);
  store.setString("CurrDir", "text");
  store.setBytes("DefaultBank", "bytes", 5);
  char buffer[] = "unchanged";
  EXPECT_FALSE(store.getString("DefaultBank", buffer, sizeof buffer));
  EXPECT_STREQ(buffer, "unchanged");
  std::vector<unsigned char> out = {1, 2};
  EXPECT_FALSE(store.getBytes("CurrDir", out));
  EXPECT_THAT(out, ElementsAre(1, 2));
}

TEST_F(PrefsCf, ShowsChangesToOthersOnlyWhenSynchronised) {
  PreferenceStore store(kApplication);
  store.setString("CurrDir", "new");
  EXPECT_EQ(stringOf(store, "CurrDir"), "new");
  EXPECT_EQ(stringOf(PreferenceStore(kApplication), "CurrDir"), "(missing)");
  EXPECT_TRUE(store.synchronise());
  EXPECT_EQ(stringOf(PreferenceStore(kApplication), "CurrDir"), "new");
}

TEST_F(PrefsCf, DropsChangesThatAreNotSynchronised) {
  PreferenceStore(kApplication).setString("CurrDir", "dropped");
  EXPECT_EQ(stringOf(PreferenceStore(kApplication), "CurrDir"), "(missing)");
}

TEST_F(PrefsCf, WritesNothingWithoutAChange) {
  EXPECT_TRUE(PreferenceStore(kApplication).synchronise());
  EXPECT_EQ(cfdouble::synchronisings(), 0);
}

TEST_F(PrefsCf, PutsEveryWriteOnDiskAtOnce) {
  PreferenceStore store(kApplication);
  store.setBytes("DefaultPreset", "image", 5);
  EXPECT_TRUE(store.synchronise());
  EXPECT_THAT(cfdouble::storedBytes(kApplication, "DefaultPreset"),
              Optional(ElementsAre('i', 'm', 'a', 'g', 'e')));
}

TEST_F(PrefsCf, RemovesAKeyAndLeavesTheOthers) {
  PreferenceStore store(kApplication);
  store.setBytes("DefaultBank", "image", 5);
  store.setString("CurrDir", "stays");
  EXPECT_TRUE(store.synchronise());
  store.remove("DefaultBank");
  std::vector<unsigned char> out;
  EXPECT_FALSE(store.getBytes("DefaultBank", out));
  EXPECT_TRUE(store.synchronise());
  EXPECT_FALSE(cfdouble::storedBytes(kApplication, "DefaultBank").has_value());
  EXPECT_TRUE(cfdouble::storedText(kApplication, "CurrDir").has_value());
}

TEST_F(PrefsCf, RemovesAKeyThatIsNotThere) {
  PreferenceStore store(kApplication);
  store.remove("DefaultMidi");
  EXPECT_TRUE(store.synchronise());
}

TEST_F(PrefsCf, ShowsAKeyAsItStoodAtItsFirstQuestion) {
  PreferenceStore store(kApplication);
  EXPECT_EQ(stringOf(store, "CurrDir"), "(missing)");
  PreferenceStore other(kApplication);
  other.setString("CurrDir", "of another instance");
  EXPECT_TRUE(other.synchronise());
  EXPECT_EQ(stringOf(store, "CurrDir"), "(missing)");
}

TEST_F(PrefsCf, TellsWhenTheDiskRefuses) {
  PreferenceStore store(kApplication);
  store.setString("CurrDir", "new");
  cfdouble::failSynchronising(true);
  EXPECT_FALSE(store.synchronise());
  cfdouble::failSynchronising(false);
  EXPECT_TRUE(store.synchronise());  // the change is still there
  EXPECT_THAT(cfdouble::storedText(kApplication, "CurrDir"), Optional(std::u16string(u"new")));
}

TEST_F(PrefsCf, KeepsApplicationsApart) {
  PreferenceStore store(kApplication);
  store.setString("CurrDir", "ours");
  EXPECT_TRUE(store.synchronise());
  EXPECT_EQ(stringOf(PreferenceStore("com.other.product"), "CurrDir"), "(missing)");
  EXPECT_FALSE(cfdouble::storedText("com.other.product", "CurrDir").has_value());
}

}  // namespace
