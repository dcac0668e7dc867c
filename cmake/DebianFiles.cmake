# Run by cpack before it packs: what Debian wants in each package beside what is installed.
cmake_policy(VERSION 3.25)
# Without a time in their headers.
function(pack file)
  execute_process(COMMAND gzip -9n "${file}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

execute_process(
  COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C date -u -R -d "${CPACK_TRELVAN_DATE}"
  OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(READ "${CPACK_TRELVAN_SOURCE}/LICENSE" licence)
file(READ "${CPACK_TRELVAN_NOTICES}" notices)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} upper)
  set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  set(top "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}")
  set(share "${top}/usr/share")
  set(doc "${share}/doc/${package}")
  file(MAKE_DIRECTORY "${doc}" "${share}/lintian/overrides")

  file(REMOVE "${doc}/LICENSE" "${doc}/NOTICES.txt" "${share}/doc/trelvan/LICENSE")
  file(WRITE "${doc}/copyright" "Trelvan and widen, ${CPACK_PACKAGE_HOMEPAGE_URL}\n\n"
    "${licence}\n${notices}")
  set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
  file(WRITE "${doc}/changelog.Debian" "trelvan (${version}) unstable; urgency=medium\n\n"
    "  * Release ${CPACK_PACKAGE_VERSION}.\n\n -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
  file(COPY_FILE "${CPACK_TRELVAN_SOURCE}/CHANGELOG.md" "${doc}/changelog")
  pack("${doc}/changelog.Debian")
  pack("${doc}/changelog")
  file(GLOB pages "${share}/man/man*/*")
  foreach(page IN LISTS pages)
    pack("${page}")
  endforeach()
  file(COPY_FILE "${CPACK_TRELVAN_SOURCE}/resources/debian/${package}.overrides"
    "${share}/lintian/overrides/${package}")

  # At any umask.
  execute_process(COMMAND chmod -R u=rwX,go=rX "${top}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
