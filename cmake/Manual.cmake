# trelvan_add_manual(<target> <pdf>): a target that makes the user manual from docs/manual and the
# photographs of docs/pictures: the PDF, and the same as one page of the web below share/ in the
# build folder as it stands in an installation.
include(Artwork)  # trelvan_find_font
cmake_path(SET docs NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../docs)
set(TRELVAN_MANUAL_SOURCES ${docs}/manual CACHE INTERNAL "Sources of the manual")

function(trelvan_add_manual target pdf)
  find_program(TRELVAN_RST2PDF rst2pdf DOC "Makes the manual")
  find_program(TRELVAN_RST2HTML NAMES rst2html5 rst2html5.py DOC "Makes the manual's page")
  find_program(TRELVAN_RSVG_CONVERT rsvg-convert DOC "Renders SVG files")
  find_package(Python3 COMPONENTS Interpreter)
  if(NOT TRELVAN_RST2PDF OR NOT TRELVAN_RSVG_CONVERT OR NOT Python3_FOUND)
    message(FATAL_ERROR "The manual needs rst2pdf, rsvg-convert and Python 3. "
      "Debian: apt-get install rst2pdf librsvg2-bin python3.")
  endif()
  trelvan_find_font(TRELVAN_FONT LiberationSans-Regular.ttf)
  cmake_path(GET TRELVAN_FONT PARENT_PATH fonts)
  cmake_path(GET pdf PARENT_PATH folder)

  set(sources ${TRELVAN_MANUAL_SOURCES})
  set(work ${CMAKE_CURRENT_BINARY_DIR}/${target})
  set(window ${PROJECT_SOURCE_DIR}/tests/window/pictures/at-work@2x.png)
  # 4: about 300 dots an inch at the size at which the page shows it; a photograph has fewer.
  set(figures)
  set(render)
  foreach(drawing IN ITEMS window@2.5 flow@4 comb@4)
    string(REGEX MATCH "^(.+)@(.+)$" whole ${drawing})
    set(figure ${work}/${CMAKE_MATCH_1})
    list(APPEND figures ${figure}.png)
    list(APPEND render COMMAND ${TRELVAN_RSVG_CONVERT}
      --zoom ${CMAKE_MATCH_2} --output ${figure}.png ${figure}.svg)
  endforeach()
  add_custom_command(
    OUTPUT ${figures}
    COMMAND Python3::Interpreter ${sources}/figures.py ${window} ${work}
    ${render}
    DEPENDS ${sources}/figures.py ${window}
    COMMENT "Drawing the manual's figures"
    VERBATIM)

  set(beside ${sources}/manual.rst ${sources}/style.css)
  foreach(picture IN ITEMS ardour audacity bass guitar)
    list(APPEND beside ${PROJECT_SOURCE_DIR}/docs/pictures/${picture}.png)
  endforeach()
  set(text ${work}/manual.rst)
  # The same bytes whether a packager has set a date or not.
  set(environment ${CMAKE_COMMAND} -E env --unset=SOURCE_DATE_EPOCH
    DOCUTILSCONFIG=${sources}/docutils.conf)
  add_custom_command(
    OUTPUT ${text}
    COMMAND ${CMAKE_COMMAND} -E copy ${beside} ${work}
    COMMAND ${CMAKE_COMMAND} -E touch ${text}
    DEPENDS ${beside}
    VERBATIM)
  add_custom_command(
    OUTPUT ${pdf}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    COMMAND ${environment} PYTHONPATH=${sources} PYTHONDONTWRITEBYTECODE=1
      ${TRELVAN_RST2PDF} --quiet --config=${work}/none --compressed --date-invariant
      --extension-module=outline --footer=Trelvan\ Operation\ Manual\ -\ \#\#\#Page\#\#\#
      --stylesheets=${sources}/style.yaml --font-path=${fonts} --output=${pdf} ${text}
    DEPENDS ${text} ${sources}/style.yaml ${sources}/outline.py ${sources}/docutils.conf ${figures}
    COMMENT "Setting the manual"
    VERBATIM)
  add_custom_target(${target} ALL DEPENDS ${pdf})
  if(NOT TRELVAN_RST2HTML)
    message(STATUS "No page of the manual: docutils' rst2html5 is missing")
    return()
  endif()
  set(page_folder ${PROJECT_BINARY_DIR}/share/doc/trelvan)
  set(page "${page_folder}/Trelvan Operation Manual.html")
  # Beside the pictures first: since docutils 0.21 they are looked for from where the page is.
  add_custom_command(
    OUTPUT ${page}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${page_folder}
    COMMAND ${environment} ${TRELVAN_RST2HTML} --image-loading=embed --embed-stylesheet
      --stylesheet-path=minimal.css,style.css ${text} ${work}/page.html
    COMMAND ${CMAKE_COMMAND} -E copy ${work}/page.html ${page}
    DEPENDS ${text} ${sources}/docutils.conf ${figures}
    WORKING_DIRECTORY ${work}
    COMMENT "Writing the manual's page"
    VERBATIM)
  add_custom_target(${target}_page ALL DEPENDS ${page})
  add_dependencies(${target}_page ${target})  # which makes the figures
endfunction()
