// Counts the toolkit's users, and replaces the one of its defaults that would change
// a parameter unasked.
#include "editor/base/toolkitlibrary.h"

#include <mutex>

#include "editor/base/sharedbitmaps.h"
#include "editor/base/toolkitsetup.h"
#include "lib/controls/cslider.h"
#include "lib/events.h"
#include "vstgui.h"

namespace {

// no destructor work, as for everything static here: hosts exit with windows open
std::mutex usersMutex;
int users = 0;

// A Control click resets a value to its default on every control of the toolkit, buttons and text
// fields included. It is wanted on sliders only: on a button it would act as a press
// that nobody made.
bool resetsToDefault(VSTGUI::CControl* control, VSTGUI::MouseDownEvent& event) {
  return dynamic_cast<VSTGUI::CSliderBase*>(control) != nullptr && event.buttonState.isLeft() &&
         event.modifiers.is(VSTGUI::ModifierKey::Control);
}

}  // namespace

ToolkitLibrary::ToolkitLibrary() {
  const std::lock_guard<std::mutex> lock(usersMutex);
  if (users == 0) {
    setUpToolkit();
    VSTGUI::CControl::CheckDefaultValueEventFunc = resetsToDefault;
  }
  ++users;  // only now: after a set-up that failed the next user tries again
}

ToolkitLibrary::~ToolkitLibrary() {
  const std::lock_guard<std::mutex> lock(usersMutex);
  if (--users > 0) return;
  forgetSharedBitmaps();
  tearDownToolkit();
}
