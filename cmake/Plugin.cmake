# The plug-in: images, effect and window, each a library of its own, and the module with its bundle.
add_library(trelvan_images STATIC
  presetsystem/image/newpresetheader.cpp
  presetsystem/image/imagewriter.cpp
  presetsystem/image/imagereader.cpp
  presetsystem/image/oldimagereader.cpp
  presetsystem/image/image.cpp)
target_link_libraries(trelvan_images PUBLIC trelvan_options)

include(Kernel)

# The version is CMakeLists.txt's, for hosts as a number: 1990.
set(version ${PROJECT_VERSION_MAJOR}${PROJECT_VERSION_MINOR}${PROJECT_VERSION_PATCH}0)
set_source_files_properties(effect/trelvan.cpp PROPERTIES
  COMPILE_DEFINITIONS TRELVAN_VENDOR_VERSION=${version})
set_source_files_properties(editor/controls/csplashscreenmyview.cpp PROPERTIES
  COMPILE_DEFINITIONS TRELVAN_VERSION="${PROJECT_VERSION}")

# Compiles without the toolkit's headers. All that it needs of the window is createEditor: who links
# this without the window brings one of its own.
add_library(trelvan_effect STATIC
  plugin/audioeffect.cpp
  plugin/audioeffectstrings.cpp
  plugin/audioeffectx.cpp
  plugin/createeffectinstance.cpp
  presetsystem/store/bankimages.cpp
  presetsystem/store/cpresetsystemeffect.cpp
  effect/trelvan.cpp
  effect/trelvanparameters.cpp
  effect/trelvanprocess.cpp
  effect/sharedrates.cpp
  effect/kernelforms.cpp
  ${TRELVAN_KERNELS}
  effect/numbertext.cpp
  effect/factorypresets.cpp)
target_link_libraries(trelvan_effect PUBLIC trelvan_images trelvan_options)
# What sounds is as a release has it also where nothing else is (tools/arm64.sh).
target_compile_options(trelvan_effect PRIVATE $<$<CONFIG:Emulated>:-O3>)

# The whole plug-in: the window, the platform, and the two above.
add_library(trelvan STATIC
  presetsystem/bar/barclicks.cpp
  presetsystem/bar/bartips.cpp
  presetsystem/bar/barnames.cpp
  presetsystem/bar/cpresetsystemeditor.cpp
  presetsystem/bar/manual.cpp
  presetsystem/bar/messages.cpp
  presetsystem/bar/presetbar.cpp
  presetsystem/bar/presetfiles.cpp
  presetsystem/bar/storedpresets.cpp
  editor/base/sharedbitmaps.cpp
  editor/base/toolkitlibrary.cpp
  editor/base/aeffguieditor.cpp
  editor/base/myframe.cpp
  editor/controls/corvtextedit.cpp
  editor/controls/cparameterslider.cpp
  editor/controls/cvaluedisplay.cpp
  editor/controls/typedvalue.cpp
  editor/controls/entryplace.cpp
  editor/controls/fitname.cpp
  editor/window/adeditor.cpp
  editor/window/adeditoropen.cpp
  editor/controls/stringconvert.cpp
  editor/controls/textwidth.cpp
  editor/controls/tooltips.cpp
  editor/controls/ccnames.cpp
  editor/controls/cpskickbutton.cpp
  editor/controls/cpsonoffbutton.cpp
  editor/controls/cpsrockerswitch.cpp
  editor/controls/csaveloadbutton.cpp
  editor/controls/cpresetmenu.cpp
  editor/controls/clitswitch.cpp
  editor/controls/cvumeter1.cpp
  editor/controls/cabout.cpp
  editor/controls/csplashscreenmyview.cpp
  editor/controls/messagepanel.cpp
  editor/controls/modalview.cpp
  editor/controls/wrappedtext.cpp
  platform/validtext.cpp
  platform/modulepath.cpp
  platform/savedfile.cpp
  platform/xplatfile.cpp
  platform/xplatvalues.cpp)
target_link_libraries(trelvan PUBLIC trelvan_effect trelvan_toolkit)
target_link_libraries(trelvan_effect INTERFACE $<LINK_ONLY:trelvan>)  # createEditor
include(Artwork)
include(Manual)
if(APPLE)
  include(PluginMac)
else()
  include(PluginLinux)
endif()
