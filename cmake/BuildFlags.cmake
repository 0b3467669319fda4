# What everything is compiled with.

add_library(paramgen_flags INTERFACE)
target_compile_options(paramgen_flags INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  -Wconversion -Wshadow -Wcast-qual -Wold-style-cast -Wnull-dereference -Wundef
  -Wformat=2 -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op>)

# What the program itself is compiled with besides: it brings no C++ runtime library along.
add_library(paramgen_program_flags INTERFACE)
target_link_libraries(paramgen_program_flags INTERFACE paramgen_flags)
target_compile_options(paramgen_program_flags INTERFACE
  -fno-exceptions -fno-rtti -fno-threadsafe-statics
  -ffunction-sections -fdata-sections)

if(PARAMGEN_SANITIZERS)
  add_compile_options(-fsanitize=${PARAMGEN_SANITIZERS} -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    add_compile_options(-fno-sanitize=function)  # takes type information, which does not ship
  endif()
  add_link_options(-fsanitize=${PARAMGEN_SANITIZERS})
endif()

if(PARAMGEN_COVERAGE)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "PARAMGEN_COVERAGE counts conditions as they stand in the source: it takes clang")
  endif()
  # Only what ships is counted. Atomic, since threads count too.
  set(profiles "-fprofile-instr-generate=${PROJECT_BINARY_DIR}/profiles/%4m.profraw")
  target_compile_options(paramgen_program_flags INTERFACE
    ${profiles} -fcoverage-mapping -fprofile-update=atomic)
  add_link_options(${profiles})
endif()
