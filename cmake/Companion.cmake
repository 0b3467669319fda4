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
