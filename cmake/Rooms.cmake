# Rooms: the program's layers, one static library each. A room may include and call only the rooms that
# it uses, directly or through others; the configure step fails otherwise.
#
# With CMAKE_UNITY_BUILD the companion's rooms are compiled several files at a time, which takes
# a third of the time: their headers take longer than their code. The program's rooms are not.
#
# The program's rooms are compiled a second time for the companion, with PARAMGEN_DESCRIBED: rows of
# field tables then have their notes, and a run can be observed. None of that is in the program itself.

# paramgen_room_files(<directory> <file>...)
# Sets `target`, `sources` and `headers` for the room of a directory. The files are not among its sources.
function(paramgen_room_files directory except)
  string(REPLACE "/" "_" target "${directory}")
  file(GLOB sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${directory}/*.cpp")
  file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${directory}/*.h")
  list(TRANSFORM except PREPEND "${PROJECT_SOURCE_DIR}/${directory}/")
  list(REMOVE_ITEM sources ${except})
  return(PROPAGATE target sources headers)
endfunction()

# paramgen_room(<directory> [USES <directory>...] [EXCEPT <file>...])
# Adds the library of a room of the program from the sources in its directory, and the library
# <room>_described of its second compilation.
function(paramgen_room directory)
  cmake_parse_arguments(ROOM "" "" "USES;EXCEPT" ${ARGN})
  paramgen_room_files("${directory}" "${ROOM_EXCEPT}")
  set_property(GLOBAL APPEND PROPERTY PARAMGEN_ROOMS "${directory}")
  add_library(${target} STATIC ${sources} ${headers})
  target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${target} PRIVATE paramgen_program_flags)

  set(visible "${directory}")
  foreach(used IN LISTS ROOM_USES)
    string(REPLACE "/" "_" used_target "${used}")
    target_link_libraries(${target} PUBLIC ${used_target})
    get_target_property(behind ${used_target} PARAMGEN_VISIBLE)
    list(APPEND visible ${behind})
  endforeach()
  list(REMOVE_DUPLICATES visible)
  set_target_properties(${target} PROPERTIES
    PARAMGEN_VISIBLE "${visible}"
    UNITY_BUILD OFF
    INTERPROCEDURAL_OPTIMIZATION_RELEASE ${PARAMGEN_WHOLE_PROGRAM})
  paramgen_check_includes("${visible}" ${sources} ${headers})

  add_library(${target}_described STATIC EXCLUDE_FROM_ALL ${sources})
  target_compile_definitions(${target}_described PUBLIC PARAMGEN_DESCRIBED)
  target_include_directories(${target}_described PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${target}_described PRIVATE paramgen_flags)
  set_target_properties(${target}_described PROPERTIES UNITY_BUILD OFF)
  # Unit tests run this compilation of the loaders; coverage merges functions that are the same in both.
  target_compile_options(${target}_described PRIVATE
    ${PARAMGEN_COVERAGE_OPTIONS} ${PARAMGEN_STEERING_OPTIONS})
  foreach(used IN LISTS ROOM_USES)
    string(REPLACE "/" "_" used_target "${used}")
    target_link_libraries(${target}_described PUBLIC ${used_target}_described)
  endforeach()
endfunction()

# paramgen_companion_room(<directory> [USES <directory>...] [LIBRARIES <library>...])
# Adds the library of a room of the companion, which may use all of C++. It uses the second compilation
# of the program's rooms.
function(paramgen_companion_room directory)
  cmake_parse_arguments(ROOM "" "" "USES;EXCEPT;LIBRARIES" ${ARGN})
  paramgen_room_files("${directory}" "${ROOM_EXCEPT}")
  set_property(GLOBAL APPEND PROPERTY PARAMGEN_COMPANION_ROOMS "${directory}")
  add_library(${target} STATIC ${sources} ${headers})
  target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${target} PUBLIC ${ROOM_LIBRARIES} PRIVATE paramgen_companion_flags)
  set(visible "${directory}")
  foreach(used IN LISTS ROOM_USES)
    string(REPLACE "/" "_" used_target "${used}")
    get_target_property(behind ${used_target} PARAMGEN_VISIBLE)
    list(APPEND visible ${behind})
    if(TARGET ${used_target}_described)
      set(used_target ${used_target}_described)
    endif()
    target_link_libraries(${target} PUBLIC ${used_target})
  endforeach()
  list(REMOVE_DUPLICATES visible)
  set_target_properties(${target} PROPERTIES PARAMGEN_VISIBLE "${visible}")
  paramgen_check_includes("${visible}" ${sources} ${headers})
endfunction()

# Fails when a file includes a header from a directory that is not in `visible`.
function(paramgen_check_includes visible)
  foreach(file IN LISTS ARGN)
    set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    file(STRINGS "${file}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*[\"<]")
    foreach(include IN LISTS includes)
      string(REGEX REPLACE "^[^\"<]*[\"<]([^\">]*)[\">].*" "\\1" header "${include}")
      if(include MATCHES "<" AND NOT EXISTS "${PROJECT_SOURCE_DIR}/${header}")
        continue()  # a system header
      endif()
      get_filename_component(room "${header}" DIRECTORY)
      if(NOT room IN_LIST visible)
        message(FATAL_ERROR "${file}: ${include}: not below this room (sees: ${visible})")
      endif()
    endforeach()
  endforeach()
endfunction()

# paramgen_program(<name> <source>... USES <directory>...)
# Adds a program that needs nothing but libc: it is linked by the C compiler.
function(paramgen_program name)
  cmake_parse_arguments(PROGRAM "" "" "USES" ${ARGN})
  add_executable(${name} ${PROGRAM_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE paramgen_program_flags)
  foreach(used IN LISTS PROGRAM_USES)
    string(REPLACE "/" "_" used_target "${used}")
    target_link_libraries(${name} PRIVATE ${used_target})
  endforeach()
  target_link_options(${name} PRIVATE -Wl,--gc-sections -Wl,--as-needed)
  target_link_options(${name} PRIVATE
    $<$<BOOL:${PARAMGEN_STATIC}>:-static> $<$<BOOL:${PARAMGEN_STRIP}>:-s>
    "-Wl,-Map=$<TARGET_FILE:${name}>.map" -Wl,--cref)  # for scripts/check-hardening
  if(PARAMGEN_STRIP AND PARAMGEN_NOTE_SECTIONS AND CMAKE_OBJCOPY)
    list(TRANSFORM PARAMGEN_NOTE_SECTIONS PREPEND --remove-section= OUTPUT_VARIABLE removed)
    add_custom_command(TARGET ${name} POST_BUILD
      COMMAND ${CMAKE_OBJCOPY} ${removed} $<TARGET_FILE:${name}>)
  endif()
  set_target_properties(${name} PROPERTIES
    LINKER_LANGUAGE C
    UNITY_BUILD OFF
    INTERPROCEDURAL_OPTIMIZATION_RELEASE ${PARAMGEN_WHOLE_PROGRAM})
endfunction()

# Linking with the C compiler must not bring the C++ libraries back.
set(CMAKE_CXX_IMPLICIT_LINK_LIBRARIES "")
set(CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES "")
