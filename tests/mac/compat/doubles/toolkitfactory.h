// A platform for the toolkit in which tests see what it was asked for, and answer in its place.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "lib/platform/iplatformbitmap.h"
#include "lib/platform/iplatformfileselector.h"
#include "lib/platform/iplatformfont.h"
#include "lib/platform/iplatformframe.h"
#include "lib/platform/iplatformframecallback.h"
#include "lib/platform/iplatformgradient.h"
#include "lib/platform/iplatformgraphicsdevice.h"
#include "lib/platform/iplatformoptionmenu.h"
#include "lib/platform/iplatformresourceinputstream.h"
#include "lib/platform/iplatformstring.h"
#include "lib/platform/iplatformtextedit.h"
#include "lib/platform/iplatformtimer.h"
#include "lib/platform/iplatformviewlayer.h"
#include "lib/platform/platformfactory.h"
#include "vstgui.h"

namespace toolkitdouble {

// What the toolkit did, and how the user answers.
struct Record {
  void* frameParent = nullptr;
  VSTGUI::PlatformType frameType = VSTGUI::PlatformType::kDefaultNative;
  bool refusesFrames = false;
  int framesClosed = 0;

  bool hasFileSelector = true;
  VSTGUI::PlatformFileSelectorStyle selectorStyle{};
  VSTGUI::PlatformFileSelectorConfig selectorConfig;
  int selectorsRun = 0;
  std::function<std::vector<std::string>()> user;  // runs while the panel is up; returns the files
  bool cancelled = false;                          // by the program

  std::function<int()> menuUser;  // runs while a menu is up; returns the entry, negative: none

  std::vector<VSTGUI::IPlatformTimerCallback*> timers;  // that run
};

// Made before everything that uses the toolkit, and ended after it.
class Toolkit {
 public:
  Toolkit();
  ~Toolkit();
  Toolkit(const Toolkit&) = delete;
  Toolkit& operator=(const Toolkit&) = delete;

  Record record;
  void fireTimers();  // as the run loop does when their time has come
};

}  // namespace toolkitdouble
