// Tests of the file dialog with fake dialog programs.
#include "editor/base/filedialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include "tests/support/fakedesktop.h"

namespace {

using State = FileDialog::State;
using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;
using testing::ElementsAre;
using testing::HasSubstr;

class Dialog : public testing::Test {
 protected:
  Dialog() {
    request.title = "Load preset";
    request.folder = files.path + "/";
    request.typeName = "Orv Preset";
    request.extension = "orv";
  }

  void askToSave(const std::string& proposed) {
    request.save = true;
    request.title = "Save preset";
    request.proposedName = proposed;
  }
  // The state it comes to.
  State outcome() {
    dialog.start(request);
    return outcomeOfRunning();
  }
  State outcomeOfRunning() {
    const auto deadline = steady_clock::now() + seconds(20);
    while (dialog.poll() == State::running && steady_clock::now() < deadline) {
      std::this_thread::sleep_for(milliseconds(1));
    }
    return dialog.poll();
  }

  FakeDesktop desktop;
  TemporaryFolder files;
  FileDialogRequest request;
  FileDialog dialog;
};

TEST_F(Dialog, TellsWhatTheUserChose) {
  desktop.install("zenity", "echo '/some/where/soft pad.orv'");
  EXPECT_EQ(outcome(), State::chosen);
  EXPECT_EQ(dialog.path(), "/some/where/soft pad.orv");
}

TEST_F(Dialog, AsksZenityForAFileToLoad) {
  desktop.install("zenity", "exit 1");
  outcome();
  EXPECT_THAT(
      desktop.argumentsOf("zenity"),
      ElementsAre("--file-selection", "--title=Load preset", "--filename=" + files.path + "/",
                  "--file-filter=Orv Preset (*.orv) | *.orv *.ORV"));
}

TEST_F(Dialog, AsksZenityForANameToSaveUnder) {
  desktop.install("zenity", "exit 1");
  askToSave("soft pad.orv");
  request.window = 4711;
  outcome();
  EXPECT_THAT(desktop.argumentsOf("zenity"),
              ElementsAre("--file-selection", "--title=Save preset",
                          "--filename=" + files.path + "/soft pad.orv",
                          "--file-filter=Orv Preset (*.orv) | *.orv *.ORV", "--save",
                          "--confirm-overwrite", "--attach=4711"));
}

TEST_F(Dialog, AsksKdialogForAFileToLoad) {
  desktop.install("kdialog", "exit 1");
  outcome();
  EXPECT_THAT(desktop.argumentsOf("kdialog"),
              ElementsAre("--title", "Load preset", "--getopenfilename", files.path + "/",
                          "Orv Preset (*.orv *.ORV)"));
}

TEST_F(Dialog, AsksKdialogForANameToSaveUnder) {
  desktop.install("kdialog", "exit 1");
  askToSave("soft pad.orv");
  request.window = 4711;
  outcome();
  EXPECT_THAT(desktop.argumentsOf("kdialog"),
              ElementsAre("--title", "Save preset", "--attach", "4711", "--getsavefilename",
                          files.path + "/soft pad.orv", "Orv Preset (*.orv *.ORV)"));
}

TEST_F(Dialog, UsesTheProgramOfTheDesktop) {
  desktop.install("zenity", "echo /by/zenity.orv");
  desktop.install("kdialog", "echo /by/kdialog.orv");
  const std::pair<const char*, const char*> expected[] = {
      {"KDE", "/by/kdialog.orv"},    {"ubuntu:KDE", "/by/kdialog.orv"}, {"LXQt", "/by/kdialog.orv"},
      {"GNOME", "/by/zenity.orv"},   {"XFCE", "/by/zenity.orv"},        {"", "/by/zenity.orv"},
      {"NOT-KDE", "/by/zenity.orv"},
  };
  for (const auto& [name, path] : expected) {
    desktop.kind.set(name);
    EXPECT_EQ(outcome(), State::chosen);
    EXPECT_EQ(dialog.path(), path) << name;
  }
  desktop.kind.set(nullptr);
  EXPECT_EQ(outcome(), State::chosen);
  EXPECT_EQ(dialog.path(), "/by/zenity.orv");
}

TEST_F(Dialog, TakesTheOtherProgramWhereTheDesktopsOwnIsMissing) {
  desktop.install("zenity", "echo /by/zenity.orv");
  desktop.kind.set("KDE");
  EXPECT_EQ(outcome(), State::chosen);
  EXPECT_EQ(dialog.path(), "/by/zenity.orv");
}

TEST_F(Dialog, TakesTheOtherProgramWhereOneDoesNotWork) {
  desktop.install("kdialog", "echo /by/kdialog.orv");
  for (const char* failure : {"exit 127", "exit 255", "kill -SEGV $$"}) {
    desktop.install("zenity", failure);
    EXPECT_EQ(outcome(), State::chosen) << failure;
    EXPECT_EQ(dialog.path(), "/by/kdialog.orv");
  }
  writeFile(desktop.programs() + "/zenity", "no program");  // starting it fails
  EXPECT_EQ(outcome(), State::chosen);
}

TEST_F(Dialog, IsUnavailableWithoutAProgramThatWorks) {
  EXPECT_EQ(outcome(), State::unavailable);
  desktop.install("zenity", "exit 127");
  desktop.install("kdialog", "exit 254");
  EXPECT_EQ(outcome(), State::unavailable);
}

TEST_F(Dialog, IsUnavailableWithoutADisplay) {
  desktop.install("zenity", "echo /by/zenity.orv");
  for (const char* none : {static_cast<const char*>(nullptr), ""}) {
    desktop.display.set(none);
    EXPECT_EQ(outcome(), State::unavailable);
  }
  EXPECT_FALSE(desktop.wasCalled("zenity"));
  desktop.wayland.set("wayland-0");
  EXPECT_EQ(outcome(), State::chosen);
}

TEST_F(Dialog, IsCancelledWhereTheProgramIsClosed) {
  for (const char* closed : {"exit 1", "exit 5", "exit 0", "kill -TERM $$", "kill -KILL $$"}) {
    desktop.install("zenity", closed);
    desktop.install("kdialog", "echo /by/kdialog.orv");
    EXPECT_EQ(outcome(), State::cancelled) << closed;
  }
  EXPECT_FALSE(desktop.wasCalled("kdialog"));
}

TEST_F(Dialog, IsCancelledByAnAnswerThatIsNoFile) {
  for (const char* answer : {"relative.orv", "./relative.orv", "/folder/", ""}) {
    desktop.install("zenity", "echo '" + std::string(answer) + "'");
    EXPECT_EQ(outcome(), State::cancelled) << answer;
  }
}

// To the system the name would end there, and it would be another file's.
TEST_F(Dialog, IsCancelledByAnAnswerWithAZeroInIt) {
  desktop.install("zenity", "printf '/some/pad\\000.orv\\n'");
  EXPECT_EQ(outcome(), State::cancelled);
  EXPECT_EQ(dialog.path(), "");
}

TEST_F(Dialog, TakesNamesWithEveryCharacter) {
  for (const std::string name :
       {"/a b/c'd\"e.orv", "/line\nbreak.orv", "/ends with a line\n", "/\xc3\xa9\xff.orv"}) {
    writeFile(desktop.folder / "answer", name + "\n");
    desktop.install("zenity", "exec /bin/cat " + (desktop.folder / "answer"));
    EXPECT_EQ(outcome(), State::chosen);
    EXPECT_EQ(dialog.path(), name);
  }
}

TEST_F(Dialog, AppendsTheExtensionWhereItIsMissing) {
  const std::pair<const char*, const char*> expected[] = {
      {"pad", "pad.orv"},         {"pad.orv", "pad.orv"}, {"pad.ORV", "pad.ORV"},
      {"pad.orb", "pad.orb.orv"}, {"pad.", "pad..orv"},   {"orv", "orv.orv"},
  };
  askToSave("");
  for (const auto& [typed, saved] : expected) {
    desktop.install("zenity", "echo '" + files.path + "/" + typed + "'");
    EXPECT_EQ(outcome(), State::chosen);
    EXPECT_EQ(dialog.path(), files.path + "/" + saved);
  }
}

TEST_F(Dialog, AppendsNothingToAFileToLoad) {
  desktop.install("zenity", "echo /some/pad");
  EXPECT_EQ(outcome(), State::chosen);
  EXPECT_EQ(dialog.path(), "/some/pad");
}

TEST_F(Dialog, AsksBeforeANameReplacesAFileThatOnlyTheExtensionMeets) {
  writeFile(files / "pad.orv", "precious");
  desktop.install("zenity", "case $calls in 1) echo '" + files.path + "/pad';; *) exit 0;; esac");
  askToSave("");
  EXPECT_EQ(outcome(), State::chosen);
  EXPECT_EQ(dialog.path(), files / "pad.orv");
  EXPECT_THAT(desktop.argumentsOf("zenity", 2),
              ElementsAre("--question", "--no-markup", "--title=Save preset", "--ok-label=Replace",
                          "--cancel-label=Cancel",
                          "--text=pad.orv\nThis file exists already. Replace it?"));
}

TEST_F(Dialog, AsksAgainWhereTheUserDoesNotWantToReplaceTheFile) {
  writeFile(files / "pad.orv", "precious");
  desktop.install("zenity", "case $calls in 1) echo '" + files.path + "/pad';; *) exit 1;; esac");
  askToSave("");
  EXPECT_EQ(outcome(), State::cancelled);
  EXPECT_THAT(desktop.argumentsOf("zenity", 3),
              testing::Contains("--filename=" + (files / "pad.orv")));
  EXPECT_FALSE(desktop.wasCalled("zenity", 4));
}

TEST_F(Dialog, AsksWithKdialogWithoutMarkup) {
  writeFile(files / "<b>&\\n.orv", "precious");
  writeFile(desktop.folder / "answer", files.path + "/<b>&\\n\n");
  desktop.install("kdialog", "case $calls in 1) /bin/cat " + (desktop.folder / "answer") +
                                 ";; *) exit 0;; esac");
  askToSave("");
  EXPECT_EQ(outcome(), State::chosen);
  EXPECT_THAT(
      desktop.argumentsOf("kdialog", 2),
      ElementsAre("--title", "Save preset", "--continue-label", "Replace",
                  "--warningcontinuecancel",
                  "<qt>&lt;b&gt;&amp;\\\\n.orv<br/>This file exists already. Replace it?</qt>"));
}

TEST_F(Dialog, OpensInTheHomeFolderWhereTheFolderIsGone) {
  const ScopedVariable home("HOME", files.path);
  desktop.install("zenity", "exit 1");
  for (const std::string folder : {"", "/not/there/", "/dev/null"}) {
    request.folder = folder;
    outcome();
  }
  for (int call = 1; call <= 3; ++call) {
    EXPECT_THAT(desktop.argumentsOf("zenity", call),
                testing::Contains("--filename=" + files.path + "/"));
  }
}

TEST_F(Dialog, RunsInACleanEnvironment) {
  const ScopedVariable library("QT_PLUGIN_PATH", "/host/own");
  desktop.install("zenity", "exit 1");
  outcome();
  EXPECT_THAT(desktop.environmentOf("zenity"), HasSubstr("DISPLAY=:17\n"));
  EXPECT_THAT(desktop.environmentOf("zenity"), testing::Not(HasSubstr("/host/own")));
}

TEST_F(Dialog, NeverBlocks) {
  desktop.install("zenity", "exec /bin/sleep 60");
  auto begin = steady_clock::now();
  dialog.start(request);
  EXPECT_EQ(dialog.poll(), State::running);
  EXPECT_LT(steady_clock::now() - begin, seconds(1));
  ASSERT_TRUE(desktop.isCalled("zenity"));
  begin = steady_clock::now();
  for (int poll = 0; poll < 100; ++poll) EXPECT_EQ(dialog.poll(), State::running);
  dialog.cancel();
  EXPECT_LT(steady_clock::now() - begin, seconds(1));
  EXPECT_EQ(dialog.poll(), State::none);
  EXPECT_EQ(dialog.path(), "");
  EXPECT_NE(kill(desktop.pidOf("zenity"), 0), 0);
}

TEST_F(Dialog, EndsTheProgramWithItsOwner) {
  desktop.install("zenity", "exec /bin/sleep 60");
  {
    FileDialog owned;
    owned.start(request);
    ASSERT_TRUE(desktop.isCalled("zenity"));
  }
  EXPECT_NE(kill(desktop.pidOf("zenity"), 0), 0);
}

TEST_F(Dialog, EndsTheQuestionToo) {
  writeFile(files / "pad.orv", "precious");
  desktop.install("zenity",
                  "case $calls in 1) echo '" + files.path + "/pad';; *) exec /bin/sleep 60;; esac");
  askToSave("");
  dialog.start(request);
  for (int poll = 0; poll < 10000 && !desktop.wasCalled("zenity", 2); ++poll) {
    EXPECT_EQ(dialog.poll(), State::running);
    std::this_thread::sleep_for(milliseconds(1));
  }
  ASSERT_TRUE(desktop.wasCalled("zenity", 2));
  dialog.cancel();
  EXPECT_NE(kill(desktop.pidOf("zenity"), 0), 0);
}

TEST_F(Dialog, StartsAnewInPlaceOfTheOneBefore) {
  desktop.install("zenity", "exec /bin/sleep 60");
  dialog.start(request);
  ASSERT_TRUE(desktop.isCalled("zenity"));
  const int first = desktop.pidOf("zenity");
  desktop.install("zenity", "echo /second.orv");
  EXPECT_EQ(outcome(), State::chosen);
  EXPECT_EQ(dialog.path(), "/second.orv");
  EXPECT_NE(kill(first, 0), 0);
}

TEST_F(Dialog, KnowsNothingBeforeItIsStarted) {
  EXPECT_EQ(dialog.poll(), State::none);
  EXPECT_EQ(dialog.path(), "");
}

TEST_F(Dialog, WorksWhereTheHostIgnoresEndedChildren) {
  desktop.install("zenity", "echo /chosen.orv");
  const auto old = signal(SIGCHLD, SIG_IGN);
  const State state = outcome();
  desktop.install("zenity", "exit 1");
  const State cancelled = outcome();
  signal(SIGCHLD, old);
  EXPECT_EQ(state, State::chosen);
  EXPECT_EQ(cancelled, State::cancelled);
}

}  // namespace
