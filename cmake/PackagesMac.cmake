# macOS: a pkg of the components, signed ad hoc unless identities are named. Nobody has run this on
# a Mac yet (docs/macos.md).
set(TRELVAN_SIGNING_IDENTITY "-" CACHE STRING
  "macOS: who signs bundle and widen, \"Developer ID Application: ...\"; - is ad hoc")
set(TRELVAN_INSTALLER_IDENTITY "" CACHE STRING
  "macOS: who signs the pkg, \"Developer ID Installer: ...\"; nobody if empty")
set(TRELVAN_NOTARY_PROFILE "" CACHE STRING
  "macOS: notarytool's profile in the keychain, to have the pkg notarised; not if empty")

set(CPACK_GENERATOR productbuild)
# It shows the licence by the ending of its file.
set(CPACK_RESOURCE_FILE_LICENSE ${TRELVAN_RESOURCES}/LICENSE.txt)
set(CPACK_PACKAGE_FILE_NAME trelvan-${PROJECT_VERSION}-macos)
set(CPACK_PRODUCTBUILD_IDENTIFIER com.orv.trelvan)
if(TRELVAN_INSTALLER_IDENTITY)
  set(CPACK_PRODUCTBUILD_IDENTITY_NAME "${TRELVAN_INSTALLER_IDENTITY}")
endif()
set(CPACK_COMPONENT_PLUGIN_DISPLAY_NAME "Trelvan, the plug-in")
set(CPACK_COMPONENT_WIDEN_DISPLAY_NAME "widen, its command-line host")
set(CPACK_COMPONENT_DOC_DISPLAY_NAME "Documents")
set(CPACK_TRELVAN_SIGNING_IDENTITY "${TRELVAN_SIGNING_IDENTITY}")
set(CPACK_TRELVAN_NOTARY_PROFILE "${TRELVAN_NOTARY_PROFILE}")
