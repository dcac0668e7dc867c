// The X server ends, the connections break, or the host's window goes, whatever the editor's window
// is doing: idling returns at once, closing works, and a later opening shows a window or refuses.
#include <chrono>
#include <memory>
#include <tuple>

#include "otherserver.h"
#include "windowtest.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// How the window is lost.
enum class Loss { server, connections, parent };

// What goes on in it at that time.
struct Doing {
  const char* name;
  void (*begin)(WindowHost& host);
};

const Doing kDoings[] = {
    {"Nothing", [](WindowHost&) {}},
    {"List", [](WindowHost& host) { host.click(places::kMenu); }},
    {"ListHeld",
     [](WindowHost& host) {
       host.hover(places::kMenu);
       host.press();
       host.hover(places::listEntry(5));
     }},
    {"Name",
     [](WindowHost& host) {
       host.click(places::kName);
       host.type("x");
     }},
    {"About", [](WindowHost& host) { host.click(places::kAbout); }},
    {"Drag",
     [](WindowHost& host) {
       host.moveTo(places::handleX(host.parameter(0)), places::handleY(0));
       host.press();
       host.moveTo(places::handleX(0.75F), places::handleY(0));
     }},
    {"Button",
     [](WindowHost& host) {
       host.hover(places::kStoreB);
       host.press();
     }},
    {"Dialog", [](WindowHost& host) { host.click(places::kLoadPreset); }},
    {"Hover", [](WindowHost& host) { host.hover(places::kRockerLeft); }},
};

using Case = std::tuple<Loss, Doing>;

class LostWindow : public WindowTest {
 protected:
  static Picture usual() {
    WindowHost host;
    host.openEditor();
    return host.picture();
  }

  static std::vector<xcb_window_t> childrenOf(xcb_connection_t* link, xcb_window_t window) {
    xcb_query_tree_reply_t* tree =
        xcb_query_tree_reply(link, xcb_query_tree(link, window), nullptr);
    if (tree == nullptr) return {};
    const xcb_window_t* first = xcb_query_tree_children(tree);
    std::vector<xcb_window_t> children(first, first + xcb_query_tree_children_length(tree));
    std::free(tree);
    return children;
  }

  void lose(WindowHost& host, Loss loss) {
    switch (loss) {
      case Loss::server:
        return server->end();
      case Loss::connections: {
        xcb_connection_t* link = host.display.link();
        const std::vector<xcb_window_t> ours = childrenOf(link, host.parent());
        ASSERT_EQ(ours.size(), 1U);
        // the toolkit's in it: another client's
        for (const xcb_window_t inner : childrenOf(link, ours[0])) xcb_kill_client(link, inner);
        xcb_kill_client(link, ours[0]);
        return host.display.sync();
      }
      case Loss::parent:
        return host.destroyParent();
    }
  }

  // The longest of all calls.
  void timed(const std::function<void()>& call) {
    const auto begin = steady_clock::now();
    call();
    longest =
        std::max(longest, std::chrono::duration<double, std::milli>(steady_clock::now() - begin));
  }

  FakeProgram zenity{folder / "bin", "zenity"};
  const Picture expected = usual();
  std::chrono::duration<double, std::milli> longest{0};
  std::unique_ptr<OtherServer> server;
};

class LostWindowWhile : public LostWindow, public ::testing::WithParamInterface<Case> {};

std::string nameOf(const ::testing::TestParamInfo<Case>& info) {
  constexpr const char* kLosses[] = {"Server", "Connections", "Parent"};
  return std::string(kLosses[static_cast<int>(std::get<Loss>(info.param))]) + "With" +
         std::get<Doing>(info.param).name;
}

}  // namespace

TEST_P(LostWindowWhile, IdlesAtOnceClosesAndComesBack) {
  const Loss loss = std::get<Loss>(GetParam());
  const std::string here = std::getenv("DISPLAY");
  if (loss == Loss::server)
    server = std::make_unique<OtherServer>(std::initializer_list<const char*>{"1024x768x24"});
  ScopedVariable display("DISPLAY", server ? server->display() : here);
  WindowHost host;
  ASSERT_TRUE(host.openEditor());
  std::get<Doing>(GetParam()).begin(host);
  const bool dialog = std::get<Doing>(GetParam()).name == std::string("Dialog");
  if (dialog) {
    ASSERT_TRUE(host.idleUntil([&] { return zenity.wasAsked(); }));
  }
  lose(host, loss);
  for (int pass = 0; pass < 30; ++pass) {
    timed([&] { host.dispatch(effEditIdle); });
    usleep(2000);
  }
  host.setParameter(1, 0.25F);
  for (int pass = 0; pass < 30; ++pass) timed([&] { host.dispatch(effEditIdle); });
  timed([&] { host.dispatch(effEditKeyDown, 'a'); });
  timed([&] { host.dispatch(effEditKeyUp, 'a'); });
  const std::vector<unsigned char> state = host.chunk();
  timed([&] { host.setChunk(state); });
  timed([&] { host.dispatch(effEditIdle); });
  timed([&] { host.closeEditor(); });
  EXPECT_LT(longest, milliseconds(1000)) << "of a pass that waits for a reply it is 30 s";
  RecordProperty("longestMilliseconds", std::to_string(longest.count()));
  EXPECT_EQ(host.parameter(1), 0.25F);
  EXPECT_FALSE(zenity.isRunning());
  EXPECT_EQ(host.calls(audioMasterBeginEdit).size(), host.calls(audioMasterEndEdit).size());

  host.display.release(1);  // the user's hand

  // In what is left of the place where it was: never a blank window.
  timed([&] { EXPECT_EQ(host.openOnly(), loss == Loss::connections); });
  host.idle(3);
  if (loss == Loss::connections) host.closeEditor();

  display.set(here.c_str());
  WindowHost other(1);
  ASSERT_TRUE(other.openEditor());
  const auto restored = [](WindowHost& shown) {
    shown.moveAway();
    return shown.picture();
  };
  EXPECT_EQ(restored(other), expected);
  other.click(places::kPhaseSwitch);
  EXPECT_EQ(other.parameter(4), 1.0F);
  EXPECT_LT(longest, milliseconds(1000));
}

INSTANTIATE_TEST_SUITE_P(All, LostWindowWhile,
                         ::testing::Combine(::testing::Values(Loss::server, Loss::connections,
                                                              Loss::parent),
                                            ::testing::ValuesIn(kDoings)),
                         nameOf);

// The instance itself, in another window of its host's.
TEST_F(LostWindow, TheSameInstanceOpensInANewWindowOfTheHost) {
  WindowHost host;
  ASSERT_TRUE(host.openEditor());
  host.destroyParent();
  host.idle(3);
  host.closeEditor();
  const Area place{350, 40, 350 + 320, 40 + 280};
  const xcb_window_t next = host.display.makeWindow(place);
  ASSERT_EQ(
      host.dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(static_cast<std::uintptr_t>(next))),
      1);
  host.idleFor(200);
  const Area shown{place.left, place.top, place.left + expected.width, place.top + expected.height};
  EXPECT_EQ(host.display.picture(shown), expected);
  host.dispatch(effEditClose);
  host.display.destroyWindow(next);
}
