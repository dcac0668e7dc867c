// The field of in-place text entry inside the toolkit's frame.
#pragma once

#include <functional>
#include <string>

#include "editor/controls/doubleclick.h"
#include "editor/controls/linux/editedtext.h"
#include "editor/controls/textentryowner.h"
#include "lib/cframe.h"
#include "lib/iviewlistener.h"
#include "vstgui.h"

// Lies over a label in the label's container, and has its text, font and colours. While it is
// attached it takes every key of the window and every press: it edits, or calls `ended` with
// whether to confirm. The wheel does nothing meanwhile: it could choose another preset, whose name
// the text would become. The toolkit's own field counts a selection in bytes and a text in UTF-16
// units, and reads past its end where a name is not plain ASCII. User-interface thread.
class TextField final : public VSTGUI::CView,
                        public VSTGUI::IKeyboardHook,
                        public VSTGUI::IMouseObserver,
                        public VSTGUI::IViewEventListener {
 public:
  // place: in the coordinates of the label's container. The label outlives the
  // field's being attached.
  TextField(TextEntryOwner* edited, const VSTGUI::CRect& place,
            std::function<void(bool confirm)> whenEnded);
  TextField(const TextField&) = delete;

  const std::string& text() const { return edit.text(); }

  void draw(VSTGUI::CDrawContext* context) override;
  bool attached(VSTGUI::CView* parent) override;
  bool removed(VSTGUI::CView* parent) override;
  // The window's, beside the view's own of the same names.
  using CView::onKeyboardEvent;
  using CView::onMouseEntered;
  using CView::onMouseExited;
  void onKeyboardEvent(VSTGUI::KeyboardEvent& event, VSTGUI::CFrame* frame) override;
  void onMouseEvent(VSTGUI::MouseEvent& event, VSTGUI::CFrame* frame) override;
  void onMouseEntered(VSTGUI::CView* view, VSTGUI::CFrame* frame) override;
  void onMouseExited(VSTGUI::CView* view, VSTGUI::CFrame* frame) override;
  void viewOnEvent(VSTGUI::CView* view, VSTGUI::Event& event) override;  // the wheel

  CLASS_METHODS_NOCOPY(TextField, CView)

 private:
  void pressKey(const VSTGUI::KeyboardEvent& event);
  void press(const VSTGUI::MouseEvent& event, const VSTGUI::CPoint& where);
  void changed();  // shows the caret at once
  double widthOf(std::size_t bytes) const;
  double textLeft() const;
  std::size_t placeAt(VSTGUI::CCoord x) const;

  const VSTGUI::CParamDisplay* label;
  const EntryColors* colors;  // the label's
  EditedText edit;
  std::function<void(bool)> ended;
  DoubleClick doubleClick;
  VSTGUI::SharedPointer<VSTGUI::CVSTGUITimer> blinking;
  bool caretLit = true;
  bool selecting = false;  // a drag goes on
};
