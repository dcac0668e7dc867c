// What an effect says of itself, its parameters and its presets, for scripts.
#pragma once

#include "host/cli/json.h"
#include "host/vst/effect.h"

Json effectJson(Effect& effect);      // --info
Json parametersJson(Effect& effect);  // --list-params
Json presetsJson(Effect& effect);     // --list-presets
