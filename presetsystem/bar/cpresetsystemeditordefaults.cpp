// What the preset system keeps in the user's preferences: defaults, A/B memories, folder and file names.
#include "editor/base/pressguard.h"
#include "platform/prefs.h"
#include "presetsystem/bar/cpresetsystemeditor.h"
#include "presetsystem/store/cpresetsystemeffect.h"

namespace {

constexpr char kApplicationId[] = "com.orv.trelvan";

constexpr char kDefaultBankKey[] = "DefaultBank";
constexpr char kDefaultPresetKey[] = "DefaultPreset";
constexpr char kDefaultMidiKey[] = "DefaultMidi";
constexpr char kMemoryAKey[] = "MemoAPreset";
constexpr char kMemoryBKey[] = "MemoBPreset";
constexpr char kDirectoryKey[] = "CurrDir";
constexpr char kBankNameKey[] = "CurrBank";
constexpr char kPresetNameKey[] = "CurrPreset";

constexpr std::size_t kLongestText = 256;  // bytes with the terminator; a longer one is not taken

}  // namespace

CPresetSystemEditor::~CPresetSystemEditor() {
  CPresetSystemEditor::storePathsAndFilenames();
}

void CPresetSystemEditor::loadDefaults() {
  const PreferenceStore preferences(kApplicationId);
  startupPreferences = &preferences;
  loadDefaultBank();
  presetEffect->setPresetNo(0);
  loadDefaultPreset();
  loadDefaultMidi();
  recallPathsAndFilenames();
  startupPreferences = nullptr;
}

void CPresetSystemEditor::storeImage(const char* key, long (CPresetSystemEditor::*writer)(char** out)) {
  char* image = nullptr;
  const long size = (this->*writer)(&image);
  PreferenceStore preferences(kApplicationId);
  preferences.setBytes(key, image, static_cast<std::size_t>(size));
  preferences.synchronise();
  delete[] image;
}

std::vector<char> CPresetSystemEditor::storedImage(const char* key) const {
  std::vector<unsigned char> value;
  if (startupPreferences != nullptr) {
    startupPreferences->getBytes(key, value);
  } else {
    PreferenceStore(kApplicationId).getBytes(key, value);
  }
  return {value.begin(), value.end()};
}

void CPresetSystemEditor::removeStored(const char* key) {
  PreferenceStore preferences(kApplicationId);
  preferences.remove(key);
  preferences.synchronise();
}

void CPresetSystemEditor::saveDefaultBank() {
  storeImage(kDefaultBankKey, &CPresetSystemEditor::BankToBuffer);
}

void CPresetSystemEditor::resetDefaultBank() {
  removeStored(kDefaultBankKey);
}

void CPresetSystemEditor::loadDefaultBank() {
  std::vector<char> image = storedImage(kDefaultBankKey);
  takeBankImage(image, true, false);
}

void CPresetSystemEditor::saveDefaultPreset() {
  storeImage(kDefaultPresetKey, &CPresetSystemEditor::PresetToBuffer);
}

void CPresetSystemEditor::resetDefaultPreset() {
  removeStored(kDefaultPresetKey);
}

void CPresetSystemEditor::loadDefaultPreset() {
  recallPreset(kDefaultPresetKey);
}

void CPresetSystemEditor::storeA() {
  storeImage(kMemoryAKey, &CPresetSystemEditor::PresetToBuffer);
}

void CPresetSystemEditor::storeB() {
  storeImage(kMemoryBKey, &CPresetSystemEditor::PresetToBuffer);
}

void CPresetSystemEditor::recallA() {
  recallPreset(kMemoryAKey);
}

void CPresetSystemEditor::recallB() {
  recallPreset(kMemoryBKey);
}

void CPresetSystemEditor::recallPreset(const char* key) {
  std::vector<char> image = storedImage(key);
  takePresetImage(image, false);
}

void CPresetSystemEditor::resetDefaultMidi() {
  removeStored(kDefaultMidiKey);
}

std::array<std::string, 3> CPresetSystemEditor::pathsAndFilenames() const {
  return {currentDirectory, bankFileName, presetFileName};
}

// Instances come and go by the dozen, most of them without a window ever: those that have nothing new write nothing,
// and take nothing back that another one has stored meanwhile.
void CPresetSystemEditor::storePathsAndFilenames() {
  if (pathsAndFilenames() == storedPaths) return;
  PreferenceStore preferences(kApplicationId);
  preferences.setString(kDirectoryKey, currentDirectory);
  preferences.setString(kBankNameKey, bankFileName);
  preferences.setString(kPresetNameKey, presetFileName);
  if (preferences.synchronise()) storedPaths = pathsAndFilenames();
}

void CPresetSystemEditor::recallPathsAndFilenames() {
  const PreferenceStore own(kApplicationId);
  const PreferenceStore& preferences = startupPreferences != nullptr ? *startupPreferences : own;
  preferences.getString(kDirectoryKey, currentDirectory, kLongestText);
  preferences.getString(kBankNameKey, bankFileName, kLongestText);
  preferences.getString(kPresetNameKey, presetFileName, kLongestText);
  storedPaths = pathsAndFilenames();
}
