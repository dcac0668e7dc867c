// Sets the toolkit up on Linux: resources from the bundle, and one X connection for the library's life.
#include "editor/linux/sharedrunloop.h"
#include "editor/toolkitlibrary.h"
#include "lib/platform/linux/cairographicscontext.h"
#include "lib/platform/linux/linuxfactory.h"
#include "lib/platform/linux/x11platform.h"
#include "lib/vstguiinit.h"
#include "platform/modulepath.h"

namespace {

IdleRunLoop* runLoop = nullptr;  // one reference is ours

}  // namespace

// The bundle brings the displays' font, so that the window looks the same everywhere; the toolkit's own choice is found
// by whatever aliases the machine has.
void setUpToolkit() {
  VSTGUI::init(nullptr);
  VSTGUI::getPlatformFactory().asLinuxFactory()->setResourcePath(resourcesFolder());
  for (const VSTGUI::CFontRef font :
       {VSTGUI::kSystemFont, VSTGUI::kNormalFontVeryBig, VSTGUI::kNormalFontBig, VSTGUI::kNormalFont,
        VSTGUI::kNormalFontSmall, VSTGUI::kNormalFontSmaller, VSTGUI::kNormalFontVerySmall}) {
    font->setName("Liberation Sans");
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
    runLoop = new IdleRunLoop;
    VSTGUI::X11::RunLoop::init(sharedRunLoop());
  }
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
