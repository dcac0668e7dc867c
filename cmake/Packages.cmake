# What `cpack` makes: on Linux Debian's packages, one for each component of Install.cmake, and a
# tarball that works wherever it is unpacked; on macOS a pkg. tools/release.sh runs it.
#
# Another component needs a paragraph here: its name as a package, its words, what it needs.
set(CPACK_PACKAGE_NAME trelvan)
set(CPACK_PACKAGE_VENDOR Orv)
set(CPACK_PACKAGE_CONTACT "The Orv developers <developers@orv.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://orv.example)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_COMPONENTS_ALL ${TRELVAN_COMPONENTS})
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_FILE_NAME trelvan-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/PackageFormats.cmake)
set(CPACK_TRELVAN_SOURCE ${PROJECT_SOURCE_DIR})
set(CPACK_TRELVAN_DATE ${TRELVAN_RELEASE_DATE})
set(CPACK_TRELVAN_NOTICES ${TRELVAN_NOTICES})
if(APPLE)
  include(PackagesMac)
else()
  # The tarball is one of our own: cpack's has its files in the order in which the disk has them.
  set(CPACK_GENERATOR DEB External)
endif()

# Debian
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CPACK_PACKAGE_CONTACT}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_DEBIAN_PLUGIN_PACKAGE_NAME trelvan-vst)
set(CPACK_DEBIAN_PLUGIN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PLUGIN_DESCRIPTION "stereo widener for audio hosts (VST 2 plug-in)
Trelvan makes a mono sound wide. It delays the middle of its input by one
period of a base frequency, shapes it, adds it on the left and subtracts it
on the right. In mono the two cancel, and what is left is the sound that
went in.

It has 32 presets, two memories, and a meter of side against mid.")
# Windows for choosing files, and the viewer of the manual; the sound needs neither.
set(CPACK_DEBIAN_PLUGIN_PACKAGE_RECOMMENDS "zenity | kdialog, xdg-utils")
set(CPACK_DEBIAN_PLUGIN_PACKAGE_SUGGESTS "widen, trelvan-doc, ardour | audacity | muse | qtractor")

set(CPACK_DEBIAN_LV2_PACKAGE_NAME trelvan-lv2)
set(CPACK_DEBIAN_LV2_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_LV2_DESCRIPTION "stereo widener for audio hosts (LV2 plug-in)
Trelvan makes a mono sound wide. It delays the middle of its input by one
period of a base frequency, shapes it, adds it on the left and subtracts it
on the right. In mono the two cancel, and what is left is the sound that
went in.

This is the same effect and window as the VST 2 plug-in's in trelvan-vst, for
hosts that take LV2.")
set(CPACK_DEBIAN_LV2_PACKAGE_RECOMMENDS "zenity | kdialog, xdg-utils")
set(CPACK_DEBIAN_LV2_PACKAGE_SUGGESTS "trelvan-doc, lv2-host")

set(CPACK_DEBIAN_WIDEN_PACKAGE_NAME widen)
set(CPACK_DEBIAN_WIDEN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_WIDEN_DESCRIPTION "command-line host that takes sound files through VST 2 effects
widen reads WAV, AIFF, FLAC, Ogg, MP3 and more, takes them through the
stereo widener Trelvan or any other VST 2.4 effect, and writes files of the
same length, rate and sample format. It measures and pictures the stereo
image, stands in pipelines, and tells whether an effect keeps to the rules.")
set(CPACK_DEBIAN_WIDEN_PACKAGE_RECOMMENDS trelvan-vst)
set(CPACK_DEBIAN_WIDEN_PACKAGE_SUGGESTS trelvan-doc)

set(CPACK_DEBIAN_DOC_PACKAGE_NAME trelvan-doc)
set(CPACK_DEBIAN_DOC_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOC_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DOC_DESCRIPTION "stereo widener for audio hosts (manual and documents)
The operation manual of the stereo widener Trelvan, what was seen with hosts,
the documents of its command-line host widen, and the layout of its files.")

include(CPack)
