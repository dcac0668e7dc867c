// The window's end and the process's while the text library's own thread, which has found the
// fonts, still holds them: it may be the one that frees what the window's thread has made.
#include <dlfcn.h>
#include <fontconfig/fontconfig.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "processstate.h"
#include "windowtest.h"

namespace {

const std::thread::id kWindowsThread = std::this_thread::get_id();

// Whether other threads wait before they let go of the fonts, and how often one did. Relaxed, or
// the thread sanitizer took it for what orders them.
std::atomic<bool> heldBack = false;
std::atomic<int> timesHeldBack = 0;

void holdBack(bool hold) {
  heldBack.store(hold, std::memory_order_relaxed);
}

// False if that takes longer.
template <typename Condition>
bool waitUntil(Condition condition, int milliseconds = 10'000) {
  for (; milliseconds > 0; --milliseconds) {
    if (condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return false;
}

bool isOneHeldBack() {
  return timesHeldBack.load(std::memory_order_relaxed) > 0;
}

using ::testing::ExitedWithCode;

constexpr int kFine = 7;  // the status that these processes end with

class LateFonts : public WindowTest {
 protected:
  LateFonts() {
    // A process of its own for each end: this one has threads and an X connection.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
  }
  ~LateFonts() override { holdBack(false); }

  // A window that is gone before anything was drawn.
  static bool openAndClose(WindowHost& host) {
    holdBack(true);
    const bool opened = host.openOnly() && waitUntil(isOneHeldBack);
    host.closeEditor();
    return opened;
  }

  static void exitAfterAWindow() {
    bool opened = false;
    {
      WindowHost host;
      opened = openAndClose(host);
    }
    std::exit(opened ? kFine : 1);
  }
};

}  // namespace

// In front of the font library's, the first that a thread of the text library's calls when it has
// answered.
extern "C" __attribute__((visibility("default"))) void FcConfigDestroy(FcConfig* config) {
  if (std::this_thread::get_id() != kWindowsThread && heldBack.load(std::memory_order_relaxed)) {
    timesHeldBack.fetch_add(1, std::memory_order_relaxed);
    constexpr int kAtMost = 1000;  // ms: newer libraries have one thread, whose next answer waits
    waitUntil([] { return !heldBack.load(std::memory_order_relaxed); }, kAtMost);
  }
  // The module has loaded the library, this program need not.
  const auto real = reinterpret_cast<decltype(&FcConfigDestroy)>(
      dlsym(dlopen("libfontconfig.so.1", RTLD_LAZY | RTLD_NOLOAD), "FcConfigDestroy"));
  real(config);
}

TEST_F(LateFonts, OfAClosedWindowDoNoHarmToTheNextOne) {
  WindowHost host;
  ASSERT_TRUE(openAndClose(host));
  std::thread later([] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    holdBack(false);
  });
  EXPECT_TRUE(host.openEditor());
  later.join();
}

TEST_F(LateFonts, ExitWhileTheyAreHeldIsSafe) {
  EXPECT_EXIT(exitAfterAWindow(), ExitedWithCode(kFine), "");
}

TEST_F(LateFonts, ExitBeforeTheirThreadFreesThemIsSafe) {
  EXPECT_EXIT(
      {
        std::thread([] {}).join();  // with the first one a sanitizer may start one of its own
        static const long threads = threadCount();
        // Before the module is loaded: called after its end, which leaves the fonts to that thread.
        std::atexit([] {
          holdBack(false);
          if (!waitUntil([] { return threadCount() <= threads; })) _exit(1);
        });
        exitAfterAWindow();
      },
      ExitedWithCode(kFine), "");
}
