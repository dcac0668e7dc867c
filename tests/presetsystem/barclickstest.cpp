// What each value of each control of the preset bar does, and when the bar is there.
#include <cmath>
#include <limits>
#include <thread>

#include "editor/base/myframe.h"
#include "editor/controls/corvtextedit.h"
#include "editor/controls/cpresetmenu.h"
#include "editor/controls/cpskickbutton.h"
#include "editor/controls/cpsrockerswitch.h"
#include "editor/controls/csaveloadbutton.h"
#include "tests/presetsystem/filesfixture.h"
#include "tests/support/recordinghost.h"
#include "vstgui.h"

namespace {

using testing::ElementsAre;

const std::string kTooLong = "abcdefghijklmnopqrstuvwxyz1234";  // 30 characters

// Has the bar and nothing else, and writes down which operations it triggers.
class BarEditor : public ADEditor {
 public:
  using ADEditor::ADEditor;
  ~BarEditor() override { closeBar(); }
  BarEditor(const BarEditor&) = delete;
  BarEditor& operator=(const BarEditor&) = delete;

  bool openBar() {
    toolkit = std::make_unique<ToolkitLibrary>();
    const VSTGUI::CRect size(0, 0, 302, 251);
    frame = new VSTGUI::CFrame(size, this);
    view = new MyFrame(size);
    frame->addView(view);
    return CPresetSystemEditor::open(nullptr);
  }
  void closeBar() {
    if (frame == nullptr) return;
    VSTGUI::CFrame* closing = frame;
    CPresetSystemEditor::close();
    frame = nullptr;
    view = nullptr;
    closing->forget();
    toolkit.reset();
  }

  void loadBank(bool endianReversed) override {
    note(endianReversed ? "load bank reversed" : "load bank");
  }
  void loadPreset(bool endianReversed) override {
    note(endianReversed ? "load preset reversed" : "load preset");
  }
  void saveBank() override { note("save bank"); }
  void savePreset() override { note("save preset"); }
  void saveDefaultBank() override { note("save default bank"); }
  void resetDefaultBank() override { note("reset default bank"); }
  void saveDefaultPreset() override { note("save default preset"); }
  void resetDefaultPreset() override { note("reset default preset"); }
  void storeA() override { note("store A"); }
  void storeB() override { note("store B"); }
  void recallA() override { note("recall A"); }
  void recallB() override { note("recall B"); }
  void loadDefaults() override {}

  // Tells the listener as the control does.
  std::vector<std::string> triggeredBy(VSTGUI::CControl* control, float value) {
    triggered.clear();
    control->setValue(value);
    valueChanged(control);
    return triggered;
  }

  using CPresetSystemEditor::bar;

 private:
  void note(const char* what) { triggered.emplace_back(what); }

  std::vector<std::string> triggered;
  std::unique_ptr<ToolkitLibrary> toolkit;
};

// Under the rocker's tag; the rocker itself keeps to its range.
class NoNumber : public VSTGUI::CControl {
 public:
  NoNumber() : CControl(VSTGUI::CRect(), nullptr, kPresetRockerTag) {}
  float getValue() const override { return std::numeric_limits<float>::quiet_NaN(); }
  void draw(VSTGUI::CDrawContext* /*context*/) override {}
  CLASS_METHODS_NOCOPY(NoNumber, CControl)
};

// The list with a value between two entries; its own values are whole.
class FractionMenu : public CPresetMenu {
 public:
  explicit FractionMenu(const CPresetMenu& menu)
      : CPresetMenu(menu.getViewSize(), nullptr, kPresetMenuTag) {
    for (int entry = 0; entry < 32; ++entry) addEntry(menu.getEntry(entry)->getTitle());
  }
  float getValue() const override { return fraction; }
  float fraction = 0;
};

class BarDispatch : public testing::Test {
 protected:
  BarDispatch() {
    config.set(home.path.c_str());
    effect.setEditor(editor);
    editor->openBar();
    host.calls.clear();
  }

