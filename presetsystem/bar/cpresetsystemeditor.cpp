// The preset bar's life in the window, and how names and the bank reach it from any thread.
#include "presetsystem/bar/cpresetsystemeditor.h"

#include <cstring>
#include <new>

#include "editor/base/myframe.h"
#include "editor/base/pressguard.h"
#include "editor/controls/corvtextedit.h"
#include "presetsystem/store/cpresetsystemeffect.h"

CPresetSystemEditor::CPresetSystemEditor(CPresetSystemEffect* owner) : AEffGUIEditor(owner), presetEffect(owner) {}

bool CPresetSystemEditor::open(void* /*window*/) {
  if (frame == nullptr || view == nullptr || presetEffect == nullptr) return false;
  windowThread = std::this_thread::get_id();
  bar.build(*view, this, *presetEffect);
  pressGuard = std::make_unique<PressGuard>([this] { return fileOperationRunning(); });
  frame->registerMouseObserver(pressGuard.get());
  return true;
}

void CPresetSystemEditor::close() {
  endFileOperation();
  if (frame != nullptr && pressGuard) frame->unregisterMouseObserver(pressGuard.get());
  pressGuard.reset();
  bar.clear();
  AEffGUIEditor::close();
}

void CPresetSystemEditor::idle() {
  completeFileOperation();
  watchManual();
  if (refreshWanted.exchange(false)) refreshBar();
  AEffGUIEditor::idle();
}

void CPresetSystemEditor::keyboardLeft() {
  if (bar.nameEdit != nullptr) bar.nameEdit->endEntry(true);
}

bool CPresetSystemEditor::onWindowThread() const {
  return windowThread.load() == std::this_thread::get_id();
}

void CPresetSystemEditor::presetsChanged() {
  if (onWindowThread()) {
    refreshBar();
  } else {
    refreshWanted = true;
  }
}

// What has been taken over is not given back because the bar has no memory to show it: a later pass does.
void CPresetSystemEditor::refreshBar() {
  try {
    bar.refresh(*presetEffect);
  } catch (const std::bad_alloc&) {
    refreshWanted = true;
  }
}

void CPresetSystemEditor::nameChangedInternal(const char* name) {
  bar.showName(name);
  bar.retitleCurrent(name);
  presetEffect->setPresetName(name);
}

void CPresetSystemEditor::nameChangedExternal(const char* name) {
  if (onWindowThread()) {
    bar.showName(name);
    bar.retitleCurrent(name);
  } else {
    refreshWanted = true;
  }
}

// A bank has been read: the preset that it selects is made current.
void CPresetSystemEditor::takeOverBank(long n) {
  presetEffect->setPresetNo(n);
  presetsChanged();
}

// A preset has been read into slot n, the current one: the host and the effect take it over.
void CPresetSystemEditor::takeOverPreset(long n) {
  char name[ACombProgram::kNameSize + 1] = {};
  std::memcpy(name, presetEffect->preset(n).name, ACombProgram::kNameSize);
  presetEffect->setPresetName(name);
  presetEffect->setPresetNo(n);
  presetsChanged();
}
