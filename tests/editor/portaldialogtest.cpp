// The file dialog where there is no dialog program, on a desktop portal of the test's own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "editor/base/filedialog.h"
#include "tests/support/fakedesktop.h"
#include "tests/support/mockportal.h"

namespace {

using State = FileDialog::State;
using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;
using testing::ElementsAre;

class PortalDialog : public testing::Test {
 protected:
  PortalDialog() {
    request.title = "Load preset";
    request.folder = files.path + "/";
    request.typeName = "Orv Preset";
    request.extension = "orv";
    desktop.bus.set(bus.address().c_str());
  }

  void askToSave(const std::string& proposed) {
    request.save = true;
    request.title = "Save preset";
    request.proposedName = proposed;
  }

  // Idle passes, each timed, with the portal's work in between.
  bool passUntil(const std::function<bool()>& condition, int milliseconds = 5000) {
    const auto end = steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!condition()) {
      if (steady_clock::now() > end) return false;
      const auto begin = steady_clock::now();
      dialog.poll();
      longest = std::max(longest, steady_clock::now() - begin);
      portal->work();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
  }
  bool isAsked(std::size_t times = 1) {
    return passUntil([&] { return portal->calls.size() == times; });
  }
  State outcome() {
    passUntil([&] { return dialog.poll() != State::running; });
    return dialog.poll();
  }
  State outcomeOf(const std::vector<std::string>& uris) {
    const std::size_t before = portal->calls.size();
    dialog.start(request);
    const bool asked = isAsked(before + 1);
    EXPECT_TRUE(asked);
    if (asked) portal->respond(0, uris);
    return outcome();
  }
  std::string uri(const std::string& name) const { return "file://" + files.path + "/" + name; }

