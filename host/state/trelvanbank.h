// Trelvan's bank as it travels in the chunk: taken apart, changed by preset and bank files, and put
// together again.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "presetsystem/image/presetimage.h"

// The effect shows hosts one program, so its 32 presets are reached through the chunk. Pure: bytes
// in, bytes out.
class TrelvanBank {
 public:
  using Bytes = std::vector<unsigned char>;

  // chunk: of the current format, in either byte order. source: what to name in a Failure.
  TrelvanBank(std::span<const unsigned char> chunk, std::int32_t uniqueID,
              const std::string& source);

  // What can be said of a state before the effect has it, for it is silent about some damage.
  // States of the old format pass: of those the effect itself says what is wrong. Throws Failure.
  static void checkState(std::span<const unsigned char> chunk, std::int32_t uniqueID,
                         const std::string& source);

  const presetimage::Bank& presets() const { return bank; }
  int current() const { return currentPreset; }  // 0..31
  void select(int preset) { currentPreset = preset; }

  // The contents of an .orv and an .orb file, old or new, in either byte order. The preset goes
  // into the current place; a bank replaces all and selects its first preset. Throw Failure and
  // change nothing where a file is another plug-in's, of the other kind, damaged, or holds values
  // that cannot be taken.
  void loadPreset(std::span<const unsigned char> file, const std::string& source);
  void loadBank(std::span<const unsigned char> file, const std::string& source);

  Bytes chunk() const;
  // What the plug-in itself would save: the current preset, and the bank.
  Bytes presetFile() const;
  Bytes bankFile() const;

  // Values that were met outside 0..1 and repaired, a line for each; emptied by the call.
  std::vector<std::string> takeNotes();

 private:
  std::int32_t id;
  presetimage::Bank bank;
  int currentPreset = 0;
  presetimage::InvalidParameters repaired;
};
