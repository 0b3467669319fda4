# The project's version for C++: paramtool/version.h, from the one in CMakeLists.txt.
configure_file("${PROJECT_SOURCE_DIR}/cmake/version.h.in"
  "${PROJECT_BINARY_DIR}/generated/paramtool/version.h" @ONLY)
add_library(paramgen_version INTERFACE)
target_include_directories(paramgen_version INTERFACE "${PROJECT_BINARY_DIR}/generated")
