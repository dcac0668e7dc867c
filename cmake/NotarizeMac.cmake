# Run by cpack when the pkg is there, for macOS: has it notarised where a profile was named, and
# fastens the notary's ticket to it.
cmake_policy(VERSION 3.25)
if(CPACK_TRELVAN_NOTARY_PROFILE STREQUAL "")
  return()
endif()
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  execute_process(
    COMMAND xcrun notarytool submit "${package}"
      --keychain-profile "${CPACK_TRELVAN_NOTARY_PROFILE}" --wait
    COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND xcrun stapler staple "${package}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
