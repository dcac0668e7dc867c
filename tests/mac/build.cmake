# Label mac-macho too: CMake's, Homebrew's and the scripts' part of the build. Label mac-mutants:
# whether faults can still be planted.
add_test(NAME MacBuild.IsConfiguredAndGeneratedAsAWhole
  COMMAND python3 ${CMAKE_CURRENT_SOURCE_DIR}/configuretest.py
  ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_BINARY_DIR}/configure ${TRELVAN_TOOLKIT_SOURCE}
  -DCMAKE_LIBRARY_ARCHITECTURE=${CMAKE_LIBRARY_ARCHITECTURE})  # where this machine has GoogleTest
set_tests_properties(MacBuild.IsConfiguredAndGeneratedAsAWhole
  PROPERTIES LABELS mac-macho TIMEOUT 60)

# Works on what the Mach-O check leaves.
add_test(NAME MacBuild.SignsAgainWhenInfoPlistChanges
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/signature.sh
  ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_BINARY_DIR}/macho)
set_tests_properties(MachO PROPERTIES FIXTURES_SETUP mac-macho-build)
set_tests_properties(MacBuild.SignsAgainWhenInfoPlistChanges PROPERTIES LABELS mac-macho TIMEOUT 120
  FIXTURES_REQUIRED mac-macho-build)

add_test(NAME MacBuild.AsksHomebrewForItsFormulasOnly
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/homebrew.sh ${PROJECT_SOURCE_DIR})
set_tests_properties(MacBuild.AsksHomebrewForItsFormulasOnly PROPERTIES LABELS mac-macho TIMEOUT 60)

add_test(NAME MacBuild.WritesTheFactorysPresetsAndNotThePersons
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/factory.sh ${PROJECT_SOURCE_DIR} ${CMAKE_COMMAND})
set_tests_properties(MacBuild.WritesTheFactorysPresetsAndNotThePersons
  PROPERTIES LABELS mac-macho TIMEOUT 60)

add_test(NAME MacBuild.ScriptsNeedNothingThatMacOSHasNot
  COMMAND python3 ${CMAKE_CURRENT_SOURCE_DIR}/scripts.py ${PROJECT_SOURCE_DIR})
set_tests_properties(MacBuild.ScriptsNeedNothingThatMacOSHasNot
  PROPERTIES LABELS mac-macho TIMEOUT 60)

add_test(NAME MacMutants.CanBePlantedAndLookedFor
  COMMAND python3 ${CMAKE_CURRENT_SOURCE_DIR}/mutants.py --check ${PROJECT_BINARY_DIR})
set_tests_properties(MacMutants.CanBePlantedAndLookedFor PROPERTIES LABELS mac-mutants TIMEOUT 60)
