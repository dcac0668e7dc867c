# trelvan_must_not_compile(<name> <file> <case> <message>): a test that compiles <file> with
# CASE=<case> and passes only if the compiler refuses it with a message that matches. CASE=0 of each
# file must compile.
function(trelvan_compile_case name file case)
  add_test(NAME ${name}
    COMMAND ${CMAKE_CXX_COMPILER} -std=c++20 -fsyntax-only -DCASE=${case} -I${PROJECT_SOURCE_DIR}
      ${CMAKE_CURRENT_SOURCE_DIR}/${file})
  set_tests_properties(${name} PROPERTIES LABELS plugin TIMEOUT 60)
endfunction()

function(trelvan_must_not_compile name file case message)
  trelvan_compile_case(${name} ${file} ${case})
  set_tests_properties(${name} PROPERTIES PASS_REGULAR_EXPRESSION "${message}")
endfunction()

set(assertion "static.assertion failed|static_assert failed")
trelvan_compile_case(NoCompile.RecordsCompileUnchanged nocompile/records.cpp 0)
trelvan_must_not_compile(NoCompile.RecordsThatArePacked nocompile/records.cpp 1 "${assertion}")
trelvan_must_not_compile(NoCompile.RecordsWithWiderWords nocompile/records.cpp 2 "${assertion}")
trelvan_must_not_compile(NoCompile.PresetRecordOfDoubles nocompile/records.cpp 3 "${assertion}")
trelvan_must_not_compile(NoCompile.SharedWordThatNeedsALock nocompile/records.cpp 4 "${assertion}")

trelvan_compile_case(NoCompile.MisuseCompilesWithoutIt nocompile/misuse.cpp 0)
trelvan_must_not_compile(NoCompile.CopyOfAnEffect nocompile/misuse.cpp 1 "deleted")
trelvan_must_not_compile(NoCompile.CopyOfAnEditor nocompile/misuse.cpp 2 "deleted")
trelvan_must_not_compile(NoCompile.ChunkIntoTooLittleMemory nocompile/misuse.cpp 3
  "no matching|could not convert|no viable")
trelvan_must_not_compile(NoCompile.HostCallbackOfAnotherShape nocompile/misuse.cpp 4
  "invalid conversion|no known conversion|no matching")
