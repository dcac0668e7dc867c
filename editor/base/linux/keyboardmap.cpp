// Reads the map from the X server, and looks keys up in it.
#include "editor/base/linux/keyboardmap.h"

#include <xkbcommon/xkbcommon-x11.h>

KeyboardMap::KeyboardMap(xcb_connection_t* link) : map(nullptr), state(nullptr) {
  xkb_context* context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
  const std::int32_t keyboard = xkb_x11_get_core_keyboard_device_id(link);
  if (context != nullptr && keyboard >= 0)
    map = xkb_x11_keymap_new_from_device(context, link, keyboard, XKB_KEYMAP_COMPILE_NO_FLAGS);
  if (map != nullptr) state = xkb_state_new(map);
  xkb_context_unref(context);
}

KeyboardMap::~KeyboardMap() {
  xkb_state_unref(state);
  xkb_keymap_unref(map);
}

char32_t KeyboardMap::character(const xcb_key_press_event_t& key, char32_t otherwise) const {
  if (state == nullptr) return otherwise;
  const xkb_mod_mask_t modifiers = key.state & 0xFFU;         // Shift, Lock, Control, Mod1 to Mod5
  const xkb_layout_index_t layout = (key.state >> 13U) & 3U;  // what one of them switches between
  xkb_state_update_mask(state, modifiers, 0, 0, layout, 0, 0);
  return xkb_state_key_get_utf32(state, key.detail);
}
