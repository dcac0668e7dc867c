# Takes an installation away: the files that its lists name, and the folders that it made as far as
# they are empty then.
# Usage: cmake -DCMAKE_INSTALL_PREFIX=PREFIX -P RemoveFiles.cmake
cmake_policy(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/InstalledList.cmake)
file(GLOB lists "${TRELVAN_LISTS}/*.txt")
if(NOT lists)
  message(FATAL_ERROR "Nothing is installed in ${CMAKE_INSTALL_PREFIX}: there is no list in "
    "${TRELVAN_LISTS}.")
endif()
set(made)
foreach(list IN LISTS lists)
  file(READ "${list}" text)
  trelvan_list_files(files "${text}")
  foreach(line IN LISTS files)
    trelvan_remove_listed("${line}")
  endforeach()
  trelvan_list_folders(folders "${text}")
  list(APPEND made ${folders})
  file(REMOVE "${list}")
endforeach()
list(REMOVE_DUPLICATES made)
list(SORT made ORDER DESCENDING)  # what is deepest comes first
foreach(folder IN LISTS made)
  execute_process(COMMAND rmdir "${folder}" ERROR_QUIET RESULT_VARIABLE ignored)
endforeach()
