// A window on a screen whose desktop has set a scale, which is the test's parameter.
#pragma once

#include <cmath>

#include "settingsmanager.h"
#include "windowtest.h"

// The desktop says so by its resources; the host's window is as much larger.
class ScaledWindow : public WindowTest, public ::testing::WithParamInterface<double> {
 protected:
  ScaledWindow() {
    desktop.setResourceDpi(static_cast<int>(96 * scale));
    for (int index = 0; index < 3; ++index) host.setParameter(index, 0.5F);
    host.openEditor();
    host.forgetCalls();
  }

  // Largest difference of a colour between two pictures of the same: where a picture is drawn at
  // another scale than its own, it depends a little on where the redrawn part begins.
  int roundingOf() const { return scale == 1.25 ? 2 : 0; }
  bool same(const Picture& one, const Picture& other) const {
    return differingShare(one, other, one.whole(), roundingOf()) == 0;
  }

  // It differs in the area, and nowhere else. A letter's edge may reach a pixel further.
  void expectChangedIn(const Area& area, const Picture& before, Picture after) const {
    for (std::size_t pixel = 0; pixel < after.pixels.size(); ++pixel) {
      if (channelDifference(before.pixels[pixel], after.pixels[pixel]) <= roundingOf())
        after.pixels[pixel] = before.pixels[pixel];
    }
    const Area allowed = host.scaled(area);
    const Area roomy{allowed.left - 1, allowed.top - 1, allowed.right + 1, allowed.bottom + 1};
    const Area changed = differingArea(before, after);
    EXPECT_NE(changed, Area{});
    EXPECT_TRUE(roomy.contains(changed)) << changed << " for " << allowed;
  }

  const double scale = GetParam();
  SettingsManager desktop;
  WindowHost host{0, WindowHost::Parent::plain, scale};
};

// Two of the pictures' own scales, one between them, and the largest.
inline const auto kScales = ::testing::Values(1.25, 1.5, 2., 3.);

inline std::string scaleName(const ::testing::TestParamInfo<double>& info) {
  return "At" + std::to_string(std::lround(100 * info.param)) + "PerCent";
}