  FakeDesktop desktop;
  TemporaryFolder files;
  PrivateBus bus;
  std::unique_ptr<MockPortal> portal = std::make_unique<MockPortal>(bus);
  FileDialogRequest request;
  FileDialog dialog;
  steady_clock::duration longest{0};
};

TEST_F(PortalDialog, TellsWhatTheUserChose) {
  EXPECT_EQ(outcomeOf({uri("pad.orv")}), State::chosen);
  EXPECT_EQ(dialog.path(), files / "pad.orv");
  EXPECT_LT(longest, milliseconds(500)) << "nothing waits";
  dialog.cancel();
  EXPECT_EQ(dialog.poll(), State::none);
  portal->work();
  EXPECT_EQ(portal->closed, 0) << "it has closed by itself";
}

TEST_F(PortalDialog, AsksForAFileToLoad) {
  dialog.start(request);
  EXPECT_EQ(dialog.poll(), State::running);
  ASSERT_TRUE(isAsked());
  const MockPortal::Call& call = portal->calls[0];
  EXPECT_EQ(call.method, "OpenFile");
  EXPECT_EQ(call.parent, "");
  EXPECT_EQ(call.title, "Load preset");
  EXPECT_NE(call.token, "");
  EXPECT_EQ(call.folder, files.path + "/");
  EXPECT_FALSE(call.hasName);
  EXPECT_EQ(call.filter, "Orv Preset");
  EXPECT_THAT(call.patterns, ElementsAre("0 *.orv", "0 *.ORV"));
}

TEST_F(PortalDialog, AsksForANameToSaveUnder) {
  askToSave("soft pad.orv");
  request.window = 0xC0FFEE;
  dialog.start(request);
  ASSERT_TRUE(isAsked());
  EXPECT_EQ(portal->calls[0].method, "SaveFile");
  EXPECT_EQ(portal->calls[0].parent, "x11:c0ffee");
  EXPECT_EQ(portal->calls[0].name, "soft pad.orv");
  EXPECT_EQ(portal->calls[0].folder, files.path + "/");
}

TEST_F(PortalDialog, TakesFoldersAndNamesThatAreNotText) {
  const std::string folder = files / "a\xff";
  std::filesystem::create_directory(folder);
  askToSave("b\xff.orv");
  request.folder = folder + "/";
  dialog.start(request);
  ASSERT_TRUE(isAsked());
  EXPECT_EQ(portal->calls[0].folder, folder + "/");
  EXPECT_EQ(portal->calls[0].name, "b\xef\xbf\xbd.orv");
}

TEST_F(PortalDialog, MayBeCancelled) {
  dialog.start(request);
  ASSERT_TRUE(isAsked());
  portal->respond(1, {});
  EXPECT_EQ(outcome(), State::cancelled);
}

// The response may overtake the call's return, and portals of the first years choose its name.
TEST_F(PortalDialog, HearsTheResponseWheneverAndWhereverItComes) {
  portal->answers = MockPortal::Answers::beforeReturning;
  portal->prepared = {uri("pad.orv")};
  dialog.start(request);
  EXPECT_EQ(outcome(), State::chosen);
  portal->answers = MockPortal::Answers::underAnotherName;
  dialog.start(request);
  ASSERT_TRUE(isAsked(2));
  passUntil([] { return false; }, 50);  // the call returns
  portal->respond(0, {uri("other.orv")});
  EXPECT_EQ(outcome(), State::chosen);
  EXPECT_EQ(dialog.path(), files / "other.orv");
}

TEST_F(PortalDialog, DecodesLocalFilesOnly) {
  const std::pair<const char*, const char*> paths[] = {
      {"file:///a/soft%20pad%25%C3%A4.orv", "/a/soft pad%\xC3\xA4.orv"},
      {"file:///a/%FF.orv", "/a/\xff.orv"},
      {"file://localhost/a/b.orv", "/a/b.orv"},
  };
  for (const auto& [chosen, path] : paths) {
    EXPECT_EQ(outcomeOf({chosen}), State::chosen) << chosen;
    EXPECT_EQ(dialog.path(), path);
  }
  for (const char* refused :
       {"file://elsewhere/a/b.orv", "https://orv.example/a.orv", "file:///a%00b.orv",
        "file:///a/%zz.orv", "a.orv", "file:///a/", ""}) {
    EXPECT_EQ(outcomeOf({refused}), State::cancelled) << refused;
    EXPECT_EQ(dialog.path(), "") << refused;
  }
  EXPECT_EQ(outcomeOf({}), State::cancelled);
}

TEST_F(PortalDialog, AppendsAMissingExtension) {
  askToSave("");
  EXPECT_EQ(outcomeOf({uri("pad")}), State::chosen);
  EXPECT_EQ(dialog.path(), files / "pad.orv");
}

// The portal has asked about the name that was typed.
TEST_F(PortalDialog, ShowsAgainWithTheWholeNameWhereThatIsThere) {
  writeFile(files / "pad.orv", "precious");
  askToSave("");
  dialog.start(request);
  ASSERT_TRUE(isAsked());
  portal->respond(0, {uri("pad")});
  ASSERT_TRUE(isAsked(2));
  EXPECT_EQ(portal->calls[1].method, "SaveFile");
  EXPECT_EQ(portal->calls[1].name, "pad.orv");
  EXPECT_EQ(portal->calls[1].folder, files.path + "/");
  EXPECT_NE(portal->calls[1].token, portal->calls[0].token);
  EXPECT_EQ(dialog.poll(), State::running);
  portal->respond(0, {uri("pad.orv")});
  EXPECT_EQ(outcome(), State::chosen);
  EXPECT_EQ(dialog.path(), files / "pad.orv");
}

// Into a sandbox comes the file that was chosen, and no other one beside it.
TEST_F(PortalDialog, ShowsAgainForAFileThatASandboxHasNotLetIn) {
  const ScopedVariable running("XDG_RUNTIME_DIR", files.path);
  askToSave("");
  dialog.start(request);
  ASSERT_TRUE(isAsked());
  portal->respond(0, {uri("doc/1234/pad")});
  ASSERT_TRUE(isAsked(2));
  EXPECT_EQ(portal->calls[1].name, "pad.orv");
  EXPECT_EQ(portal->calls[1].folder, files.path + "/") << "not the sandbox's own name of it";
  portal->respond(0, {uri("doc/5678/pad.orv")});
  EXPECT_EQ(outcome(), State::chosen);
  EXPECT_EQ(dialog.path(), files / "doc/5678/pad.orv");
}

TEST_F(PortalDialog, ClosesThePortalsDialogWhenItIsEnded) {
  dialog.start(request);
  ASSERT_TRUE(isAsked());
  passUntil([] { return false; }, 50);
  dialog.cancel();
  EXPECT_TRUE(passUntil([&] { return portal->closed == 1; }));
  EXPECT_EQ(dialog.poll(), State::none);
  {
    FileDialog owned;
    owned.start(request);
    ASSERT_TRUE(passUntil([&] {
      owned.poll();
      return portal->calls.size() == 2;
    }));
  }
  EXPECT_TRUE(passUntil([&] { return portal->closed == 2; }));
}

TEST_F(PortalDialog, MayBeEndedAtEveryMoment) {
  for (int passes = 0; passes < 30; ++passes) {
    dialog.start(request);
    for (int pass = 0; pass < passes; ++pass) {
      dialog.poll();
      portal->work();
      if (pass % 3 == 0) std::this_thread::sleep_for(milliseconds(1));
    }
    dialog.cancel();
  }
}

TEST_F(PortalDialog, IsUnavailableWhereThePortalIsNotThereOrFails) {
  portal->answers = MockPortal::Answers::withAnError;
  dialog.start(request);
  EXPECT_EQ(outcome(), State::unavailable);
  portal->answers = MockPortal::Answers::itself;
  dialog.start(request);
  ASSERT_TRUE(isAsked(2));
  portal->respond(2, {});
  EXPECT_EQ(outcome(), State::unavailable);
  portal->end();
  dialog.start(request);
  EXPECT_EQ(outcome(), State::unavailable) << "nobody has its name";
}

// Presses are kept from the window while a dialog runs, so none may be waited for that has gone.
TEST_F(PortalDialog, IsUnavailableWhenThePortalOrTheBusGoesMeanwhile) {
  dialog.start(request);
  ASSERT_TRUE(isAsked());
  passUntil([] { return false; }, 50);
  portal->end();
  EXPECT_EQ(outcome(), State::unavailable);
  portal = std::make_unique<MockPortal>(bus);
  dialog.start(request);
  ASSERT_TRUE(isAsked());
  bus.end();
  EXPECT_EQ(outcome(), State::unavailable);
  dialog.start(request);
  EXPECT_EQ(outcome(), State::unavailable);
}

TEST_F(PortalDialog, ABusThatSaysNothingHoldsNobodyUp) {
  bus.freeze(true);
  const auto begin = steady_clock::now();
  dialog.start(request);
  for (int pass = 0; pass < 10; ++pass) EXPECT_EQ(dialog.poll(), State::running);
  dialog.cancel();
  EXPECT_LT(steady_clock::now() - begin, seconds(1));
  bus.freeze(false);
}

TEST_F(PortalDialog, IsNotAskedForWhereThereIsAProgram) {
  for (const char* program : {"zenity", "kdialog"}) {
    desktop.install(program, "echo /by/program.orv");
    dialog.start(request);
    EXPECT_EQ(outcome(), State::chosen);
    EXPECT_EQ(dialog.path(), "/by/program.orv");
    std::filesystem::remove(desktop.programs() + "/" + program);
  }
  EXPECT_TRUE(portal->calls.empty());
}

TEST_F(PortalDialog, IsNotAskedForWithoutADisplayOrABusAndNoBusIsStarted) {
  desktop.install("dbus-launch", "");
  desktop.display.set(nullptr);
  dialog.start(request);
  EXPECT_EQ(outcome(), State::unavailable);
  desktop.display.set(":17");
  for (const char* none :
       {static_cast<const char*>(nullptr), "autolaunch:", "disabled:", "no such:x=y"}) {
    desktop.bus.set(none);
    dialog.start(request);
    EXPECT_EQ(outcome(), State::unavailable);
  }
  EXPECT_FALSE(desktop.wasCalled("dbus-launch"));
  EXPECT_TRUE(portal->calls.empty());
}

// Where a session has no variable for it.
TEST_F(PortalDialog, FindsTheBusOfTheUsersFolder) {
  const std::string socket = bus.address().substr(bus.address().find('=') + 1);
  TemporaryFolder running;
  std::filesystem::create_symlink(socket.substr(0, socket.find(',')), running / "bus");
  const ScopedVariable runtime("XDG_RUNTIME_DIR", running.path);
  desktop.bus.set(nullptr);
  EXPECT_EQ(outcomeOf({uri("pad.orv")}), State::chosen);
}

}  // namespace
