# Whether the companion is built: PARAMGEN_COMPANION.
set(PARAMGEN_COMPANION OFF)
if(CMAKE_CROSSCOMPILING OR PARAMGEN_TOOL STREQUAL "OFF")
  return()
endif()
if(PARAMGEN_TOOL STREQUAL "AUTO")
  find_package(CLI11 QUIET)
  find_package(nlohmann_json QUIET)
else()
  find_package(CLI11 REQUIRED)
  find_package(nlohmann_json REQUIRED)
endif()
if(CLI11_FOUND AND nlohmann_json_FOUND)
  set(PARAMGEN_COMPANION ON)
elseif(PARAMGEN_TOOL STREQUAL "AUTO")
  message(STATUS "paramtool is not built: CLI11 or nlohmann-json is missing")
endif()

# Whether the C++ runtime can be linked into a program; not every toolchain has it as an archive.
set(PARAMGEN_STATIC_CXX_OPTIONS -static-libstdc++ -static-libgcc -Wl,--gc-sections)
if(PARAMGEN_COMPANION)
  include(CheckCXXSourceCompiles)
  set(CMAKE_REQUIRED_LINK_OPTIONS ${PARAMGEN_STATIC_CXX_OPTIONS})
  check_cxx_source_compiles("#include <iostream>\nint main() { std::cout << 1; }"
    PARAMGEN_HAS_STATIC_CXX)
  unset(CMAKE_REQUIRED_LINK_OPTIONS)
endif()

# paramgen_embed(<room> <header> <namespace> <string>=<file>[,<file>...]...)
# Defines strings that <header> declares with the texts of files from the directory `page` of a room.
function(paramgen_embed room header namespace)
  set(output "${PROJECT_BINARY_DIR}/${room}_files.cpp")
  set(strings "")
  set(used "")
  foreach(string IN LISTS ARGN)
    string(REGEX REPLACE "[=,]" "\\0${PROJECT_SOURCE_DIR}/${room}/page/" string "${string}")
    list(APPEND strings "${string}")
    string(REGEX REPLACE "^[^=]+=" "" files "${string}")
    string(REPLACE "," ";" files "${files}")
    list(APPEND used ${files})
  endforeach()
  add_custom_command(OUTPUT "${output}"
    COMMAND "${CMAKE_COMMAND}" "-DOUTPUT=${output}" "-DHEADER=${header}" "-DNAMESPACE=${namespace}"
            "-DSTRINGS=${strings}" -P "${PROJECT_SOURCE_DIR}/cmake/Embed.cmake"
    DEPENDS ${used} "${PROJECT_SOURCE_DIR}/cmake/Embed.cmake"
    VERBATIM)
  target_sources(${room} PRIVATE "${output}")
endfunction()
