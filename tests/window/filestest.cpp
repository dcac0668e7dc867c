// Loading and saving presets and banks: the dialog, the file, and what the window shows afterwards.
#include <algorithm>
#include <thread>

#include "filestest.h"
#include "tests/support/mockportal.h"

namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class Files : public FilesTest {};

}  // namespace

TEST_F(Files, EachButtonShowsItsOwnDialog) {
  struct Dialog {
    Area button;
    std::string title, filter;
    bool save;
  };
  const std::string presets = "--file-filter=Orv Preset (*.orv) | *.orv *.ORV";
  const std::string banks = "--file-filter=Orv Bank (*.orb) | *.orb *.ORB";
  const Dialog dialogs[] = {{places::kLoadPreset, "Load preset", presets, false},
                            {places::kSavePreset, "Save preset", presets, true},
                            {places::kLoadBank, "Load bank", banks, false},
                            {places::kSaveBank, "Save bank", banks, true}};
  for (const Dialog& dialog : dialogs) {
    SCOPED_TRACE(dialog.title);
    const std::vector<std::string> arguments = dialogOf(dialog.button);
    EXPECT_THAT(arguments, Contains("--file-selection"));
    EXPECT_THAT(arguments, Contains("--title=" + dialog.title));
    EXPECT_THAT(arguments, Contains(dialog.filter));
    EXPECT_THAT(arguments, Contains("--filename=" + (folder / "home/")));
    EXPECT_EQ(std::count(arguments.begin(), arguments.end(), "--save"), dialog.save ? 1 : 0);
    EXPECT_EQ(std::count(arguments.begin(), arguments.end(), "--confirm-overwrite"),
              dialog.save ? 1 : 0);
    answer("", 1);
  }
}

// Factory preset 3 is "mix 3": width 0.6, frequency 0.15, emphasis 0.5.
TEST_F(Files, APresetGoesToAFileAndComesBackIntoTheCurrentOne) {
  select(3);
  host.moveAway();
  const Picture saved = host.picture();
  dialogOf(places::kSavePreset);
  answer(file("mine.orv") + "\n");
  EXPECT_EQ(contentOf(file("mine.orv")).size(), 369U);

  select(20);
  host.forgetCalls();
  load(places::kLoadPreset, file("mine.orv"));
  EXPECT_EQ(host.currentPreset(), 20);
  EXPECT_EQ(host.programName(20), "mix 3");
  EXPECT_EQ(host.parameter(0), 0.6F);
  EXPECT_EQ(host.parameter(1), 0.15F);
  EXPECT_EQ(host.parameter(2), 0.5F);
  EXPECT_EQ(host.programName(21), "toms");
  EXPECT_GE(host.calls(audioMasterUpdateDisplay).size(), 1U);
  EXPECT_EQ(host.calls(audioMasterBeginEdit).size(), 1U);
  host.moveAway();
  EXPECT_EQ(host.picture(), saved);
}

TEST_F(Files, ABankGoesToAFileAndComesBackAtItsFirstPreset) {
  host.setProgramName("the bank's first");
  host.moveAway();
  const Picture first = host.picture();
  select(5);
  host.setParameter(0, 0.11F);
  dialogOf(places::kSaveBank);
  answer(file("all.orb") + "\n");
  EXPECT_EQ(contentOf(file("all.orb")).size(), 10537U);
  const std::string presets = preferences();

  WindowHost other(1);
  other.openEditor();
  other.click(places::kLoadBank);
  ASSERT_TRUE(other.idleUntil([&] { return zenity.wasAsked(); }));
  zenity.takeArguments();
  zenity.answer(file("all.orb") + "\n");
  ASSERT_TRUE(other.idleUntil([&] { return !zenity.isRunning(); }));
  other.idle(3);
  EXPECT_EQ(other.currentPreset(), 0);
  EXPECT_EQ(other.programName(0), "the bank's first");
  EXPECT_EQ(other.programName(5), "room 2");
  other.moveAway();
  EXPECT_EQ(other.picture(), first);
  other.click(places::kMenu);
  other.click(places::listEntry(5));
  EXPECT_EQ(other.parameter(0), 0.11F);
}

