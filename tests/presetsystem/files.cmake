# Tests of preset and bank files, stored values and the manual button.
trelvan_add_test(fileoperationstest "presetsystem;threads"
  SOURCES presetfilestest.cpp presetfilessavingtest.cpp presetfilesdialogtest.cpp
    storedpresetstest.cpp lockedstoretest.cpp manualtest.cpp messagestest.cpp
    ${PROJECT_SOURCE_DIR}/tests/support/failingmemory.cpp
  LIBRARIES trelvan)

# The preset bar in a frame without a display.
trelvan_add_test(presetbartest "presetsystem;threads"
  SOURCES barclickstest.cpp bartipstest.cpp
  LIBRARIES trelvan)
