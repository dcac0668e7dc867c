// Asks the desktop, where the host wants no scale, on a connection of its own, which ends with the
// question.
#include "editor/base/screenscale.h"

#include <xcb/xcb.h>

#include <functional>
#include <mutex>
#include <string>

#include "editor/base/linux/desktopsettings.h"
#include "editor/base/linux/scalechoice.h"
#include "editor/base/linux/servername.h"
#include "editor/base/steadytime.h"
#include "platform/linux/environment.h"

namespace {

// ms: a host asks several times before and after an opening, and a person who changes the scale
// waits longer for the next window.
constexpr std::uint64_t kRecent = 200;

struct Asked {
  double scale = 0;  // 0: never
  std::uint64_t time = 0;
  std::size_t server = 0;  // a hash of its name: nothing static has work to do at the end
};
std::mutex askedMutex;
Asked asked;

}  // namespace

double screenScale(double wanted) {
  if (const auto scale = wantedScale(wanted)) return *scale;
  xcb_connection_t* link = xcb_connect(nullptr, nullptr);
  const DesktopSettings desktop = desktopSettings(link);
  xcb_disconnect(link);
  const double scale = chosenScale(desktop.dpi, environmentVariable("GDK_SCALE").c_str());
  const std::size_t server = std::hash<std::string>()(serverName());
  const std::lock_guard<std::mutex> lock(askedMutex);
  asked = {scale, steadyMilliseconds(), server};
  return scale;
}

double recentScreenScale(double wanted) {
  if (const auto scale = wantedScale(wanted)) return *scale;
  const std::size_t server = std::hash<std::string>()(serverName());
  {
    const std::lock_guard<std::mutex> lock(askedMutex);
    const bool isRecent = steadyMilliseconds() - asked.time < kRecent;
    if (asked.scale != 0 && isRecent && asked.server == server) return asked.scale;
  }
  return screenScale(wanted);
}
