// Lets the X library take DISPLAY apart.
#include "editor/base/linux/servername.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

std::string serverName() {
  char* host = nullptr;
  int display = 0;
  if (xcb_parse_display(nullptr, &host, &display, nullptr) == 0) return {};
  const std::unique_ptr<char, decltype(&std::free)> owned(host, &std::free);
  return std::string(host) + ':' + std::to_string(display);
}
