# The plug-in: the pure image library, the library that holds all other code, and the module with its bundle.

add_library(trelvan_images STATIC
  presetsystem/image/newpresetheader.cpp
  presetsystem/image/imagewriter.cpp
  presetsystem/image/imagereader.cpp
  presetsystem/image/oldimagereader.cpp
  presetsystem/image/chunkimage.cpp)
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
  presetsystem/store/cpresetsystemeffect.cpp
  presetsystem/store/cpresetsystemeffectchunk.cpp
  presetsystem/bar/cpresetsystemeditor.cpp
  presetsystem/bar/cpresetsystemeditorimages.cpp
  presetsystem/bar/cpresetsystemeditorfiles.cpp
  presetsystem/bar/cpresetsystemeditordefaults.cpp
  presetsystem/bar/cpresetsystemeditormanual.cpp
  presetsystem/bar/cpresetsystemeditordispatch.cpp
  presetsystem/bar/presetbar.cpp
  editor/base/toolkitlibrary.cpp
  editor/base/aeffguieditor.cpp
  editor/base/myframe.cpp
  editor/controls/corvtextedit.cpp
  editor/window/adeditor.cpp
  editor/window/adeditoropen.cpp
  editor/controls/stringconvert.cpp
  editor/controls/ccnames.cpp
  editor/controls/cpskickbutton.cpp
  editor/controls/cpsonoffbutton.cpp
  editor/controls/cpsrockerswitch.cpp
  editor/controls/csaveloadbutton.cpp
  editor/controls/cpresetmenu.cpp
  editor/controls/cvumeter1.cpp
  editor/controls/cabout.cpp
  editor/controls/csplashscreenmyview.cpp
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
