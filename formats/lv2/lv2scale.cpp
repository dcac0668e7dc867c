// Looks for the scale among the options that a host gives a window.
#include "formats/lv2/lv2scale.h"

#include <lv2/atom/atom.h>
#include <lv2/core/lv2_util.h>
#include <lv2/options/options.h>
#include <lv2/ui/ui.h>
#include <lv2/urid/urid.h>

#include <cstring>

float scaleOption(const LV2_Feature* const* features) {
  const auto* const map =
      static_cast<const LV2_URID_Map*>(lv2_features_data(features, LV2_URID__map));
  const auto* option =
      static_cast<const LV2_Options_Option*>(lv2_features_data(features, LV2_OPTIONS__options));
  if (map == nullptr || option == nullptr) return 0.0F;
  const LV2_URID scaleFactor = map->map(map->handle, LV2_UI__scaleFactor);
  const LV2_URID plainFloat = map->map(map->handle, LV2_ATOM__Float);
  for (; option->key != 0; ++option) {
    float scale = 0.0F;
    if (option->context != LV2_OPTIONS_INSTANCE || option->key != scaleFactor) continue;
    if (option->type != plainFloat || option->size != sizeof scale || option->value == nullptr)
      continue;
    std::memcpy(&scale, option->value, sizeof scale);
    return scale;
  }
  return 0.0F;
}
