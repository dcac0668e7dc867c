// The module's entry for the window: what a host calls, handed to it.
#include <lv2/core/lv2.h>
#include <lv2/core/lv2_util.h>
#include <lv2/instance-access/instance-access.h>
#include <lv2/ui/ui.h>

#include <cstring>

#include "formats/lv2/lv2scale.h"
#include "formats/lv2/lv2window.h"
#include "formats/lv2/uris.h"

namespace {

constexpr std::uint32_t kPlainFloat = 0;  // the format of what a control port says

bool isOurs(const char* plugin) {
  return std::strcmp(plugin, lv2uris::kStereo) == 0 || std::strcmp(plugin, lv2uris::kMono) == 0;
}

template <typename Feature>
Feature* feature(const LV2_Feature* const* features, const char* uri) {
  return static_cast<Feature*>(lv2_features_data(features, uri));
}

// Nothing that is thrown, for want of memory, reaches the host.
LV2UI_Handle instantiate(const LV2UI_Descriptor* /*descriptor*/, const char* plugin,
                         const char* /*bundle*/, LV2UI_Write_Function write,
                         LV2UI_Controller controller, LV2UI_Widget* widget,
                         const LV2_Feature* const* features) noexcept {
  auto* const effect = feature<Lv2Effect>(features, LV2_INSTANCE_ACCESS_URI);
  void* const parent = feature<void>(features, LV2_UI__parent);
  if (!isOurs(plugin) || effect == nullptr || parent == nullptr || write == nullptr) return nullptr;
  const Lv2Window::Host host{write, controller, feature<LV2UI_Touch>(features, LV2_UI__touch),
                             feature<LV2UI_Resize>(features, LV2_UI__resize),
                             scaleOption(features)};
  try {
    auto window = Lv2Window::open(*effect, reinterpret_cast<WindowId>(parent), host);
    if (!window) return nullptr;
    *widget = reinterpret_cast<LV2UI_Widget>(window->id());
    return window.release();
  } catch (...) {
    return nullptr;
  }
}

void cleanup(LV2UI_Handle window) noexcept {
  delete static_cast<Lv2Window*>(window);
}

void portEvent(LV2UI_Handle window, std::uint32_t port, std::uint32_t size, std::uint32_t format,
               const void* buffer) noexcept {
  float value = 0.0F;
  if (format != kPlainFloat || size != sizeof value || buffer == nullptr) return;
  std::memcpy(&value, buffer, sizeof value);
  static_cast<Lv2Window*>(window)->portSaid(port, value);
}

int idle(LV2UI_Handle window) noexcept {
  static_cast<Lv2Window*>(window)->idle();
  return 0;  // it stays open
}

const void* extensionData(const char* uri) noexcept {
  static constexpr LV2UI_Idle_Interface kIdle{idle};
  return std::strcmp(uri, LV2_UI__idleInterface) == 0 ? &kIdle : nullptr;
}

constexpr LV2UI_Descriptor kWindow{lv2uris::kWindow, instantiate, cleanup, portEvent,
                                   extensionData};

}  // namespace

LV2_SYMBOL_EXPORT const LV2UI_Descriptor* lv2ui_descriptor(std::uint32_t index) {
  return index == 0 ? &kWindow : nullptr;
}
