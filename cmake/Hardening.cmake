# What is given away of the build: guards against mistakes in what reads files and draws, and no
# path of the machine that built it. The kernel has none of the guards: its loops go over buffers of
# their own, and every instruction in them is paid for each frame.
set(TRELVAN_HARDENED vstgui trelvan_images trelvan_effect trelvan Trelvan
  trelvan_hosted trelvan_lv2 TrelvanLv2 widen_host widen)
set(TRELVAN_WITHOUT_GUARDS ${TRELVAN_KERNEL_FORMS})
list(TRANSFORM TRELVAN_WITHOUT_GUARDS PREPEND trelvan_kernel_)

foreach(target IN LISTS TRELVAN_HARDENED TRELVAN_WITHOUT_GUARDS)
  if(NOT TARGET ${target})
    continue()  # widen is left out of some builds
  endif()
  # Of several that fit the last one is taken.
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
    -ffile-prefix-map=${toolkit_source}=vstgui
    -ffile-prefix-map=${PROJECT_BINARY_DIR}=build>)
  if(NOT CMAKE_SYSTEM_NAME STREQUAL "Linux" OR target IN_LIST TRELVAN_WITHOUT_GUARDS)
    continue()
  endif()
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:
    -fstack-protector-strong -fstack-clash-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
  get_target_property(kind ${target} TYPE)
  if(kind MATCHES "MODULE_LIBRARY|EXECUTABLE")
    target_link_options(${target} PRIVATE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
  endif()
endforeach()