TEST_F(Files, ACancelledDialogChangesNothing) {
  host.moveAway();
  const Picture before = host.picture();
  const std::vector<unsigned char> bank = host.chunk();
  host.forgetCalls();
  for (const Area& button :
       {places::kLoadPreset, places::kSavePreset, places::kLoadBank, places::kSaveBank}) {
    dialogOf(button);
    answer("", 1);
  }
  host.moveAway();
  EXPECT_EQ(host.chunk(), bank);
  EXPECT_EQ(host.picture(), before);
  EXPECT_TRUE(host.gestureCalls().empty());
  EXPECT_TRUE(std::filesystem::is_empty(folder / "files"));
}

TEST_F(Files, AMissingExtensionIsAppended) {
  dialogOf(places::kSavePreset);
  answer(file("plain") + "\n");
  EXPECT_TRUE(std::filesystem::exists(file("plain.orv")));
  dialogOf(places::kSaveBank);
  answer(file("plain") + "\n");
  EXPECT_TRUE(std::filesystem::exists(file("plain.orb")));
  EXPECT_FALSE(std::filesystem::exists(file("plain")));
}

// The dialog has asked about the name that was typed, not about the one with the extension.
TEST_F(Files, AnExistingFileIsNotOverwrittenUnasked) {
  writeFile(file("kept.orv"), "precious");
  dialogOf(places::kSavePreset);
  zenity.answer(file("kept") + "\n");
  ASSERT_TRUE(host.idleUntil([&] { return zenity.wasAsked(); }));
  const std::vector<std::string> question = zenity.takeArguments();
  EXPECT_THAT(question, Contains("--question"));
  EXPECT_THAT(question, Contains(HasSubstr("kept.orv")));
  EXPECT_EQ(contentOf(file("kept.orv")), "precious");
  zenity.answer("", 0);
  EXPECT_TRUE(host.idleUntil([&] { return contentOf(file("kept.orv")).size() == 369; }));
}

TEST_F(Files, TheNextDialogStartsWhereTheLastOneEnded) {
  dialogOf(places::kSavePreset);
  answer(file("one.orv") + "\n");
  EXPECT_THAT(dialogOf(places::kLoadBank), Contains("--filename=" + file("")));
  answer("", 1);
  EXPECT_THAT(dialogOf(places::kSavePreset), Contains("--filename=" + file("one.orv")));
  answer("", 1);
  // no bank has a name yet
  EXPECT_THAT(dialogOf(places::kSaveBank), Contains("--filename=" + file("")));
  answer(file("two.orb") + "\n");
  EXPECT_THAT(dialogOf(places::kSaveBank), Contains("--filename=" + file("two.orb")));
  answer("", 1);
}

TEST_F(Files, ANewInstanceRemembersFolderAndNames) {
  {
    WindowHost earlier(1);
    earlier.openEditor();
    earlier.click(places::kSavePreset);
    ASSERT_TRUE(earlier.idleUntil([&] { return zenity.wasAsked(); }));
    zenity.takeArguments();
    zenity.answer(file("kept.orv") + "\n");
    ASSERT_TRUE(earlier.idleUntil([&] { return !zenity.isRunning(); }));
    earlier.idle(3);
  }
  WindowHost later(2);
  later.openEditor();
  later.click(places::kSavePreset);
  ASSERT_TRUE(later.idleUntil([&] { return zenity.wasAsked(); }));
  EXPECT_THAT(zenity.takeArguments(), Contains("--filename=" + file("kept.orv")));
  zenity.answer("", 1);
}

TEST_F(Files, TheWindowGoesOnWhileTheDialogIsUp) {
  dialogOf(places::kLoadPreset);
  host.moveAway();
  const Picture before = host.picture();
  host.setParameter(0, 0.9F);
  EXPECT_FALSE(sameIn(places::slider(0), before, host.picture()));
  EXPECT_TRUE(zenity.isRunning());
  answer("", 1);
}

TEST_F(Files, PressesMeanwhileAreSwallowed) {
  dialogOf(places::kLoadPreset);
  host.moveAway();
  const Picture before = host.picture();
  const float value = host.parameter(0);
  for (const Area& place :
       {places::kLoadPreset, places::kSaveBank, places::kRockerRight, places::kMenu, places::kName,
        places::kPhaseSwitch, places::kAbout, places::kStoreA, places::kManual}) {
    host.doubleClick(place);
  }
  host.moveTo(places::handleX(value), places::handleY(0));
  host.press();
  host.moveTo(places::handleX(0.5F), places::handleY(0));
  host.release();
  host.moveAway();
  EXPECT_EQ(host.picture(), before);
  EXPECT_EQ(host.parameter(0), value);
  EXPECT_EQ(host.parameter(4), 0.0F);
  EXPECT_EQ(host.currentPreset(), 0);
  EXPECT_FALSE(zenity.wasAsked());
  answer("", 1);
  host.click(places::kRockerRight);
  EXPECT_EQ(host.currentPreset(), 1);
  EXPECT_FALSE(zenity.wasAsked());
}

