# Install rules. Components: generator (paramgen, its manual pages), tool (paramtool, its manual pages,
# completions), dev (CMake package, header, layout), doc (reference, example, documents).
include(GNUInstallDirs)
set(PARAMGEN_ZSH_COMPLETIONS "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" CACHE STRING
  "Where zsh looks for completions")

find_program(PARAMGEN_GZIP gzip)
mark_as_advanced(PARAMGEN_GZIP)

# paramgen_man_page(<file> COMPONENT <component>)
# Installs a manual page, compressed if there is gzip. A <file> without a path is made from
# docs/man/<page>.in; one with a path is the output of a custom command.
function(paramgen_man_page file)
  cmake_parse_arguments(PAGE "" "COMPONENT" "" ${ARGN})
  cmake_path(GET file FILENAME name)
  if(name STREQUAL file)
    set(file "${PROJECT_BINARY_DIR}/man/${name}")
    configure_file("${PROJECT_SOURCE_DIR}/docs/man/${name}.in" "${file}" @ONLY)
  endif()
  set(installed "${file}")
  if(PARAMGEN_GZIP)
    set(installed "${PROJECT_BINARY_DIR}/man/compressed/${name}.gz")
    add_custom_command(OUTPUT "${installed}" DEPENDS "${file}" VERBATIM
      COMMAND "${CMAKE_COMMAND}" -E make_directory "${PROJECT_BINARY_DIR}/man/compressed"
      COMMAND "${PARAMGEN_GZIP}" -9nc "${file}" > "${installed}")
  endif()
  set_property(GLOBAL APPEND PROPERTY PARAMGEN_INSTALLED_FILES "${installed}")
  string(REGEX MATCH "[0-9]$" section "${name}")
  install(FILES "${installed}" COMPONENT ${PAGE_COMPONENT}
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man${section}")
endfunction()

install(TARGETS paramgen RUNTIME COMPONENT generator)
paramgen_man_page(paramgen.1 COMPONENT generator)
paramgen_man_page(paramgen-tree.5 COMPONENT generator)
paramgen_man_page(paramgen-image.5 COMPONENT generator)

# paramgen_written_by_paramtool(<file> <argument>...)
# Adds a file that paramtool writes; it is written again when paramtool changes.
function(paramgen_written_by_paramtool file)
  cmake_path(GET file PARENT_PATH directory)
  file(MAKE_DIRECTORY "${directory}")
  add_custom_command(OUTPUT "${file}" DEPENDS paramtool_program VERBATIM
    COMMAND paramtool_program ${ARGN} -o "${file}")
  set_property(GLOBAL APPEND PROPERTY PARAMGEN_INSTALLED_FILES "${file}")
endfunction()

# paramgen_completion(<shell> <file name> <directory>)
function(paramgen_completion shell name directory)
  set(file "${PROJECT_BINARY_DIR}/completions/${shell}/${name}")
  paramgen_written_by_paramtool("${file}" completion ${shell})
  install(FILES "${file}" COMPONENT tool DESTINATION "${directory}")
endfunction()

if(PARAMGEN_COMPANION)
  install(TARGETS paramtool_program RUNTIME COMPONENT tool)
  paramgen_completion(bash paramtool "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
  paramgen_completion(zsh _paramtool "${PARAMGEN_ZSH_COMPLETIONS}")
  paramgen_completion(fish paramtool.fish "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
  set(page "${PROJECT_BINARY_DIR}/man/paramtool.1")
  paramgen_written_by_paramtool("${page}" manual)
  paramgen_man_page("${page}" COMPONENT tool)
  set(page "${PROJECT_BINARY_DIR}/man/paramgen-keys.5")
  paramgen_written_by_paramtool("${page}" reference --format=man)
  paramgen_man_page("${page}" COMPONENT tool)

  set(made "${PROJECT_BINARY_DIR}/made")
  paramgen_written_by_paramtool("${made}/paramgen_image.h" layout --format=c)
  paramgen_written_by_paramtool("${made}/layout.json" layout --format=json)
  paramgen_written_by_paramtool("${made}/paramgen.ksy" layout --format=ksy)
  paramgen_written_by_paramtool("${made}/reference.html" reference --format=html)
  install(FILES "${made}/paramgen_image.h" COMPONENT dev DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
  install(FILES "${made}/layout.json" "${made}/paramgen.ksy"
    COMPONENT dev DESTINATION "${CMAKE_INSTALL_DATADIR}/paramgen")
  install(FILES "${made}/reference.html" COMPONENT doc DESTINATION "${CMAKE_INSTALL_DOCDIR}")
endif()

include(CMakePackageConfigHelpers)
set(package_directory "${CMAKE_INSTALL_DATADIR}/cmake/paramgen")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/package/paramgenConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/paramgenConfig.cmake"
  INSTALL_DESTINATION "${package_directory}"
  PATH_VARS CMAKE_INSTALL_BINDIR CMAKE_INSTALL_INCLUDEDIR
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/paramgenConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
install(FILES "${PROJECT_BINARY_DIR}/paramgenConfig.cmake"
  "${PROJECT_BINARY_DIR}/paramgenConfigVersion.cmake" cmake/package/paramgenBuildImage.cmake
  COMPONENT dev DESTINATION "${package_directory}")

install(DIRECTORY examples/ COMPONENT doc DESTINATION "${CMAKE_INSTALL_DOCDIR}/examples"
  PATTERN "param*.bin" EXCLUDE)
install(FILES README.md CHANGELOG.md COMPONENT doc DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY docs/ COMPONENT doc DESTINATION "${CMAKE_INSTALL_DOCDIR}/docs"
  FILES_MATCHING PATTERN "*.md" PATTERN man EXCLUDE)

get_property(installed_files GLOBAL PROPERTY PARAMGEN_INSTALLED_FILES)
add_custom_target(installed_files ALL DEPENDS ${installed_files})
