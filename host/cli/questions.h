// What a run says of the effect: --info, --list-params, --list-presets.
#pragma once

#include "host/cli/console.h"
#include "host/options/arguments.h"
#include "host/vst/effect.h"

// In words, or with --json all of it in one document; nothing where nothing was asked.
void sayWhatWasAsked(Effect& effect, const Arguments& arguments, Console& console);
