// What the preset system keeps in the user's preferences: defaults, A and B, folder and file names.
#pragma once

#include <chrono>
#include <cstdint>

#include "platform/preferencestore.h"
#include "presetsystem/bar/fileplaces.h"

class CPresetSystemEffect;

enum class StoredImage : std::uint8_t { defaultBank, defaultPreset, defaultMidi, memoryA, memoryB };

// All instances share the preferences; what is stored is on disk before the call returns. Where
// that cannot be, for another process that keeps the store locked or a disk that is full, this
// instance remembers it and tries again: at the next store, from the idle passes after a second and
// then after pauses that double up to a minute, and at its end. The end waits a second for it, and
// 50 ms once a second was in vain in this process; what cannot be stored then is lost, as is what
// another instance has stored something newer for. Nothing is reported: what is missing, foreign or
// refused leaves the bank as it was. User-interface thread. Of a MIDI map there is only the
// removal.
class StoredPresets {
 public:
  StoredPresets(CPresetSystemEffect* storesEffect, FilePlaces& kept);

  void loadDefaults();  // bank, preset 0, preset into it, places; the preferences are read once
  void save(StoredImage which);
  void load(StoredImage which);  // a preset goes into the current one
  void remove(StoredImage which);

  void storePlaces();  // writes nothing while they are as they were recalled or stored last
  void recallPlaces();

  void tryAgain();   // from every idle pass
  void storeLast();  // the places, and what was remembered; the instance ends

 private:
  void read(StoredImage which);
  void readPlaces();
  void setPlaces();
  void write();

  static constexpr std::chrono::seconds kShortestPause{1};  // between two tries

  CPresetSystemEffect* effect;
  FilePlaces& places;
  FilePlaces storedPlaces;      // as recalled or stored last
  PreferenceStore preferences;  // with what waits to be written
  bool waited = false;          // in vain: the host's thread does not wait once more
  std::chrono::seconds pause = kShortestPause;
  std::chrono::steady_clock::time_point nextTry;
};
