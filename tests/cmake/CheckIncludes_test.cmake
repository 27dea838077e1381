# The include check on small trees, most of them with one fault that it has to name:
#   cmake -DCHECK=<CheckIncludes.cmake> -DDIR=<scratch directory> -P CheckIncludes_test.cmake
cmake_minimum_required(VERSION 3.25)
set(wrong 0)
set(edges "# A comment: none.
platform: platform/os
platform/os: platform
platform/posix: platform platform/os <h>
core: platform
objects: platform core
tables: platform core
desktop: platform <Q>
tests: * <h>
")

# expect(<name> <part of the output, GOOD for a tree without fault> <file> <content> ...)
function(expect name text)
  file(REMOVE_RECURSE ${DIR})
  while(ARGN)
    list(POP_FRONT ARGN file content)
    file(WRITE ${DIR}/${file} "// A line before.\n${content}\n")
  endwhile()
  file(WRITE ${DIR}/edges.txt "${edges}")
  execute_process(COMMAND ${CMAKE_COMMAND} -DROOT=${DIR} -DEDGES=${DIR}/edges.txt -P ${CHECK} RESULT_VARIABLE status ERROR_VARIABLE output)
  string(FIND "${output}" "${text}" at)
  if((text STREQUAL "GOOD" AND NOT status EQUAL 0) OR (NOT text STREQUAL "GOOD" AND (status EQUAL 0 OR at EQUAL -1)))
    message("${name}: expected ${text}, got status ${status}:\n${output}")
    set(wrong 1 PARENT_SCOPE)
  endif()
endfunction()

expect("allowed edges" GOOD
  tables/A.h "#include <vector>\n#include \"tables/B.h\"\n#include \"core/C.h\"" tables/B.h "#include \"platform/P.h\""
  platform/posix/P.cpp "#include <unistd.h>" platform/P.h "#include \"platform/os/O.h\"" tests/t.cpp "#include \"tables/A.h\"\n#include <gtest/gtest.h>")
expect("a diamond is no circle" GOOD
  core/A.h "#include \"core/B.h\"\n#include \"core/C.h\"" core/B.h "#include \"core/D.h\"" core/C.h "#include \"core/D.h\"")
expect("sources are no part of circles" GOOD core/A.cpp "#include \"core/A.h\"" core/A.h "// nothing")
expect("platform includes nothing above" "platform/a/P.h:2: platform/ must not include core/"
  platform/a/P.h "#include \"core/A.h\"")
expect("edge upwards from a source" "core/A.cpp:3: core/ must not include tables/"
  core/A.cpp "// more\n#include \"tables/B.h\"")
expect("library includes no tests" "tables/ must not include tests/" tables/A.h "  # include \"tests/support/T.h\"")
expect("circle of two" "core/B.h:2: in a circle" core/A.h "#include \"core/B.h\"" core/B.h "#include \"core/A.h\"")
expect("circle through a third and another folder" "platform/os/B.h:2: in a circle"
  platform/Z.h "#include \"platform/A.h\"" platform/A.h "#include \"platform/os/B.h\""
  platform/os/B.h "#include \"platform/C.h\"" platform/C.h "#include \"platform/A.h\"")
expect("a header that includes itself" "core/A.h:2: in a circle" core/A.h "#include \"core/A.h\"")
expect("upwards by dots" "by dots" tests/core/A.cpp "#include \"../core/A.h\"")
expect("dots inside" "by dots" core/A.cpp "#include \"core/../core/A.h\"")
expect("without folder" "core/A.cpp:2: an include without its folder" core/A.cpp "#include \"A.h\"")
expect("unknown folder" "unknown folder" core/A.cpp "#include \"cors/A.h\"")
expect("system header above" "core/A.cpp:2: a system header that core/ must not include" core/A.cpp "#include <sys/stat.h>")
expect("system header outside posix" "platform/A.cpp:2: a system header that platform/ must not include"
  platform/A.cpp "#include <unistd.h>")
expect("Qt where it belongs" GOOD desktop/A.cpp "#include <QWidget>")
expect("Qt below" "core/A.cpp:2: a header of Qt" core/A.cpp "#include <QString>")
expect("a part of a folder is not the folder" "core/A.cpp:2: core/ must not include platform/os/"
  core/A.cpp "#include \"platform/os/O.h\"")
expect("detail of the own folder" GOOD objects/U/A.cpp "#include \"objects/U/detail/D.h\"" objects/U/detail/D.h "// nothing")
expect("detail of another folder" "objects/A.cpp:2: objects/ must not include core/U/detail/"
  objects/A.cpp "#include \"core/U/detail/D.h\"")

set(folders "${edges}")
string(APPEND edges "core/U/Up: tables/T.h <x.h> | a reason\n")
set(used core/U/Up.cpp "#include \"tables/T.h\"\n#include <x.h>")
expect("rows of units" GOOD ${used} core/U/Up.h "#include \"tables/T.h\"")
expect("another unit" "core/U/Down.cpp:2: core/ must not include tables/" ${used} core/U/Down.cpp "#include \"tables/T.h\"")
expect("another target" "core/U/Up.h:2: core/ must not include tables/" ${used} core/U/Up.h "#include \"tables/S.h\"")
expect("circle through a row" "core/U/Up.h:2: in a circle" core/U/Up.h "#include \"tables/T.h\""
  tables/T.h "#include \"core/U/Up.h\"")
expect("a row that nothing needs" "nothing needs the row: core/U/Up:" core/A.h "// nothing")
set(edges "${folders}core: platform tables\n")
expect("a second row for a folder" "a second row for core:" core/A.h "// nothing")
set(edges "${folders}core/U/Up: tables/T.h\n")
expect("a row without a reason is none" "core/U/Up.cpp:2: core/ must not include tables/" core/U/Up.cpp
  "#include \"tables/T.h\"")

if(wrong)
  message(FATAL_ERROR "the include check is wrong")
endif()
