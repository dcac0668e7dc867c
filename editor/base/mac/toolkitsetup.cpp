// Sets the toolkit up on macOS: it takes its bitmaps from the bundle that it is handed here.
#include "editor/base/toolkitsetup.h"

#include "editor/base/mac/bundlelookup.h"
#include "lib/vstguiinit.h"

// The toolkit keeps the pointer and no reference of its own, so ours stays until it is taken down.
void setUpToolkit() {
  InitMachOLibrary();
  VSTGUI::init(gBundleRef);
}

void tearDownToolkit() {
  VSTGUI::exit();
  ExitMachOLibrary();
}
