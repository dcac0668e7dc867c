# trelvan_add_manual(<target> <pdf>): a target that makes the user manual from docs/manual and the
# window's pictures.
include(Artwork)  # trelvan_find_font, TRELVAN_PICTURES
cmake_path(SET manual NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../docs/manual)
set(TRELVAN_MANUAL_SOURCES ${manual} CACHE INTERNAL "Sources of the manual")

function(trelvan_add_manual target pdf)
  find_program(TRELVAN_RST2PDF rst2pdf DOC "Makes the manual")
  find_program(TRELVAN_RSVG_CONVERT rsvg-convert DOC "Renders SVG files")
  find_package(Python3 COMPONENTS Interpreter)
  if(NOT TRELVAN_RST2PDF OR NOT TRELVAN_RSVG_CONVERT OR NOT Python3_FOUND)
    message(FATAL_ERROR "The manual needs rst2pdf, rsvg-convert and Python 3. "
      "Debian: apt-get install rst2pdf librsvg2-bin python3.")
  endif()
  trelvan_find_font(TRELVAN_FONT LiberationSans-Regular.ttf)
  cmake_path(GET TRELVAN_FONT PARENT_PATH fonts)
  cmake_path(GET pdf PARENT_PATH folder)

  set(work ${CMAKE_CURRENT_BINARY_DIR}/${target})
  set(artwork ${TRELVAN_RESOURCE_SOURCES}/artwork)
  list(TRANSFORM TRELVAN_PICTURES REPLACE "(.+)" "${artwork}/bmp\\1.svg" OUTPUT_VARIABLE pictures)
  set(figures)
  set(render)
  foreach(figure IN ITEMS window flow comb)
    list(APPEND figures ${work}/${figure}.png)
    # 4: about 300 dots an inch at the size at which the page shows it
    list(APPEND render COMMAND
      ${TRELVAN_RSVG_CONVERT} --zoom 4 --output ${work}/${figure}.png ${work}/${figure}.svg)
  endforeach()
  add_custom_command(
    OUTPUT ${figures}
    COMMAND Python3::Interpreter ${TRELVAN_MANUAL_SOURCES}/figures.py ${artwork} ${work}
    ${render}
    DEPENDS ${TRELVAN_MANUAL_SOURCES}/figures.py ${pictures}
    COMMENT "Drawing the manual's figures"
    VERBATIM)
  add_custom_command(
    OUTPUT ${pdf}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    # Beside its figures.
    COMMAND ${CMAKE_COMMAND} -E copy ${TRELVAN_MANUAL_SOURCES}/manual.rst ${work}/manual.rst
    COMMAND ${CMAKE_COMMAND} -E env DOCUTILSCONFIG=${TRELVAN_MANUAL_SOURCES}/docutils.conf
      ${TRELVAN_RST2PDF} --quiet --config=${work}/none --compressed --date-invariant
      --stylesheets=${TRELVAN_MANUAL_SOURCES}/style.yaml --font-path=${fonts} --output=${pdf}
      ${work}/manual.rst
    DEPENDS ${TRELVAN_MANUAL_SOURCES}/manual.rst ${TRELVAN_MANUAL_SOURCES}/style.yaml
      ${TRELVAN_MANUAL_SOURCES}/docutils.conf ${figures}
    COMMENT "Setting the manual"
    VERBATIM)
  add_custom_target(${target} ALL DEPENDS ${pdf})
endfunction()
