// A widener or delay of somebody else's, as an LV2 or LADSPA plug-in that is installed, for
// comparison: 44100 Hz, controls at their defaults.
#pragma once

#include <memory>
#include <string>
#include <vector>

class Peer {
 public:
  virtual ~Peer() = default;
  virtual void play(int frames) = 0;  // no more than kPeerFrames
};
constexpr int kPeerFrames = 512;

// The plug-in's channels: noise in the inputs. Mono plug-ins have one of each.
struct PeerChannels {
  explicit PeerChannels(std::size_t ins, std::size_t outs);
  std::vector<std::vector<float>> in;
  std::vector<std::vector<float>> out;
};

// Null where it is not installed.
std::unique_ptr<Peer> loadLv2(const std::string& uri);
std::unique_ptr<Peer> loadLadspa(const std::string& file, const std::string& label);
