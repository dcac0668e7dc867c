// Short texts beside the controls that the pointer rests on.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "editor/base/steadytime.h"
#include "lib/iviewlistener.h"
#include "vstgui.h"

// Where a text of `size` is shown, on whole pixels: inside of the window, above the control or,
// without room there, below it, and never over it. Empty: there is no room.
std::optional<VSTGUI::CRect> tooltipPlace(const VSTGUI::CRect& window, const VSTGUI::CRect& control,
                                          const VSTGUI::CPoint& size);

// The tooltips of a window's controls, from its opening to its close; the toolkit has none on
// Linux. One is shown when the pointer has rested on a control, and goes when it leaves or with the
// next press, wheel step or key; after those it does not come back until the pointer has been
// elsewhere. User-interface thread.
class Tooltips final : public VSTGUI::IMouseObserver,
                       public VSTGUI::IKeyboardHook,
                       public VSTGUI::IViewEventListener {
 public:
  using Clock = std::function<std::uint64_t()>;             // ms, never backwards
  using TextOf = std::function<std::string(std::int32_t)>;  // of a tag; lines; empty: there is none
  using Allowed = std::function<bool()>;                    // nothing else has the user's attention

  // root: a child of the frame's, as large, whose children the controls are.
  Tooltips(VSTGUI::CFrame& frame, VSTGUI::CViewContainer& root, TextOf textOf, Allowed allowed);
  ~Tooltips();
  Tooltips(const Tooltips&) = delete;

  void setClock(Clock other) { clock = std::move(other); }

  void idle();  // from every pass; allocates only where it shows one
  bool isShown() const { return shown != nullptr; }

  void onMouseEvent(VSTGUI::MouseEvent& event, VSTGUI::CFrame* frame) override;
  void onMouseEntered(VSTGUI::CView* view, VSTGUI::CFrame* frame) override;
  void onMouseExited(VSTGUI::CView* view, VSTGUI::CFrame* frame) override;
  void onKeyboardEvent(VSTGUI::KeyboardEvent& event, VSTGUI::CFrame* frame) override;
  void viewOnEvent(VSTGUI::CView* view, VSTGUI::Event& event) override;  // the wheel

 private:
  struct Target {
    const VSTGUI::CView* view;  // never looked into
    std::int32_t tag;
    VSTGUI::CRect area;
  };
  void show();
  void hide();
  void dismiss();

  VSTGUI::CFrame& frame;
  VSTGUI::CViewContainer& root;
  TextOf textOf;
  Allowed allowed;
  Clock clock = steadyMilliseconds;
  std::optional<Target> over;  // what the pointer is on
  std::uint64_t since = 0;     // ms: when it came to rest there
  bool spent = false;          // this stay has had its tooltip, or something else has happened
  VSTGUI::CView* shown = nullptr;
};
