// The window's connection to the X server breaks while it is open.
#include "windowtest.h"

namespace {

class LostConnection : public WindowTest {
 protected:
  // Ends the connections of those who have windows in the host's, as a server does that throws a
  // client out.
  void breakConnections() {
    xcb_connection_t* link = host.display.link();
    std::vector<xcb_window_t> windows = childrenOf(host.parent());
    ASSERT_EQ(windows.size(), 1U);
    for (const xcb_window_t inner : childrenOf(windows.front())) windows.push_back(inner);
    ASSERT_EQ(windows.size(), 2U) << "ours, and in it the toolkit's";
    for (auto window = windows.rbegin(); window != windows.rend(); ++window)
      xcb_kill_client(link, *window);
    host.display.sync();
  }

  std::vector<xcb_window_t> childrenOf(xcb_window_t window) {
    xcb_connection_t* link = host.display.link();
    xcb_query_tree_reply_t* tree =
        xcb_query_tree_reply(link, xcb_query_tree(link, window), nullptr);
    const xcb_window_t* first = xcb_query_tree_children(tree);
    std::vector<xcb_window_t> children(first, first + xcb_query_tree_children_length(tree));
    std::free(tree);
    return children;
  }

  WindowHost host;
};

}  // namespace

// A pass that looked for replies on a broken connection took half a minute, and each one
// after it again.
TEST_F(LostConnection, IdlingReturnsAtOnceAndClosingWorks) {
  ASSERT_TRUE(host.openEditor());
  breakConnections();
  for (int pass = 0; pass < 20; ++pass) host.dispatch(effEditIdle);
  host.setParameter(0, 0.25F);
  for (int pass = 0; pass < 20; ++pass) host.dispatch(effEditIdle);
  host.closeEditor();
  EXPECT_TRUE(host.hasChildWindows(0));
  EXPECT_EQ(host.parameter(0), 0.25F);
}

TEST_F(LostConnection, TheNextWindowHasANewOne) {
  ASSERT_TRUE(host.openEditor());
  const Picture expected = host.picture();
  for (int round = 0; round < 3; ++round) {
    breakConnections();
    host.dispatch(effEditIdle);
    host.closeEditor();
    EXPECT_TRUE(host.hasChildWindows(0));
    ASSERT_TRUE(host.openEditor());
    EXPECT_EQ(host.picture(), expected);
    host.click(places::kPhaseSwitch);
    EXPECT_EQ(host.parameter(4), 1.0F);
    host.setParameter(4, 0.0F);
    host.moveAway();
    host.settle();
  }
}

// The toolkit has one connection, and lets go of it with its last window.
TEST_F(LostConnection, WhileAnotherWindowHoldsItTheAnswerIsNo) {
  WindowHost other(1);
  ASSERT_TRUE(other.openEditor());
  ASSERT_TRUE(host.openEditor());
  const Picture expected = host.picture();
  breakConnections();
  host.dispatch(effEditIdle);
  other.dispatch(effEditIdle);
  host.closeEditor();
  EXPECT_FALSE(host.openOnly()) << "never a blank window";
  EXPECT_TRUE(host.hasChildWindows(0));
  other.closeEditor();
  ASSERT_TRUE(host.openEditor());
  ASSERT_TRUE(other.openEditor());
  EXPECT_EQ(host.picture(), expected);
  EXPECT_EQ(other.picture(), expected);
}

TEST_F(LostConnection, AnInstanceEndsWithItsWindowOpen) {
  ASSERT_TRUE(host.openEditor());
  const Picture expected = host.picture();
  breakConnections();
  host.dispatch(effClose);
  host.forgetInstance();
  WindowHost fresh;
  ASSERT_TRUE(fresh.openEditor());
  EXPECT_EQ(fresh.picture(), expected);
}
