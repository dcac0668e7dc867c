// Files and stored values where memory runs out in the window's pass or at the instance's end.
#include "scarcehost.h"
#include "tests/support/eachfailure.h"
#include "tests/support/ownprocess.h"
#include "windowtest.h"

namespace {

constexpr char kOldPreset[] = "what was in the file before";
constexpr std::size_t kPresetSize = 369;  // bytes of a preset's file

// A user who answers one process's dialogs. A process that is ended leaves its dialog behind, which
// must not take what the next one's is told.
class User {
 public:
  User(ScarceHost& theHost, const std::string& tools, std::string chosen)
      : host(theHost), path("PATH", bin.path + ":" + tools), file(std::move(chosen)) {}

  // Clicks the button and chooses the file. The passes from here on take it over.
  bool choose(const Area& button) {
    host.click(button);
    if (!host.idleUntil([&] { return zenity.wasAsked(); })) return false;
    zenity.takeArguments();
    zenity.answer(file + "\n");
    return true;
  }
  // Passes without memory until one misses some, or all is done; true where one did.
  bool passesWithout(long succeeding, FailingMemory::Fails fails) {
    bool failed = false;
    for (int pass = 0; !failed && pass < 5000 && zenity.isRunning(); ++pass) {
      usleep(1000);
      const FailingMemory memory(succeeding, fails);
      host.send(effEditIdle);
      failed = memory.hasFailed();
    }
    return failed;
  }
  bool finish() {
    return host.idleUntil([&] { return !zenity.isRunning(); });
  }

 private:
  ScarceHost& host;
  TemporaryFolder bin;
  FakeProgram zenity{bin.path, "zenity"};
  ScopedVariable path;
  std::string file;
};

class FileMemory : public WindowTest {
 protected:
  std::string tools = folder / "bin";
  std::string file = folder / "files/a preset with a long name.orv";
};

}  // namespace

TEST_F(FileMemory, APresetIsSavedWholeOrNotAtAll) {
  for (const auto fails : kBothWaysToFail) {
    const int failures = failEachOwnProcess(
        [&](long succeeding) {
          writeFile(file, kOldPreset);
          ScarceHost host;
          User user(host, tools, file);
          if (!host.open() || !host.isAlive()) return wrong("the window does not open");
          if (!user.choose(places::kSavePreset)) return wrong("there is no dialog");
          const bool failed = user.passesWithout(succeeding, fails);
          const std::string now = contentOf(file);
          if (now != kOldPreset && now.size() != kPresetSize) return wrong("half a preset");
          if (!user.finish() || !host.isAlive()) return wrong("the window is dead");
          if (!user.choose(places::kSavePreset)) return wrong("there is no dialog any more");
          if (!user.finish() || contentOf(file).size() != kPresetSize) return wrong("not saved");
          if (!host.close() || host.send(effClose) != 1) return wrong("it does not close");
          return failed ? End::refused : End::done;
        },
        kStep);
    EXPECT_GT(failures, 0);
  }
}

TEST_F(FileMemory, APresetIsLoadedWholeOrNotAtAll) {
  const imagebytes::Preset preset{"a name of three words", {0.5F, 0.25F, 0.75F, 1.0F, 0.0F}};
  const imagebytes::Bytes image = imagebytes::presetImage(preset);
  writeFile(file, std::string(image.begin(), image.end()));
  for (const auto fails : kBothWaysToFail) {
    const int failures = failEachOwnProcess(
        [&](long succeeding) {
          ScarceHost host;
          User user(host, tools, file);
          if (!host.open() || !host.isAlive()) return wrong("the window does not open");
          const imagebytes::Bytes before = host.chunk();
          if (!user.choose(places::kLoadPreset)) return wrong("there is no dialog");
          const bool failed = user.passesWithout(succeeding, fails);
          const bool isLoaded = host.chunk() != before;
          for (VstInt32 i = 0; isLoaded && i < 5; ++i) {
            if (host.parameter(i) != preset.values[static_cast<std::size_t>(i)]) {
              return wrong("half a preset");
            }
          }
          if (!user.finish() || !host.isAlive()) return wrong("the window is dead");
          if (!user.choose(places::kLoadPreset)) return wrong("there is no dialog any more");
          if (!user.finish() || host.parameter(2) != 0.75F) return wrong("it is not loaded later");
          if (!host.close() || host.send(effClose) != 1) return wrong("it does not close");
          return failed ? End::refused : End::done;
        },
        kStep);
    EXPECT_GT(failures, 0);
  }
}

// The bar's other buttons: what they keep is the old or the new, and the window stays alive.
TEST_F(FileMemory, AClickOnTheBarDoesItsWorkOrNothing) {
  const Area buttons[] = {
      places::kStoreA,        places::kRecallA,     places::kStoreB,      places::kRecallB,
      places::kDefaultPreset, places::kDefaultBank, places::kRockerRight, places::kMenu,
  };
  for (const Area& button : buttons) {
    SCOPED_TRACE(testing::Message() << "at " << button.left << ", " << button.top);
    // What the click makes of the preferences where it gets all the memory it wants.
    std::filesystem::remove_all(folder / "config/orv");
    const auto click = [&](ScarceHost& host) {
      host.click(button);
      for (int pass = 0; pass < 10; ++pass) host.send(effEditIdle);
    };
    ASSERT_TRUE(succeeded(inProcess([&] {
      ScarceHost host;
      EXPECT_TRUE(host.open() && host.isAlive());
      click(host);
    })));
    const std::string after = preferences();
    failEachOwnProcess(
        [&](long succeeding) {
          std::filesystem::remove_all(folder / "config/orv");
          ScarceHost host;
          if (!host.open() || !host.isAlive()) return wrong("the window does not open");
          bool failed = false;
          host.click(button);
          for (int pass = 0; pass < 2; ++pass) {
            const FailingMemory memory(succeeding);
            host.send(effEditIdle);
            failed = failed || memory.hasFailed();
          }
          if (!preferences().empty() && preferences() != after) return wrong("half is stored");
          if (!host.close() || !host.open()) return wrong("it does not open later");
          if (!host.isAlive() || !host.close()) return wrong("the window is dead");
          if (host.send(effClose) != 1) return wrong("it does not close");
          return failed ? End::refused : End::done;
        },
        kStep);
    if (HasFailure()) return;
  }
}

// The end remembers the folder and the names where it can.
TEST_F(FileMemory, TheEndOfAnInstanceThatUsedFilesTakesNone) {
  const End end = endOf([&] {
    ScarceHost host;
    User user(host, tools, file);
    if (!host.open() || !host.isAlive()) return wrong("the window does not open");
    if (!user.choose(places::kSavePreset) || !user.finish()) return wrong("there is no dialog");
    const FailingMemory memory(0, FailingMemory::Fails::allFromThere);
    return host.send(effClose) == 1 ? End::done : wrong("it is not closed");
  });
  EXPECT_EQ(end, End::done);
}
