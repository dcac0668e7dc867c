// The end of the host's process and of the module, with a window open or not.
#include <dlfcn.h>

#include <functional>
#include <memory>
#include <thread>

#include "otherserver.h"
#include "processstate.h"
#include "tests/support/silenthost.h"
#include "windowtest.h"

// The leak detector's, where there is one.
extern "C" __attribute__((weak)) void __lsan_disable();
extern "C" __attribute__((weak)) void __lsan_enable();

namespace {

// What is allocated meanwhile may stay: the process ends in the middle of things, or nobody
// ends an instance.
class LeakAllowed {
 public:
  LeakAllowed() {
    if (__lsan_disable != nullptr) __lsan_disable();
  }
  ~LeakAllowed() {
    if (__lsan_enable != nullptr) __lsan_enable();
  }
  LeakAllowed(const LeakAllowed&) = delete;
  LeakAllowed& operator=(const LeakAllowed&) = delete;
};

class Exit : public WindowTest {
 protected:
  Exit() {
    // A process of its own for each end, started anew: this one has threads and an X connection.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
  }
};

using ::testing::ExitedWithCode;

constexpr int kFine = 7;  // the status that these processes end with

// The end of a process with an open window, in which something has been done before.
void exitAfter(const std::function<void(WindowHost&)>& work) {
  const LeakAllowed leaks;
  auto* host = new WindowHost;
  host->openEditor();
  work(*host);
  std::exit(kFine);
}

}  // namespace

TEST_F(Exit, WithAnOpenWindowIsSafe) {
  EXPECT_EXIT(exitAfter([](WindowHost&) {}), ExitedWithCode(kFine), "");
}

TEST_F(Exit, WithAnOpenListIsSafe) {
  EXPECT_EXIT(exitAfter([](WindowHost& host) { host.click(places::kMenu); }), ExitedWithCode(kFine),
              "");
}

TEST_F(Exit, WithAnOpenTextEntryIsSafe) {
  EXPECT_EXIT(exitAfter([](WindowHost& host) {
                host.click(places::kName);
                host.type("abc");
              }),
              ExitedWithCode(kFine), "");
}

TEST_F(Exit, WithAnOpenAboutPanelIsSafe) {
  EXPECT_EXIT(exitAfter([](WindowHost& host) { host.click(places::kAbout); }),
              ExitedWithCode(kFine), "");
}

TEST_F(Exit, WithAnOpenWindowOnAServerThatHasEndedIsSafe) {
  EXPECT_EXIT(
      {
        OtherServer server({"1024x768x24"});
        const ScopedVariable display("DISPLAY", server.display());
        exitAfter([&server](WindowHost& host) {
          server.end();
          host.dispatch(effEditIdle);
        });
      },
      ExitedWithCode(kFine), "");
}

TEST_F(Exit, WithThreeInstancesOneOfThemClosedIsSafe) {
  EXPECT_EXIT(
      {
        const LeakAllowed leaks;
        std::vector<WindowHost*> hosts;
        for (int place = 0; place < 3; ++place) {
          hosts.push_back(new WindowHost(place));
          hosts.back()->openEditor();
        }
        hosts[1]->closeEditor();
        std::exit(kFine);
      },
      ExitedWithCode(kFine), "");
}

TEST_F(Exit, FromInsideACallIsSafe) {
  EXPECT_EXIT(
      {
        const LeakAllowed leaks;
        auto* host = new WindowHost;
        host->openEditor();
        host->onCall = [](const HostCall& call) {
          if (call.opcode == audioMasterAutomate) std::exit(kFine);
        };
        host->click(places::kPhaseSwitch);
        std::exit(1);
      },
      ExitedWithCode(kFine), "");
}

TEST_F(Exit, AfterEverythingHasBeenClosedIsSafe) {
  EXPECT_EXIT(
      {
        {
          WindowHost host;
          host.openEditor();
          host.closeEditor();
        }
        std::exit(kFine);
      },
      ExitedWithCode(kFine), "");
}

