// Windows, fake input by the server's test extension, and pictures of the root window.
#include "testdisplay.h"

#include <xcb/res.h>
#include <xcb/xfixes.h>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace {

xcb_visualid_t alphaVisual(const xcb_screen_t* screen) {
  constexpr std::uint8_t kAlphaDepth = 32;  // bits
  for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem > 0;
       xcb_depth_next(&depth)) {
    if (depth.data->depth == kAlphaDepth)
      return xcb_depth_visuals_iterator(depth.data).data->visual_id;
  }
  throw std::runtime_error("the display has no visual with an alpha channel");
}

// Turns a screen's pixels into ones of eight bits each for red, green and blue.
class Colours {
 public:
  Colours(xcb_connection_t* connection, const xcb_screen_t* screen) {
    for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem > 0;
         xcb_depth_next(&depth)) {
      for (auto each = xcb_depth_visuals_iterator(depth.data); each.rem > 0;
           xcb_visualtype_next(&each)) {
        if (each.data->visual_id == screen->root_visual) visual = *each.data;
      }
    }
    const xcb_setup_t* setup = xcb_get_setup(connection);
    for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem > 0;
         xcb_format_next(&format)) {
      if (format.data->depth != screen->root_depth) continue;
      pixelBytes = format.data->bits_per_pixel / 8U;
      lineBits = format.data->scanline_pad;
    }
  }

  std::vector<std::uint32_t> of(xcb_get_image_reply_t* image, int width, int height) const {
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const std::size_t bits = static_cast<std::size_t>(width) * pixelBytes * 8;
    const std::size_t lineBytes = (bits + lineBits - 1) / lineBits * lineBits / 8;
    const std::uint8_t* line = xcb_get_image_data(image);
    for (int y = 0; y < height; ++y, line += lineBytes) {
      for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, line + x * pixelBytes, pixelBytes);
        pixels.push_back(eightBits(pixel, visual.red_mask) << 16U |
                         eightBits(pixel, visual.green_mask) << 8U |
                         eightBits(pixel, visual.blue_mask));
      }
    }
    return pixels;
  }

 private:
  static std::uint32_t eightBits(std::uint32_t pixel, std::uint32_t mask) {
    return mask == 0 ? 0 : static_cast<std::uint32_t>(std::uint64_t{pixel & mask} * 255 / mask);
  }

  xcb_visualtype_t visual{};
  std::size_t pixelBytes = 4;
  std::size_t lineBits = 32;
};

}  // namespace

TestDisplay::TestDisplay() {
  int number = 0;
  connection = xcb_connect(nullptr, &number);
  if (xcb_connection_has_error(connection) != 0) throw std::runtime_error("no display");
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (; number > 0; --number) xcb_screen_next(&screens);
  screen = screens.data;
}

TestDisplay::~TestDisplay() {
  xcb_disconnect(connection);
}

xcb_window_t TestDisplay::makeWindow(const Area& place, bool alpha) {
  const xcb_window_t window = xcb_generate_id(connection);
  std::uint8_t depth = screen->root_depth;
  xcb_visualid_t visual = screen->root_visual;
  xcb_colormap_t colours = screen->default_colormap;
  if (alpha) {
    depth = 32;
    visual = alphaVisual(screen);
    colours = xcb_generate_id(connection);
    xcb_create_colormap(connection, XCB_COLORMAP_ALLOC_NONE, colours, screen->root, visual);
  }
  // background, border, override-redirect, colour map
  const std::uint32_t values[] = {0xFFFFFFFFU, 0, 1, colours};
  xcb_create_window(
      connection, depth, window, screen->root, static_cast<std::int16_t>(place.left),
      static_cast<std::int16_t>(place.top), static_cast<std::uint16_t>(place.right - place.left),
      static_cast<std::uint16_t>(place.bottom - place.top), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
      visual, XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_COLORMAP,
      values);
  xcb_map_window(connection, window);
  sync();
  return window;
}

void TestDisplay::destroyWindow(xcb_window_t window) {
  xcb_destroy_window(connection, window);
  sync();
}

void TestDisplay::resizeWindow(xcb_window_t window, int width, int height) {
  const std::uint32_t size[] = {static_cast<std::uint32_t>(width),
                                static_cast<std::uint32_t>(height)};
  xcb_configure_window(connection, window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                       size);
  sync();
}

int TestDisplay::childrenOf(xcb_window_t window) {
  xcb_query_tree_reply_t* tree =
      xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr);
  const int count = tree == nullptr ? 0 : xcb_query_tree_children_length(tree);
  std::free(tree);
  return count;
}

int TestDisplay::clients() {
  xcb_res_query_clients_reply_t* clients =
      xcb_res_query_clients_reply(connection, xcb_res_query_clients(connection), nullptr);
  if (clients == nullptr) throw std::runtime_error("the server does not tell its clients");
  const int count = xcb_res_query_clients_clients_length(clients);
  std::free(clients);
  return count;
}

