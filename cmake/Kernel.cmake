# The kernel, compiled once for each vector unit; kernelforms.cpp chooses. TRELVAN_KERNELS: the
# object files; TRELVAN_KERNEL_FORMS: the forms' names.
set(TRELVAN_KERNELS)
set(TRELVAN_KERNEL_FORMS)

# trelvan_add_kernel(<name in the code> [flags]): one form.
function(trelvan_add_kernel name)
  add_library(trelvan_kernel_${name} OBJECT effect/kernel.cpp)
  target_link_libraries(trelvan_kernel_${name} PRIVATE trelvan_options)
  target_compile_definitions(trelvan_kernel_${name} PRIVATE TRELVAN_KERNEL=${name})
  # Vectors in every configuration, also where a loop says itself that it may be one (omp simd,
  # which needs no library), but in loops only: pointers that were stored one by one just before
  # must not be read as one vector, which waits until all have left for memory. Short loops that
  # fill or copy stay loops, since a call to the library costs more than they do.
  target_compile_options(trelvan_kernel_${name} PRIVATE
    -O3 -fopenmp-simd -fno-tree-slp-vectorize
    $<$<CXX_COMPILER_ID:GNU>:-fno-tree-loop-distribute-patterns> ${ARGN})
  if(TRELVAN_SANITIZE)
    # What sanitizers put into loops keeps clang from making vectors of them.
    target_compile_options(trelvan_kernel_${name} PRIVATE
      $<$<CXX_COMPILER_ID:Clang>:-Wno-pass-failed>)
  endif()
  set(TRELVAN_KERNELS ${TRELVAN_KERNELS} $<TARGET_OBJECTS:trelvan_kernel_${name}> PARENT_SCOPE)
  set(TRELVAN_KERNEL_FORMS ${TRELVAN_KERNEL_FORMS} ${name} PARENT_SCOPE)
endfunction()

trelvan_add_kernel(baseline)
if(APPLE)
  if("x86_64" IN_LIST CMAKE_OSX_ARCHITECTURES)
    # For one of the two processors of a universal build; nothing uses the other one's.
    trelvan_add_kernel(avx2 "SHELL:-Xarch_x86_64 -mavx2")
  endif()
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|amd64|AMD64)$")
  trelvan_add_kernel(avx2 -mavx2)
endif()
