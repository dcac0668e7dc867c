# trelvan_add_artwork(<target> <folder>): a target that fills a bundle's resource folder with
# pictures and the font.
#
# Each resources/artwork/bmpNNNNN.svg becomes <folder>/bmpNNNNN.png and, larger,
# <folder>/bmpNNNNN@2x.png and the like, of which macOS shows that one alone. What is half a pixel
# too wide is a whole one wider: a panel of 302 x 251 is one of 453 x 377 at 1.5. The larger ones
# get captions that are not fitted to the window's own pixels (resources/artwork/larger.css).
# Linux: <folder>/Fonts/ gets the displays' font and its licence. macOS has the displays' font.
set(TRELVAN_PICTURES
  # panel, controls, about panel, controls under the pointer, manual button
  00128 00133 00134 00135 00136 00137 00138 00139 00140 00141 00142 00143 00989
  19899 19990 19991 19992 19993 19994 19995 19996 19997 19998 19999  # preset bar
  CACHE INTERNAL "Resource numbers of the window's pictures")
set(TRELVAN_PICTURE_SCALES 1 1.5 2 3)
if(APPLE)
  set(TRELVAN_PICTURE_SCALES 1 2)
endif()
set(TRELVAN_PICTURE_SCALES ${TRELVAN_PICTURE_SCALES} CACHE INTERNAL "Pixels a point")
cmake_path(SET resources NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../resources)
set(TRELVAN_RESOURCE_SOURCES ${resources} CACHE INTERNAL "Sources of pictures and fonts")

function(trelvan_add_artwork target folder)
  find_program(TRELVAN_RSVG_CONVERT rsvg-convert DOC "Renders SVG files")
  if(NOT TRELVAN_RSVG_CONVERT)
    message(FATAL_ERROR "rsvg-convert is missing. Debian: apt-get install librsvg2-bin. "
      "Homebrew: brew install librsvg.")
  endif()

  set(larger_style ${TRELVAN_RESOURCE_SOURCES}/artwork/larger.css)
  set(outputs)
  foreach(number IN LISTS TRELVAN_PICTURES)
    set(source ${TRELVAN_RESOURCE_SOURCES}/artwork/bmp${number}.svg)
    set(picture ${folder}/bmp${number})
    set(pictures)
    set(renderings)
    foreach(scale IN LISTS TRELVAN_PICTURE_SCALES)
      set(rendered ${picture}@${scale}x.png)
      set(style --stylesheet ${larger_style})
      if(scale EQUAL 1)
        set(rendered ${picture}.png)
        set(style)
      endif()
      list(APPEND pictures ${rendered})
      list(APPEND renderings
        COMMAND ${TRELVAN_RSVG_CONVERT} --zoom ${scale} ${style} --output ${rendered} ${source})
    endforeach()
    add_custom_command(
      OUTPUT ${pictures}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
      ${renderings}
      DEPENDS ${source} ${larger_style}
      COMMENT "Rendering picture ${number}"
      VERBATIM)
    list(APPEND outputs ${pictures})
  endforeach()

  if(NOT APPLE)
    trelvan_find_font(TRELVAN_FONT LiberationSans-Regular.ttf)
    foreach(source IN ITEMS
      ${TRELVAN_FONT} ${TRELVAN_RESOURCE_SOURCES}/fonts/LiberationSans-LICENSE.txt)
      cmake_path(GET source FILENAME name)
      add_custom_command(
        OUTPUT ${folder}/Fonts/${name}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}/Fonts
        COMMAND ${CMAKE_COMMAND} -E copy ${source} ${folder}/Fonts/${name}
        DEPENDS ${source}
        COMMENT "Copying ${name}"
        VERBATIM)
      list(APPEND outputs ${folder}/Fonts/${name})
    endforeach()
  endif()
  add_custom_target(${target} ALL DEPENDS ${outputs})
endfunction()

# Full path of a Liberation font file in the cache variable named by `variable`.
function(trelvan_find_font variable file)
  find_file(${variable} ${file}
    PATHS /usr/share/fonts /usr/local/share/fonts /opt/homebrew/share/fonts
    PATH_SUFFIXES
      truetype/liberation2 truetype/liberation liberation-sans liberation liberation-fonts TTF
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
    DOC "Font file ${file}")
  if(NOT ${variable})
    message(FATAL_ERROR "${file} is missing. Debian 12: apt-get install fonts-liberation2. "
      "Debian 13: fonts-liberation. Elsewhere: set ${variable} to its path.")
  endif()
endfunction()
