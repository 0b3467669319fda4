# Common part of the toolchain files for musl. Compilers that are given (in CC and CXX, or in
# CMAKE_C_COMPILER and CMAKE_CXX_COMPILER) are those of an SDK and know its headers and libraries.
# Otherwise clang compiles with Debian's musl, libgcc and the headers of libc++ (there is no C++
# library for musl, and the program needs none).

if(NOT DEFINED PARAMGEN_SDK)
  set(c_compiler "$ENV{CC}")
  set(cxx_compiler "$ENV{CXX}")
  if(CMAKE_C_COMPILER AND CMAKE_CXX_COMPILER)
    set(c_compiler "${CMAKE_C_COMPILER}")
    set(cxx_compiler "${CMAKE_CXX_COMPILER}")
  endif()
  if(c_compiler AND cxx_compiler)
    separate_arguments(command UNIX_COMMAND "${c_compiler}")
    execute_process(COMMAND ${command} -dumpmachine OUTPUT_VARIABLE machine)
    if(NOT machine MATCHES "^${PARAMGEN_MACHINE}")
      message(FATAL_ERROR "${c_compiler} does not compile for ${PARAMGEN_MACHINE}: ${machine}")
    endif()
    set(PARAMGEN_SDK ON CACHE INTERNAL "The compilers are those of an SDK")
  elseif(c_compiler OR cxx_compiler)
    message(FATAL_ERROR "an SDK gives two compilers: set both CC and CXX, or none")
  else()
    set(PARAMGEN_SDK OFF CACHE INTERNAL "The compilers are those of an SDK")
  endif()
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PARAMGEN_SDK)
if(PARAMGEN_SDK)
  return()
endif()

set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET ${PARAMGEN_MUSL_TRIPLET})
set(CMAKE_CXX_COMPILER_TARGET ${PARAMGEN_MUSL_TRIPLET})
set(CMAKE_AR ${PARAMGEN_GNU_TRIPLET}-ar CACHE FILEPATH "Archiver")
set(CMAKE_RANLIB ${PARAMGEN_GNU_TRIPLET}-ranlib CACHE FILEPATH "Its indexer")
set(CMAKE_OBJCOPY ${PARAMGEN_GNU_TRIPLET}-objcopy CACHE FILEPATH "What removes sections")

execute_process(COMMAND clang++ -print-resource-dir
  OUTPUT_VARIABLE clang_resources OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${PARAMGEN_GNU_TRIPLET}-gcc -print-libgcc-file-name
  OUTPUT_VARIABLE libgcc OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${PARAMGEN_GNU_TRIPLET}-gcc -print-file-name=libgcc_eh.a
  OUTPUT_VARIABLE libgcc_eh OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(musl_include /usr/include/${PARAMGEN_MUSL_TRIPLET})
set(musl_lib /usr/lib/${PARAMGEN_MUSL_TRIPLET})

set(CMAKE_C_FLAGS_INIT "${PARAMGEN_CPU_FLAGS} -fno-pie -nostdinc")
set(CMAKE_CXX_FLAGS_INIT
  "${PARAMGEN_CPU_FLAGS} -fno-pie -nostdinc -nostdinc++ -D_LIBCPP_HAS_MUSL_LIBC")
set(CMAKE_CXX_FLAGS_MINSIZEREL "${PARAMGEN_SIZE_FLAGS} -DNDEBUG" CACHE STRING "For a small program")
set(CMAKE_EXE_LINKER_FLAGS_MINSIZEREL "${PARAMGEN_SIZE_FLAGS}" CACHE STRING "For a small program")
set(CMAKE_C_STANDARD_INCLUDE_DIRECTORIES "${clang_resources}/include" "${musl_include}")
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES
  "${clang_resources}/../../../include/c++/v1" ${CMAKE_C_STANDARD_INCLUDE_DIRECTORIES})

# Always static: products do not have the dynamic loader of Debian's musl.
set(linking "-fuse-ld=lld -Wl,-O2 -Wl,--icf=safe -Wl,--build-id=none -Wno-unused-command-line-argument")
set(CMAKE_EXE_LINKER_FLAGS_INIT
  "${linking} -static -no-pie -nostdlib ${musl_lib}/crt1.o ${musl_lib}/crti.o")
set(libraries "-Wl,--start-group ${musl_lib}/libc.a ${libgcc} ${libgcc_eh} -Wl,--end-group")
set(CMAKE_C_STANDARD_LIBRARIES_INIT "${libraries} ${musl_lib}/crtn.o")
set(CMAKE_CXX_STANDARD_LIBRARIES_INIT "${CMAKE_C_STANDARD_LIBRARIES_INIT}")
# CMake's own tests compile without linking, which would need the options above.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
