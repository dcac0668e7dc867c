# Writes the factory bank and its named presets as files, by the plug-in itself.
# Usage: cmake -DWIDEN=PROGRAM -DPLUGIN=BUNDLE -DFOLDER=FOLDER -P FactoryPresets.cmake
cmake_policy(VERSION 3.25)
# A home of its own, which on macOS is a name for preferences: the default bank of who builds is not
# the factory's.
set(home ${FOLDER}.home)
file(REMOVE_RECURSE ${home} ${FOLDER})
file(MAKE_DIRECTORY ${home} ${FOLDER})
function(run)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env HOME=${home} XDG_CONFIG_HOME=${home}
      TRELVAN_PREFERENCES=com.orv.trelvan.factory ${WIDEN} --plugin ${PLUGIN} ${ARGN}
    OUTPUT_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
  set(said "${said}" PARENT_SCOPE)
endfunction()

run(--save-bank ${FOLDER}/Factory.orb)
run(--list-presets)
string(REGEX MATCHALL "[^\n]+" lines "${said}")
set(names)
foreach(line IN LISTS lines)
  string(REGEX MATCH "^[* ] *([0-9]+)  (.+)$" line "${line}")
  set(number ${CMAKE_MATCH_1})
  set(name "${CMAKE_MATCH_2}")
  # The rest of the bank is the first preset again.
  if(name IN_LIST names)
    break()
  endif()
  list(APPEND names "${name}")
  run(--preset ${number} --save-preset "${FOLDER}/${name}.orv")
endforeach()
file(REMOVE_RECURSE ${home})
