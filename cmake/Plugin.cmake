# The plug-in: the pure image library, the library that holds all other code, and the module with its bundle.

add_library(trelvan_images STATIC
  presetsystem/newpresetheader.cpp
  presetsystem/imagewriter.cpp
  presetsystem/imagereader.cpp
  presetsystem/oldimagereader.cpp
  presetsystem/chunkimage.cpp)
target_link_libraries(trelvan_images PUBLIC trelvan_options)

add_library(trelvan STATIC
  plugin/audioeffect.cpp
  plugin/audioeffectx.cpp
  plugin/createeffectinstance.cpp
  effect/trelvan.cpp
  effect/trelvanparameters.cpp
  effect/trelvanprocess.cpp
  effect/numbertext.cpp
  effect/factorypresets.cpp
  presetsystem/cpresetsystemeffect.cpp
  presetsystem/cpresetsystemeffectchunk.cpp
  presetsystem/cpresetsystemeditor.cpp
  presetsystem/cpresetsystemeditorimages.cpp
  editor/adeditor.cpp
  editor/stringconvert.cpp
  editor/ccnames.cpp
  platform/xplatfile.cpp
  platform/xplatvalues.cpp)
target_link_libraries(trelvan PUBLIC trelvan_images trelvan_toolkit trelvan_options)
if(APPLE)
  include(PluginMac)
else()
  include(PluginLinux)
endif()
