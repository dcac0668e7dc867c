// Everything that a host usually does with an effect from its loading to its end, stage by stage.
#pragma once

#include <functional>

#include "host/validate/trial.h"

// Calls `after` when a stage is over: "loading", "processing" and the like, for words such as
// "after processing". Texts that the effect gives are passed to `text`, where there is one.
void liveThrough(Trial& trial, const std::function<void(const char* stage)>& after,
                 const std::function<void(const char* text)>& text = {});
