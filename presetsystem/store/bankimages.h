// Images of presets, banks and MIDI maps, between the store's bank and everybody's bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "presetsystem/image/image.h"

class CPresetSystemEffect;

// Reading and writing for the host's chunk, files and stored values alike. A finished reading
// selects the preset and tells the store's listener, but for an old chunk, of which the listener is
// told nothing; one that is refused leaves the bank as it was, but for what takeChunk says.
// Values outside 0..1 that a bank is saved or loaded with are told on the standard error stream.
// Thread of the store's own operations.
class BankImages {
 public:
  explicit BankImages(CPresetSystemEffect& store) : effect(store) {}

  // Of files and stored values; what is not of that content is ignored. A preset goes into the
  // current one; one that names a negative number of entries resets it to the default preset, of
  // which neither host nor listener is told.
  void takeBank(const presetimage::Image& image);
  void takePreset(const presetimage::Image& image);
  // False: it is no chunk of ours, or an old one with a value outside 0..1, of which what was read
  // before that value stays. A current one that is refused leaves the bank and gives true.
  bool takeChunk(const presetimage::Image& image);

  // Return the size in bytes and allocate nothing.
  std::size_t writeChunk(std::span<unsigned char, presetimage::kChunkSize> out);
  std::size_t writeBank(std::span<unsigned char, presetimage::kBankImageSize> out);
  std::size_t writePreset(std::span<unsigned char, presetimage::kPresetImageSize> out);

  // The same for callers with pointers; see CPresetSystemEditor.
  void BufferToBankOld(const char* data, bool swapped, int recordCount, int floatsPerRecord);
  void BufferToBank(const char* entries, const newpresetheader& header, bool swapped);
  void BufferToPresetOld(const char* data, bool swapped, int floatCount);
  void BufferToPreset(const char* entries, const newpresetheader& header, bool swapped);
  void BufferToMidiOld(const char* data, bool swapped, int floatCount);
  void BufferToMidi(const char* entries, const newpresetheader& header, bool swapped);
  long BankToBuffer(char** out);
  long PresetToBuffer(char** out);
  long MidiToBuffer(char** out);

 private:
  void readBank(const presetimage::Image& image);
  bool readOldChunk(const presetimage::Image& image);
  std::int32_t currentPreset() const;

  CPresetSystemEffect& effect;
};
