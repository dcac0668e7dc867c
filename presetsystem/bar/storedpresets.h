// What the preset system keeps in the user's preferences: defaults, A and B, folder and file names.
#pragma once

#include <cstdint>

#include "presetsystem/bar/fileplaces.h"

class CPresetSystemEffect;
class PreferenceStore;

enum class StoredImage : std::uint8_t { defaultBank, defaultPreset, defaultMidi, memoryA, memoryB };

// All instances share the preferences; what is stored is on disk before the call returns. Nothing
// is reported: what is missing, foreign or refused leaves the bank as it was. User-interface
// thread. Of a MIDI map there is only the removal.
class StoredPresets {
 public:
  StoredPresets(CPresetSystemEffect* storesEffect, FilePlaces& kept);

  void loadDefaults();  // bank, preset 0, preset into it, places; the preferences are read once
  void save(StoredImage which);
  void load(StoredImage which);  // a preset goes into the current one
  void remove(StoredImage which);

  void storePlaces();  // writes nothing while they are as they were recalled or stored last
  void recallPlaces();

 private:
  void load(const PreferenceStore& preferences, StoredImage which);
  void recallPlaces(const PreferenceStore& preferences);

  CPresetSystemEffect* effect;
  FilePlaces& places;
  FilePlaces storedPlaces;  // as recalled or stored last
};
