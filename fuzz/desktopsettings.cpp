// Fuzz target: what other programs have left at the X server as the desktop's settings.
#include "editor/base/linux/desktopsettings.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "editor/base/linux/scalechoice.h"
#include "editor/base/linux/xsettings.h"
#include "fuzz/require.h"

namespace {

void requireScale(double scale) {
  require(scale >= 1 && scale <= 4 && scale * 4 == std::round(scale * 4),
          "a scale is a quarter's multiple from 1 to 4");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
  const std::span<const unsigned char> data(input, size);
  const std::string text(input, input + size);
  for (const char* name : {"Xft/DPI", "Net/DoubleClickTime"}) {
    const auto whole = numberOfXSettings(data, name);
    require(!whole || text.find(name) != std::string::npos, "a number has its name before it");
    const auto cut = numberOfXSettings(data.first(size / 2), name);
    require(!cut || cut == whole, "what stands before a cut is what it was");
  }
  const auto dpi = dpiOfResources(text);
  require(!dpi || (std::isfinite(*dpi) && *dpi > 0), "a density is a number above 0");
  require(!dpi || text.find("Xft.dpi") != std::string::npos, "a density has its name before it");
  requireScale(chosenScale(dpi, nullptr));
  requireScale(chosenScale({}, text.c_str()));
  return 0;
}
