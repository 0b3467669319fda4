# x86-64 Linux with the target's libc, musl. docs/target.md tells how to use it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(PARAMGEN_MACHINE x86_64)
set(PARAMGEN_MUSL_TRIPLET x86_64-linux-musl)
set(PARAMGEN_GNU_TRIPLET x86_64-linux-gnu)
set(PARAMGEN_CPU_FLAGS "")
set(PARAMGEN_SIZE_FLAGS "-Oz")

include("${CMAKE_CURRENT_LIST_DIR}/musl.cmake")
