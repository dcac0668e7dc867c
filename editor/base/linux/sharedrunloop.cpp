// Opens the toolkit's one X connection and holds it for the library's life.
#include "editor/base/linux/sharedrunloop.h"

#include <xcb/xcb.h>

#include "lib/platform/linux/cairographicscontext.h"
#include "lib/platform/linux/linuxfactory.h"
#include "lib/platform/linux/x11platform.h"

namespace {

IdleRunLoop* runLoop = nullptr;  // one reference is ours

// The toolkit uses its connection without a look at whether it came to be, so one of the same kind
// is tried first. The server sees its end before it sees the next one's beginning: a last place is
// free again.
bool displayTakesOneMore() {
  xcb_connection_t* tried = xcb_connect(nullptr, nullptr);
  const bool taken = xcb_connection_has_error(tried) == 0;
  xcb_disconnect(tried);
  return taken;
}

}  // namespace

VSTGUI::SharedPointer<IdleRunLoop> sharedRunLoop() {
  return VSTGUI::SharedPointer<IdleRunLoop>(runLoop);
}

VSTGUI::SharedPointer<IdleRunLoop> openSharedRunLoop() {
  if (runLoop == nullptr) {
    if (!displayTakesOneMore()) return nullptr;
    const auto made = VSTGUI::makeOwned<IdleRunLoop>();
    made->makeRoom();
    VSTGUI::X11::RunLoop::init(made);
    runLoop = made.get();
    runLoop->remember();
  }
  if (xcb_connection_has_error(VSTGUI::X11::RunLoop::instance().getXcbConnection()) != 0)
    return nullptr;
  runLoop->makeRoom();
  return sharedRunLoop();
}

void keepDrawingDevice() {
  const auto& devices =
      VSTGUI::getPlatformFactory().asLinuxFactory()->getCairoGraphicsDeviceFactory();
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
