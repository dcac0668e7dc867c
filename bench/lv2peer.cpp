// Loads LV2 plug-ins through lilv, with the one feature that most ask for: numbers for URIs.
#include <lilv/lilv.h>
#include <lv2/urid/urid.h>

#include <cmath>
#include <map>

#include "bench/peer.h"

namespace {

constexpr double kRate = 44100.0;  // Hz

LV2_URID numberOf(LV2_URID_Map_Handle handle, const char* uri) {
  auto& numbers = *static_cast<std::map<std::string, LV2_URID>*>(handle);
  return numbers.try_emplace(uri, static_cast<LV2_URID>(numbers.size() + 1)).first->second;
}

class Lv2Peer : public Peer {
 public:
  Lv2Peer(LilvWorld* held, const LilvPlugin* plugin) : world(held), channels(8, 8) {
    const LV2_Feature mapping{LV2_URID__map, &map};
    const LV2_Feature* const features[] = {&mapping, nullptr};
    instance = lilv_plugin_instantiate(plugin, kRate, features);
    if (instance == nullptr) return;
    connect(plugin);
    lilv_instance_activate(instance);
  }
  ~Lv2Peer() override {
    if (instance != nullptr) {
      lilv_instance_deactivate(instance);
      lilv_instance_free(instance);
    }
    lilv_world_free(world);
  }
  Lv2Peer(const Lv2Peer&) = delete;
  Lv2Peer& operator=(const Lv2Peer&) = delete;

  bool works() const { return instance != nullptr; }
  void play(int frames) override { lilv_instance_run(instance, static_cast<uint32_t>(frames)); }

 private:
  void connect(const LilvPlugin* plugin) {
    LilvNode* const audio = lilv_new_uri(world, LILV_URI_AUDIO_PORT);
    LilvNode* const control = lilv_new_uri(world, LILV_URI_CONTROL_PORT);
    LilvNode* const input = lilv_new_uri(world, LILV_URI_INPUT_PORT);
    const uint32_t count = lilv_plugin_get_num_ports(plugin);
    controls.resize(count);
    lilv_plugin_get_port_ranges_float(plugin, nullptr, nullptr, controls.data());
    std::size_t ins = 0;
    std::size_t outs = 0;
    for (uint32_t number = 0; number < count; ++number) {
      const LilvPort* port = lilv_plugin_get_port_by_index(plugin, number);
      void* place = nullptr;
      if (lilv_port_is_a(plugin, port, audio)) {
        const bool in = lilv_port_is_a(plugin, port, input);
        place = in ? channels.in.at(ins++).data() : channels.out.at(outs++).data();
      } else if (lilv_port_is_a(plugin, port, control)) {
        if (std::isnan(controls[number])) controls[number] = 0.0F;
        place = &controls[number];
      }
      lilv_instance_connect_port(instance, number, place);
    }
    for (LilvNode* node : {audio, control, input}) lilv_node_free(node);
  }

  LilvWorld* world;
  PeerChannels channels;
  std::vector<float> controls;
  std::map<std::string, LV2_URID> numbers;
  LV2_URID_Map map{&numbers, numberOf};
  LilvInstance* instance = nullptr;
};

}  // namespace

std::unique_ptr<Peer> loadLv2(const std::string& uri) {
  LilvWorld* const world = lilv_world_new();
  lilv_world_load_all(world);
  LilvNode* const wanted = lilv_new_uri(world, uri.c_str());
  const LilvPlugin* const plugin =
      lilv_plugins_get_by_uri(lilv_world_get_all_plugins(world), wanted);
  lilv_node_free(wanted);
  if (plugin == nullptr) {
    lilv_world_free(world);
    return nullptr;
  }
  auto peer = std::make_unique<Lv2Peer>(world, plugin);
  if (!peer->works()) return nullptr;
  return peer;
}
