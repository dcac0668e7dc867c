// Sets the toolkit up on Linux, with its resources from the bundle.
#include "editor/base/toolkitsetup.h"

#include "editor/base/linux/sharedrunloop.h"
#include "lib/platform/linux/linuxfactory.h"
#include "lib/vstguiinit.h"
#include "platform/modulepath.h"
#include "vstgui.h"

namespace {

// The bundle brings the displays' font, so that the window looks the same everywhere; the toolkit's
// own choice is found by whatever aliases the machine has.
void setUpResources() {
  VSTGUI::CFontDesc::init();
  VSTGUI::getPlatformFactory().asLinuxFactory()->setResourcePath(resourcesFolder());
  for (const VSTGUI::CFontRef font :
       {VSTGUI::kSystemFont, VSTGUI::kNormalFontVeryBig, VSTGUI::kNormalFontBig,
        VSTGUI::kNormalFont, VSTGUI::kNormalFontSmall, VSTGUI::kNormalFontSmaller,
        VSTGUI::kNormalFontVerySmall}) {
    font->setName("Liberation Sans");
  }
}

}  // namespace

// The toolkit's own init in its two steps, of which the first one alone leaves nothing
// when it fails.
void setUpToolkit() {
  VSTGUI::initPlatform(nullptr);
  try {
    setUpResources();
  } catch (...) {
    VSTGUI::exit();
    throw;
  }
}

void tearDownToolkit() {
  closeSharedRunLoop();
  VSTGUI::exit();
}