// The wheel steps through the presets, and arrow keys move the slider that has the focus.
TEST_F(Files, TheWheelAndKeysMeanwhileAreSwallowed) {
  constexpr VstIntPtr kUp = 12;  // the interface's number of the key
  const float value = host.parameter(0);
  host.click(places::handleX(value), places::handleY(0));
  dialogOf(places::kLoadPreset);
  host.moveTo(places::handleX(value), places::handleY(0));
  const float before = host.parameter(0);
  host.forgetCalls();
  host.key(XKB_KEY_Up);
  EXPECT_EQ(host.dispatch(effEditKeyDown, 0, kUp), 0) << "the host's own";
  host.dispatch(effEditKeyUp, 0, kUp);
  host.wheel(places::kRockerRight, -3);
  host.wheel(places::slider(0), 2);
  host.idle(3);
  EXPECT_EQ(host.parameter(0), before);
  EXPECT_EQ(host.currentPreset(), 0);
  EXPECT_TRUE(host.gestureCalls().empty());
  answer("", 1);
  host.wheel(places::kRockerRight, -3);
  EXPECT_EQ(host.currentPreset(), 3);
}

// Presses that the host hands over only after the dialog has ended were still made on a
// window that waited.
TEST_F(Files, PressesThatArriveWithTheAnswerAreSwallowedToo) {
  dialogOf(places::kLoadPreset);
  const Area screen = host.screenArea();
  host.display.moveTo(screen.left + places::kRockerRight.centreX(),
                      screen.top + places::kRockerRight.centreY());
  host.display.press(1);
  host.display.release(1);
  zenity.answer("", 1);
  // the program has ended; no idle yet
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  host.idle(3);
  EXPECT_EQ(host.currentPreset(), 0);
}

TEST_F(Files, TheDialogEndsWithTheWindow) {
  dialogOf(places::kSavePreset);
  ASSERT_TRUE(zenity.isRunning());
  host.closeEditor();
  EXPECT_FALSE(zenity.isRunning());
  host.openEditor();
  EXPECT_THAT(dialogOf(places::kLoadPreset), Contains("--title=Load preset"));
  answer("", 1);
}

TEST_F(Files, TheDialogEndsWithTheInstance) {
  {
    WindowHost other(1);
    other.openEditor();
    other.click(places::kLoadPreset);
    ASSERT_TRUE(other.idleUntil([&] { return zenity.wasAsked(); }));
  }
  EXPECT_FALSE(zenity.isRunning());
}

TEST_F(Files, ADialogProgramThatFailsIsNoAnswer) {
  const std::vector<unsigned char> bank = host.chunk();
  dialogOf(places::kLoadPreset);
  std::filesystem::remove(folder / "bin/zenity");  // and it is not tried again
  writeProgram(folder / "bin/xmessage", "printf '%s\\n' \"$@\" >" + (folder / "said"));
  zenity.answer("", 99);
  EXPECT_TRUE(host.idleUntil([&] { return std::filesystem::exists(folder / "said"); }));
  EXPECT_EQ(host.chunk(), bank);
}

TEST_F(Files, WithoutADialogProgramAnAlertSaysWhatIsMissing) {
  std::filesystem::remove(folder / "bin/zenity");
  writeProgram(folder / "bin/xmessage", "printf '%s\\n' \"$@\" >" + (folder / "said.new") +
                                            "; mv " + (folder / "said.new") + " " +
                                            (folder / "said"));
  host.click(places::kLoadPreset);
  EXPECT_TRUE(host.idleUntil([&] { return std::filesystem::exists(folder / "said"); }));
  EXPECT_THAT(contentOf(folder / "said"), HasSubstr("zenity or kdialog"));
  // Once the program has ended, which the window sees in one of its next passes.
  EXPECT_TRUE(host.idleUntil([&] {
    host.click(places::kRockerRight);
    return host.currentPreset() == 1;
  }));
}