long TestDisplay::resources() {
  long total = 0;
  xcb_res_query_clients_reply_t* clients =
      xcb_res_query_clients_reply(connection, xcb_res_query_clients(connection), nullptr);
  if (clients == nullptr) throw std::runtime_error("the server does not tell its resources");
  for (auto client = xcb_res_query_clients_clients_iterator(clients); client.rem > 0;
       xcb_res_client_next(&client)) {
    xcb_res_query_client_resources_reply_t* kinds = xcb_res_query_client_resources_reply(
        connection, xcb_res_query_client_resources(connection, client.data->resource_base),
        nullptr);
    if (kinds == nullptr) continue;  // the client has gone meanwhile
    for (auto kind = xcb_res_query_client_resources_types_iterator(kinds); kind.rem > 0;
         xcb_res_type_next(&kind)) {
      total += kind.data->count;
    }
    std::free(kinds);
  }
  std::free(clients);
  return total;
}

bool TestDisplay::exists(xcb_window_t window) {
  xcb_query_tree_reply_t* tree =
      xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr);
  std::free(tree);
  return tree != nullptr;
}

void TestDisplay::fake(std::uint8_t type, std::uint8_t detail, int x, int y) {
  xcb_test_fake_input(connection, type, detail, XCB_CURRENT_TIME, screen->root,
                      static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
  sync();
}

void TestDisplay::moveTo(int x, int y) {
  fake(XCB_MOTION_NOTIFY, 0, x, y);
}

void TestDisplay::press(int button) {
  fake(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button));
}

void TestDisplay::release(int button) {
  fake(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
}

TestDisplay::Key TestDisplay::keyOf(std::uint32_t keysym) {
  const xcb_setup_t* setup = xcb_get_setup(connection);
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  xcb_get_keyboard_mapping_reply_t* map = xcb_get_keyboard_mapping_reply(
      connection, xcb_get_keyboard_mapping(connection, setup->min_keycode, count), nullptr);
  if (map == nullptr) throw std::runtime_error("no keyboard map");
  Key found{0, false};
  const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(map);
  for (int code = 0; code < count && found.code == 0; ++code) {
    const int levels = std::min<int>(map->keysyms_per_keycode, 2);  // plain and with Shift
    for (int level = 0; level < levels && found.code == 0; ++level) {
      if (symbols[code * map->keysyms_per_keycode + level] != keysym) continue;
      found = {static_cast<xcb_keycode_t>(setup->min_keycode + code), level == 1};
    }
  }
  std::free(map);
  if (found.code == 0) throw std::runtime_error("the keyboard map has no such key");
  return found;
}

void TestDisplay::keyDown(std::uint32_t keysym) {
  fake(XCB_KEY_PRESS, keyOf(keysym).code);
}

void TestDisplay::keyUp(std::uint32_t keysym) {
  fake(XCB_KEY_RELEASE, keyOf(keysym).code);
}

void TestDisplay::tap(std::uint32_t keysym) {
  const Key key = keyOf(keysym);
  if (key.shifted) keyDown(XKB_KEY_Shift_L);
  fake(XCB_KEY_PRESS, key.code);
  fake(XCB_KEY_RELEASE, key.code);
  if (key.shifted) keyUp(XKB_KEY_Shift_L);
}

void TestDisplay::focus(xcb_window_t window) {
  xcb_set_input_focus(connection, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
  sync();
}

xcb_window_t TestDisplay::focused() {
  xcb_get_input_focus_reply_t* reply =
      xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr);
  const xcb_window_t window = reply == nullptr ? 0 : reply->focus;
  std::free(reply);
  return window;
}

Picture TestDisplay::picture(const Area& area) {
  sync();
  Picture taken{area.right - area.left, area.bottom - area.top, {}};
  xcb_get_image_reply_t* image = xcb_get_image_reply(
      connection,
      xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root,
                    static_cast<std::int16_t>(area.left), static_cast<std::int16_t>(area.top),
                    static_cast<std::uint16_t>(taken.width),
                    static_cast<std::uint16_t>(taken.height), 0xFFFFFFFFU),
      nullptr);
  if (image == nullptr) throw std::runtime_error("no picture");
  taken.pixels = Colours(connection, screen).of(image, taken.width, taken.height);
  std::free(image);
  return taken;
}

Picture TestDisplay::stillPicture(const Area& area, const std::function<void()>& pass) {
  constexpr int kMost = 100;  // passes; a caret that blinks lets it end within a few
  Picture before = picture(area);
  for (int passes = 0, same = 0; passes < kMost && same < 2; ++passes) {
    pass();
    Picture after = picture(area);
    same = after == before ? same + 1 : 0;
    before = std::move(after);
  }
  return before;
}

Picture TestDisplay::cursor() {
  std::free(xcb_xfixes_query_version_reply(
      connection, xcb_xfixes_query_version(connection, XCB_XFIXES_MAJOR_VERSION, 0), nullptr));
  xcb_xfixes_get_cursor_image_reply_t* image = xcb_xfixes_get_cursor_image_reply(
      connection, xcb_xfixes_get_cursor_image(connection), nullptr);
  if (image == nullptr) throw std::runtime_error("no pointer");
  const std::uint32_t* pixels = xcb_xfixes_get_cursor_image_cursor_image(image);
  const Picture taken{image->width, image->height, {pixels, pixels + image->width * image->height}};
  std::free(image);
  return taken;
}

void TestDisplay::sync() {
  xcb_flush(connection);
  focused();  // any question will do: its answer comes after everything before it
}
