// What the keys of the keyboard stand for.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>

struct xkb_keymap;
struct xkb_state;

// As it is when it is made. The toolkit reads the keyboard's map once a process, and counts
// modifiers from the keys that its windows have seen: one that is let go of elsewhere stays down
// for it.
class KeyboardMap {
 public:
  explicit KeyboardMap(xcb_connection_t* link);  // an X connection that knows the XKB extension
  ~KeyboardMap();
  KeyboardMap(const KeyboardMap&) = delete;
  KeyboardMap& operator=(const KeyboardMap&) = delete;

  // Of a key with the modifiers and the group that its event names; 0: it types nothing. Without a
  // map, which takes memory, `otherwise`.
  char32_t character(const xcb_key_press_event_t& key, char32_t otherwise) const;

 private:
  xkb_keymap* map;
  xkb_state* state;
};
