// The forms of the kernel, and which of them this processor can run.
#pragma once

#include "effect/kernel.h"

namespace kernel {

extern const Form baseline;  // whatever every processor of its kind has
extern const Form avx2;      // x86-64 only

// A list with a null pointer at its end, the best form first. Any thread.
const Form* const* usableForms();

}  // namespace kernel
