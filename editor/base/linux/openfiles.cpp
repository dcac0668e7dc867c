// Opens some files to see that it can, and measures a text to have its font.
#include "editor/base/linux/openfiles.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>

#include "lib/platform/iplatformfont.h"
#include "vstgui.h"

bool areFilesLeft() {
  // Two connections to the server; besides them the window was seen to need two at a time, for
  // pictures and fonts. The font library reads with two threads.
  std::array<int, 8> files{};
  bool left = true;
  for (int& file : files) {
    file = eventfd(0, EFD_CLOEXEC);
    left = left && file >= 0;
  }
  for (const int file : files) {
    if (file >= 0) close(file);
  }
  return left;
}

void loadFonts() {
  if (const auto painter = VSTGUI::kNormalFontSmall->getFontPainter())
    painter->getStringWidth(nullptr, VSTGUI::UTF8String("0").getPlatformString(), true);
}
