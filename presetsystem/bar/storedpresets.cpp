// Default bank and preset, memories, folder and file names, in the user's preferences.
#include "presetsystem/bar/storedpresets.h"

#include <algorithm>
#include <atomic>
#include <vector>

#include "presetsystem/store/bankimages.h"
#include "presetsystem/store/cpresetsystemeffect.h"

namespace {

constexpr char kApplicationId[] = "com.orv.trelvan";
constexpr char kDirectoryKey[] = "CurrDir";
constexpr char kBankNameKey[] = "CurrBank";
constexpr char kPresetNameKey[] = "CurrPreset";
constexpr std::size_t kLongestText = 256;  // bytes with the terminator; a longer one is not taken
constexpr auto kLongestPause = std::chrono::minutes(1);  // between two tries
// At an instance's end, for what would be lost. A host ends them by the dozen: once a process.
constexpr auto kLastWait = std::chrono::seconds(1);
std::atomic<bool> lastWaitWasInVain{false};

const char* keyOf(StoredImage which) {
  switch (which) {
    case StoredImage::defaultBank:
      return "DefaultBank";
    case StoredImage::defaultPreset:
      return "DefaultPreset";
    case StoredImage::defaultMidi:
      return "DefaultMidi";
    case StoredImage::memoryA:
      return "MemoAPreset";
    case StoredImage::memoryB:
      return "MemoBPreset";
  }
  return "";
}

}  // namespace

StoredPresets::StoredPresets(CPresetSystemEffect* storesEffect, FilePlaces& kept)
    : effect(storesEffect), places(kept), preferences(kApplicationId) {}

void StoredPresets::loadDefaults() {
  preferences.readAgain();
  read(StoredImage::defaultBank);
  effect->setPresetNo(0);
  read(StoredImage::defaultPreset);
  readPlaces();
  preferences.readAgain();  // lets go of what was read: most instances never ask again
}

void StoredPresets::save(StoredImage which) {
  unsigned char image[presetimage::kBankImageSize];  // the largest of them
  const std::span<unsigned char, presetimage::kBankImageSize> bytes(image);
  BankImages images(*effect);
  const std::size_t size = which == StoredImage::defaultBank
                               ? images.writeBank(bytes)
                               : images.writePreset(bytes.first<presetimage::kPresetImageSize>());
  preferences.setBytes(keyOf(which), image, size);
  write();
}

void StoredPresets::load(StoredImage which) {
  preferences.readAgain();
  read(which);
}

void StoredPresets::read(StoredImage which) {
  std::vector<unsigned char> value;
  preferences.getBytes(keyOf(which), value);
  const presetimage::Image image = presetimage::identify(value, effect->getUniqueID());
  if (which == StoredImage::defaultBank) {
    BankImages(*effect).takeBank(image);
  } else {
    BankImages(*effect).takePreset(image);
  }
}

void StoredPresets::remove(StoredImage which) {
  preferences.remove(keyOf(which));
  write();
}

// Instances come and go by the dozen, most of them without a window ever: those that have nothing
// new write nothing, and take nothing back that another one has stored meanwhile.
void StoredPresets::storePlaces() {
  if (places == storedPlaces) return;
  setPlaces();
  write();
}

void StoredPresets::setPlaces() {
  preferences.setString(kDirectoryKey, places.currentDirectory);
  preferences.setString(kBankNameKey, places.bankFileName);
  preferences.setString(kPresetNameKey, places.presetFileName);
  storedPlaces = places;
}

void StoredPresets::recallPlaces() {
  preferences.readAgain();
  readPlaces();
}

// All three or none: an instance whose making breaks off in between would store the ones that it
// lacks as empty.
void StoredPresets::readPlaces() {
  FilePlaces recalled = places;
  preferences.getString(kDirectoryKey, recalled.currentDirectory, kLongestText);
  preferences.getString(kBankNameKey, recalled.bankFileName, kLongestText);
  preferences.getString(kPresetNameKey, recalled.presetFileName, kLongestText);
  places = storedPlaces = recalled;
}

// A stopped process that holds the lock would hold the host's thread too, at every click.
void StoredPresets::write() {
  const auto longestWait = waited ? std::chrono::milliseconds(0) : PreferenceStore::kLongestWait;
  waited = !preferences.synchronise(longestWait);
  if (!waited) pause = kShortestPause;
  nextTry = std::chrono::steady_clock::now() + pause;
}

// What never succeeds, on a disk that stays full for instance, costs the host's thread ever less.
void StoredPresets::tryAgain() {
  if (!preferences.hasChanges() || std::chrono::steady_clock::now() < nextTry) return;
  pause = std::min<std::chrono::seconds>(2 * pause, kLongestPause);
  write();
}

// There is no next time to wait for.
void StoredPresets::storeLast() {
  if (places != storedPlaces) setPlaces();
  if (!preferences.hasChanges()) return;
  const bool brief = lastWaitWasInVain.load(std::memory_order_relaxed);
  if (!preferences.synchronise(brief ? PreferenceStore::kLongestWait : kLastWait))
    lastWaitWasInVain.store(true, std::memory_order_relaxed);
}
