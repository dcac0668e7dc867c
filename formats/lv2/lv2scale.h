// The scale at which an LV2 host wants the window, which is one of its options.
#pragma once

#include <lv2/core/lv2.h>

// As the host says it, which may be nonsense; 0 where it says none, or nothing that is a number in
// single precision. features: those of a window.
float scaleOption(const LV2_Feature* const* features);
