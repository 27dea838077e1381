# The README's C++ example is examples/readme_example.cpp word for word:
#   cmake -P cmake/CheckReadme.cmake
cmake_minimum_required(VERSION 3.25)
get_filename_component(root ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)
file(READ ${root}/README.md readme)
file(READ ${root}/examples/readme_example.cpp example)
string(FIND "${readme}" "```cpp\n${example}```\n" at)
if(at EQUAL -1)
  message(FATAL_ERROR "README.md does not show examples/readme_example.cpp as it is")
endif()
