// What somebody else's wideners and delays take for the same noise, as far as they are installed.
#include <cstdio>

#include "bench/median.h"
#include "bench/peer.h"
#include "bench/processcases.h"
#include "bench/threadtime.h"

namespace {

constexpr int kTurns = 101;       // of each; odd: a median
constexpr int kBlocksATurn = 64;  // of kPeerFrames

struct Entry {
  const char* name;
  const char* package;
  const char* place;  // an LV2 plug-in's URI, or a LADSPA plug-in's file
  const char* label;  // of a LADSPA plug-in; null: LV2
};

constexpr Entry kEntries[] = {
    {"Calf Haas Stereo Enhancer", "calf-plugins",
     "http://calf.sourceforge.net/plugins/HaasEnhancer", nullptr},
    {"Calf Stereo Tools", "calf-plugins", "http://calf.sourceforge.net/plugins/StereoTools",
     nullptr},
    {"Invada Input", "invada-studio-plugins-lv2", "http://invadarecords.com/plugins/lv2/input",
     nullptr},
    {"C* Wider", "caps", "/usr/lib/ladspa/caps.so", "Wider"},
    {"MDA Stereo", "mda-lv2", "http://drobilla.net/plugins/mda/Stereo", nullptr},
    {"LSP Delay Compensator Stereo", "lsp-plugins-lv2",
     "http://lsp-plug.in/plugins/lv2/comp_delay_stereo", nullptr},
};

}  // namespace

PeerChannels::PeerChannels(std::size_t ins, std::size_t outs)
    : in(ins), out(outs, std::vector<float>(kPeerFrames)) {
  for (std::size_t channel = 0; channel < ins; ++channel)
    in[channel] =
        makeSignal<float>(Signal::kNoise, kPeerFrames, static_cast<std::uint32_t>(channel)).left;
}

int main() {
  const kernel::Form& best = **kernel::usableForms();
  CasePlayer ours({.name = "single, settled", .block = kPeerFrames}, &best);
  std::printf("| plug-in | ns a frame | times ours |\n|---|---:|---:|\n");
  for (const Entry& entry : kEntries) {
    const auto peer =
        entry.label == nullptr ? loadLv2(entry.place) : loadLadspa(entry.place, entry.label);
    if (peer == nullptr) {
      std::printf("| %s | not installed: %s | |\n", entry.name, entry.package);
      continue;
    }
    std::vector<double> theirTimes;
    std::vector<double> ourTimes;
    for (int turn = 0; turn < kTurns; ++turn) {
      const double before = threadTime();
      for (int block = 0; block < kBlocksATurn; ++block) peer->play(kPeerFrames);
      const double between = threadTime();
      ours.play(kBlocksATurn);
      theirTimes.push_back((between - before) / kBlocksATurn / kPeerFrames);
      ourTimes.push_back((threadTime() - between) / kBlocksATurn / kPeerFrames);
    }
    const double theirs = median(theirTimes);
    std::printf("| %s | %.2f | %.1f |\n", entry.name, theirs, theirs / median(ourTimes));
  }
  return 0;
}
