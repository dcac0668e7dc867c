// A small effect with a window that does everything right.
#include "tests/validate/plugins/windoweffect.h"

#include <cstdlib>

WindowEffect::WindowEffect(audioMasterCallback callback) : SoundEffect(callback) {
  record.flags |= effFlagsHasEditor;
}

WindowEffect::~WindowEffect() {
  WindowEffect::close();
}

VstIntPtr WindowEffect::dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                 float opt) {
  switch (opcode) {
    case effEditGetRect:
      return giveRect(static_cast<ERect**>(ptr));
    case effEditOpen:
      return open(static_cast<xcb_window_t>(reinterpret_cast<std::uintptr_t>(ptr))) ? 1 : 0;
    case effEditClose:
      close();
      return 0;
    case effEditIdle:
      idle();
      return 0;
    default:
      return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }
}

VstIntPtr WindowEffect::giveRect(ERect** rect) {
  *rect = &size;
  return 1;
}

bool WindowEffect::open(xcb_window_t parent) {
  if (isOpen()) close();
  connection = xcb_connect(nullptr, nullptr);
  if (xcb_connection_has_error(connection) != 0) {
    WindowEffect::close();
    return false;
  }
  const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
  window = xcb_generate_id(connection);
  const std::uint32_t values[] = {screen->black_pixel, XCB_EVENT_MASK_EXPOSURE};
  xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, parent, 0, 0,
                    static_cast<std::uint16_t>(size.right - size.left),
                    static_cast<std::uint16_t>(size.bottom - size.top), 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                    XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
  map();
  xcb_flush(connection);
  return true;
}

void WindowEffect::map() {
  xcb_map_window(connection, window);
}

// The window goes with its connection.
void WindowEffect::close() {
  if (connection != nullptr) xcb_disconnect(connection);
  connection = nullptr;
  window = XCB_NONE;
}

// A lost connection gives no events.
void WindowEffect::idle() {
  if (connection == nullptr) return;
  bool exposed = false;
  while (xcb_generic_event_t* event = xcb_poll_for_event(connection)) {
    exposed = exposed || (event->response_type & 0x7F) == XCB_EXPOSE;
    std::free(event);
  }
  if (exposed) draw();
}

void WindowEffect::draw() {
  const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
  const xcb_gcontext_t pen = xcb_generate_id(connection);
  xcb_create_gc(connection, pen, window, XCB_GC_FOREGROUND, &screen->white_pixel);
  const xcb_rectangle_t square{10, 10, 30, 30};
  xcb_poly_fill_rectangle(connection, window, pen, 1, &square);
  xcb_free_gc(connection, pen);
  xcb_flush(connection);
}

EFFECT_IN_FILE(soundwindow, WindowEffect);
