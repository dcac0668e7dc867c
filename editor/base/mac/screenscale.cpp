// macOS scales the window itself: its pixels are the system's points.
#include "editor/base/screenscale.h"

double screenScale() {
  return 1;
}

double recentScreenScale() {
  return 1;
}
