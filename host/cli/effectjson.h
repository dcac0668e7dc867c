// What an effect says of itself, its parameters and its presets, for scripts.
#pragma once

#include <vector>

#include "host/cli/json.h"
#include "host/vst/effect.h"
#include "host/vst/pluginsearch.h"

Json effectJson(Effect& effect);                                // --info
Json parametersJson(Effect& effect);                            // --list-params
Json presetsJson(Effect& effect);                               // --list-presets
Json pluginsJson(const std::vector<InstalledPlugin>& plugins);  // --list-plugins
