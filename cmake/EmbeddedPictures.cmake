# trelvan_embed_pictures(<target> <folder>): a library with the pictures that trelvan_add_artwork
# writes into <folder>, for a module that stands alone: editor/base/linux/embeddedpictures.h.
#
# The assembler takes the files as they are: half a megabyte as an array would take seconds to
# compile. The source is written when CMake runs, and only where the list has changed.
function(trelvan_embed_pictures target folder)
  set(pictures)
  set(number 0)
  foreach(picture IN LISTS TRELVAN_PICTURES)
    foreach(scale IN LISTS TRELVAN_PICTURE_SCALES)
      set(name bmp${picture}@${scale}x.png)
      if(scale EQUAL 1)
        set(name bmp${picture}.png)
      endif()
      list(APPEND pictures ${folder}/${name})
      # for the assembler's string
      string(REGEX REPLACE "([\\\\\"])" "\\\\\\1" path "${folder}/${name}")
      string(APPEND bytes "picture${number}: .incbin \"${path}\"\npicture${number}end:\n")
      string(APPEND declared "HIDDEN picture${number}[], picture${number}end[];\n")
      string(APPEND rows "    {\"${name}\", {picture${number}, picture${number}end}},\n")
      math(EXPR number "${number} + 1")
    endforeach()
  endforeach()
  set(source ${CMAKE_CURRENT_BINARY_DIR}/embeddedpictures.cpp)
  file(CONFIGURE OUTPUT ${source} @ONLY CONTENT [[
// The pictures' files, byte for byte, and their names.
#include "editor/base/linux/embeddedpictures.h"

asm(R"asm(
.pushsection .rodata
@bytes@.popsection
)asm");

#define HIDDEN extern "C" __attribute__((visibility("hidden"))) const unsigned char
@declared@
namespace {

struct Picture {
  std::string_view name;
  std::span<const unsigned char> bytes;
};
const Picture kPictures[] = {
@rows@};

}  // namespace

std::span<const unsigned char> embeddedPicture(std::string_view name) {
  for (const Picture& picture : kPictures) {
    if (picture.name == name) return picture.bytes;
  }
  return {};
}
]])
  set_source_files_properties(${source} PROPERTIES OBJECT_DEPENDS "${pictures}")
  add_library(${target} STATIC ${source})
  target_link_libraries(${target} PRIVATE trelvan_options)
endfunction()
