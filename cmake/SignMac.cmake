# Run by cpack before it packs, for macOS: signs what is in the pkg with the identity that was
# named. The build has signed the bundle ad hoc, which is enough for the machine that built it.
cmake_policy(VERSION 3.25)
if(CPACK_TRELVAN_SIGNING_IDENTITY STREQUAL "-")
  return()
endif()
file(GLOB_RECURSE programs "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/widen")
list(FILTER programs INCLUDE REGEX "/bin/widen$")
file(GLOB_RECURSE infos "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/Info.plist")
list(TRANSFORM infos REPLACE "/Contents/Info.plist$" "")
foreach(signed IN LISTS programs infos)
  # The hardened runtime and a time stamp are what a notary asks for.
  execute_process(
    COMMAND codesign --force --options runtime --timestamp
      --sign "${CPACK_TRELVAN_SIGNING_IDENTITY}" "${signed}"
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
