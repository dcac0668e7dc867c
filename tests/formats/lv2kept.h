// What an LV2 host has for an effect's state: numbers for URIs, and a property that it keeps.
#pragma once

#include <lv2/state/state.h>
#include <lv2/urid/urid.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

// A host's numbers for URIs.
class Lv2Numbers {
 public:
  const LV2_Feature* const* features() const { return list; }
  LV2_URID of(const char* uri) {
    return numbers.try_emplace(uri, static_cast<LV2_URID>(numbers.size() + 1)).first->second;
  }

 private:
  static LV2_URID number(LV2_URID_Map_Handle handle, const char* uri) {
    return static_cast<Lv2Numbers*>(handle)->of(uri);
  }
  std::map<std::string, LV2_URID> numbers;
  LV2_URID_Map map{this, number};
  LV2_Feature feature{LV2_URID__map, &map};
  const LV2_Feature* list[2] = {&feature, nullptr};
};

// What a host keeps of a state: one property.
struct Lv2Kept {
  using Bytes = std::vector<unsigned char>;

  Bytes bytes;
  LV2_URID key = 0;
  LV2_URID type = 0;
  std::uint32_t flags = 0;
  int count = 0;

  static LV2_State_Status store(LV2_State_Handle handle, std::uint32_t key, const void* value,
                                std::size_t size, std::uint32_t type, std::uint32_t flags) {
    auto& kept = *static_cast<Lv2Kept*>(handle);
    const auto* first = static_cast<const unsigned char*>(value);
    kept = {Bytes(first, first + size), key, type, flags, kept.count + 1};
    return LV2_STATE_SUCCESS;
  }
  static const void* retrieve(LV2_State_Handle handle, std::uint32_t key, std::size_t* size,
                              std::uint32_t* type, std::uint32_t* flags) {
    const auto& kept = *static_cast<const Lv2Kept*>(handle);
    if (key != kept.key) return nullptr;
    *size = kept.bytes.size();
    *type = kept.type;
    *flags = kept.flags;
    return kept.bytes.empty() ? "" : static_cast<const void*>(kept.bytes.data());
  }
};
