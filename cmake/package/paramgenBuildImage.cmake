# Makes one image; run by the rules of paramgen_add_image with PARAMGEN and PARAMTOOL (the programs), TREE,
# OUTPUT (where the image goes), WORK (a directory of its own), CHECK ("", check, strict), REPORT (a file,
# or "").
#
# paramgen reads its working directory and writes there. So it works in a directory below WORK, with
# links to what lies in the tree: every path then leads to the tree's own files, and nothing is written
# into the tree. The directory stands as deep below WORK/root as the tree does below the root, so that
# paths which begin with ".." lead to links as well.
cmake_minimum_required(VERSION 3.20...3.25)

# Runs a program that prints for who builds. ARGN: the program and its arguments.
function(run_or_stop what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
  if(NOT result STREQUAL "0")
    message(FATAL_ERROR "${TREE}: ${what} (${result})")
  endif()
endfunction()

# Makes links in the working directory to all that is in the tree, outputs of earlier runs excepted.
function(link_tree)
  file(GLOB entries RELATIVE "${tree}" LIST_DIRECTORIES TRUE "${tree}/*")
  list(REMOVE_ITEM entries param.bin paramdef.bin)
  foreach(entry IN LISTS entries)
    file(CREATE_LINK "${tree}/${entry}" "${directory}/${entry}" SYMBOLIC)
  endforeach()
endfunction()

# Makes the link for a file that the tree reads, when it lies outside.
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

# Says why paramgen has failed: the findings, else the records in its log.
function(explain_failure status)
  execute_process(COMMAND "${PARAMTOOL}" check "${TREE}" RESULT_VARIABLE result)
  if(result STREQUAL "0")
    file(STRINGS "${OUTPUT}/paramgen.log" records REGEX "ERROR")
    list(JOIN records "\n" records)
    message("${records}")
  endif()
  message(FATAL_ERROR "${TREE}: paramgen failed (${status}); its log is ${OUTPUT}/paramgen.log")
endfunction()

# CMake's Makefiles add what a depfile lists to what it has listed before, and a file that is gone would
# make the image anew in every build. Without what they remember they read the depfile alone.
cmake_path(GET WORK FILENAME name)
file(REMOVE "${WORK}/../../${name}.dir/compiler_depend.internal")

file(REMOVE "${OUTPUT}/param.bin" "${OUTPUT}/paramdef.bin" "${OUTPUT}/paramgen.log")
file(REMOVE_RECURSE "${WORK}/root")

# First of all, so that what changes from now on makes the image anew.
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
