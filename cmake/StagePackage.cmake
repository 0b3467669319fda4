# Run by cpack between installing into a staging directory and packing it. Adds the files that Debian
# packages must have, and gives every file the same time, so that packages are reproducible.

# Adds Debian's documents to the staged package in `directory`.
function(add_debian_documents directory)
  cmake_path(GET directory FILENAME package)
  set(documents "${directory}/usr/share/doc/${package}")
  file(MAKE_DIRECTORY "${documents}")
  file(COPY_FILE "${CPACK_PARAMGEN_SOURCE}/packaging/debian/copyright" "${documents}/copyright")
  set(PACKAGE_VERSION "${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
  string(TIMESTAMP PACKAGE_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)  # SOURCE_DATE_EPOCH, where set
  set(PACKAGE_CONTACT "${CPACK_PACKAGE_CONTACT}")
  configure_file("${CPACK_PARAMGEN_SOURCE}/packaging/debian/changelog.in"
    "${documents}/changelog.Debian" @ONLY)
  file(COPY_FILE "${CPACK_PARAMGEN_SOURCE}/CHANGELOG.md" "${documents}/changelog")
  execute_process(COMMAND gzip -9nf changelog.Debian changelog WORKING_DIRECTORY "${documents}"
    COMMAND_ERROR_IS_FATAL ANY)

  file(MAKE_DIRECTORY "${directory}/usr/share/lintian/overrides")
  file(COPY_FILE "${CPACK_PARAMGEN_SOURCE}/packaging/debian/lintian-overrides"
    "${directory}/usr/share/lintian/overrides/${package}")
  # Debian's zsh searches another directory for completions of packages.
  set(zsh "${directory}/usr/share/zsh")
  if(EXISTS "${zsh}/site-functions")
    file(RENAME "${zsh}/site-functions" "${zsh}/vendor-completions")
  endif()
endfunction()

set(staged "${CPACK_TEMPORARY_DIRECTORY}")
if(CPACK_GENERATOR STREQUAL "DEB")
  file(GLOB packages "${staged}/*/usr")
  foreach(package IN LISTS packages)
    cmake_path(GET package PARENT_PATH directory)
    add_debian_documents("${directory}")
  endforeach()
endif()

# Copied files have permissions that depend on the umask.
execute_process(COMMAND chmod -R u=rwX,go=rX "${staged}" COMMAND_ERROR_IS_FATAL ANY)

if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(
    COMMAND find "${staged}" -exec touch --no-dereference "--date=@$ENV{SOURCE_DATE_EPOCH}" "{}" +
    COMMAND_ERROR_IS_FATAL ANY)
endif()
