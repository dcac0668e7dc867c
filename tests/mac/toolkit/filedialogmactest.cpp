// The file dialog, with a selector of the test's own.
#include "editor/base/filedialog.h"

#include <gtest/gtest.h>

#include <memory>

#include "toolkitfactory.h"
#include "vstgui.h"

namespace {

using State = FileDialog::State;
using VSTGUI::PlatformFileSelectorFlags;
using VSTGUI::PlatformFileSelectorStyle;

class FileDialogMac : public testing::Test {
 protected:
  // Starts and lets the panel come up, in which the user does what `user` says.
  void run(std::function<std::vector<std::string>()> user) {
    toolkit.record.user = std::move(user);
    dialog->start(request);
    toolkit.fireTimers();
  }

  toolkitdouble::Toolkit toolkit;
  void SetUp() override {
    request.title = "Load preset";
    request.folder = "/Users/me/Presets/";
    request.typeName = "Orv Preset";
    request.extension = "orv";
  }

  FileDialogRequest request;
  std::unique_ptr<FileDialog> dialog = std::make_unique<FileDialog>();
};

TEST_F(FileDialogMac, DoesNotRunInsideStart) {
  EXPECT_EQ(dialog->poll(), State::none);
  dialog->start(request);
  EXPECT_EQ(dialog->poll(), State::running);
  EXPECT_EQ(toolkit.record.selectorsRun, 0);
  dialog->cancel();
  toolkit.fireTimers();
}

TEST_F(FileDialogMac, AsksForOneFileOfTheKindModally) {
  run([this] {
    EXPECT_EQ(dialog->poll(), State::running);
    return std::vector<std::string>{"/Users/me/Presets/Room.orv"};
  });
  EXPECT_EQ(dialog->poll(), State::chosen);
  EXPECT_EQ(dialog->path(), "/Users/me/Presets/Room.orv");
  const auto& record = toolkit.record;
  EXPECT_EQ(record.selectorStyle, PlatformFileSelectorStyle::SelectFile);
  EXPECT_EQ(record.selectorConfig.title.getString(), "Load preset");
  EXPECT_EQ(record.selectorConfig.initialPath.getString(), "/Users/me/Presets/");
  EXPECT_EQ(record.selectorConfig.flags,
            static_cast<std::uint32_t>(PlatformFileSelectorFlags::RunModal));
  ASSERT_EQ(record.selectorConfig.extensions.size(), 1U);
  EXPECT_EQ(record.selectorConfig.extensions[0].extension.getString(), "orv");
  EXPECT_EQ(record.selectorConfig.extensions[0].description.getString(), "Orv Preset");
}

TEST_F(FileDialogMac, ProposesANameForSaving) {
  request.save = true;
  request.proposedName = "R\xC3\xA4um.orv";
  run([] { return std::vector<std::string>{"/a/b.orv"}; });
  EXPECT_EQ(toolkit.record.selectorStyle, PlatformFileSelectorStyle::SelectSaveFile);
  EXPECT_EQ(toolkit.record.selectorConfig.defaultSaveName.getString(), "R\xC3\xA4um.orv");
  EXPECT_EQ(toolkit.record.selectorConfig.defaultExtension.extension.getString(), "orv");
}

TEST_F(FileDialogMac, LeavesOutNamesThatAreNoText) {
  request.save = true;
  request.folder = "/Users/\x8A/";
  request.proposedName = "\xC3";
  run([] { return std::vector<std::string>(); });
  EXPECT_TRUE(toolkit.record.selectorConfig.initialPath.empty());
  EXPECT_TRUE(toolkit.record.selectorConfig.defaultSaveName.empty());
}

TEST_F(FileDialogMac, TellsThatTheUserHasCancelled) {
  run([] { return std::vector<std::string>(); });
  EXPECT_EQ(dialog->poll(), State::cancelled);
  EXPECT_EQ(dialog->path(), "");
}

TEST_F(FileDialogMac, TellsThatThereIsNoSelector) {
  toolkit.record.hasFileSelector = false;
  run([] { return std::vector<std::string>(); });
  EXPECT_EQ(dialog->poll(), State::unavailable);
}

TEST_F(FileDialogMac, DoesNotComeUpOnceItIsCancelled) {
  dialog->start(request);
  dialog->cancel();
  EXPECT_EQ(dialog->poll(), State::none);
  toolkit.fireTimers();
  EXPECT_EQ(toolkit.record.selectorsRun, 0);
}

TEST_F(FileDialogMac, TakesThePanelDownWhenItIsCancelled) {
  run([this] {
    dialog->cancel();
    EXPECT_TRUE(toolkit.record.cancelled);
    return std::vector<std::string>{"/a/b.orv"};
  });
  EXPECT_EQ(dialog->poll(), State::none);
}

TEST_F(FileDialogMac, MayBeEndedWhileThePanelIsUp) {
  run([this] {
    dialog.reset();
    EXPECT_TRUE(toolkit.record.cancelled);
    return std::vector<std::string>{"/a/b.orv"};
  });
}

TEST_F(FileDialogMac, StartsAgain) {
  run([] { return std::vector<std::string>{"/a/first.orv"}; });
  run([] { return std::vector<std::string>{"/a/second.orv"}; });
  EXPECT_EQ(dialog->path(), "/a/second.orv");
  EXPECT_TRUE(toolkit.record.timers.empty());
}

}  // namespace
