// Asks the X server on a connection of its own, which ends with the question.
#include "formats/lv2/newchildwindow.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

std::vector<WindowId> childWindows(WindowId parent) {
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> link(
      xcb_connect(nullptr, nullptr), xcb_disconnect);
  const xcb_query_tree_cookie_t asked =
      xcb_query_tree(link.get(), static_cast<xcb_window_t>(parent));
  const std::unique_ptr<xcb_query_tree_reply_t, decltype(&std::free)> tree(
      xcb_query_tree_reply(link.get(), asked, nullptr), std::free);
  if (!tree) return {};
  const xcb_window_t* const first = xcb_query_tree_children(tree.get());
  return {first, first + xcb_query_tree_children_length(tree.get())};
}

WindowId newChildWindow(WindowId parent, const std::vector<WindowId>& before) {
  for (const WindowId child : childWindows(parent)) {
    if (std::find(before.begin(), before.end(), child) == before.end()) return child;
  }
  return 0;
}
