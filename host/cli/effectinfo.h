// Everything that an effect says of itself: --info.
#pragma once

#include <string>

#include "host/vst/effect.h"

std::string describeEffect(Effect& effect);
