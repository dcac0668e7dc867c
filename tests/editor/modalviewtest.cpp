// The list of presets, the about panel and a message where memory runs out in the middle of an
// event.
#include "editor/controls/modalview.h"

#include "editor/controls/cabout.h"
#include "editor/controls/messagepanel.h"
#include "presetlisttest.h"
#include "tests/support/eachfailure.h"
#include "tests/support/ownprocess.h"
#include "vstgui.h"

namespace {

using namespace controltest;

// A window with both, for each allocation that fails.
class Window : public PresetList {
 public:
  Window() {
    const auto picture = bitmapOf(200, 100, [](int, int) { return kImage1; });
    about = add(new CAbout(CRect(70, 182, 225, 202), &listener, 6, picture, CRect(51, 57, 251, 157),
                           CPoint(), CPoint(0, 8)));
  }
  void TestBody() override {}

  void clickMenu() { click(onMenu); }
  void clickEntry() { click(onEntry(20)); }
  void clickAbout() { click(CPoint(100, 190)); }
  void clickPanel() { click(CPoint(150, 100)); }
  void showMessage() { showMessagePanel(*frame, "Could not open manual file:\n~/a/longer/path/"); }
  void leave() { key(VirtualKey::Escape); }
  void choose() { key(VirtualKey::Return); }

  // With all the memory that it takes: each opens where it is not open, and is left again.
  bool listWorks() {
    if (!isOpen()) clickMenu();
    if (!isOpen()) return false;
    listener.values.clear();
    clickEntry();
    return !isOpen() && listener.values == std::vector<float>{20.0F} && nothingIsOpen();
  }
  bool aboutWorks() {
    if (frame->getModalView() == nullptr) clickAbout();
    if (frame->getModalView() == nullptr || about->getValue() != 1.0F) return false;
    clickPanel();
    return about->getValue() == 0.0F && nothingIsOpen();
  }

  bool messageWorks() {
    if (frame->getModalView() == nullptr) showMessage();
    if (frame->getModalView() == nullptr) return false;
    clickPanel();
    return nothingIsOpen();
  }

 private:
  bool nothingIsOpen() {
    return frame->getModalView() == nullptr && frame->getNbViews() == 1;  // the root
  }

  CAbout* about;
};

using Step = void (Window::*)();

// The event without memory, and then everything with it. Returns how many failures the event
// survives: in the toolkit's own code some end the process.
int failEach(FailingMemory::Fails fails, const std::vector<Step>& before, Step event,
             bool (Window::*works)()) {
  return failEachOwnProcess([&](long succeeding) {
    Window window;
    for (const Step step : before) (window.*step)();
    bool failed = false;
    {
      const FailingMemory memory(succeeding, fails);
      try {
        (window.*event)();
      } catch (const std::bad_alloc&) {  // the record's entries take it
      }
      failed = memory.hasFailed();
    }
    if (!(window.*works)()) return wrong("it can no longer be opened or left");
    return failed ? End::refused : End::done;
  });
}

constexpr auto kOne = FailingMemory::Fails::one;

TEST(ModalView, TheListOpensAndCloses) {
  Window window;
  EXPECT_TRUE(window.listWorks());
  EXPECT_TRUE(window.listWorks());
}

TEST(ModalView, TheListIsOpenedByTheNextPressWhereItsOpeningFailed) {
  EXPECT_GT(failEach(kOne, {}, &Window::clickMenu, &Window::listWorks), 0);
}

TEST(ModalView, TheListIsLeftByTheNextEventWhereItsEndFailed) {
  for (const Step end : {&Window::leave, &Window::choose, &Window::clickEntry})
    EXPECT_GT(failEach(kOne, {&Window::clickMenu}, end, &Window::listWorks), 0);
}

TEST(ModalView, ThePanelIsOpenedByTheNextPressWhereItsOpeningFailed) {
  EXPECT_GT(failEach(kOne, {}, &Window::clickAbout, &Window::aboutWorks), 0);
}

TEST(ModalView, ThePanelIsLeftByTheNextPressWhereItsEndFailed) {
  EXPECT_TRUE(Window().aboutWorks());
  EXPECT_GT(failEach(kOne, {&Window::clickAbout}, &Window::clickPanel, &Window::aboutWorks), 0);
}

TEST(ModalView, AMessageIsShownLaterWhereItsShowingFailed) {
  EXPECT_GT(failEach(kOne, {}, &Window::showMessage, &Window::messageWorks), 0);
}

TEST(ModalView, AMessageIsLeftByTheNextPressWhereItsEndFailed) {
  EXPECT_TRUE(Window().messageWorks());
  EXPECT_GT(failEach(kOne, {&Window::showMessage}, &Window::clickPanel, &Window::messageWorks), 0);
}

}  // namespace