TEST_F(Files, WithoutAnyProgramTheWindowSaysWhatIsMissing) {
  std::filesystem::remove(folder / "bin/zenity");
  host.moveAway();
  const Picture before = host.picture();
  host.click(places::kSaveBank);
  host.moveAway();
  EXPECT_TRUE(host.idleUntil([&] { return host.picture() != before; }));
  host.click(places::kRockerRight);  // closes it
  EXPECT_EQ(host.currentPreset(), 0);
  host.moveAway();
  EXPECT_EQ(host.picture(), before);
  host.click(places::kRockerRight);
  EXPECT_EQ(host.currentPreset(), 1);
}

TEST_F(Files, KeysDoNotOpenADialog) {
  constexpr int kHostsReturn = 4, kHostsSpace = 7, kHostsEnter = 19;  // the interface's numbers
  host.click(places::handleX(host.parameter(0)), places::handleY(0));
  for (const Area& button :
       {places::kLoadPreset, places::kSavePreset, places::kLoadBank, places::kSaveBank}) {
    host.hover(button);
    for (const std::uint32_t key : {XKB_KEY_Return, XKB_KEY_space, XKB_KEY_KP_Enter}) host.key(key);
    for (const int key : {kHostsReturn, kHostsSpace, kHostsEnter})
      host.dispatch(effEditKeyDown, 0, key);
  }
  host.idleFor(100);
  EXPECT_FALSE(zenity.wasAsked());
}

TEST_F(Files, AFolderThatCannotBeWrittenChangesNothing) {
  dialogOf(places::kSavePreset);
  answer(folder / "not/there/x.orv" + "\n");
  EXPECT_FALSE(std::filesystem::exists(folder / "not"));
  host.click(places::kRockerRight);
  EXPECT_EQ(host.currentPreset(), 1);
}

// A host may close the window when it is told of new values.
TEST_F(Files, TheHostMayCloseTheWindowWhileAFileIsTaken) {
  dialogOf(places::kSavePreset);
  answer(file("one.orv") + "\n");
  dialogOf(places::kSaveBank);
  answer(file("all.orb") + "\n");
  for (const auto& [button, name] :
       {std::pair{places::kLoadPreset, "one.orv"}, {places::kLoadBank, "all.orb"}}) {
    dialogOf(button);
    host.onCall = [this](const HostCall& call) {
      if (call.opcode == audioMasterUpdateDisplay && host.isEditorOpen()) host.closeEditor();
    };
    zenity.answer(file(name) + "\n");
    EXPECT_TRUE(host.idleUntil([&] { return !host.isEditorOpen(); }));
    host.onCall = nullptr;
    host.idle(3);
    ASSERT_TRUE(host.openEditor());
  }
}

// In a sandbox there is no dialog program, and the portal shows the dialog.
TEST_F(Files, WithoutADialogProgramThePortalIsAsked) {
  dialogOf(places::kSavePreset);
  answer(file("soft pad.orv") + "\n");
  select(20);
  std::filesystem::remove(folder / "bin/zenity");
  const PrivateBus session;
  bus.set(session.address().c_str());
  MockPortal portal(session);
  const auto ask = [&](const Area& button, std::size_t times) {
    host.click(button);
    return host.idleUntil([&] {
      portal.work();
      return portal.calls.size() == times;
    });
  };
  ASSERT_TRUE(ask(places::kLoadPreset, 1));
  char parent[32];
  std::snprintf(parent, sizeof parent, "x11:%lx", static_cast<unsigned long>(host.parent()));
  EXPECT_EQ(portal.calls[0].parent, parent);
  EXPECT_EQ(portal.calls[0].title, "Load preset");
  host.click(places::kRockerRight);
  EXPECT_EQ(host.currentPreset(), 20) << "swallowed, as with a program";
  portal.respond(0, {"file://" + folder.path + "/files/soft%20pad.orv"});
  EXPECT_TRUE(host.idleUntil([&] { return host.programName(20) == "init"; }));

  ASSERT_TRUE(ask(places::kSaveBank, 2));
  EXPECT_EQ(portal.calls[1].method, "SaveFile");
  EXPECT_EQ(portal.calls[1].folder, file(""));
  host.idleFor(50);
  host.closeEditor();  // and the dialog goes with it
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(3);
  while (portal.closed == 0 && std::chrono::steady_clock::now() < end) portal.work();
  EXPECT_EQ(portal.closed, 1);
}
