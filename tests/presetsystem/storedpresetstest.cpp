// Tests of what the preset system keeps in the user's preferences.
#include <sys/inotify.h>
#include <unistd.h>

#include <thread>

#include "tests/presetsystem/filesfixture.h"
#include "tests/support/preferencestoretest.h"

namespace {

using imagebytes::Bytes;
using imagebytes::Preset;

const Preset kPad = {"soft pad", {0.3F, 0.25F, 0.5F, 1.0F, 0.0F}};

class Defaults : public Files {
 protected:
  static Bytes stored(const char* key) {
    Bytes value;
    PreferenceStore("com.orv.trelvan").getBytes(key, value);
    return value;
  }
  static void store(const char* key, const Bytes& value) {
    PreferenceStore preferences("com.orv.trelvan");
    preferences.setBytes(key, value.data(), value.size());
    ASSERT_TRUE(preferences.synchronise());
  }
  static std::string storedText(const char* key) {
    char text[257] = "missing";
    PreferenceStore("com.orv.trelvan").getString(key, text, sizeof text);
    return text;
  }
  static presetimage::Bank factoryBank() {
    presetimage::Bank bank;
    const TemporaryFolder empty;
    const ScopedVariable config("XDG_CONFIG_HOME", empty.path);
    const Trelvan fresh(silentHost);
    bank = const_cast<Trelvan&>(fresh).bank();
    return bank;
  }
};

TEST_F(Defaults, RecallingAMemoryThatIsNotThereChangesNothing) {
  instance->effect.setPresetNo(7);
  const presetimage::Bank before = bankNow();
  editor().recallA();
  editor().recallB();
  EXPECT_TRUE(sameBank(bankNow(), before));
  EXPECT_EQ(current(), 7);
}

TEST_F(Defaults, AStoredOnPreset3AndRecalledOnPreset7CarriesNameAndValues) {
  begin(imagebytes::distinctBank());
  const presetimage::Bank before = bankNow();
  instance->effect.setPresetNo(3);
  editor().storeA();
  instance->effect.setPresetNo(7);
  editor().recallA();
  presetimage::Bank expected = before;
  expected[7] = before[3];
  EXPECT_TRUE(sameBank(bankNow(), expected));
  EXPECT_EQ(current(), 7);
  EXPECT_EQ(instance->effect.getParameter(1), before[3].parameter(1));
}

TEST_F(Defaults, TheTwoMemoriesAreSeparateAndShared) {
  begin(imagebytes::distinctBank());
  const presetimage::Bank before = bankNow();
  instance->effect.setPresetNo(3);
  editor().storeA();
  instance->effect.setPresetNo(4);
  editor().storeB();
  EXPECT_EQ(stored("MemoAPreset"), imagebytes::presetImage(imagebytes::distinctBank()[3]));
  EXPECT_EQ(stored("MemoBPreset"), imagebytes::presetImage(imagebytes::distinctBank()[4]));
  FilesInstance other;
  other.editor->recallB();
  EXPECT_TRUE(sameRecord(other.preset(0), before[4]));
  other.editor->recallA();
  EXPECT_TRUE(sameRecord(other.preset(0), before[3]));
}

TEST_F(Defaults, ANewInstanceStartsWithTheFactoryBank) {
  EXPECT_TRUE(sameBank(bankNow(), factoryBank()));
  EXPECT_EQ(current(), 0);
}

TEST_F(Defaults, ANewInstanceStartsWithTheDefaultBankAtPreset0) {
  begin(imagebytes::distinctBank());
  instance->effect.setPresetNo(5);
  editor().saveDefaultBank();
  EXPECT_EQ(stored("DefaultBank"), imagebytes::bankImage(imagebytes::distinctBank(), 5));
  FilesInstance fresh;
  EXPECT_TRUE(sameBank(fresh.effect.bank(), recordsOf(imagebytes::distinctBank())));
  EXPECT_EQ(fresh.effect.getPresetNo(), 0);
}

TEST_F(Defaults, ANewInstanceHasTheDefaultPresetInPlaceOfPreset0) {
  begin(imagebytes::distinctBank());
  instance->effect.setPresetNo(5);
  editor().saveDefaultBank();
  preset(5) = recordOf(kPad);
  editor().saveDefaultPreset();
  EXPECT_EQ(stored("DefaultPreset"), imagebytes::presetImage(kPad));
  FilesInstance fresh;
  presetimage::Bank expected = recordsOf(imagebytes::distinctBank());
  expected[0] = recordOf(kPad);
  EXPECT_TRUE(sameBank(fresh.effect.bank(), expected));
  EXPECT_EQ(fresh.effect.getPresetNo(), 0);
  EXPECT_EQ(fresh.effect.getParameter(0), kPad.values[0]);
}

TEST_F(Defaults, LoadingTheDefaultBankSelectsThePresetThatItNames) {
  store("DefaultBank", imagebytes::bankImage(imagebytes::distinctBank(), 5));
  editor().loadDefaultBank();
  EXPECT_EQ(current(), 5);
  EXPECT_TRUE(sameBank(bankNow(), recordsOf(imagebytes::distinctBank())));
}

TEST_F(Defaults, LoadingTheDefaultPresetFillsTheCurrentOne) {
  store("DefaultPreset", imagebytes::presetImage(kPad, true));
  instance->effect.setPresetNo(5);
  editor().loadDefaultPreset();
  EXPECT_TRUE(sameRecord(preset(5), recordOf(kPad)));
  EXPECT_EQ(current(), 5);
}

TEST_F(Defaults, AfterResettingTheDefaultBankANewInstanceHasTheFactoryBank) {
  const presetimage::Bank factory = bankNow();
  begin(imagebytes::distinctBank());
  editor().saveDefaultBank();
  editor().saveDefaultPreset();
  editor().resetDefaultBank();
  EXPECT_EQ(stored("DefaultBank"), Bytes());
  EXPECT_NE(stored("DefaultPreset"), Bytes());
  editor().resetDefaultPreset();
  EXPECT_EQ(stored("DefaultPreset"), Bytes());
  FilesInstance fresh;
  EXPECT_TRUE(sameBank(fresh.effect.bank(), factory));
}

TEST_F(Defaults, MidiDefaultsAreOnlyRemoved) {
  store("DefaultMidi", imagebytes::midiMapImage({0.5F, 0.5F, 0.5F, 0.5F, 0.5F}));
  store("MemoAPreset", imagebytes::presetImage(kPad));
  editor().loadDefaultMidi();
  editor().saveDefaultMidi();
  editor().saveMidi();
  editor().loadMidi(true);
  EXPECT_EQ(stored("DefaultMidi"), imagebytes::midiMapImage({0.5F, 0.5F, 0.5F, 0.5F, 0.5F}));
  EXPECT_FALSE(editor().fileOperationRunning());
  editor().resetDefaultMidi();
  EXPECT_EQ(stored("DefaultMidi"), Bytes());
  EXPECT_EQ(stored("MemoAPreset"), imagebytes::presetImage(kPad));
}

TEST_F(Defaults, OldImagesAreReadToo) {
  const auto old = [](int kind, const Bytes& data) {
    return imagebytes::Writer().word(imagebytes::kTrelvan).byte(kind).append(data).bytes;
  };
  store("DefaultBank",
        old(imagebytes::kOldBankKind, imagebytes::oldBankData(imagebytes::distinctBank(), 5)));
  store("MemoAPreset", old(imagebytes::kOldPresetKind, imagebytes::oldPresetData(kPad, 5)));
  instance->effect.setPresetNo(4);
  editor().loadDefaultBank();
  EXPECT_EQ(current(), 0);
  EXPECT_TRUE(sameBank(bankNow(), recordsOf(imagebytes::distinctBank())));
  editor().recallA();
  EXPECT_TRUE(sameRecord(preset(0), recordOf(kPad)));
}

TEST_F(Defaults, StoredValuesThatAreForeignOrDamagedChangeNothing) {
  instance->effect.setPresetNo(4);
  const presetimage::Bank before = bankNow();
  Bytes foreignPreset = imagebytes::presetImage(kPad);
  Bytes foreignBank = imagebytes::bankImage(imagebytes::distinctBank(), 5);
  foreignPreset[0] ^= 1U;
  foreignBank[0] ^= 1U;
  const Bytes whole = imagebytes::presetImage(kPad);
  const std::pair<Bytes, Bytes> values[] = {
      {foreignPreset, foreignBank},
      // of the other kind
      {imagebytes::bankImage(imagebytes::distinctBank(), 5), imagebytes::presetImage(kPad)},
      {Bytes(whole.begin(), whole.begin() + 4), Bytes(whole.begin(), whole.begin() + 4)},
      {Bytes(whole.begin(), whole.begin() + 40), Bytes(whole.begin(), whole.begin() + 3)},
      {{}, {}},
  };
  for (const auto& [presetValue, bankValue] : values) {
    store("MemoAPreset", presetValue);
    store("DefaultPreset", presetValue);
    store("DefaultBank", bankValue);
    editor().recallA();
    editor().loadDefaultPreset();
    editor().loadDefaultBank();
    EXPECT_TRUE(sameBank(bankNow(), before));
    EXPECT_EQ(current(), 4);
  }
}

TEST_F(Defaults, FolderAndFileNamesSurviveTheInstance) {
  savePreset(files / "pad.orv");
  saveBank(files / "all.orb");
  instance.reset();
  EXPECT_EQ(storedText("CurrDir"), files.path + "/");
  EXPECT_EQ(storedText("CurrPreset"), "pad.orv");
  EXPECT_EQ(storedText("CurrBank"), "all.orb");
  FilesInstance next;
  EXPECT_STREQ(next.editor->currentDirectory, (files.path + "/").c_str());
  EXPECT_STREQ(next.editor->presetFileName, "pad.orv");
  EXPECT_STREQ(next.editor->bankFileName, "all.orb");
}

TEST_F(Defaults, AMissingNameLeavesItsFieldUnchanged) {
  std::strcpy(editor().currentDirectory, "/a/");
  std::strcpy(editor().bankFileName, "b.orb");
  PreferenceStore preferences("com.orv.trelvan");
  preferences.setString("CurrBank", "stored.orb");
  ASSERT_TRUE(preferences.synchronise());
  editor().recallPathsAndFilenames();
  EXPECT_STREQ(editor().currentDirectory, "/a/");
  EXPECT_STREQ(editor().bankFileName, "stored.orb");
  EXPECT_STREQ(editor().presetFileName, "");
}

TEST_F(Defaults, ANameThatDoesNotFitLeavesItsFieldUnchanged) {
  PreferenceStore preferences("com.orv.trelvan");
  // 256 characters and the terminator
  preferences.setString("CurrDir", ("/" + std::string(255, 'd')).c_str());
  preferences.setString("CurrBank", std::string(255, 'b').c_str());
  ASSERT_TRUE(preferences.synchronise());
  std::strcpy(editor().currentDirectory, "/a/");
  editor().recallPathsAndFilenames();
  EXPECT_STREQ(editor().currentDirectory, "/a/");
  EXPECT_EQ(editor().bankFileName, std::string(255, 'b'));
}

TEST_F(Defaults, AnInstanceThatLearnsNothingWritesNothing) {
  instance.reset();
  EXPECT_FALSE(std::filesystem::exists(home / "orv"));
  store("MemoAPreset", imagebytes::presetImage(kPad));
  FolderWatch watch(home / "orv", IN_OPEN | IN_MOVED_TO | IN_CREATE);
  const auto fresh = std::make_unique<Trelvan>(silentHost);
  EXPECT_EQ(watch.count("trelvan.conf"), 1);  // read once, for two images and three names
}

TEST_F(Defaults, MakingAnInstanceReadsOnceAndEndingItWritesAtMostOnce) {
  begin(imagebytes::distinctBank());
  editor().saveDefaultBank();
  editor().saveDefaultPreset();
  savePreset(files / "pad.orv");
  instance.reset();

  FolderWatch opened(home / "orv", IN_OPEN);
  FolderWatch changed(home / "orv", IN_MOVED_TO | IN_CREATE | IN_DELETE | IN_MODIFY);
  auto fresh = std::make_unique<Trelvan>(silentHost);
  EXPECT_EQ(opened.count(""), 1);
  fresh.reset();
  EXPECT_EQ(opened.count(""), 0);
  EXPECT_EQ(changed.count(""), 0);

  instance = std::make_unique<FilesInstance>();
  savePreset(files / "other.orv");
  FolderWatch written(home / "orv", IN_MOVED_TO);
  instance.reset();
  EXPECT_EQ(written.count(""), 1);
  EXPECT_EQ(storedText("CurrPreset"), "other.orv");
}

TEST_F(Defaults, AnInstanceWithNothingNewTakesNothingBack) {
  FilesInstance idle;
  savePreset(files / "pad.orv");
  instance.reset();
  idle.editor->storePathsAndFilenames();
  EXPECT_EQ(storedText("CurrPreset"), "pad.orv");
}

TEST_F(Defaults, StoringIsOnDiskAtOnce) {
  editor().storeA();
  EXPECT_THAT(contentOf(prefsFile()), testing::HasSubstr("MemoAPreset=bytes:"));
  editor().storePathsAndFilenames();  // nothing new
  EXPECT_THAT(contentOf(prefsFile()), testing::Not(testing::HasSubstr("CurrDir")));
  std::strcpy(editor().currentDirectory, "/a/");
  editor().storePathsAndFilenames();
  EXPECT_THAT(contentOf(prefsFile()), testing::HasSubstr("CurrDir=string:/a/\n"));
  EXPECT_THAT(contentOf(prefsFile()), testing::HasSubstr("CurrBank=string:\n"));
}

TEST_F(Defaults, WithoutAHomeEverythingIsAbsentAndNothingFails) {
  config.set(nullptr);
  const ScopedVariable noHome("HOME", nullptr);
  FilesInstance homeless;
  EXPECT_TRUE(sameBank(homeless.effect.bank(), factoryBank()));
  homeless.editor->storeA();
  homeless.editor->recallA();
  homeless.editor->saveDefaultBank();
  homeless.editor->resetDefaultBank();
  std::strcpy(homeless.editor->currentDirectory, "/a/");
}

TEST_F(Defaults, InstancesMayBeMadeAndEndedOnManyThreadsAtOnce) {
  store("DefaultBank", imagebytes::bankImage(imagebytes::distinctBank(), 5));
  store("DefaultPreset", imagebytes::presetImage(kPad));
  presetimage::Bank expected = recordsOf(imagebytes::distinctBank());
  expected[0] = recordOf(kPad);
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&] {
      for (int round = 0; round < 10; ++round) {
        Trelvan effect(silentHost);
        EXPECT_TRUE(sameBank(effect.bank(), expected));
        auto* presetBar = static_cast<CPresetSystemEditor*>(effect.getEditor());
        presetBar->storeA();
        presetBar->recallA();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
