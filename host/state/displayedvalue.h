// Finds the value of a parameter by the text that the effect shows for it.
#pragma once

#include <optional>
#include <string>

#include "host/vst/effect.h"

// What a parameter shows is only to be had by setting it: the whole range is gone through in steps,
// and between two of them where a number lies between theirs. The parameter is as it was after.

// A value, 0..1, for which `effect` shows `typed`: the text in any case, with the unit or without,
// or the number as exactly as it is shown or typed, whichever is coarser. Of a range of values that
// all show it, the middle, but an end of 0..1 that is among them itself; where it is shown always,
// the present one. None where there is none.
std::optional<float> findDisplayed(Effect& effect, int index, const std::string& typed);

// Whether it shows this for the value, by the same rule.
bool showsFor(Effect& effect, int index, float value, const std::string& typed);
// "24.0 m", at present.
std::string shownText(Effect& effect, int index);
