// What the tests of files and stored values share: an effect with an editor that has a frame, a
// fake desktop, a store.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "editor/base/toolkitlibrary.h"
#include "editor/window/adeditor.h"
#include "effect/trelvan.h"
#include "platform/preferencestore.h"
#include "tests/support/fakedesktop.h"
#include "tests/support/imagebytes.h"
#include "tests/support/records.h"
#include "tests/support/silenthost.h"
#include "vstgui.h"

// An editor whose window is a frame without a display.
class FilesEditor : public ADEditor {
 public:
  explicit FilesEditor(Trelvan* owner) : ADEditor(owner) {}
  ~FilesEditor() override { closeWindow(); }
  FilesEditor(const FilesEditor&) = delete;
  FilesEditor& operator=(const FilesEditor&) = delete;

  void openWindow() {
    toolkit = std::make_unique<ToolkitLibrary>();
    frame = new VSTGUI::CFrame(VSTGUI::CRect(0, 0, 302, 251), this);
  }
  // What closing a window does about files.
  void closeWindow() {
    endFileOperation();
    endMessages();
    if (frame == nullptr) return;
    frame->forget();
    frame = nullptr;
    toolkit.reset();
  }
  void setHostWindow(std::uintptr_t window) { parentWindow = reinterpret_cast<void*>(window); }

  char (&bankFileName)[FilePlaces::kSize] = places.bankFileName;
  char (&currentDirectory)[FilePlaces::kSize] = places.currentDirectory;
  char (&presetFileName)[FilePlaces::kSize] = places.presetFileName;

 private:
  std::unique_ptr<ToolkitLibrary> toolkit;
};

// An effect with such an editor, window open.
struct FilesInstance {
  FilesInstance() {
    editor = new FilesEditor(&effect);
    effect.setEditor(editor);
    effect.loadDefaults();
    effect.setPresetNo(0);
    editor->openWindow();
  }

  ACombProgram& preset(long n) { return effect.preset(n); }

  Trelvan effect{silentHost};
  FilesEditor* editor;  // the effect's
};

class Files : public testing::Test {
 protected:
  Files() {
    config.set(home.path.c_str());
    instance = std::make_unique<FilesInstance>();
  }

  FilesEditor& editor() { return *instance->editor; }
  ACombProgram& preset(long n) { return instance->preset(n); }
  long current() { return instance->effect.getPresetNo(); }
  presetimage::Bank bankNow() { return instance->effect.bank(); }
  void begin(const imagebytes::Bank& bank) { instance->effect.bank() = recordsOf(bank); }
  std::string prefsFile() const { return home / "orv/trelvan.conf"; }

  // Passes idle passes until the file operation is over.
  void finish() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (editor().fileOperationRunning() && std::chrono::steady_clock::now() < deadline) {
      editor().completeFileOperation();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    ASSERT_FALSE(editor().fileOperationRunning());
  }
  // The user chooses this path in the next dialogs.
  void userChooses(const std::string& path) {
    writeFile(desktop.folder / "answer", path + "\n");
    desktop.install("zenity", "exec /bin/cat " + (desktop.folder / "answer"));
  }
  void loadPreset(const std::string& path, bool endianReversed = false) {
    userChooses(path);
    editor().loadPreset(endianReversed);
    finish();
  }
  void loadBank(const std::string& path, bool endianReversed = false) {
    userChooses(path);
    editor().loadBank(endianReversed);
    finish();
  }
  void savePreset(const std::string& path) {
    userChooses(path);
    editor().savePreset();
    finish();
  }
  void saveBank(const std::string& path) {
    userChooses(path);
    editor().saveBank();
    finish();
  }
  // A file with these bytes; its path.
  std::string put(const std::string& name, const imagebytes::Bytes& bytes) {
    writeFile(files / name, std::string(bytes.begin(), bytes.end()));
    return files / name;
  }
  static imagebytes::Bytes bytesOf(const std::string& path) {
    const std::string content = contentOf(path);
    return {content.begin(), content.end()};
  }

  FakeDesktop desktop;
  TemporaryFolder files;
  TemporaryFolder home;
  ScopedVariable config{"XDG_CONFIG_HOME", nullptr};
  std::unique_ptr<FilesInstance> instance;
};
