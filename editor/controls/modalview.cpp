// Takes back what the frame has done of a modal view that it could not finish.
#include "editor/controls/modalview.h"

namespace {

// The frame does not tell the number of a session whose beginning broke off. It counts from 1.
void takeBack(VSTGUI::CFrame& frame, VSTGUI::CView* view) {
  bool gone = false;
  for (VSTGUI::ModalViewSessionID id = 1; frame.getModalView() == view; ++id)
    gone = frame.endModalViewSession(id);
  if (!gone && !frame.removeView(view)) view->forget();
}

}  // namespace

std::optional<VSTGUI::ModalViewSessionID> beginModalView(VSTGUI::CFrame& frame,
                                                         VSTGUI::CView* view) {
  const auto held = VSTGUI::shared(view);
  try {
    if (const auto session = frame.beginModalViewSession(view)) return *session;
  } catch (...) {
    takeBack(frame, view);
    throw;
  }
  view->forget();
  return {};
}
