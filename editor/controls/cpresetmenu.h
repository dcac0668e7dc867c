// The option menu that lists the presets.
#pragma once

#include <optional>

#include "editor/controls/mousecontrol.h"
#include "vstgui.h"

// Its picture shows under the pointer alone: the window's has one at its place. A press of the left
// or right button opens the list, and so does Return; Up and Down step without it. A choice sets
// the value and tells the listener once, also when it is the current entry again; getLastResult is
// the entry chosen, and negative from each opening until then. User-interface thread.
class CPresetMenu : public Hovered<OwnPresses<VSTGUI::COptionMenu>> {
 public:
  using Hovered::Hovered;

  void showUnderPointer(VSTGUI::CBitmap* picture) { underPointer = picture; }
  void draw(VSTGUI::CDrawContext* context) override;

  using COptionMenu::addEntry;
  // Every title is an entry; the toolkit would make a separator of "-".
  VSTGUI::CMenuItem* addEntry(const VSTGUI::UTF8String& title, std::int32_t index = -1,
                              std::int32_t itemFlags = VSTGUI::CMenuItem::kNoFlags) override;

  // From the list.
  bool isOpen() const { return inPopup; }
  void opened();
  void closed() { inPopup = false; }
  void choose(std::int32_t index);  // 0 .. entries - 1; else nothing

  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
  void onKeyboardEvent(VSTGUI::KeyboardEvent& event) override;

 private:
  void openList(const std::optional<VSTGUI::CPoint>& press);

  VSTGUI::SharedPointer<VSTGUI::CBitmap> underPointer;
};
