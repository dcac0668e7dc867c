// The server's damage extension.
#include "damagewatch.h"

#include <xcb/damage.h>

#include <cstdlib>
#include <stdexcept>

DamageWatch::DamageWatch(TestDisplay& watched, xcb_window_t window) : display(watched) {
  const xcb_query_extension_reply_t* extension =
      xcb_get_extension_data(display.link(), &xcb_damage_id);
  if (extension == nullptr || extension->present == 0)
    throw std::runtime_error("the server reports no damage");
  eventType = static_cast<std::uint8_t>(extension->first_event + XCB_DAMAGE_NOTIFY);
  std::free(xcb_damage_query_version_reply(
      display.link(), xcb_damage_query_version(display.link(), 1, 1), nullptr));
  id = xcb_generate_id(display.link());
  xcb_damage_create(display.link(), id, window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
  display.sync();
  take();
}

DamageWatch::~DamageWatch() {
  xcb_damage_destroy(display.link(), id);
}

std::vector<Area> DamageWatch::take() {
  display.sync();
  std::vector<Area> areas;
  while (xcb_generic_event_t* event = xcb_poll_for_event(display.link())) {
    if ((event->response_type & 0x7F) == eventType) {
      const xcb_rectangle_t& area = reinterpret_cast<const xcb_damage_notify_event_t*>(event)->area;
      areas.push_back({area.x, area.y, area.x + area.width, area.y + area.height});
    }
    std::free(event);
  }
  return areas;
}
