// Keeps presses from the window's controls while a file dialog is up.
#pragma once

#include "lib/events.h"
#include "presetsystem/cpresetsystemeditor.h"
#include "vstgui.h"

// Registered with the frame while it is open: a second press on a button would open a second dialog, and a preset
// chosen meanwhile would be overwritten by the file. User-interface thread.
class PressGuard final : public VSTGUI::IMouseObserver {
 public:
  explicit PressGuard(const CPresetSystemEditor* heldEditor) : editor(heldEditor) {}

  void onMouseEvent(VSTGUI::MouseEvent& event, VSTGUI::CFrame*) override {
    if (event.type == VSTGUI::EventType::MouseDown && editor->fileOperationRunning()) event.consumed = true;
  }
  void onMouseEntered(VSTGUI::CView*, VSTGUI::CFrame*) override {}
  void onMouseExited(VSTGUI::CView*, VSTGUI::CFrame*) override {}

 private:
  const CPresetSystemEditor* editor;
};
