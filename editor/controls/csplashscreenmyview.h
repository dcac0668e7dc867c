// The about panel: a picture with a few lines of text.
#pragma once

#include <optional>

#include "vstgui.h"

inline constexpr VSTGUI::CColor kDarkBlueCColor(45, 45, 120, 255);
inline constexpr VSTGUI::CColor kDarkGreyCColor(60, 60, 60, 255);

// Closes on Escape and on a left press anywhere in the window, and closes its owner with it. It has
// the keyboard while it is open. Goes with its frame. User-interface thread.
class CSplashScreenMyView : public VSTGUI::CControl {
 public:
  // owner: outlives the panel; the picture is its bitmap. textOrigin: the first line's place, from
  // the panel's corner.
  CSplashScreenMyView(const VSTGUI::CRect& size, VSTGUI::CSplashScreen* owner,
                      const VSTGUI::CPoint& textOrigin);

  void setSession(VSTGUI::ModalViewSessionID id) { session = id; }  // what its closing ends

  virtual bool isTypeOf(const char* className) const;
  VSTGUI::CBaseObject* newCopy() const override;

  // From being attached to being removed it has the keyboard, for Escape.
  bool attached(VSTGUI::CView* parent) override;
  bool removed(VSTGUI::CView* parent) override;
  void draw(VSTGUI::CDrawContext* context) override;
  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
  void onKeyboardEvent(VSTGUI::KeyboardEvent& event) override;

 private:
  void close();
  void endSession();

  VSTGUI::CSplashScreen* owner;
  VSTGUI::CPoint textOrigin;
  std::optional<VSTGUI::ModalViewSessionID> session;
};
