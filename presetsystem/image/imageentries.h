// The entries of an image as the writer and the readers share them.
#pragma once

#include <cstddef>
#include <cstdint>

#include "presetsystem/image/presetimage.h"

namespace presetimage {

// The first word of an entry.
enum class EntryKind : std::int32_t { name = 0, parameter = 1, midiAssignment = 2 };

constexpr std::size_t kEntryHeadSize = 12;  // bytes: kind, payload size, preset index

// `value` brought into 0..1, of which `repaired` hears; a NaN comes back as it is.
float repairedValue(float value, std::int32_t parameter, std::int32_t preset,
                    const char (&name)[ACombProgram::kNameSize],
                    InvalidParameterListener& repaired);

// False for a NaN.
constexpr bool isNormalised(float value) {
  return value >= 0.0F && value <= 1.0F;
}

}  // namespace presetimage
