# The target: 32-bit little-endian ARM Linux with musl. docs/target.md describes how to use it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)

set(PARAMGEN_MACHINE arm)
set(PARAMGEN_MUSL_TRIPLET arm-linux-musleabihf)
set(PARAMGEN_GNU_TRIPLET arm-linux-gnueabihf)
# The processor that Debian's musl and libgcc are built for.
set(PARAMGEN_CPU_FLAGS "-march=armv7-a -mfpu=vfpv3-d16 -mfloat-abi=hard -mthumb")
# For a small program: whole-program optimisation, and the outliner, which turns repeated instruction
# sequences into functions.
set(PARAMGEN_SIZE_FLAGS "-Oz -flto -moutline")
# Notes of compilers and linkers, which nothing reads at run time.
set(PARAMGEN_NOTE_SECTIONS .comment .ARM.attributes)

include("${CMAKE_CURRENT_LIST_DIR}/musl.cmake")
