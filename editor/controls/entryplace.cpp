// Where a text entry lies over its label.
#include <algorithm>

#include "editor/controls/textentry.h"
#include "lib/platform/iplatformframe.h"
#include "vstgui.h"

TextEntryPlace entryPlace(const VSTGUI::CParamDisplay& label) {
  const double fontSize = label.getFont()->getSize();
  VSTGUI::CPoint corner = label.getViewSize().getTopLeft();
  const double room = label.getParentView()->getWidth() - corner.x;
  label.localToFrame(corner);
  VSTGUI::CPoint origin;
  if (VSTGUI::IPlatformFrame* platform = label.getFrame()->getPlatformFrame())
    platform->getGlobalPosition(origin);
  return {corner.x,
          corner.y + (label.getHeight() - fontSize - 1) * 0.5,
          std::min(label.getWidth(), room),
          fontSize + 2,
          origin.x,
          origin.y};
}
