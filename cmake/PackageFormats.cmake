# Read by cpack for each kind of package: where it is installed, and how all of it gets one date.
set(ENV{TRELVAN_PACKAGE} ON)  # what was put where is the manager's to know (PutFiles.cmake)
# The same bytes whenever a commit is packaged: its date, or without version control the release's.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND git -C "${CPACK_TRELVAN_SOURCE}" log -1 --format=%ct
    OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE failed ERROR_QUIET)
  if(failed)
    string(TIMESTAMP date %s UTC)
    # Where `date` knows no -d (macOS) it is the time of day: a pkg has that in it anyway.
    execute_process(COMMAND date -u -d "${CPACK_TRELVAN_DATE}" +%s
      OUTPUT_VARIABLE day OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE failed ERROR_QUIET)
    if(NOT failed)
      set(date "${day}")
    endif()
  endif()
  set(ENV{SOURCE_DATE_EPOCH} "${date}")
endif()
if(CPACK_GENERATOR STREQUAL "DEB")
  # Without it cpack makes packages that ask for no library.
  find_program(TRELVAN_SHLIBDEPS dpkg-shlibdeps)
  if(NOT TRELVAN_SHLIBDEPS)
    message(FATAL_ERROR "dpkg-shlibdeps is missing: \"tools/dependencies.sh test\" installs it.")
  endif()
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_PRE_BUILD_SCRIPTS "${CPACK_TRELVAN_SOURCE}/cmake/DebianFiles.cmake")
  set(CPACK_POST_BUILD_SCRIPTS "${CPACK_TRELVAN_SOURCE}/cmake/DebianPackages.cmake")
elseif(CPACK_GENERATOR STREQUAL "productbuild")
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr/local)
  set(ENV{TRELVAN_VST} ../../Library/Audio/Plug-Ins/VST)  # from there
  set(CPACK_PRE_BUILD_SCRIPTS "${CPACK_TRELVAN_SOURCE}/cmake/SignMac.cmake")
  set(CPACK_POST_BUILD_SCRIPTS "${CPACK_TRELVAN_SOURCE}/cmake/NotarizeMac.cmake")
elseif(CPACK_GENERATOR STREQUAL "External")
  set(CPACK_PACKAGING_INSTALL_PREFIX "/${CPACK_PACKAGE_FILE_NAME}")
  set(CPACK_MONOLITHIC_INSTALL ON)
  set(CPACK_EXTERNAL_ENABLE_STAGING ON)
  set(CPACK_EXTERNAL_PACKAGE_SCRIPT "${CPACK_TRELVAN_SOURCE}/cmake/Tarball.cmake")
endif()
