// The editor base: the host's editor calls on one side, the toolkit's frame on the other.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "editor/base/framewindow.h"
#include "editor/base/idlewatch.h"
#include "editor/base/toolkitlibrary.h"
#include "platform/threadcontract.h"
#include "plugin/aeffeditor.h"
#include "vstgui.h"

class AudioEffect;
class MyFrame;

// Made with its effect and ended by it; making one opens nothing, reads nothing and needs no
// display. Its owner installs it with setEditor. Every call on the host's user-interface thread,
// which may be one of its own, but for setParameter, which comes from any.
class AEffGUIEditor : public AEffEditor, public VSTGUI::VSTGUIEditorInterface {
 public:
  explicit AEffGUIEditor(AudioEffect* owner);
  ~AEffGUIEditor() override;

  // Pixels of the screen. Right at any time: of the open window, or of one that were opened now.
  bool getRect(ERect** out) override;
  bool open(void* window) override;  // keeps the host's window; subclasses open the frame in it
  void idle() override;
  bool onKeyDown(VstKeyCode& key) override;
  bool onKeyUp(VstKeyCode& key) override;
  bool onWheel(float distance) override;
  bool setKnobMode(int mode) override;

  virtual void draw(ERect* area);  // null: everything; corners in any order
  // the toolkit has a window for that
  virtual std::int32_t mouse(std::int32_t /*x*/, std::int32_t /*y*/) { return 0; }

  void doIdleStuff() override;
  std::int32_t getKnobMode() const override;
  // Gestures on the effect's parameters reach the host; those on other controls are none
  // of its business.
  void beginEdit(std::int32_t index) override;
  void endEdit(std::int32_t index) override;

  static std::uint32_t getTicks();  // ms, wrapping
  static void wait(std::uint32_t ms);

 protected:
  // Opens a frame of the editor's size with an empty root view in the host's window. False, or an
  // exception: no usable display, or no memory; all is as before.
  bool openFrame(void* window);
  // Ends the frame with all views. Safe from inside a control's callback.
  void closeFrame();
  virtual void keyboardLeft() {}  // the window has lost the keyboard
  // False: keys and the wheel from the host are left to it, as while the user is asked something.
  virtual bool takesInput() const { return true; }
  // Pixels at a scale of 1; asked with the toolkit set up until it is not empty.
  virtual ERect windowSize() = 0;

  MyFrame* view = nullptr;  // the frame's root, null while closed; the frame owns it
  [[no_unique_address]] WindowContract windowContract;

 private:
  void needToolkit();
  double scaleOfHost() const;           // that it wants; 0 where it does not say
  void scaleTo(double scale);           // of the screen
  bool dispatch(VSTGUI::Event& event);  // true: somebody has taken it
  bool isHostParameter(std::int32_t index) const;

  std::optional<ToolkitLibrary> toolkit;  // from the first question about the window on
  std::unique_ptr<FrameWindow> frameWindow;
  std::unique_ptr<IdleWatch> idleWatch;  // while the window is open
  ERect unscaled{};                      // the window at a scale of 1
  ERect rect{};                          // the window on the screen
  std::uint32_t nextIdleTicks;  // ms: when the next pass is due while a control keeps the mouse
  bool inHostIdle = false;      // handing idle time to the host, which may call idle from there
};
