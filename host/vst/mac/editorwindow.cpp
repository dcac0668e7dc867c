// There is no window for the effect here yet: hosts have one.
#include "host/vst/editorwindow.h"

#include "host/base/failure.h"

void showEditor(Effect& effect, HostCallback&, const std::function<bool()>&) {
  throw Failure(effect.plugin() + ": its window can be opened in a host only, on this system");
}
