// Asks the environment for the session bus.
#include "platform/linux/sessionbus.h"

#include <gio/gio.h>
#include <sys/stat.h>

#include <memory>

#include "platform/linux/environment.h"

std::string sessionBusAddress() {
  std::string address = environmentVariable("DBUS_SESSION_BUS_ADDRESS");
  if (!address.empty()) return address.starts_with("autolaunch:") ? std::string() : address;
  const std::string socket = environmentVariable("XDG_RUNTIME_DIR") + "/bus";
  struct stat status {};
  if (socket[0] != '/' || stat(socket.c_str(), &status) != 0 || !S_ISSOCK(status.st_mode))
    return {};
  const std::unique_ptr<char, decltype(&g_free)> escaped(
      g_dbus_address_escape_value(socket.c_str()), &g_free);
  return std::string("unix:path=") + escaped.get();
}
