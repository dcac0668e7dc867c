// Opening the window where the X server or the process has next to nothing left to give.
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstring>

#include "tests/support/ownprocess.h"
#include "windowtest.h"

namespace {

// All places for clients that the X server has left, but for some.
class FullServer {
 public:
  explicit FullServer(int places) {
    for (;;) {
      xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
      if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        break;
      }
      taken.push_back(connection);
    }
    for (; places > 0; --places) {
      xcb_disconnect(taken.back());
      taken.pop_back();
    }
  }
  ~FullServer() {
    for (xcb_connection_t* connection : taken) xcb_disconnect(connection);
  }
  FullServer(const FullServer&) = delete;
  FullServer& operator=(const FullServer&) = delete;

 private:
  std::vector<xcb_connection_t*> taken;
};

// All file descriptors that the process may have, but for some.
class FullProcess {
 public:
  explicit FullProcess(int files) {
    constexpr rlim_t kFew = 128;  // more than what the test has open
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit few{kFew, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
    for (int file = open("/dev/null", O_RDONLY); file >= 0; file = open("/dev/null", O_RDONLY))
      taken.push_back(file);
    for (; files > 0; --files) {
      close(taken.back());
      taken.pop_back();
    }
  }
  ~FullProcess() {
    for (const int file : taken) close(file);
    setrlimit(RLIMIT_NOFILE, &before);
  }
  FullProcess(const FullProcess&) = delete;
  FullProcess& operator=(const FullProcess&) = delete;

 private:
  rlimit before{};
  std::vector<int> taken;
};

class Scarcity : public WindowTest {
 protected:
  // What an untroubled process shows. Each scenario has a process of its own, and this one opens no
  // window: what a first window loads, such as fonts, the next ones have.
  Picture usual() {
    const std::string file = folder / "usual";
    EXPECT_TRUE(succeeded(inProcess([&file] {
      WindowHost host;
      host.openEditor();
      const Picture shown = host.picture();
      writeFile(file,
                {reinterpret_cast<const char*>(shown.pixels.data()), shown.pixels.size() * 4});
    })));
    const std::string bytes = contentOf(file);
    Picture shown{places::kWidth, static_cast<int>(bytes.size()) / 4 / places::kWidth, {}};
    shown.pixels.resize(bytes.size() / 4);
    std::memcpy(shown.pixels.data(), bytes.data(), bytes.size());
    return shown;
  }

  // The sanitizer opens files of its own where it meets a type of object for the first time.
  static void warmUpSanitizer() {
#ifdef TRELVAN_SANITIZED
    WindowHost host;
    host.openEditor();
#endif
  }
};

}  // namespace

// The window has a connection of its own beside the toolkit's.
TEST_F(Scarcity, WithLessThanTwoPlacesOnTheServerTheAnswerIsNo) {
  const Picture expected = usual();
  for (int places = 0; places <= 3; ++places) {
    EXPECT_TRUE(succeeded(inProcess([&expected, places] {
      WindowHost host;  // the only one: nothing is connected yet
      {
        const FullServer server(places);
        EXPECT_EQ(host.openOnly(), places >= 2) << places;
        host.idle(3);
      }
      EXPECT_TRUE(host.openEditor());
      EXPECT_EQ(host.picture(), expected) << places;
    })));
  }
}

// Connections, pictures and fonts take files, the fonts only when something is drawn.
TEST_F(Scarcity, WithFewFilesTheAnswerIsNoOrTheWindowIsWhole) {
  const Picture expected = usual();
  constexpr int kEnough = 16;  // files, more than an opening has open at once
  int refused = 0;
  for (int files = 0; files <= kEnough; ++files) {
    SCOPED_TRACE(testing::Message() << files << " files");
    const End end = endOf([&expected, files] {
      warmUpSanitizer();
      WindowHost host;
      bool opened = false;
      {
        const FullProcess process(files);
        ERect* rect = nullptr;
        host.dispatch(effEditGetRect, 0, 0, &rect);
        opened = host.openOnly();
        host.idle(3);
        usleep(50000);
        host.idle(3);
      }
      if (opened && host.picture() != expected) return wrong("it opened and is not whole");
      if (!host.openEditor()) return wrong("it does not open later");
      const Area screen = host.screenArea();
      if (screen.right - screen.left != places::kWidth) return wrong("it has no size");
      if (host.picture() != expected) return wrong("it is not whole later");
      return opened ? End::done : End::refused;
    });
    EXPECT_NE(end, End::wrong);
    if (end == End::refused) ++refused;
    if (files == kEnough) {
      EXPECT_EQ(end, End::done);
    }
  }
  EXPECT_GE(refused, 2) << "with none and with one";
}

TEST_F(Scarcity, AWindowThatHasOpenedIsDrawnWithoutFiles) {
  const Picture expected = usual();
  EXPECT_TRUE(succeeded(inProcess([&expected] {
    warmUpSanitizer();
    WindowHost host;
    EXPECT_TRUE(host.openOnly());
    {
      const FullProcess process(0);
      host.settle();
    }
    EXPECT_EQ(host.picture(), expected);
  })));
}
