// A host with a window for the tests: opens the built module's editor in an X11 window and works it
// with real events.
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "plugin/vst24.h"
#include "testdisplay.h"

// What the plug-in told the host.
struct HostCall {
  VstInt32 opcode;
  VstInt32 index;
  float opt;
};

// The module under test, from the environment's TRELVAN_MODULE; stays loaded.
AEffect* makePlugin(audioMasterCallback host);

// One instance of the plug-in with a window for its editor. Coordinates of the mouse are the
// editor's pixels as they are at a scale of 1. Input and idling on one thread; the plug-in's calls
// may come from any.
class WindowHost {
 public:
  enum class Parent { plain, alpha };

  // place: 0..2, side by side on the screen. scale: of the screen, as the test has set it.
  explicit WindowHost(int place = 0, Parent parent = Parent::plain, double scale = 1);
  ~WindowHost();
  WindowHost(const WindowHost&) = delete;
  WindowHost& operator=(const WindowHost&) = delete;

  AEffect* effect() const { return plugin; }
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                     float opt = 0.0F);

  bool openEditor();  // and draws it
  bool openOnly();    // without any idling
  void closeEditor();
  bool isEditorOpen() const { return editorOpen; }
  void forgetInstance();  // the test has closed it
  void destroyParent();   // the host's window goes first
  void resizeParent(int width, int height);
  xcb_window_t parent() const { return window; }
  // Of the host's window. The editor's connection to the server is another than ours, so both may
  // need a moment.
  bool hasChildWindows(int count);

  void idle(int times = 1);  // effEditIdle
  void settle();             // idles until the window's picture stays as it is
  // false: the time is up
  bool idleUntil(const std::function<bool()>& condition, int milliseconds = 20000);
  void idleFor(int milliseconds, int interval = 16);

  // Each one idles once, so that the editor has had the event.
  void moveTo(int x, int y);
  void press(int button = 1);
  void release(int button = 1);
  void click(int x, int y, int button = 1);
  void click(const Area& area, int button = 1) { click(area.centreX(), area.centreY(), button); }
  void hover(const Area& area) { moveTo(area.centreX(), area.centreY()); }
  void doubleClick(const Area& area);
  void wheel(int steps);  // up above 0, where the pointer is
  void wheel(const Area& area, int steps);
  void moveAway();  // to a place outside the window
  void key(std::uint32_t keysym);
  void keyDown(std::uint32_t keysym);
  void keyUp(std::uint32_t keysym);
  void type(const std::string& text);  // letters, digits, blanks
  void focusOther();                   // another program's window gets the keyboard
  void focusParent();                  // the host's own window gets it

  Picture picture();                    // settled
  Picture lit(const Area& area);        // with the pointer there, from before a tooltip shows
  Picture pictureNow();                 // as it stands
  Area screenArea();                    // the editor's, on the screen
  Area scaled(const Area& area) const;  // the part of a picture that shows it

  // Calls so far; cleared by forgetCalls. onCall runs inside the plug-in's call.
  std::vector<HostCall> calls(VstInt32 opcode) const;
  std::vector<HostCall> gestureCalls() const;  // automate, beginEdit, endEdit in their order
  void forgetCalls();
  std::function<void(const HostCall&)> onCall;

  float parameter(VstInt32 index) { return plugin->getParameter(plugin, index); }
  void setParameter(VstInt32 index, float value) { plugin->setParameter(plugin, index, value); }
  std::string programName();
  std::string programName(int index);
  void setProgramName(std::string name) { dispatch(effSetProgramName, 0, 0, name.data()); }
  int currentPreset();  // as the chunk names it
  std::vector<unsigned char> chunk();
  VstIntPtr setChunk(std::vector<unsigned char> data);
  void play(float left, float right, int frames);  // a square wave of 100 frames on each channel

  TestDisplay display;

 private:
  static VstIntPtr callback(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                            void* ptr, float opt);
  VstIntPtr answer(VstInt32 opcode, VstInt32 index, float opt);

  double scale;
  int left, top;  // of the host's window on the screen
  int otherTop;   // of the other program's
  xcb_window_t window = 0;
  xcb_window_t otherWindow = 0;
  AEffect* plugin = nullptr;
  bool editorOpen = false;
  mutable std::mutex mutex;  // of the calls
  std::vector<HostCall> recorded;
};
