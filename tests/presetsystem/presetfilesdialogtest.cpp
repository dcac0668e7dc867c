// Tests of the dialogs behind loading and saving, and of the names that they leave behind.
#include <signal.h>

#include <new>

#include "tests/presetsystem/filesfixture.h"
#include "tests/support/failingmemory.h"

namespace {

using imagebytes::Bytes;
using imagebytes::Preset;
using testing::ElementsAre;

const Preset kPad = {"soft pad", {0.3F, 0.25F, 0.5F, 1.0F, 0.0F}};

TEST_F(Files, NothingHappensWithoutAWindow) {
  editor().closeWindow();
  userChooses(files / "pad.orv");
  editor().loadPreset(false);
  editor().loadBank(true);
  editor().savePreset();
  editor().saveBank();
  EXPECT_FALSE(editor().fileOperationRunning());
  editor().completeFileOperation();
  EXPECT_FALSE(desktop.wasCalled("zenity"));
}

TEST_F(Files, TheDialogsSayWhatTheyAreFor) {
  const ScopedVariable homeFolder("HOME", files.path);
  desktop.install("zenity", "exit 1");
  const auto run = [this](auto operation) {
    operation();
    finish();
  };
  run([this] { editor().loadPreset(false); });
  run([this] { editor().loadPreset(true); });
  run([this] { editor().loadBank(false); });
  run([this] { editor().loadBank(true); });
  std::strcpy(editor().currentDirectory, (home.path + "/").c_str());
  std::strcpy(editor().presetFileName, "pad.orv");
  std::strcpy(editor().bankFileName, "all.orb");
  editor().setHostWindow(4711);
  run([this] { editor().savePreset(); });
  run([this] { editor().saveBank(); });

  const std::string none = "--filename=" + files.path + "/";
  const std::string presets = "--file-filter=Orv Preset (*.orv) | *.orv *.ORV";
  const std::string banks = "--file-filter=Orv Bank (*.orb) | *.orb *.ORB";
  const char* const choose = "--file-selection";
  EXPECT_THAT(desktop.argumentsOf("zenity", 1),
              ElementsAre(choose, "--title=Load preset", none, presets));
  EXPECT_THAT(desktop.argumentsOf("zenity", 2),
              ElementsAre(choose, "--title=Load preset (endian-reversed)", none, presets));
  EXPECT_THAT(desktop.argumentsOf("zenity", 3),
              ElementsAre(choose, "--title=Load bank", none, banks));
  EXPECT_THAT(desktop.argumentsOf("zenity", 4),
              ElementsAre(choose, "--title=Load bank (endian-reversed)", none, banks));
  EXPECT_THAT(desktop.argumentsOf("zenity", 5),
              ElementsAre(choose, "--title=Save preset", "--filename=" + home.path + "/pad.orv",
                          presets, "--save", "--confirm-overwrite", "--attach=4711"));
  EXPECT_THAT(desktop.argumentsOf("zenity", 6),
              ElementsAre(choose, "--title=Save bank", "--filename=" + home.path + "/all.orb",
                          banks, "--save", "--confirm-overwrite", "--attach=4711"));
}

TEST_F(Files, ASavedNameGetsItsExtension) {
  preset(0) = recordOf(kPad);
  savePreset(files / "pad");
  EXPECT_EQ(bytesOf(files / "pad.orv"), imagebytes::presetImage(kPad));
  EXPECT_STREQ(editor().presetFileName, "pad.orv");
  saveBank(files / "all");
  EXPECT_TRUE(std::filesystem::exists(files / "all.orb"));
}

TEST_F(Files, ACancelledDialogChangesNothing) {
  const presetimage::Bank before = bankNow();
  std::strcpy(editor().presetFileName, "pad.orv");
  desktop.install("zenity", "exit 1");
  editor().loadPreset(false);
  finish();
  editor().savePreset();
  finish();
  EXPECT_TRUE(sameBank(bankNow(), before));
  EXPECT_STREQ(editor().presetFileName, "pad.orv");
  EXPECT_STREQ(editor().currentDirectory, "");
}

TEST_F(Files, ThereIsOneDialogAtATime) {
  desktop.install("zenity", "exec /bin/sleep 60");
  editor().loadPreset(false);
  EXPECT_TRUE(editor().fileOperationRunning());
  ASSERT_TRUE(desktop.isCalled("zenity"));
  editor().saveBank();
  editor().loadPreset(true);
  editor().completeFileOperation();
  EXPECT_TRUE(editor().fileOperationRunning());
  EXPECT_EQ(kill(desktop.pidOf("zenity"), 0), 0);  // the first one, not ended by another
  EXPECT_FALSE(desktop.wasCalled("zenity", 2));
}

TEST_F(Files, TheDialogEndsWithTheWindow) {
  desktop.install("zenity", "exec /bin/sleep 60");
  editor().savePreset();
  ASSERT_TRUE(desktop.isCalled("zenity"));
  editor().closeWindow();
  EXPECT_FALSE(editor().fileOperationRunning());
  EXPECT_NE(kill(desktop.pidOf("zenity"), 0), 0);
  editor().completeFileOperation();  // a late idle pass
}

TEST_F(Files, TheDialogEndsWithTheEffect) {
  desktop.install("zenity", "exec /bin/sleep 60");
  editor().savePreset();
  ASSERT_TRUE(desktop.isCalled("zenity"));
  instance.reset();
  EXPECT_NE(kill(desktop.pidOf("zenity"), 0), 0);
}

TEST_F(Files, AnAlertSaysThatThereIsNoDialogProgram) {
  desktop.install("xmessage", "");
  editor().loadBank(false);
  EXPECT_TRUE(editor().fileOperationRunning());  // it is said from the idle pass
  finish();
  editor().watchMessages();
  ASSERT_TRUE(desktop.isCalled("xmessage"));
  ASSERT_EQ(desktop.argumentsOf("xmessage").size(), 8U);
  EXPECT_EQ(desktop.argumentsOf("xmessage").back(),
            "There is no program that shows a file dialog.\nPlease install zenity or kdialog to "
            "load and save presets.");
}

TEST_F(Files, ANameThatIsTooLongTouchesNoOtherFile) {
  preset(0) = recordOf(kPad);
  savePreset(files / "pad.orv");
  const Bytes before = bytesOf(files / "pad.orv");
  preset(0) = recordOf({"another", {}});
  savePreset(files / (std::string(252, 'x') + ".orv"));  // 256 characters, one more than fits
  EXPECT_EQ(bytesOf(files / "pad.orv"), before);
  EXPECT_STREQ(editor().presetFileName, "pad.orv");
  EXPECT_STREQ(editor().currentDirectory, (files.path + "/").c_str());
  loadPreset(files / (std::string(252, 'x') + ".orv"));
  EXPECT_TRUE(sameRecord(preset(0), recordOf({"another", {}})));
}

// Folders are kept with up to 255 bytes, their last "/" among them. Files are read and written
// in longer ones too.
TEST_F(Files, FoldersMayBeLongerThanWhatIsKeptOfThem) {
  for (const std::size_t size :
       {std::size_t{255}, std::size_t{256}, std::size_t{257}, std::size_t{600}}) {
    const std::string first = files / (std::string(100, 'a') + "/" + std::string(100, 'b') + "/");
    std::string folder = first;  // the nearest that is short enough, whatever comes after it
    while (folder.size() + 101 < size) folder += std::string(100, 'c') + "/";
    folder += std::string(size - folder.size() - 1, 'd') + "/";
    const std::string kept = size < 256 ? folder : first;
    ASSERT_EQ(folder.size(), size);
    std::filesystem::create_directories(folder);

    preset(0) = recordOf(kPad);
    savePreset(folder + "pad.orv");
    EXPECT_EQ(bytesOf(folder + "pad.orv"), imagebytes::presetImage(kPad)) << size;
    EXPECT_EQ(editor().currentDirectory, kept);
    EXPECT_STREQ(editor().presetFileName, "pad.orv");
    preset(0) = recordOf({"another", {}});
    loadPreset(folder + "pad.orv");
    EXPECT_TRUE(sameRecord(preset(0), recordOf(kPad))) << size;
    saveBank(folder + "all.orb");
    EXPECT_TRUE(std::filesystem::exists(folder + "all.orb")) << size;
    EXPECT_EQ(editor().currentDirectory, kept);
  }
}

// Nothing is read or written in the folder that is kept in its place.
TEST_F(Files, ALongFolderThatIsNotThereTouchesNoOtherFile) {
  preset(0) = recordOf(kPad);
  savePreset(files / "pad.orv");
  const std::string missing = files / (std::string(254 - files.path.size(), 'y') + "/pad.orv");
  ASSERT_EQ(missing.rfind('/') + 1, 256U);
  preset(0) = recordOf({"another", {}});
  savePreset(missing);
  EXPECT_EQ(bytesOf(files / "pad.orv"), imagebytes::presetImage(kPad));
  loadPreset(missing);
  EXPECT_TRUE(sameRecord(preset(0), recordOf({"another", {}})));
  EXPECT_STREQ(editor().currentDirectory, (files.path + "/").c_str());
}

TEST_F(Files, ANameMayFillItsBuffer) {
  preset(0) = recordOf(kPad);
  const std::string longest = std::string(251, 'x') + ".orv";  // 255 characters
  savePreset(files / longest);
  EXPECT_EQ(bytesOf(files / longest), imagebytes::presetImage(kPad));
  EXPECT_STREQ(editor().presetFileName, longest.c_str());
}

// Presses are kept from the controls while a dialog runs: one that never began would keep
// them for good.
TEST_F(Files, ADialogThatCannotBeStartedWithoutMemoryIsNotWaitedFor) {
  std::strcpy(editor().currentDirectory, "/a/folder/with/a/long/name/");
  desktop.install("zenity", "exit 1");
  int failures = 0;
  for (long succeeding = 0;; ++succeeding) {
    bool failed = false;
    {
      const FailingMemory memory(succeeding);
      try {
        editor().loadPreset(true);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
    }
    if (!failed) break;
    ++failures;
    ASSERT_FALSE(editor().fileOperationRunning()) << succeeding << " allocations";
  }
  EXPECT_GT(failures, 0);
  finish();
}

}  // namespace
