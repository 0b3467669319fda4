# Compiler and linker options.

add_library(paramgen_flags INTERFACE)
target_compile_options(paramgen_flags INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  -Wconversion -Wshadow -Wcast-qual -Wold-style-cast -Wnull-dereference -Wundef
  -Wformat=2 -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op>)

# Reproducible builds: the name of the build directory is not in the objects. Debug builds keep it for
# debuggers.
target_compile_options(paramgen_flags INTERFACE
  $<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${PROJECT_BINARY_DIR}=build>
  $<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>)

# Options of the program itself, which needs no C++ runtime library.
add_library(paramgen_program_flags INTERFACE)
target_link_libraries(paramgen_program_flags INTERFACE paramgen_flags)
target_compile_options(paramgen_program_flags INTERFACE
  -fno-exceptions -fno-rtti -fno-threadsafe-statics
  -ffunction-sections -fdata-sections)

# A static program starts faster and runs on any Linux, but not every toolchain has a static libc.
if(PARAMGEN_STATIC STREQUAL "AUTO")
  include(CheckCSourceCompiles)
  set(CMAKE_REQUIRED_LINK_OPTIONS -static)
  check_c_source_compiles("#include <stdio.h>\nint main(void) { return puts(\"\"); }"
    PARAMGEN_HAS_STATIC_LIBC)
  unset(CMAKE_REQUIRED_LINK_OPTIONS)
  set(PARAMGEN_STATIC OFF)
  if(PARAMGEN_HAS_STATIC_LIBC)
    set(PARAMGEN_STATIC ON)
  endif()
endif()

if(PARAMGEN_FUZZERS)
  # Coverage feedback for fuzzers, in all rooms. Comparisons are not traced: that would take a third of
  # the time, and the targets have dictionaries.
  set(PARAMGEN_STEERING_OPTIONS -fsanitize-coverage=inline-8bit-counters,pc-table)
  target_compile_options(paramgen_program_flags INTERFACE ${PARAMGEN_STEERING_OPTIONS})
endif()

set(PARAMGEN_STACK_PROTECTOR "-fstack-protector-strong" CACHE STRING
  "How functions with buffers are guarded")
# Hardening: docs/security.md describes it, scripts/check-hardening checks it.
target_compile_options(paramgen_program_flags INTERFACE
  ${PARAMGEN_STACK_PROTECTOR} -Werror=format-security -Werror=format-nonliteral)
target_link_options(paramgen_program_flags INTERFACE
  -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
if(NOT PARAMGEN_SANITIZERS)  # sanitizers check more; and fortify needs optimisation
  target_compile_options(paramgen_program_flags INTERFACE
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=2>)
endif()

# Options of the companion. -Wno-restrict, because gcc 12 warns of overlapping copies in std::string's
# own operator+ when it optimises.
add_library(paramgen_companion_flags INTERFACE)
target_link_libraries(paramgen_companion_flags INTERFACE paramgen_flags)
target_compile_options(paramgen_companion_flags INTERFACE
  ${PARAMGEN_STACK_PROTECTOR} $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict> ${PARAMGEN_STEERING_OPTIONS})
target_link_options(paramgen_companion_flags INTERFACE
  -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
if(NOT PARAMGEN_SANITIZERS)
  target_compile_options(paramgen_companion_flags INTERFACE
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=2>)
endif()

if(PARAMGEN_SANITIZERS)
  add_compile_options(-fsanitize=${PARAMGEN_SANITIZERS} -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    add_compile_options(-fno-sanitize=function)  # needs RTTI, which the program is compiled without
  endif()
  add_link_options(-fsanitize=${PARAMGEN_SANITIZERS})
endif()

if(PARAMGEN_COVERAGE)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "PARAMGEN_COVERAGE counts conditions as they stand in the source: it takes clang")
  endif()
  # Only shipped code is counted. Counters are atomic because tests use threads.
  set(profiles "-fprofile-instr-generate=${PROJECT_BINARY_DIR}/profiles/%4m.profraw")
  set(PARAMGEN_COVERAGE_OPTIONS ${profiles} -fcoverage-mapping -fprofile-update=atomic)
  target_compile_options(paramgen_program_flags INTERFACE ${PARAMGEN_COVERAGE_OPTIONS})
  add_link_options(${profiles})
endif()

# Whole-program optimisation of the release program, where the toolchain has it: rooms are small
# libraries that call each other thousands of times. Toolchain files for cross-compiling decide for
# themselves.
set(PARAMGEN_WHOLE_PROGRAM OFF)
# The C compiler links the objects of both languages, so both compilers must be of the same make and
# version.
if(NOT CMAKE_CROSSCOMPILING AND CMAKE_C_COMPILER_ID STREQUAL CMAKE_CXX_COMPILER_ID
   AND CMAKE_C_COMPILER_VERSION VERSION_EQUAL CMAKE_CXX_COMPILER_VERSION)
  include(CheckIPOSupported)
  check_ipo_supported(RESULT PARAMGEN_WHOLE_PROGRAM OUTPUT ignored LANGUAGES C CXX)
endif()
