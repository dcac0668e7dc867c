// What the effect's LV2 plug-ins and their parts are called; never changed, since sessions name
// them.
#pragma once

// Not of the form "a://b": Audacity's scripts take no such names.
#define TRELVAN_LV2_URI "urn:orv:trelvan"

namespace lv2uris {

constexpr const char* kStereo = TRELVAN_LV2_URI;
constexpr const char* kMono = TRELVAN_LV2_URI ":mono";  // mono in, stereo out
constexpr const char* kWindow = TRELVAN_LV2_URI ":window";
constexpr const char* kChunk = TRELVAN_LV2_URI ":chunk";  // of a state: the VST 2.4 chunk's bytes

}  // namespace lv2uris

#undef TRELVAN_LV2_URI
