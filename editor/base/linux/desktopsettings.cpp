// Reads the settings' manager and the resources, both of which programs leave at the server.
#include "editor/base/linux/desktopsettings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <span>

#include "editor/base/linux/xsettings.h"

namespace {

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

constexpr std::uint32_t kMostWords = 1U << 18U;  // 1 MB; a desktop's settings are a few thousand
constexpr double kSettingsUnit = 1024;           // parts of a dot an inch

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

std::optional<double> density(double dpi) {
  if (!std::isfinite(dpi) || dpi <= 0) return {};  // -1 is "the server's own", which none has right
  return dpi;
}

xcb_intern_atom_cookie_t askAtom(xcb_connection_t* link, std::string_view name) {
  constexpr std::uint8_t kOnlyIfExists = 1;
  return xcb_intern_atom(link, kOnlyIfExists, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t atom(xcb_connection_t* link, xcb_intern_atom_cookie_t asked) {
  const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(link, asked, nullptr),
                                             &std::free);
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

// A property's bytes, as long as it lives.
class Property {
 public:
  Property(xcb_connection_t* link, xcb_get_property_cookie_t asked)
      : reply(xcb_get_property_reply(link, asked, nullptr), &std::free) {}

  std::span<const unsigned char> bytes() const {
    constexpr std::uint8_t kBytes = 8;  // bits in a unit
    if (!reply || reply->format != kBytes) return {};
    return {static_cast<const unsigned char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
  }

 private:
  Owned<xcb_get_property_reply_t> reply;
};

void takeManagersSettings(xcb_connection_t* link, xcb_atom_t selection, xcb_atom_t property,
                          DesktopSettings& into) {
  if (selection == XCB_ATOM_NONE || property == XCB_ATOM_NONE) return;
  const Owned<xcb_get_selection_owner_reply_t> manager(
      xcb_get_selection_owner_reply(link, xcb_get_selection_owner(link, selection), nullptr),
      &std::free);
  if (!manager || manager->owner == XCB_WINDOW_NONE) return;
  const Property settings(
      link, xcb_get_property(link, 0, manager->owner, property, property, 0, kMostWords));
  if (const auto dpi = numberOfXSettings(settings.bytes(), "Xft/DPI")) {
    if (const auto set = density(*dpi / kSettingsUnit)) into.dpi = set;
  }
  const auto time = numberOfXSettings(settings.bytes(), "Net/DoubleClickTime");
  if (time && *time > 0) into.doubleClickTime = static_cast<std::uint32_t>(*time);
}

}  // namespace

std::optional<double> dpiOfResources(std::string_view resources) {
  std::optional<double> found;
  while (!resources.empty()) {
    const std::string_view line = resources.substr(0, resources.find('\n'));
    resources.remove_prefix(std::min(resources.size(), line.size() + 1));
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos || trimmed(line.substr(0, colon)) != "Xft.dpi") continue;
    const std::string_view value = trimmed(line.substr(colon + 1));
    double dpi = 0;  // of a line that is no number, which counts as none
    const auto read = std::from_chars(value.data(), value.data() + value.size(), dpi);
    if (read.ec == std::errc() && read.ptr == value.data() + value.size()) {
      if (const auto set = density(dpi)) found = set;  // the last one, as in the library's database
    }
  }
  return found;
}

// The manager's word counts before the resources': it is what desktops change while programs run,
// and what their own programs follow at once, whereas the resources are those of the session's
// begin until somebody loads others. The first screen's of both, where the toolkit draws.
DesktopSettings desktopSettings(xcb_connection_t* link) {
  DesktopSettings found;
  if (xcb_connection_has_error(link) != 0) return found;
  const auto screens = xcb_setup_roots_iterator(xcb_get_setup(link));
  if (screens.rem == 0) return found;
  const auto askedSelection = askAtom(link, "_XSETTINGS_S0");
  const auto askedProperty = askAtom(link, "_XSETTINGS_SETTINGS");
  const Property resources(link,
                           xcb_get_property(link, 0, screens.data->root, XCB_ATOM_RESOURCE_MANAGER,
                                            XCB_ATOM_STRING, 0, kMostWords));
  const auto text = resources.bytes();
  found.dpi = dpiOfResources({reinterpret_cast<const char*>(text.data()), text.size()});
  const xcb_atom_t selection = atom(link, askedSelection);
  takeManagersSettings(link, selection, atom(link, askedProperty), found);
  return found;
}
