# Makes a manual page of a Markdown document: the title becomes NAME and SYNOPSIS, its sections
# those of the page. The page's extension is the manual's section.
# Usage: cmake -DLOWDOWN=PROGRAM -DDOCUMENT=X.md -DPAGE=x.1 -P ManualPage.cmake
cmake_policy(VERSION 3.25)
cmake_path(GET PAGE STEM name)
cmake_path(GET PAGE EXTENSION LAST_ONLY section)
string(SUBSTRING ${section} 1 -1 section)
file(READ ${DOCUMENT} text)
string(REGEX REPLACE "^# ${name}\n\nA ([^\n]*)\\.\n\n" "# NAME\n\n${name} - \\1\n\n# SYNOPSIS\n\n"
  page "${text}")
if(page STREQUAL text)
  message(FATAL_ERROR "${DOCUMENT} does not begin with its name and a sentence of what it is.")
endif()
string(REGEX REPLACE "\n##(#*) " "\n#\\1 " page "${page}")
file(WRITE ${PAGE}.md "${page}")
execute_process(
  COMMAND ${LOWDOWN} -s -Tman --out-no-smarty -Mtitle=${name} -Msection=${section} ${PAGE}.md
  OUTPUT_FILE ${PAGE} COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE ${PAGE}.md)
file(READ ${PAGE} page)
# Tables' lines are too short to be filled up with spaces on both sides.
string(REPLACE "\n.TS\n" "\n.ad l\n.TS\n" page "${page}")
string(REPLACE "\n.TE\n" "\n.TE\n.ad b\n" page "${page}")
# The first line is where man looks for which programs a page needs before it is set: tbl.
file(WRITE ${PAGE} "'\\\" t\n${page}")
