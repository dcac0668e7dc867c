// macOS scales the window itself: its pixels are the system's points.
#include "editor/base/screenscale.h"

double screenScale(double /*wanted*/) {
  return 1;
}

double recentScreenScale(double /*wanted*/) {
  return 1;
}
