# Label mac-macho too: CMake's and Homebrew's part of the build.
add_test(NAME MacBuild.IsConfiguredAndGeneratedAsAWhole COMMAND python3 ${CMAKE_CURRENT_SOURCE_DIR}/configuretest.py
  ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_BINARY_DIR}/configure ${TRELVAN_TOOLKIT_SOURCE}
  -DCMAKE_LIBRARY_ARCHITECTURE=${CMAKE_LIBRARY_ARCHITECTURE})  # where this machine has GoogleTest
set_tests_properties(MacBuild.IsConfiguredAndGeneratedAsAWhole PROPERTIES LABELS mac-macho TIMEOUT 60)

add_test(NAME MacBuild.AsksHomebrewForItsFormulasOnly COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/homebrew.sh
  ${PROJECT_SOURCE_DIR})
set_tests_properties(MacBuild.AsksHomebrewForItsFormulasOnly PROPERTIES LABELS mac-macho TIMEOUT 60)
