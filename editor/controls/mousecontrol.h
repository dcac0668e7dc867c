// Layers between the toolkit's controls and ours: who gets a press, who gets a key, and what is
// under the pointer.
#pragma once

#include "lib/events.h"
#include "vstgui.h"

// Every press reaches the control itself. The toolkit handles a Control click before it asks the
// control, and sets the default value instead; a button would act without having been pressed, or
// lose a press that it knows a meaning for.
template <class Base>
class OwnPresses : public Base {
 public:
  using Base::Base;

  void dispatchEvent(VSTGUI::Event& event) override {
    if (event.type == VSTGUI::EventType::MouseDown) {
      this->onMouseDownEvent(VSTGUI::castMouseDownEvent(event));
    } else {
      Base::dispatchEvent(event);
    }
  }

  VSTGUI::CBaseObject* newCopy() const override { return nullptr; }  // views of ours are not copied
};

// Reacts to the mouse alone. The toolkit's buttons act on Return, and take the keyboard
// with every click.
template <class Base>
class MouseControl : public OwnPresses<Base> {
 public:
  template <class... Arguments>
  explicit MouseControl(const Arguments&... arguments) : OwnPresses<Base>(arguments...) {
    this->setWantsFocus(false);
  }

  void onKeyboardEvent(VSTGUI::KeyboardEvent& /*event*/) override {}

 protected:
  // The bitmap's part that begins at x, y, in the control's rectangle.
  void drawPart(VSTGUI::CDrawContext* context, VSTGUI::CCoord x, VSTGUI::CCoord y) {
    if (VSTGUI::CBitmap* bitmap = this->getDrawBackground()) {
      bitmap->draw(context, this->getViewSize(), VSTGUI::CPoint(x, y), 1.0F);
    }
    this->setDirty(false);
  }
};

// Knows whether the pointer is over it.
template <class Base>
class Hovered : public Base {
 public:
  using Base::Base;

  VSTGUI::CMouseEventResult onMouseEntered(VSTGUI::CPoint& /*where*/,
                                           const VSTGUI::CButtonState&) override {
    return hover(true);
  }
  VSTGUI::CMouseEventResult onMouseExited(VSTGUI::CPoint& /*where*/,
                                          const VSTGUI::CButtonState&) override {
    return hover(false);
  }

 protected:
  bool mouseOver = false;

 private:
  VSTGUI::CMouseEventResult hover(bool over) {
    mouseOver = over;
    this->invalid();
    return VSTGUI::kMouseEventHandled;
  }
};

template <class Base>
class HoverControl : public Hovered<MouseControl<Base>> {
 public:
  using Hovered<MouseControl<Base>>::Hovered;
};
