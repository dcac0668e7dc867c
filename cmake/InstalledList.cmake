# The list of what an installation put where: a line for each file, its SHA-256 and its path, and
# one for each folder that was made, "folder" and its path.
set(TRELVAN_LISTS "${CMAKE_INSTALL_PREFIX}/share/trelvan/installed")

function(trelvan_list_name variable component)
  set(${variable} "${TRELVAN_LISTS}/${component}.txt" PARENT_SCOPE)
endfunction()

# The text of a component's list, empty where nothing is installed.
function(trelvan_list variable component)
  trelvan_list_name(name ${component})
  set(text)
  if(EXISTS "${name}")
    file(READ "${name}" text)
  endif()
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

# Of such a text: the lines of files, and the folders' paths.
function(trelvan_list_files variable text)
  string(REGEX MATCHALL "[^\n]+" lines "${text}")
  list(FILTER lines INCLUDE REGEX "^[0-9a-f]+  /")
  set(${variable} "${lines}" PARENT_SCOPE)
endfunction()
function(trelvan_list_folders variable text)
  string(REGEX MATCHALL "folder  [^\n]+" lines "${text}")
  list(TRANSFORM lines REPLACE "^folder  " "")
  set(${variable} "${lines}" PARENT_SCOPE)
endfunction()

# Removes the file of such a line. One that has changed is somebody's own, and stays.
function(trelvan_remove_listed line)
  string(SUBSTRING "${line}" 0 64 sum)
  string(SUBSTRING "${line}" 66 -1 file)
  if(NOT EXISTS "${file}" AND NOT IS_SYMLINK "${file}")
    return()
  endif()
  file(SHA256 "${file}" sum_now)
  if(sum_now STREQUAL sum)
    file(REMOVE "${file}")
    message(STATUS "Removed: ${file}")
  else()
    message(NOTICE "Left, since it was changed after the installation: ${file}")
  endif()
endfunction()
