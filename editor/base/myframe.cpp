// Routes the mouse to the modal view and draws it on top.
#include "editor/base/myframe.h"

#include "lib/events.h"

using VSTGUI::CButtonState;
using VSTGUI::CMouseEventResult;
using VSTGUI::CPoint;
using VSTGUI::CRect;

void MyFrame::closeModal() {
  modalView = nullptr;
  invalid();
}

void MyFrame::idle() {
  if (modalView != nullptr) invalid();
  if (VSTGUI::CFrame* frame = getFrame()) frame->idle();
}

void MyFrame::drawRect(VSTGUI::CDrawContext* context, const CRect& updateRect) {
  if (context == nullptr || updateRect.getWidth() <= 0 || updateRect.getHeight() <= 0) return;
  CViewContainer::drawRect(context, updateRect);
  if (modalView == nullptr) return;
  const CRect& view = modalView->getViewSize();
  const bool apart = view.right < updateRect.left || view.left > updateRect.right ||
                     view.bottom < updateRect.top ||
                     view.top > updateRect.bottom;  // a touched edge counts as overlap
  if (!apart) modalView->drawRect(context, updateRect);
}

CMouseEventResult MyFrame::onMouseDown(CPoint& where, const CButtonState& buttons) {
  return modalView != nullptr ? modalView->onMouseDown(where, buttons)
                              : CViewContainer::onMouseDown(where, buttons);
}

CMouseEventResult MyFrame::onMouseUp(CPoint& where, const CButtonState& buttons) {
  return modalView != nullptr ? modalView->onMouseUp(where, buttons)
                              : CViewContainer::onMouseUp(where, buttons);
}

CMouseEventResult MyFrame::onMouseMoved(CPoint& where, const CButtonState& buttons) {
  return modalView != nullptr ? modalView->onMouseMoved(where, buttons)
                              : CViewContainer::onMouseMoved(where, buttons);
}

// The toolkit's container offers its children what the operations above have not handled. With a
// modal view they get nothing.
void MyFrame::onMouseDownEvent(VSTGUI::MouseDownEvent& event) {
  modalView != nullptr ? CView::onMouseDownEvent(event) : CViewContainer::onMouseDownEvent(event);
}

void MyFrame::onMouseUpEvent(VSTGUI::MouseUpEvent& event) {
  modalView != nullptr ? CView::onMouseUpEvent(event) : CViewContainer::onMouseUpEvent(event);
}

void MyFrame::onMouseMoveEvent(VSTGUI::MouseMoveEvent& event) {
  modalView != nullptr ? CView::onMouseMoveEvent(event) : CViewContainer::onMouseMoveEvent(event);
}

void MyFrame::onMouseWheelEvent(VSTGUI::MouseWheelEvent& event) {
  if (modalView != nullptr) {
    modalView->onMouseWheelEvent(event);
  } else {
    CViewContainer::onMouseWheelEvent(event);
  }
}