namespace {

void* loadModule() {
  return dlopen(std::getenv("TRELVAN_MODULE"), RTLD_NOW | RTLD_LOCAL);
}

AEffect* makeFrom(void* module) {
  using Entry = AEffect* (*)(audioMasterCallback);
  return reinterpret_cast<Entry>(dlsym(module, "VSTPluginMain"))(silentHost);
}

VstIntPtr dispatch(AEffect* effect, VstInt32 opcode, void* ptr = nullptr) {
  return effect->dispatcher(effect, opcode, 0, 0, ptr, 0);
}

}  // namespace

// A program that starts in the plug-in's folder and goes elsewhere, as hosts do that save files.
TEST_F(Exit, AfterARelativeLoadAndAChangeOfFolderTheWindowHasBeenOpen) {
  EXPECT_EXIT(
      {
        const std::filesystem::path path = std::getenv("TRELVAN_MODULE");
        std::filesystem::current_path(path.parent_path());
        void* module = dlopen(("./" + path.filename().string()).c_str(), RTLD_NOW | RTLD_LOCAL);
        std::filesystem::current_path("/");
        TestDisplay display;
        const xcb_window_t window = display.makeWindow({20, 40, 340, 320});
        AEffect* effect = makeFrom(module);
        const bool opened =
            dispatch(effect, effEditOpen, reinterpret_cast<void*>(std::uintptr_t{window})) == 1;
        ERect* rect = nullptr;
        dispatch(effect, effEditGetRect, &rect);
        const bool sized = rect->right == places::kWidth;
        dispatch(effect, effClose);
        std::exit(opened && sized ? kFine : 1);
      },
      ExitedWithCode(kFine), "");
}

using Unloading = WindowTest;

TEST_F(Unloading, RoundsOfLoadingOpeningClosingAndUnloadingAreSafe) {
  TestDisplay display;
  const xcb_window_t window = display.makeWindow({20, 40, 340, 320});
  long memory = 0, files = 0;
  constexpr int kRounds = 60;
  for (int round = 0; round < kRounds; ++round) {
    if (round == kRounds / 4) {
      memory = residentMemory();
      files = openFiles();
    }
    void* module = loadModule();
    ASSERT_NE(module, nullptr) << dlerror();
    AEffect* effect = makeFrom(module);
    ASSERT_NE(effect, nullptr);
    dispatch(effect, effOpen);
    ASSERT_EQ(
        dispatch(effect, effEditOpen, reinterpret_cast<void*>(static_cast<std::uintptr_t>(window))),
        1);
    for (int pass = 0; pass < 3; ++pass) {
      dispatch(effect, effEditIdle);
      std::this_thread::sleep_for(std::chrono::milliseconds(round < 3 ? 20 : 1));
    }
    if (round % 2 == 0) dispatch(effect, effEditClose);  // or the instance's end closes it
    dispatch(effect, effClose);
    dlclose(module);
  }
  EXPECT_EQ(openFiles(), files);
#ifdef TRELVAN_SANITIZED
  (void)memory;  // what is freed stays in quarantine
#else
  EXPECT_LE(residentMemory() - memory, 1024) << "kB";
#endif
  display.destroyWindow(window);
}

TEST_F(Unloading, AnInstanceLeftOverDoesNoHarm) {
  for (int round = 0; round < 5; ++round) {
    const LeakAllowed leaks;
    void* module = loadModule();
    ASSERT_NE(module, nullptr);
    ASSERT_NE(makeFrom(module), nullptr);  // and nobody ends it
    dlclose(module);
  }
  WindowHost host;
  EXPECT_TRUE(host.openEditor());
}

// A host's scanner makes an instance, asks for the size perhaps, and ends it.
TEST_F(Unloading, AnInstanceWithoutAWindowOpensNothing) {
  void* module = loadModule();
  AEffect* warm = makeFrom(module);
  const long files = openFiles();
  const long threads = threadCount();
  AEffect* effect = makeFrom(module);
  dispatch(effect, effOpen);
  EXPECT_EQ(openFiles(), files);
  EXPECT_EQ(threadCount(), threads);
  dispatch(effect, effClose);
  dispatch(warm, effClose);
  dlclose(module);
}
