# The include check on small trees, most of them with one fault that it has to name:
#   cmake -DCHECK=<CheckIncludes.cmake> -DDIR=<scratch directory> -P CheckIncludes_test.cmake
cmake_minimum_required(VERSION 3.25)
set(wrong 0)

# expect(<name> <part of the output, GOOD for a tree without fault> <file> <content> ...)
function(expect name text)
  file(REMOVE_RECURSE ${DIR})
  while(ARGN)
    list(POP_FRONT ARGN file content)
    file(WRITE ${DIR}/${file} "// A line before.\n${content}\n")
  endwhile()
  execute_process(COMMAND ${CMAKE_COMMAND} -DROOT=${DIR} -P ${CHECK} RESULT_VARIABLE status ERROR_VARIABLE output)
  string(FIND "${output}" "${text}" at)
  if((text STREQUAL "GOOD" AND NOT status EQUAL 0) OR (NOT text STREQUAL "GOOD" AND (status EQUAL 0 OR at EQUAL -1)))
    message("${name}: expected ${text}, got status ${status}:\n${output}")
    set(wrong 1 PARENT_SCOPE)
  endif()
endfunction()

expect("allowed edges" GOOD
  tables/A.h "#include <vector>\n#include \"tables/B.h\"\n#include \"core/C.h\"" tables/B.h "#include \"platform/P.h\""
  platform/P.h "#include <unistd.h>" tests/t.cpp "#include \"tables/A.h\"\n#include <gtest/gtest.h>")
expect("a diamond is no circle" GOOD
  core/A.h "#include \"core/B.h\"\n#include \"core/C.h\"" core/B.h "#include \"core/D.h\"" core/C.h "#include \"core/D.h\"")
expect("sources are no part of circles" GOOD core/A.cpp "#include \"core/A.h\"" core/A.h "// nothing")
expect("platform includes nothing above" "platform/a/P.h:2: platform/ must not include core/"
  platform/a/P.h "#include \"core/A.h\"")
expect("edge upwards from a source" "core/A.cpp:3: core/ must not include tables/"
  core/A.cpp "// more\n#include \"tables/B.h\"")
expect("library includes no tests" "tables/ must not include tests/" tables/A.h "  # include \"tests/support/T.h\"")
expect("circle of two" "core/B.h:2: in a circle" core/A.h "#include \"core/B.h\"" core/B.h "#include \"core/A.h\"")
expect("circle through a third and another folder" "objects/B.h:2: in a circle" core/Z.h "#include \"core/A.h\""
  core/A.h "#include \"objects/B.h\"" objects/B.h "#include \"core/C.h\"" core/C.h "#include \"core/A.h\"")
expect("a header that includes itself" "core/A.h:2: in a circle" core/A.h "#include \"core/A.h\"")
expect("upwards by dots" "by dots" tests/core/A.cpp "#include \"../core/A.h\"")
expect("dots inside" "by dots" core/A.cpp "#include \"core/../core/A.h\"")
expect("without folder" "core/A.cpp:2: an include without its folder" core/A.cpp "#include \"A.h\"")
expect("unknown folder" "unknown folder" core/A.cpp "#include \"cors/A.h\"")
expect("system header outside platform" "a system header outside platform/" core/A.cpp "#include <sys/stat.h>")

if(wrong)
  message(FATAL_ERROR "the include check is wrong")
endif()
