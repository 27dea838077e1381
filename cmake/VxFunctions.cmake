# Helper functions of the build.

# The options that everything of ours is compiled with.
function(vx_compile_options target)
  # Numbers come out the same with every processor: no fused operations. Nobody reads errno behind <cmath>.
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -ffp-contract=off -fno-math-errno)
  if(VX_STRICT)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(VX_SANITIZE)
    target_compile_options(${target} PUBLIC -fsanitize=${VX_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(${target} PUBLIC -fsanitize=${VX_SANITIZE})
  endif()
endfunction()

# A subsystem: one target, assembled into the library. Files are named from the subsystem's folder.
# HEADERS are the public ones; DETAIL are those in folders named detail that public ones need for the layout of a
# class. Others are not installed.
#   vx_subsystem(<folder> SOURCES <files> HEADERS <files> DETAIL <files>)
function(vx_subsystem folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;DETAIL" ${ARGN})
  if(ARG_SOURCES)
    add_library(vx_${folder} OBJECT ${ARG_SOURCES})
    target_compile_features(vx_${folder} PUBLIC cxx_std_20)
    target_include_directories(vx_${folder} PRIVATE ${PROJECT_SOURCE_DIR})
    set_target_properties(vx_${folder} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    vx_compile_options(vx_${folder})
    target_sources(vxlib PRIVATE $<TARGET_OBJECTS:vx_${folder}>)
  endif()
  foreach(header ${ARG_HEADERS} ${ARG_DETAIL})
    get_filename_component(sub ${header} DIRECTORY)
    install(FILES ${header} DESTINATION include/vxlib/${folder}/${sub})
  endforeach()
endfunction()

# A program of ours that uses the library.
#   vx_program(<name> <sources>)
function(vx_program name)
  add_executable(${name} ${ARGN})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE vxlib)
  vx_compile_options(${name})
endfunction()
