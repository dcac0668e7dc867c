# Tests of the signal processing: against the reference, of its properties, and of the rules of the audio thread.
add_library(trelvan_reference STATIC reference.cpp)
target_link_libraries(trelvan_reference PUBLIC trelvan_options)
target_compile_options(trelvan_reference PRIVATE -O3)  # benchmarks compare with it

trelvan_add_test(processtest effect
  SOURCES processtest.cpp processchannelstest.cpp processautomationtest.cpp
  LIBRARIES trelvan trelvan_reference)

trelvan_add_test(propertiestest effect
  SOURCES propertiestest.cpp impulsetest.cpp glidetest.cpp metertest.cpp
  LIBRARIES trelvan trelvan_reference)

trelvan_add_test(processthreadstest threads
  SOURCES processthreadstest.cpp
  LIBRARIES trelvan trelvan_reference)

# Sanitizers bring operator new, the allocator and the mutexes themselves, so nothing else can stand in front of them.
if(NOT TRELVAN_SANITIZE)
  set(watch realtimewatch.cpp)
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    list(APPEND watch realtimewatch_glibc.cpp)
  endif()
  trelvan_add_test(realtimetest effect
    SOURCES realtimetest.cpp ${watch}
    LIBRARIES trelvan trelvan_reference ${CMAKE_DL_LIBS})
endif()
