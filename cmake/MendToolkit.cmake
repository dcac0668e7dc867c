# Mends the one line of the toolkit that g++ 14 and clang 19 refuse: it calls a flag that it
# means to clear.
# Usage: cmake -DTOOLKIT=FOLDER -P cmake/MendToolkit.cmake
# (FOLDER holds vstgui/; mended once, it is left as it is)
set(file ${TOOLKIT}/vstgui/lib/finally.h)
set(wrong "other.invoke (false);")
set(mended "other.invoke = false;")
file(READ ${file} text)
string(FIND "${text}" "${wrong}" place)
if(NOT place EQUAL -1)
  string(REPLACE "${wrong}" "${mended}" text "${text}")
  file(WRITE ${file} "${text}")
else()
  string(FIND "${text}" "${mended}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "${file} has neither \"${wrong}\" nor \"${mended}\": this is not the "
      "toolkit's version 4.13.3. Remove ${TOOLKIT} and fetch it again.")
  endif()
endif()
