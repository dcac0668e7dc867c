// The module's entry for plug-ins: what a host calls, handed to the instance.
#include <lv2/core/lv2.h>
#include <lv2/core/lv2_util.h>

#include <cstring>
#include <iterator>

#include "formats/lv2/lv2effect.h"
#include "formats/lv2/uris.h"

namespace {

constexpr Lv2Shape kStereo{lv2uris::kStereo, 2};
constexpr Lv2Shape kMono{lv2uris::kMono, 1};

Lv2Effect& effectOf(LV2_Handle instance) {
  return *static_cast<Lv2Effect*>(instance);
}

// Hosts are not compiled to be unwound: what is thrown, for want of memory, ends here.
LV2_Handle instantiate(const LV2_Descriptor* descriptor, double rate, const char* /*bundle*/,
                       const LV2_Feature* const* features) noexcept {
  try {
    const void* const map = lv2_features_data(features, LV2_URID__map);
    const bool isMono = std::strcmp(descriptor->URI, kMono.uri) == 0;
    return Lv2Effect::make(isMono ? kMono : kStereo, rate, static_cast<const LV2_URID_Map*>(map))
        .release();
  } catch (...) {
    return nullptr;
  }
}

void connectPort(LV2_Handle instance, std::uint32_t port, void* place) noexcept {
  effectOf(instance).connect(port, place);
}

void activate(LV2_Handle instance) noexcept {
  effectOf(instance).activate();
}

void run(LV2_Handle instance, std::uint32_t frames) noexcept {
  effectOf(instance).run(frames);
}

void deactivate(LV2_Handle instance) noexcept {
  effectOf(instance).deactivate();
}

void cleanup(LV2_Handle instance) noexcept {
  delete &effectOf(instance);
}

LV2_State_Status save(LV2_Handle instance, LV2_State_Store_Function store, LV2_State_Handle state,
                      std::uint32_t /*flags*/, const LV2_Feature* const* /*features*/) noexcept {
  return effectOf(instance).save(store, state);
}

LV2_State_Status restore(LV2_Handle instance, LV2_State_Retrieve_Function retrieve,
                         LV2_State_Handle state, std::uint32_t /*flags*/,
                         const LV2_Feature* const* /*features*/) noexcept {
  try {
    return effectOf(instance).restore(retrieve, state);
  } catch (...) {
    return LV2_STATE_ERR_UNKNOWN;
  }
}

const void* extensionData(const char* uri) noexcept {
  static constexpr LV2_State_Interface kState{save, restore};
  return std::strcmp(uri, LV2_STATE__interface) == 0 ? &kState : nullptr;
}

constexpr LV2_Descriptor descriptorOf(const Lv2Shape& shape) {
  return {shape.uri, instantiate, connectPort, activate, run, deactivate, cleanup, extensionData};
}
constexpr LV2_Descriptor kDescriptors[] = {descriptorOf(kStereo), descriptorOf(kMono)};

}  // namespace

LV2_SYMBOL_EXPORT const LV2_Descriptor* lv2_descriptor(std::uint32_t index) {
  return index < std::size(kDescriptors) ? &kDescriptors[index] : nullptr;
}
