// Chooses among the kernel's forms by what the processor has.
#include "effect/kernelforms.h"

namespace kernel {

// The processor is asked by the compiler, not by the build: a universal bundle is built in one go.
#if defined(__x86_64__)
const Form* const* usableForms() {
  static constexpr const Form* kAll[] = {&avx2, &baseline, nullptr};
  __builtin_cpu_init();
  return __builtin_cpu_supports("avx2") != 0 ? kAll : kAll + 1;
}
#else
const Form* const* usableForms() {
  static constexpr const Form* kAll[] = {&baseline, nullptr};
  return kAll;
}
#endif

}  // namespace kernel
