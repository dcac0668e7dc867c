# TRELVAN_RELEASE_DATE: the day of this version as CHANGELOG.md has it, or where it has no section
# yet, of the one before. Nothing that is built has any other date in it.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md releases
  REGEX "^## \\[[0-9.]+\\] - [0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]$")
list(GET releases 0 release)
string(REGEX REPLACE ".* - " "" TRELVAN_RELEASE_DATE "${release}")
