// The one door to presets, banks and MIDI maps: says what bytes are before anybody reads them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "presetsystem/image/presetimage.h"

namespace presetimage {

// Bytes of a file, of a stored value or of a host's chunk, looked into. They stay the caller's.
struct Image {
  enum class Content {
    foreign,  // another plug-in's, or too short to tell
    unknown,  // ours, of a kind or format that we do not know
    preset,
    bank,
    midiMap,
  };
  enum class Extent {
    whole,
    cut,       // the header names more than is there, or below 0: what is there may be read
    headless,  // nothing may be read: not even the header is there, or nobody knows what it is
  };

  Content content = Content::foreign;
  Extent extent = Extent::headless;
  bool isChunk = false;  // a host's chunk; else a file's or a stored value's bytes
  bool isOld = false;    // of the layouts before the current one, which are read and never written
  // a chunk names us twice, the second time in the bank's header, which no reader looks at
  bool headerIsOurs = true;
  bool swapped = false;  // written in the byte order that is not this machine's

  // What may be read: the entries or the old records, whose words are swapped if `swapped` is set.
  std::span<const unsigned char> body;
  // Of current layouts, in this machine's order. dataSize: at most the body's size.
  newpresetheader header;
  int recordCount = 0;      // of old layouts
  int floatsPerRecord = 0;  // of old layouts; below 0: not even the names are whole
  int presetToSelect = 0;   // of a bank, 0..31
};

// Where the bytes come from.
struct Origin {
  // false: a host named no size, the bytes are as many as a chunk has at most
  bool sizeKnown = true;
  bool orderReversed = false;  // the user says that a file is in the other byte order than it tells
  bool whole = true;           // false: the beginning of a file that is too long to be held
};

// Looks at no more than `bytes`, allocates nothing and refuses nothing. Any thread.
Image identify(std::span<const unsigned char> bytes, std::int32_t uniqueID,
               const Origin& origin = {});

// Read what `image` holds by the readers of its layout, into a bank or preset as those say;
// `stopped` where it holds something else. oldDummies: the slots that old layouts leave out.
Reading readBank(const Image& image, const DummySlots& oldDummies,
                 const ACombProgram& defaultPreset, Bank& bank, InvalidParameterListener& repaired);
Reading readPreset(const Image& image, const DummySlots& oldDummies, ACombProgram& preset);

}  // namespace presetimage
