// Usage: lv2turtle FOLDER BINARY [--window]   (BINARY: its path in the bundle)
// Writes a bundle's Turtle files. The build runs it, under preferences that nobody has set: an
// effect begins with its user's own.
#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>

#include "formats/lv2/turtle/turtle.h"

namespace {

class Deaf final : public HostedEffectListener {
 public:
  void parameterEdited(int /*index*/, float /*value*/) override {}
  void editBegun(int /*index*/) override {}
  void editEnded(int /*index*/) override {}
  void displayOutdated() override {}
};

bool writeTo(const std::string& path, const auto& write) {
  std::ofstream out(path, std::ios::trunc);
  write(out);
  out.close();
  if (!out) std::fprintf(stderr, "lv2turtle: %s could not be written\n", path.c_str());
  return static_cast<bool>(out);
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) {
    std::fputs("usage: lv2turtle FOLDER BINARY [--window]\n", stderr);
    return 2;
  }
  const std::string folder = arguments[1];
  const std::string binary = arguments[2];
  constexpr double kAnyRate = 44100.0;  // Hz
  Deaf listener;
  const auto effect = HostedEffect::make(listener, kAnyRate, 2);
  if (!effect) {
    std::fputs("lv2turtle: no effect could be made\n", stderr);
    return 1;
  }
  const bool hasWindow = count > 3 && std::string_view(arguments[3]) == "--window";
  const turtle::Described described{*effect, turtle::presetsOf(*effect), hasWindow};
  if (described.presets.empty()) {
    std::fputs("lv2turtle: the effect's chunk has no presets\n", stderr);
    return 1;
  }
  const bool written =
      writeTo(folder + "/manifest.ttl",
              [&](auto& out) { turtle::writeManifest(out, described, binary); }) &&
      writeTo(folder + "/trelvan.ttl", [&](auto& out) { turtle::writePlugins(out, described); }) &&
      writeTo(folder + "/presets.ttl", [&](auto& out) { turtle::writePresets(out, described); });
  return written ? 0 : 1;
}
