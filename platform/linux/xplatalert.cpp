// The alert that nobody waits for.
#include "platform/xplatalert.h"

#include "platform/alert.h"

namespace {

Alert* shown = nullptr;  // the last one, which stays with the process: nobody asks for it again

}  // namespace

void XPlatDisplayAlert(const char* message) {
  if (message == nullptr) return;
  if (shown == nullptr) shown = new Alert;
  shown->start(message);
}
