# x86-64 Linux with the target's libc, musl. docs/target.md describes how to use it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(PARAMGEN_MACHINE x86_64)
set(PARAMGEN_MUSL_TRIPLET x86_64-linux-musl)
set(PARAMGEN_GNU_TRIPLET x86_64-linux-gnu)
set(PARAMGEN_CPU_FLAGS "")
set(PARAMGEN_SIZE_FLAGS "-Oz")
# For a fast program: whole-program optimisation.
set(CMAKE_CXX_FLAGS_RELEASE "-O3 -flto -DNDEBUG" CACHE STRING "For a fast program")
set(CMAKE_EXE_LINKER_FLAGS_RELEASE "-O3 -flto" CACHE STRING "For a fast program")

include("${CMAKE_CURRENT_LIST_DIR}/musl.cmake")
