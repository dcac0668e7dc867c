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
  presetsystem/cpresetsystemeditorfiles.cpp
  presetsystem/cpresetsystemeditordefaults.cpp
  presetsystem/cpresetsystemeditormanual.cpp
  presetsystem/cpresetsystemeditordispatch.cpp
  presetsystem/presetbar.cpp
  editor/toolkitlibrary.cpp
  editor/aeffguieditor.cpp
  editor/myframe.cpp
  editor/corvtextedit.cpp
  editor/adeditor.cpp
  editor/adeditoropen.cpp
  editor/stringconvert.cpp
  editor/ccnames.cpp
  editor/cpskickbutton.cpp
  editor/cpsonoffbutton.cpp
  editor/cpsrockerswitch.cpp
  editor/csaveloadbutton.cpp
  editor/cpresetmenu.cpp
  editor/cvumeter1.cpp
  editor/cabout.cpp
  editor/csplashscreenmyview.cpp
  platform/validtext.cpp
  platform/modulepath.cpp
  platform/xplatfile.cpp
  platform/xplatvalues.cpp)
target_link_libraries(trelvan PUBLIC trelvan_images trelvan_toolkit trelvan_options)
include(Artwork)
include(Manual)
if(APPLE)
  include(PluginMac)
else()
  include(PluginLinux)
endif()
