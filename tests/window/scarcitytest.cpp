// Opening the window where the X server or the process has next to nothing left to give.
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <memory>

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
  // What an untroubled instance shows.
  static Picture usual() {
    WindowHost host;
    host.openEditor();
    return host.picture();
  }
};

}  // namespace

// The window has a connection of its own beside the toolkit's.
TEST_F(Scarcity, WithLessThanTwoPlacesOnTheServerTheAnswerIsNo) {
  const Picture expected = usual();
  for (int places = 0; places <= 3; ++places) {
    WindowHost host;  // the only one: nothing is connected yet
    {
      const FullServer server(places);
      EXPECT_EQ(host.openOnly(), places >= 2) << places;
      host.idle(3);
    }
    EXPECT_TRUE(host.openEditor());
    EXPECT_EQ(host.picture(), expected) << places;
  }
}

TEST_F(Scarcity, WithoutFilesTheAnswerIsNoAndALaterOpeningShowsTheWindow) {
  const Picture expected = usual();
  int refused = 0;
  for (int files = 0; files <= 12; ++files) {
    WindowHost host;
    {
      const FullProcess process(files);
      if (!host.openOnly()) ++refused;
      ERect* rect = nullptr;
      host.dispatch(effEditGetRect, 0, 0, &rect);
    }
    host.openEditor();
    ASSERT_TRUE(host.isEditorOpen()) << files;
    EXPECT_EQ(host.screenArea().right - host.screenArea().left, places::kWidth) << files;
    EXPECT_EQ(host.picture(), expected) << files;
  }
  EXPECT_GE(refused, 2) << "with none and with one";
}
