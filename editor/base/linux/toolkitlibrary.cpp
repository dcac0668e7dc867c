// Sets the toolkit up on Linux: resources from the bundle, and one X connection for the library's life.
#include <xcb/xcb.h>

#include "editor/base/linux/sharedrunloop.h"
#include "editor/base/toolkitlibrary.h"
#include "lib/platform/linux/cairographicscontext.h"
#include "lib/platform/linux/linuxfactory.h"
#include "lib/platform/linux/x11platform.h"
#include "lib/vstguiinit.h"
#include "platform/modulepath.h"

namespace {

IdleRunLoop* runLoop = nullptr;  // one reference is ours

// The toolkit uses its connection without a look at whether it came to be, so one of the same kind is tried first. The
// server sees its end before it sees the next one's beginning: a last place is free again.
bool displayTakesOneMore() {
  xcb_connection_t* tried = xcb_connect(nullptr, nullptr);
  const bool taken = xcb_connection_has_error(tried) == 0;
  xcb_disconnect(tried);
  return taken;
}

// The bundle brings the displays' font, so that the window looks the same everywhere; the toolkit's own choice is found
// by whatever aliases the machine has.
void setUpResources() {
  VSTGUI::CFontDesc::init();
  VSTGUI::getPlatformFactory().asLinuxFactory()->setResourcePath(resourcesFolder());
  for (const VSTGUI::CFontRef font :
       {VSTGUI::kSystemFont, VSTGUI::kNormalFontVeryBig, VSTGUI::kNormalFontBig, VSTGUI::kNormalFont,
        VSTGUI::kNormalFontSmall, VSTGUI::kNormalFontSmaller, VSTGUI::kNormalFontVerySmall}) {
    font->setName("Liberation Sans");
  }
}

}  // namespace

// The toolkit's own init in its two steps, of which the first one alone leaves nothing behind when it fails.
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

VSTGUI::SharedPointer<IdleRunLoop> sharedRunLoop() {
  return VSTGUI::SharedPointer<IdleRunLoop>(runLoop);
}

VSTGUI::SharedPointer<IdleRunLoop> openSharedRunLoop() {
  if (runLoop == nullptr) {
    if (!displayTakesOneMore()) return nullptr;
    const auto made = VSTGUI::makeOwned<IdleRunLoop>();
    VSTGUI::X11::RunLoop::init(made);
    runLoop = made.get();
    runLoop->remember();
  }
  if (xcb_connection_has_error(VSTGUI::X11::RunLoop::instance().getXcbConnection()) != 0) return nullptr;
  return sharedRunLoop();
}

void keepDrawingDevice() {
  const auto& devices = VSTGUI::getPlatformFactory().asLinuxFactory()->getCairoGraphicsDeviceFactory();
  const auto device = std::dynamic_pointer_cast<VSTGUI::CairoGraphicsDevice>(
      devices.getDeviceForScreen(VSTGUI::DefaultScreenIdentifier));
  if (device) VSTGUI::X11::RunLoop::instance().setDevice(device->get());
}

void closeSharedRunLoop() {
  if (runLoop == nullptr) return;
  VSTGUI::X11::RunLoop::exit();
  runLoop->forget();
  runLoop = nullptr;
}
