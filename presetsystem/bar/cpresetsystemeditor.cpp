// The façade of the preset bar: its life with the window, and each operation handed to the object
// whose job it is.
#include "presetsystem/bar/cpresetsystemeditor.h"

#include "editor/base/myframe.h"
#include "editor/base/pressguard.h"
#include "editor/controls/corvtextedit.h"
#include "editor/controls/messagepanel.h"
#include "editor/controls/tooltips.h"
#include "presetsystem/bar/bartips.h"
#include "presetsystem/store/bankimages.h"
#include "presetsystem/store/cpresetsystemeffect.h"

CPresetSystemEditor::CPresetSystemEditor(CPresetSystemEffect* owner)
    : AEffGUIEditor(owner),
      presetEffect(owner),
      stored(owner, places),
      messages(*this),
      files(owner, places, *this, messages),
      manual(messages),
      names(owner, bar),
      clicks(owner, bar, *this) {
  if (presetEffect != nullptr) presetEffect->setPresetListener(this);
}

// Without the memory for it the names are lost, and not the host: nothing may leave a destructor.
CPresetSystemEditor::~CPresetSystemEditor() {
  if (presetEffect != nullptr && presetEffect->presetListener() == this)
    presetEffect->setPresetListener(nullptr);
  try {
    stored.storeLast();
  } catch (...) {
  }
}

bool CPresetSystemEditor::open(void* /*window*/) {
  if (frame == nullptr || view == nullptr || presetEffect == nullptr) return false;
  names.opened();
  bar.build(*view, this, *presetEffect);
  pressGuard = std::make_unique<PressGuard>([this] { return !takesInput(); });
  pressGuard->watch(*frame);
  tooltips = std::make_unique<Tooltips>(*frame, *view, barTip,
                                        [this] { return isAtRest() && takesInput(); });
  return true;
}

void CPresetSystemEditor::close() {
  endFileOperation();
  manual.end();
  endMessages();
  tooltips.reset();
  if (frame != nullptr && pressGuard) pressGuard->leave(*frame);
  pressGuard.reset();
  bar.clear();
  AEffGUIEditor::close();
}

void CPresetSystemEditor::idle() {
  completeFileOperation();
  watchManual();
  watchMessages();
  tryToStoreAgain();
  names.idle();
  if (tooltips) tooltips->idle();
  AEffGUIEditor::idle();
}

void CPresetSystemEditor::valueChanged(VSTGUI::CControl* control) {
  clicks.valueChanged(control);
}

void CPresetSystemEditor::keyboardLeft() {
  if (bar.nameEdit != nullptr) bar.nameEdit->endEntry(true);
}

void CPresetSystemEditor::nameChangedInternal(const char* name) {
  bar.showName(name);
  bar.retitleCurrent(name);
  presetEffect->setPresetName(name);
}

void CPresetSystemEditor::presetsChanged() {
  names.presetsChanged();
}
void CPresetSystemEditor::nameChangedExternal(const char* name) {
  names.nameChanged(name);
}
void CPresetSystemEditor::loadDefaults() {
  stored.loadDefaults();
}

bool CPresetSystemEditor::isShown() const {
  return frame != nullptr;
}
std::uintptr_t CPresetSystemEditor::hostWindow() const {
  return reinterpret_cast<std::uintptr_t>(parentWindow);
}
void CPresetSystemEditor::redraw() {
  if (frame != nullptr) frame->invalid();
}

bool CPresetSystemEditor::isAtRest() const {
  if (frame == nullptr || frame->getModalView() != nullptr) return false;
  if (pressGuard && pressGuard->isHeld()) return false;
  return bar.nameEdit == nullptr || !bar.nameEdit->isBeingEdited();
}
void CPresetSystemEditor::showMessage(const std::string& text) {
  if (frame != nullptr) showMessagePanel(*frame, text);
}

void CPresetSystemEditor::BufferToBankOld(char* data, bool swapped, int recordCount,
                                          int floatsPerRecord) {
  BankImages(*presetEffect).BufferToBankOld(data, swapped, recordCount, floatsPerRecord);
}
void CPresetSystemEditor::BufferToBank(char* entries, newpresetheader* header, bool swapped) {
  BankImages(*presetEffect).BufferToBank(entries, *header, swapped);
}
void CPresetSystemEditor::BufferToPresetOld(char* data, bool swapped, int floatCount) {
  BankImages(*presetEffect).BufferToPresetOld(data, swapped, floatCount);
}
void CPresetSystemEditor::BufferToPreset(char* entries, newpresetheader* header, bool swapped) {
  BankImages(*presetEffect).BufferToPreset(entries, *header, swapped);
}
void CPresetSystemEditor::BufferToMidiOld(char* data, bool swapped, int floatCount) {
  BankImages(*presetEffect).BufferToMidiOld(data, swapped, floatCount);
}
void CPresetSystemEditor::BufferToMidi(char* entries, newpresetheader* header, bool swapped) {
  BankImages(*presetEffect).BufferToMidi(entries, *header, swapped);
}
long CPresetSystemEditor::BankToBuffer(char** out) {
  return BankImages(*presetEffect).BankToBuffer(out);
}
long CPresetSystemEditor::PresetToBuffer(char** out) {
  return BankImages(*presetEffect).PresetToBuffer(out);
}
long CPresetSystemEditor::MidiToBuffer(char** out) {
  return BankImages(*presetEffect).MidiToBuffer(out);
}

void CPresetSystemEditor::loadBank(bool endianReversed) {
  files.loadBank(endianReversed);
}
void CPresetSystemEditor::saveBank() {
  files.saveBank();
}
void CPresetSystemEditor::saveDefaultBank() {
  stored.save(StoredImage::defaultBank);
}
void CPresetSystemEditor::resetDefaultBank() {
  stored.remove(StoredImage::defaultBank);
}
void CPresetSystemEditor::loadDefaultBank() {
  stored.load(StoredImage::defaultBank);
}
void CPresetSystemEditor::loadPreset(bool endianReversed) {
  files.loadPreset(endianReversed);
}
void CPresetSystemEditor::savePreset() {
  files.savePreset();
}
void CPresetSystemEditor::saveDefaultPreset() {
  stored.save(StoredImage::defaultPreset);
}
void CPresetSystemEditor::resetDefaultPreset() {
  stored.remove(StoredImage::defaultPreset);
}
void CPresetSystemEditor::loadDefaultPreset() {
  stored.load(StoredImage::defaultPreset);
}
void CPresetSystemEditor::storeA() {
  stored.save(StoredImage::memoryA);
}
void CPresetSystemEditor::storeB() {
  stored.save(StoredImage::memoryB);
}
void CPresetSystemEditor::recallA() {
  stored.load(StoredImage::memoryA);
}
void CPresetSystemEditor::recallB() {
  stored.load(StoredImage::memoryB);
}
void CPresetSystemEditor::resetDefaultMidi() {
  stored.remove(StoredImage::defaultMidi);
}
void CPresetSystemEditor::storePathsAndFilenames() {
  stored.storePlaces();
}
void CPresetSystemEditor::recallPathsAndFilenames() {
  stored.recallPlaces();
}
