// Default bank and preset, memories, folder and file names, in the user's preferences.
#include "presetsystem/bar/storedpresets.h"

#include <vector>

#include "platform/preferencestore.h"
#include "presetsystem/store/bankimages.h"
#include "presetsystem/store/cpresetsystemeffect.h"

namespace {

constexpr char kApplicationId[] = "com.orv.trelvan";
constexpr char kDirectoryKey[] = "CurrDir";
constexpr char kBankNameKey[] = "CurrBank";
constexpr char kPresetNameKey[] = "CurrPreset";
constexpr std::size_t kLongestText = 256;  // bytes with the terminator; a longer one is not taken

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
    : effect(storesEffect), places(kept) {}

void StoredPresets::loadDefaults() {
  const PreferenceStore preferences(kApplicationId);
  load(preferences, StoredImage::defaultBank);
  effect->setPresetNo(0);
  load(preferences, StoredImage::defaultPreset);
  recallPlaces(preferences);
}

void StoredPresets::save(StoredImage which) {
  unsigned char image[presetimage::kBankImageSize];  // the largest of them
  const std::span<unsigned char, presetimage::kBankImageSize> bytes(image);
  BankImages images(*effect);
  const std::size_t size = which == StoredImage::defaultBank
                               ? images.writeBank(bytes)
                               : images.writePreset(bytes.first<presetimage::kPresetImageSize>());
  PreferenceStore preferences(kApplicationId);
  preferences.setBytes(keyOf(which), image, size);
  preferences.synchronise();
}

void StoredPresets::load(StoredImage which) {
  load(PreferenceStore(kApplicationId), which);
}

void StoredPresets::load(const PreferenceStore& preferences, StoredImage which) {
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
  PreferenceStore preferences(kApplicationId);
  preferences.remove(keyOf(which));
  preferences.synchronise();
}

// Instances come and go by the dozen, most of them without a window ever: those that have nothing
// new write nothing, and take nothing back that another one has stored meanwhile.
void StoredPresets::storePlaces() {
  if (places == storedPlaces) return;
  PreferenceStore preferences(kApplicationId);
  preferences.setString(kDirectoryKey, places.currentDirectory);
  preferences.setString(kBankNameKey, places.bankFileName);
  preferences.setString(kPresetNameKey, places.presetFileName);
  if (preferences.synchronise()) storedPlaces = places;
}

void StoredPresets::recallPlaces() {
  recallPlaces(PreferenceStore(kApplicationId));
}

// All three or none: an instance whose making breaks off in between would store the ones that it
// lacks as empty.
void StoredPresets::recallPlaces(const PreferenceStore& preferences) {
  FilePlaces recalled = places;
  preferences.getString(kDirectoryKey, recalled.currentDirectory, kLongestText);
  preferences.getString(kBankNameKey, recalled.bankFileName, kLongestText);
  preferences.getString(kPresetNameKey, recalled.presetFileName, kLongestText);
  places = storedPlaces = recalled;
}
