// Beginning and ending a modal view of the frame's, also where memory runs out on the way.
#pragma once

#include <new>
#include <optional>

#include "vstgui.h"

// The frame has the caller's reference from here on; empty: the frame did not take the view, and it
// is gone, as it is where this throws. User-interface thread.
std::optional<VSTGUI::ModalViewSessionID> beginModalView(VSTGUI::CFrame& frame,
                                                         VSTGUI::CView* view);

// Runs `work` when the event that is going on is over and the frame has let go of the views that it
// gave it to, or now where there is none. Throws, and does not run it, where there is no memory to
// keep it until then. The toolkit runs it inside a destructor, from which nothing may leave: memory
// that runs out there ends the work and not the host.
template <typename Work>
void afterEvent(VSTGUI::CFrame& frame, const Work& work) {
  const auto contained = [work] {
    try {
      work();
    } catch (const std::bad_alloc&) {
    }
  };
  if (!frame.doAfterEventProcessing(contained)) work();
}
