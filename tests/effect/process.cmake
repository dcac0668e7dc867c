# Tests of the signal processing: against the reference, of its properties, and of the rules of
# the audio thread.
include(${PROJECT_SOURCE_DIR}/tests/support/reference.cmake)

trelvan_add_test(processtest effect
  SOURCES trelvanprocesstest.cpp processchannelstest.cpp processautomationtest.cpp
  LIBRARIES trelvan trelvan_reference)

trelvan_add_test(kerneltest effect
  SOURCES kerneltest.cpp
  LIBRARIES trelvan_effect trelvan_reference)

trelvan_add_test(sharedratestest "effect;threads"
  SOURCES sharedratestest.cpp
  LIBRARIES trelvan_effect)

# Sanitizers put symbols of their own into every object, and a Mac's hold two processors' code.
if(NOT TRELVAN_SANITIZE AND NOT APPLE)
  foreach(form IN LISTS TRELVAN_KERNEL_FORMS)
    add_test(NAME KernelObject.SharesNothing.${form}
      COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/kernelsymbols.sh ${CMAKE_NM}
        $<TARGET_OBJECTS:trelvan_kernel_${form}>)
    set_tests_properties(KernelObject.SharesNothing.${form} PROPERTIES LABELS effect TIMEOUT 20)
  endforeach()
endif()

trelvan_add_test(propertiestest effect
  SOURCES propertiestest.cpp impulsetest.cpp glidetest.cpp metertest.cpp
  LIBRARIES trelvan trelvan_reference)

trelvan_add_test(processthreadstest threads
  SOURCES processthreadstest.cpp parameterthreadstest.cpp
  LIBRARIES trelvan trelvan_reference)

# Sanitizers bring operator new, the allocator and the mutexes themselves, so nothing else can stand
# in front of them.
if(NOT TRELVAN_SANITIZE)
  set(watch realtimewatch.cpp)
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    list(APPEND watch realtimewatch_glibc.cpp)
  endif()
  trelvan_add_test(realtimetest effect
    SOURCES realtimetest.cpp ${watch}
    LIBRARIES trelvan trelvan_reference ${CMAKE_DL_LIBS})
endif()
