# Run by cpack after packing. Its archives list files in the order of the directory on disk; this packs them
# again with GNU tar, sorted by name.
if(NOT CPACK_GENERATOR STREQUAL "TGZ" OR NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  return()
endif()
foreach(archive IN LISTS CPACK_PACKAGE_FILES)
  file(MAKE_DIRECTORY "${archive}.d")
  execute_process(COMMAND_ERROR_IS_FATAL ANY
    COMMAND tar -xzf "${archive}" -C "${archive}.d")
  execute_process(COMMAND_ERROR_IS_FATAL ANY
    COMMAND tar --sort=name --owner=0 --group=0 --numeric-owner --mtime=@$ENV{SOURCE_DATE_EPOCH}
      -C "${archive}.d" -cf "${archive}.tar" "${CPACK_PACKAGE_FILE_NAME}")
  execute_process(COMMAND_ERROR_IS_FATAL ANY COMMAND gzip -9nf "${archive}.tar")
  file(RENAME "${archive}.tar.gz" "${archive}")
  file(REMOVE_RECURSE "${archive}.d")
endforeach()
