// An LV2 host with a window for the tests: the built bundle's module, its effect and its window.
#pragma once

#include <lv2/core/lv2.h>
#include <lv2/instance-access/instance-access.h>
#include <lv2/ui/ui.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "testdisplay.h"
#include "tests/formats/lv2kept.h"

// What the plug-in told the host of a control port.
struct Lv2Told {
  enum class Kind { touched, value, released };
  Kind kind;
  std::uint32_t port;
  float value;
  bool operator==(const Lv2Told&) const = default;
};

// One instance that is switched on, with its ports, and a window in the host's once it is opened.
// Mouse places are the editor's pixels at a scale of 1. What the window says reaches the ports at
// once.
class Lv2WindowHost {
 public:
  static constexpr std::size_t kControls = 5;

  enum class Plugin { stereo, mono };
  // scale: the window's, as the test has set it.
  explicit Lv2WindowHost(int place = 0, Plugin plugin = Plugin::stereo, int scale = 1);
  ~Lv2WindowHost();
  Lv2WindowHost(const Lv2WindowHost&) = delete;
  Lv2WindowHost& operator=(const Lv2WindowHost&) = delete;

  // withheld: the URI of a feature that this host has not.
  bool open(const std::string& withheld = {});
  void close();
  void endEffect();  // before the window
  bool isOpen() const { return ui != nullptr; }
  // Another window on the same effect.
  bool opensAnother();
  bool opensFor(const char* pluginUri);

  xcb_window_t parent() const { return window; }
  xcb_window_t widgetWindow() const { return child; }
  std::optional<std::pair<int, int>> toldSize;  // pixels
  std::optional<float> scaleFactor;             // an option that windows are opened with

  std::uint32_t firstControl() const { return plugin == Plugin::mono ? 3 : 4; }
  std::array<float, kControls> controls{0.0F, 0.5F, 0.0F, 1.0F, 0.0F};
  void sayPorts();  // to the window
  Lv2Kept state() const;
  void restore(const Lv2Kept& state);
  void run(float left = 0, float right = 0);  // a block of a square wave

  void idle();
  void settle();  // idles until the window's picture stays as it is
  void press(int x, int y);
  void moveTo(int x, int y);
  void release();
  void click(const Area& area);
  void moveAway();
  Picture picture();  // settled

  std::vector<Lv2Told> told;
  bool portsFollow = true;  // what the window says
  TestDisplay display;

 private:
  static void write(LV2UI_Controller host, std::uint32_t port, std::uint32_t size,
                    std::uint32_t format, const void* value);
  static void touch(LV2UI_Feature_Handle host, std::uint32_t port, bool held);
  static int resize(LV2UI_Feature_Handle host, int width, int height);
  Area area() const;  // of the host's window on the screen
  LV2UI_Handle instantiateWindow(const char* uri, const std::string& withheld,
                                 LV2UI_Widget& widget);

  LV2UI_Touch touching{this, touch};  // used as long as the window lives
  LV2UI_Resize resizing{this, resize};
  Plugin plugin;
  int scale;
  int left;  // of the host's window on the screen
  xcb_window_t window;
  xcb_window_t child = 0;
  Lv2Numbers numbers;
  const LV2_Descriptor* descriptor;
  const LV2UI_Descriptor* uiDescriptor;
  LV2_Handle effect = nullptr;
  LV2UI_Handle ui = nullptr;
  std::array<std::array<float, 512>, 4> audio{};
};
