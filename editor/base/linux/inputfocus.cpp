// Asks the X server, which refuses the keyboard to windows that have gone or cannot be seen.
#include "editor/base/linux/inputfocus.h"

#include <cstdlib>
#include <string_view>

namespace {

// The time is the server's: the press's own is older than what a window manager does at the press.
bool takes(xcb_connection_t* link, const InputFocus& focus) {
  xcb_generic_error_t* refused = xcb_request_check(
      link, xcb_set_input_focus_checked(link, focus.whenGone, focus.window, XCB_CURRENT_TIME));
  const bool taken = refused == nullptr;
  std::free(refused);
  return taken;
}

xcb_atom_t stateAtom(xcb_connection_t* link) {
  constexpr std::string_view kName = "WM_STATE";  // on the windows that a manager knows
  xcb_intern_atom_reply_t* reply =
      xcb_intern_atom_reply(link, xcb_intern_atom(link, 1, kName.size(), kName.data()), nullptr);
  const xcb_atom_t atom = reply != nullptr ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  std::free(reply);
  return atom;
}

bool hasProperty(xcb_connection_t* link, xcb_window_t window, xcb_atom_t name) {
  xcb_get_property_reply_t* reply = xcb_get_property_reply(
      link, xcb_get_property(link, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, 0), nullptr);
  const bool has = reply != nullptr && reply->type != XCB_ATOM_NONE;
  std::free(reply);
  return has;
}

// The one that a window manager knows; without one the outermost.
xcb_window_t topLevel(xcb_connection_t* link, xcb_window_t inner) {
  const xcb_atom_t state = stateAtom(link);
  for (xcb_window_t window = inner;;) {
    if (state != XCB_ATOM_NONE && hasProperty(link, window, state)) return window;
    xcb_query_tree_reply_t* tree =
        xcb_query_tree_reply(link, xcb_query_tree(link, window), nullptr);
    if (tree == nullptr) return inner;
    const xcb_window_t parent = tree->parent == tree->root ? XCB_NONE : tree->parent;
    std::free(tree);
    if (parent == XCB_NONE) return window;
    window = parent;
  }
}

}  // namespace

InputFocus inputFocus(xcb_connection_t* link) {
  InputFocus focus;
  xcb_get_input_focus_reply_t* reply =
      xcb_get_input_focus_reply(link, xcb_get_input_focus(link), nullptr);
  if (reply != nullptr) focus = {reply->focus, reply->revert_to};
  std::free(reply);
  return focus;
}

void setInputFocus(xcb_connection_t* link, xcb_window_t window) {
  xcb_set_input_focus(link, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
  inputFocus(link);  // any question
}

bool isAround(xcb_connection_t* link, const InputFocus& focus, xcb_window_t inner) {
  return focus.window == XCB_INPUT_FOCUS_NONE || focus.window == XCB_INPUT_FOCUS_POINTER_ROOT ||
         topLevel(link, focus.window) == topLevel(link, inner);
}

void giveBack(xcb_connection_t* link, const InputFocus& before, xcb_window_t inner) {
  if (takes(link, before)) return;
  if (takes(link, {topLevel(link, inner), XCB_INPUT_FOCUS_PARENT})) return;
  takes(link, InputFocus{});
}
