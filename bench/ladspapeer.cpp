// Loads LADSPA plug-ins.
#include <dlfcn.h>
#include <ladspa.h>

#include "bench/peer.h"

namespace {

constexpr unsigned long kRate = 44100;  // Hz

// What a hint says of a control's default: the ends of its range and the middle between them.
float defaultOf(const LADSPA_PortRangeHint& hint) {
  const auto what = hint.HintDescriptor;
  if (LADSPA_IS_HINT_DEFAULT_1(what)) return 1.0F;
  if (LADSPA_IS_HINT_DEFAULT_100(what)) return 100.0F;
  if (LADSPA_IS_HINT_DEFAULT_440(what)) return 440.0F;
  if (LADSPA_IS_HINT_DEFAULT_MINIMUM(what)) return hint.LowerBound;
  if (LADSPA_IS_HINT_DEFAULT_LOW(what)) return 0.75F * hint.LowerBound + 0.25F * hint.UpperBound;
  if (LADSPA_IS_HINT_DEFAULT_MIDDLE(what)) return 0.5F * (hint.LowerBound + hint.UpperBound);
  if (LADSPA_IS_HINT_DEFAULT_HIGH(what)) return 0.25F * hint.LowerBound + 0.75F * hint.UpperBound;
  if (LADSPA_IS_HINT_DEFAULT_MAXIMUM(what)) return hint.UpperBound;
  return 0.0F;
}

class LadspaPeer : public Peer {
 public:
  explicit LadspaPeer(const LADSPA_Descriptor* described)
      : plugin(described),
        channels(described->PortCount, described->PortCount),
        controls(described->PortCount),
        instance(described->instantiate(described, kRate)) {
    std::size_t ins = 0;
    std::size_t outs = 0;
    for (unsigned long port = 0; port < plugin->PortCount; ++port) {
      const auto kind = plugin->PortDescriptors[port];
      controls[port] = defaultOf(plugin->PortRangeHints[port]);
      float* place = &controls[port];
      if (LADSPA_IS_PORT_AUDIO(kind))
        place =
            LADSPA_IS_PORT_INPUT(kind) ? channels.in[ins++].data() : channels.out[outs++].data();
      plugin->connect_port(instance, port, place);
    }
    if (plugin->activate != nullptr) plugin->activate(instance);
  }
  ~LadspaPeer() override {
    if (plugin->deactivate != nullptr) plugin->deactivate(instance);
    plugin->cleanup(instance);
  }
  LadspaPeer(const LadspaPeer&) = delete;
  LadspaPeer& operator=(const LadspaPeer&) = delete;

  void play(int frames) override { plugin->run(instance, static_cast<unsigned long>(frames)); }

 private:
  const LADSPA_Descriptor* plugin;
  PeerChannels channels;
  std::vector<float> controls;
  LADSPA_Handle instance;
};

}  // namespace

// The library stays loaded.
std::unique_ptr<Peer> loadLadspa(const std::string& file, const std::string& label) {
  void* const library = dlopen(file.c_str(), RTLD_NOW);
  if (library == nullptr) return nullptr;
  const auto list =
      reinterpret_cast<LADSPA_Descriptor_Function>(dlsym(library, "ladspa_descriptor"));
  for (unsigned long number = 0; list != nullptr; ++number) {
    const LADSPA_Descriptor* const plugin = list(number);
    if (plugin == nullptr) break;
    if (label == plugin->Label) return std::make_unique<LadspaPeer>(plugin);
  }
  return nullptr;
}
