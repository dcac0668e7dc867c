# trelvan_add_widen_documents(): widen's manual page, from docs/widen.md, and what makes shells
# complete its command line, below share/ in the build folder as it stands in an installation.
function(trelvan_add_widen_documents)
  find_program(TRELVAN_LOWDOWN lowdown DOC "Makes the manual page")
  if(NOT TRELVAN_LOWDOWN)
    message(FATAL_ERROR "lowdown is missing. Debian: apt-get install lowdown. "
      "Homebrew: brew install lowdown.")
  endif()
  set(share ${PROJECT_BINARY_DIR}/share)
  set(page ${share}/man/man1/widen.1)
  set(bash ${share}/bash-completion/completions/widen)
  set(zsh ${share}/zsh/site-functions/_widen)
  set(fish ${share}/fish/vendor_completions.d/widen.fish)
  set(folders)
  foreach(file IN ITEMS ${page} ${bash} ${zsh} ${fish})
    cmake_path(GET file PARENT_PATH folder)
    list(APPEND folders ${folder})
  endforeach()
  set(source ${PROJECT_SOURCE_DIR}/docs/widen.md)
  set(script ${PROJECT_SOURCE_DIR}/cmake/ManualPage.cmake)
  add_custom_command(
    OUTPUT ${page} ${bash} ${zsh} ${fish}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folders}
    COMMAND ${CMAKE_COMMAND}
      -DLOWDOWN=${TRELVAN_LOWDOWN} -DDOCUMENT=${source} -DPAGE=${page} -P ${script}
    COMMAND widen --completion bash > ${bash}
    COMMAND widen --completion zsh > ${zsh}
    COMMAND widen --completion fish > ${fish}
    DEPENDS ${source} ${script} widen
    COMMENT "Writing widen's manual page and completions"
    VERBATIM)
  add_custom_target(widen_documents ALL DEPENDS ${page} ${bash} ${zsh} ${fish})
endfunction()
