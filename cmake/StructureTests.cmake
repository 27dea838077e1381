# Tests of the tree itself and of its use by strangers. They say the same in every build, so builds with sanitizers
# leave them out.
if(VX_SANITIZE)
  return()
endif()

set(vx_cmake ${PROJECT_SOURCE_DIR}/cmake)
add_test(NAME structure.includes COMMAND ${CMAKE_COMMAND} -P ${vx_cmake}/CheckIncludes.cmake)
add_test(NAME structure.include_check COMMAND ${CMAKE_COMMAND} -DCHECK=${vx_cmake}/CheckIncludes.cmake
  -DDIR=${PROJECT_BINARY_DIR}/include_check -P ${PROJECT_SOURCE_DIR}/tests/cmake/CheckIncludes_test.cmake)
add_test(NAME structure.headers COMMAND sh ${vx_cmake}/CheckHeaders.sh ${CMAKE_CXX_COMPILER} ${PROJECT_SOURCE_DIR}
  core objects tables services rendering controls desktop platform tools examples tests fuzz)
add_test(NAME structure.readme COMMAND ${CMAKE_COMMAND} -P ${vx_cmake}/CheckReadme.cmake)
add_test(NAME structure.names COMMAND sh ${vx_cmake}/CheckNames.sh ${PROJECT_SOURCE_DIR} docs/which-one.md)
add_test(NAME structure.examples COMMAND sh ${vx_cmake}/CheckExamples.sh ${CMAKE_CXX_COMPILER} ${PROJECT_SOURCE_DIR}
  ${PROJECT_BINARY_DIR}/examples_of_headers $<TARGET_FILE:vxlib> -lpthread ${VX_PCRE2_LDFLAGS})
add_test(NAME structure.examples_check COMMAND sh ${PROJECT_SOURCE_DIR}/tests/cmake/CheckExamples_test.sh
  ${vx_cmake}/CheckExamples.sh ${CMAKE_CXX_COMPILER} ${PROJECT_BINARY_DIR}/examples_check)
add_test(NAME structure.refusals COMMAND sh ${vx_cmake}/CheckRefusals.sh ${CMAKE_CXX_COMPILER} ${PROJECT_SOURCE_DIR}
  ${PROJECT_SOURCE_DIR}/tests/refused/cells.txt ${PROJECT_BINARY_DIR}/refusals)
# What the component's own headers need is told in a variable; without it they are left out.
if(TARGET vxlib_drawing)
  list(TRANSFORM VX_DRAWING_LIBS_INCLUDE_DIRS PREPEND "-I" OUTPUT_VARIABLE vx_drawing_includes)
  list(JOIN vx_drawing_includes " " vx_drawing_includes)
  set(vx_header_options "DRAWING_INCLUDES=${vx_drawing_includes}")
endif()
if(TARGET vxlib_desktop)
  set(vx_desktop_includes -fPIC ${Qt6Core_INCLUDE_DIRS} ${Qt6Gui_INCLUDE_DIRS} ${Qt6Widgets_INCLUDE_DIRS}
    ${Qt6PrintSupport_INCLUDE_DIRS} ${Qt6Test_INCLUDE_DIRS})
  list(TRANSFORM vx_desktop_includes REPLACE "^/" "-isystem/")
  list(JOIN vx_desktop_includes " " vx_desktop_includes)
  list(APPEND vx_header_options "DESKTOP_INCLUDES=${vx_desktop_includes}")
endif()
set_tests_properties(structure.headers PROPERTIES ENVIRONMENT "${vx_header_options}")
if(CMAKE_EXPORT_COMPILE_COMMANDS)
  add_test(NAME structure.sources
    COMMAND ${CMAKE_COMMAND} -DBUILD=${PROJECT_BINARY_DIR} -DDRAWING=$<TARGET_EXISTS:vxlib_drawing>
      -DDESKTOP=$<TARGET_EXISTS:vxlib_desktop> -P ${vx_cmake}/CheckSources.cmake)
endif()

# A stranger's project: against the installed package, and with the tree as a part of its own.
set(vx_consumer ${PROJECT_SOURCE_DIR}/tests/consumer)
set(vx_scratch ${PROJECT_BINARY_DIR}/consumer)
# vx_consumer_test(<name> <build directory> <options of the configuration>)
function(vx_consumer_test name directory)
  add_test(NAME consumer.${name} COMMAND ${CMAKE_CTEST_COMMAND} --build-and-test ${vx_consumer} ${directory}
    --build-generator ${CMAKE_GENERATOR} --build-options -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER}
    -DCMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER} ${ARGN} --test-command consumer)
endfunction()

add_test(NAME consumer.install COMMAND ${CMAKE_COMMAND} -DBUILD=${PROJECT_BINARY_DIR} -DPREFIX=${vx_scratch}/prefix
  -P ${vx_consumer}/Install.cmake)
if(TARGET vxlib_drawing)
  set(vx_consumer_drawing -DDRAWING=ON)
endif()
vx_consumer_test(find_package ${vx_scratch}/find_package ${vx_consumer_drawing}
  -DCMAKE_PREFIX_PATH=${vx_scratch}/prefix -DCMAKE_BUILD_TYPE=Release)
# Compiles the library as this build does, and as deep below the sources, so that a compiler cache knows all of it.
vx_consumer_test(add_subdirectory ${PROJECT_BINARY_DIR}_in_a_tree ${vx_consumer_drawing}
  -DVXLIB_SOURCE_DIR=${PROJECT_SOURCE_DIR} -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE} -DCMAKE_CXX_FLAGS_RELEASE=${CMAKE_CXX_FLAGS_RELEASE} -DVX_STRICT=${VX_STRICT})
set_tests_properties(consumer.install PROPERTIES FIXTURES_SETUP vx_installed)
set_tests_properties(consumer.find_package PROPERTIES FIXTURES_REQUIRED vx_installed)
set_tests_properties(structure.headers consumer.add_subdirectory PROPERTIES PROCESSORS 2 COST 100)
