# Makes one image. The rules of paramgen_add_image run it with PARAMGEN and PARAMTOOL (the programs), TREE,
# OUTPUT (the directory of the image), WORK (a working directory), CHECK ("", check, strict) and REPORT (a
# file, or "").
#
# paramgen reads its working directory and writes there. So it runs in a directory below WORK, with links
# to the files of the tree, and nothing is written into the tree. The directory is as deep below WORK/root
# as the tree is below the root, so that paths which begin with ".." lead to links as well.
cmake_minimum_required(VERSION 3.20...3.25)

# Runs a program whose output is shown in the build. ARGN: the program and its arguments.
function(run_or_stop what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
  if(NOT result STREQUAL "0")
    message(FATAL_ERROR "${TREE}: ${what} (${result})")
  endif()
endfunction()

# Makes links in the working directory to all files of the tree, except for outputs of earlier runs.
function(link_tree)
  file(GLOB entries RELATIVE "${tree}" LIST_DIRECTORIES TRUE "${tree}/*")
  list(REMOVE_ITEM entries param.bin paramdef.bin)
  foreach(entry IN LISTS entries)
    file(CREATE_LINK "${tree}/${entry}" "${directory}/${entry}" SYMBOLIC)
  endforeach()
endfunction()

# Makes a link to a file outside the tree that the product reads.
function(link_outside file)
  string(REGEX REPLACE "\\\\(.)" "\\1" file "${file}")
  string(REPLACE "$$" "$" file "${file}")
  cmake_path(IS_PREFIX TREE "${file}" below)
  if(below)
    cmake_path(RELATIVE_PATH file BASE_DIRECTORY "${TREE}")
  endif()
  cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${tree}" NORMALIZE)
  cmake_path(IS_PREFIX tree "${file}" below)
  if(NOT below AND NOT EXISTS "${WORK}/root${file}")
    cmake_path(GET file PARENT_PATH parent)
    file(MAKE_DIRECTORY "${WORK}/root${parent}")
    file(CREATE_LINK "${file}" "${WORK}/root${file}" SYMBOLIC)
  endif()
endfunction()

# Makes links for all files outside the tree that the depfile lists.
function(link_outside_files)
  file(READ "${WORK}/image.d" text)
  string(REGEX REPLACE "\\\\\r?\n" " " text "${text}")
  string(FIND "${text}" ": " colon)
  math(EXPR colon "${colon} + 1")
  string(SUBSTRING "${text}" ${colon} -1 text)
  while(text MATCHES "^[ \t\r\n]+(([^ \t\r\n\\]|\\\\.)+)(.*)")
    set(file "${CMAKE_MATCH_1}")
    set(text "${CMAKE_MATCH_3}")
    link_outside("${file}")
  endwhile()
endfunction()

# Prints why paramgen has failed: the findings or, without any, the records in its log.
function(explain_failure status)
  execute_process(COMMAND "${PARAMTOOL}" check "${TREE}" RESULT_VARIABLE result)
  if(result STREQUAL "0")
    file(STRINGS "${OUTPUT}/paramgen.log" records REGEX "ERROR")
    list(JOIN records "\n" records)
    message("${records}")
  endif()
  message(FATAL_ERROR "${TREE}: paramgen failed (${status}); its log is ${OUTPUT}/paramgen.log")
endfunction()

# CMake's Makefiles keep the dependencies of earlier depfiles, and one that no longer exists would cause a
# rebuild in every build. Remove what they keep, so that they read the new depfile only.
cmake_path(GET WORK FILENAME name)
file(REMOVE "${WORK}/../../${name}.dir/compiler_depend.internal")

file(REMOVE "${OUTPUT}/param.bin" "${OUTPUT}/paramdef.bin" "${OUTPUT}/paramgen.log")
file(REMOVE_RECURSE "${WORK}/root")

# Written first, so that a change from now on causes a rebuild.
run_or_stop("its files cannot be listed"
  "${PARAMTOOL}" deps "${TREE}" --target "${OUTPUT}/param.bin" -o "${WORK}/image.d")
if(CHECK STREQUAL "strict")
  run_or_stop("errors or warnings were found" "${PARAMTOOL}" check --strict "${TREE}")
elseif(CHECK)
  run_or_stop("errors were found" "${PARAMTOOL}" check "${TREE}")
endif()

file(REAL_PATH "${TREE}" tree)
set(directory "${WORK}/root${tree}")
file(MAKE_DIRECTORY "${directory}")
link_tree()
link_outside_files()
execute_process(COMMAND "${PARAMGEN}" WORKING_DIRECTORY "${directory}" RESULT_VARIABLE status
  OUTPUT_FILE "${OUTPUT}/paramgen.log")
if(NOT status STREQUAL "0")
  explain_failure("${status}")
endif()
if(REPORT)
  run_or_stop("no report" "${PARAMTOOL}" report "${TREE}" -o "${REPORT}")
endif()
file(RENAME "${directory}/paramdef.bin" "${OUTPUT}/paramdef.bin")
file(RENAME "${directory}/param.bin" "${OUTPUT}/param.bin")
file(REMOVE "${OUTPUT}/paramgen.log")
file(REMOVE_RECURSE "${WORK}/root")
