// The root of the window's views: all controls, and at most one modal view above them.
#pragma once

#include "vstgui.h"

// The only child of the toolkit's frame, which cannot be derived from; the background picture is
// its own. The modal view is not owned: it gets every mouse event and is drawn
// last. User-interface thread.
class MyFrame : public VSTGUI::CViewContainer {
 public:
  explicit MyFrame(const VSTGUI::CRect& size) : CViewContainer(size) {}

  void makeModal(VSTGUI::CView* view) { modalView = view; }
  void closeModal();  // redraws everything, also when there was none
  virtual VSTGUI::CView* getModal() const { return modalView; }
  void setGetsFocus(bool state) { getsFocus = state; }
  void idle();  // invalidates what has become dirty, and everything while there is a modal view

  void drawRect(VSTGUI::CDrawContext* context, const VSTGUI::CRect& updateRect) override;
  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                      const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                         const VSTGUI::CButtonState& buttons) override;
  void onMouseDownEvent(VSTGUI::MouseDownEvent& event) override;
  void onMouseUpEvent(VSTGUI::MouseUpEvent& event) override;
  void onMouseMoveEvent(VSTGUI::MouseMoveEvent& event) override;
  void onMouseWheelEvent(VSTGUI::MouseWheelEvent& event) override;

  CLASS_METHODS_NOCOPY(MyFrame, CViewContainer)

 private:
  VSTGUI::CView* modalView = nullptr;
  bool getsFocus = true;  // kept for those who set it; the frame itself does not look at it
};