  void step(float direction) { editor->triggeredBy(editor->bar.presetRocker, direction); }
  std::string title(int entry) const {
    return editor->bar.presetMenu->getEntry(entry)->getTitle().getString();
  }
  std::string field() const { return editor->bar.nameEdit->getText().getString(); }
  // Chooses in the list, which then has the value.
  void choose(float value) {
    const auto menu = VSTGUI::makeOwned<FractionMenu>(*editor->bar.presetMenu);
    CPresetMenu* own = editor->bar.presetMenu;
    editor->bar.presetMenu = menu;
    menu->opened();
    menu->choose(1);
    menu->closed();
    menu->fraction = value;
    host.calls.clear();
    editor->valueChanged(menu);
    EXPECT_EQ(menu->getCurrentIndex(), effect.getPresetNo());
    editor->bar.presetMenu = own;
  }

  TemporaryFolder home;
  ScopedVariable config{"XDG_CONFIG_HOME", nullptr};
  RecordingHost host;
  Trelvan effect{RecordingHost::callback};
  BarEditor* editor = new BarEditor(&effect);  // the effect's
};

// What a preset change tells the host, and the name that is set again behind it.
const auto kPresetChangeAndName = ElementsAre(audioMasterUpdateDisplay, audioMasterBeginEdit,
                                              audioMasterEndEdit, audioMasterUpdateDisplay);

TEST(BarWithoutAFrame, IsNotBuiltAndOpeningAnswersNo) {
  RecordingHost host;
  Trelvan effect{RecordingHost::callback};
  BarEditor editor(&effect);
  EXPECT_FALSE(editor.CPresetSystemEditor::open(nullptr));
  EXPECT_EQ(editor.bar.nameEdit, nullptr);
  EXPECT_EQ(editor.bar.presetMenu, nullptr);
  EXPECT_EQ(editor.bar.manualButton, nullptr);
  EXPECT_TRUE(editor.openBar());
  EXPECT_NE(editor.bar.nameEdit, nullptr);
  editor.closeBar();
  EXPECT_EQ(editor.bar.nameEdit, nullptr);
  effect.setEditor(nullptr);
}

TEST_F(BarDispatch, ShowsTheBankAndItsCurrentPreset) {
  editor->closeBar();
  effect.setPresetNo(14);
  std::memset(effect.preset(31).name, 'x', 24);  // without an end of its own
  editor->openBar();
  EXPECT_EQ(field(), "guitar 3");
  EXPECT_EQ(editor->bar.presetMenu->getNbEntries(), 32);
  EXPECT_EQ(editor->bar.presetMenu->getCurrentIndex(), 14);
  EXPECT_EQ(title(0), "init");
  EXPECT_EQ(title(15), "bas 1");
  EXPECT_EQ(title(31), std::string(24, 'x'));
}

// The bar is told after the preset has become current: shown before, it would be the old one.
TEST_F(BarDispatch, ABankThatIsTakenOverShowsThePresetThatBecomesCurrent) {
  effect.setPresetNo(2);
  effect.bank() = recordsOf(imagebytes::distinctBank());
  effect.bankTakenOver(5);
  EXPECT_EQ(editor->bar.presetMenu->getCurrentIndex(), 5);
  EXPECT_EQ(field(), "preset number 5");
  EXPECT_EQ(title(5), "preset number 5");
  EXPECT_EQ(title(2), "preset number 2");
}

TEST_F(BarDispatch, APresetThatIsTakenOverIsShownUnderTheNumberThatIsCurrent) {
  effect.setPresetNo(7);  // of which the bar hears with what is taken over
  effect.preset(7) = recordOf({"taken", {0.7F, 0.2F, 0.3F, 1.0F, 0.0F}});
  effect.presetTakenOver();
  EXPECT_EQ(editor->bar.presetMenu->getCurrentIndex(), 7);
  EXPECT_EQ(field(), "taken");
  EXPECT_EQ(title(7), "taken");
}

TEST_F(BarDispatch, TheRockerUpOnTheLastPresetAppliesItOnceMore) {
  effect.preset(31) = recordOf({"the last", {0.7F, 0.2F, 0.3F, 1.0F, 0.0F}});
  effect.setPresetNo(31);
  effect.preset(31) = recordOf({"the last", {0.1F, 0.2F, 0.3F, 1.0F, 0.0F}});
  editor->bar.presetMenu->setCurrent(5);
  editor->bar.nameEdit->setText("something else");
  host.calls.clear();
  step(1.0F);
  EXPECT_EQ(effect.getPresetNo(), 31);
  EXPECT_EQ(effect.getParameter(0), 0.1F) << "applied";
  EXPECT_EQ(editor->bar.presetMenu->getCurrentIndex(), 31);
  EXPECT_EQ(field(), "the last");
  EXPECT_THAT(host.opcodes(), kPresetChangeAndName);
}

TEST_F(BarDispatch, TheRockerDownOnTheFirstPresetAppliesItOnceMore) {
  effect.preset(0) = recordOf({"the first", {0.1F, 0.2F, 0.3F, 1.0F, 0.0F}});
  editor->bar.presetMenu->setCurrent(5);
  editor->bar.nameEdit->setText("something else");
  step(-1.0F);
  EXPECT_EQ(effect.getPresetNo(), 0);
  EXPECT_EQ(effect.getParameter(0), 0.1F) << "applied";
  EXPECT_EQ(editor->bar.presetMenu->getCurrentIndex(), 0);
  EXPECT_EQ(field(), "the first");
  EXPECT_THAT(host.opcodes(), kPresetChangeAndName);
}

TEST_F(BarDispatch, TheRockerStepsByOneAndAtRestNotAtAll) {
  step(0.25F);
  EXPECT_EQ(effect.getPresetNo(), 1);
  EXPECT_EQ(field(), "mix 1");
  step(1.0F);
  step(-0.25F);
  EXPECT_EQ(effect.getPresetNo(), 1);
  host.calls.clear();
  step(0.0F);
  NoNumber control;
  editor->valueChanged(&control);
  EXPECT_EQ(effect.getPresetNo(), 1);
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(BarDispatch, ATypedNameOfMoreThan24CharactersIsCutInFieldListAndEffect) {
  effect.setPresetNo(3);
  editor->bar.presetMenu->setCurrent(3);
  editor->bar.nameEdit->setText(kTooLong.c_str());
  editor->valueChanged(editor->bar.nameEdit);
  EXPECT_EQ(field(), kTooLong.substr(0, 24));
  EXPECT_EQ(title(3), kTooLong.substr(0, 24));
  EXPECT_EQ(nameBytes(effect.preset(3)), kTooLong.substr(0, 23) + std::string(1, '\0'))
      << "its last byte is the end";
  EXPECT_EQ(title(2), "mix 2");
  EXPECT_EQ(title(4), "room 1");
}

TEST_F(BarDispatch, ATypedNameOf24CharactersIsShownWhole) {
  const std::string name = kTooLong.substr(0, 24);
  editor->bar.nameEdit->setText(name.c_str());
  editor->valueChanged(editor->bar.nameEdit);
  EXPECT_EQ(field(), name);
  EXPECT_EQ(title(0), name);
}

TEST_F(BarDispatch, AMenuValueIsRoundedToThePresetThatItSelects) {
  choose(4.6F);
  EXPECT_EQ(effect.getPresetNo(), 5);
  EXPECT_EQ(field(), "room 2");
  EXPECT_THAT(host.opcodes(), kPresetChangeAndName);
  choose(4.4F);
  EXPECT_EQ(effect.getPresetNo(), 4);
  EXPECT_EQ(field(), "room 1");
  choose(4.5F);
  EXPECT_EQ(effect.getPresetNo(), 5);
  choose(31.0F);
  EXPECT_EQ(effect.getPresetNo(), 31);
}

TEST_F(BarDispatch, ALoadButtonsValueOfExactlyOneHalfReversesTheByteOrder) {
  const PresetBar& bar = editor->bar;
  for (const float value : {1.0F, 0.49F, 0.51F, std::nextafter(0.5F, 1.0F)}) {
    EXPECT_THAT(editor->triggeredBy(bar.loadBankButton, value), ElementsAre("load bank")) << value;
    EXPECT_THAT(editor->triggeredBy(bar.loadPresetButton, value), ElementsAre("load preset"))
        << value;
  }
  EXPECT_THAT(editor->triggeredBy(bar.loadBankButton, 0.5F), ElementsAre("load bank reversed"));
  EXPECT_THAT(editor->triggeredBy(bar.loadPresetButton, 0.5F), ElementsAre("load preset reversed"));
  for (const float value : {0.5F, 1.0F}) {
    EXPECT_THAT(editor->triggeredBy(bar.saveBankButton, value), ElementsAre("save bank"));
    EXPECT_THAT(editor->triggeredBy(bar.savePresetButton, value), ElementsAre("save preset"));
  }
}

TEST_F(BarDispatch, ADefaultButtonSavesFromExactlyThreeQuartersOnAndResetsBelow) {
  const PresetBar& bar = editor->bar;
  for (const float value : {0.75F, 1.0F}) {
    EXPECT_THAT(editor->triggeredBy(bar.defaultBankButton, value), ElementsAre("save default bank"))
        << value;
    EXPECT_THAT(editor->triggeredBy(bar.defaultPresetButton, value),
                ElementsAre("save default preset"))
        << value;
  }
  for (const float value : {0.74F, 0.5F, std::nextafter(0.75F, 0.0F)}) {
    EXPECT_THAT(editor->triggeredBy(bar.defaultBankButton, value),
                ElementsAre("reset default bank"))
        << value;
    EXPECT_THAT(editor->triggeredBy(bar.defaultPresetButton, value),
                ElementsAre("reset default preset"))
        << value;
  }
}

TEST_F(BarDispatch, EachMemoryButtonHasItsOwnOperation) {
  const PresetBar& bar = editor->bar;
  EXPECT_THAT(editor->triggeredBy(bar.memoryAStoreButton, 1.0F), ElementsAre("store A"));
  EXPECT_THAT(editor->triggeredBy(bar.memoryBStoreButton, 1.0F), ElementsAre("store B"));
  EXPECT_THAT(editor->triggeredBy(bar.memoryARecallButton, 1.0F), ElementsAre("recall A"));
  EXPECT_THAT(editor->triggeredBy(bar.memoryBRecallButton, 1.0F), ElementsAre("recall B"));
}

TEST_F(BarDispatch, TagsThatTheBarHasNotDoNothing) {
  for (const std::int32_t tag : {-1, 5, 6, 999, 1006, 1007, 1008, 1009, 1010, 1011, 1020}) {
    editor->bar.memoryAStoreButton->setTag(tag);
    EXPECT_TRUE(editor->triggeredBy(editor->bar.memoryAStoreButton, 1.0F).empty()) << tag;
  }
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(BarDispatch, TheManualButtonIsShownReleasedWhileTheViewerFails) {
  FakeDesktop desktop;
  desktop.install("xdg-open", "exit 4");
  desktop.install("xmessage", "");
  CPSKickButton* button = editor->bar.manualButton;
  button->pressed = true;
  button->setDirty(false);
  editor->triggeredBy(button, 1.0F);
  EXPECT_FALSE(button->pressed);
  EXPECT_TRUE(button->isDirty());
  for (int pass = 0; pass < 5000 && !desktop.wasCalled("xmessage"); ++pass) {
    editor->watchManual();
    editor->watchMessages();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_TRUE(desktop.wasCalled("xmessage")) << "the alert";
  EXPECT_FALSE(button->pressed);
}

TEST_F(BarDispatch, ARenamingFromThisSideReachesFieldListAndEffect) {
  editor->nameChangedInternal("mine");
  EXPECT_EQ(field(), "mine");
  EXPECT_EQ(title(0), "mine");
  EXPECT_STREQ(effect.preset(0).name, "mine");
}

TEST_F(BarDispatch, ARenamingFromTheHostReachesFieldAndList) {
  std::string name = kTooLong;
  effect.setProgramName(name.data());
  EXPECT_EQ(field(), kTooLong.substr(0, 24));
  EXPECT_EQ(title(0), kTooLong.substr(0, 24));
  EXPECT_STREQ(effect.preset(0).name, kTooLong.substr(0, 23).c_str());
  EXPECT_TRUE(host.calls.empty());
}

using BarDispatchDeathTest = BarDispatch;
TEST_F(BarDispatchDeathTest, IsTheWindowsThreadsWhereThatIsChecked) {
  if (!kThreadsAreChecked) GTEST_SKIP() << "not in this build";
  EXPECT_DEATH(std::thread([&] { editor->bar.showName("name"); }).join(),
               "the window belongs to another thread");
}

}  // namespace
