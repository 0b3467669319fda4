# Packages, made by cpack: paramgen, paramtool and paramgen-dev for Debian, and one archive with all files.
# scripts/package makes them reproducible.
set(CPACK_PACKAGE_NAME paramgen)
set(CPACK_PACKAGE_VENDOR "The paramgen authors")
set(CPACK_PACKAGE_CONTACT "The paramgen authors <paramgen@debian.invalid>")
set(CPACK_PACKAGE_FILE_NAME "paramgen-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}")
set(CPACK_GENERATOR TGZ DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/StagePackage.cmake")
set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/SortArchive.cmake")
set(CPACK_PARAMGEN_SOURCE "${PROJECT_SOURCE_DIR}")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENTS_ALL generator dev doc)
if(PARAMGEN_COMPANION)
  list(APPEND CPACK_COMPONENTS_ALL tool)
endif()
set(CPACK_COMPONENT_GENERATOR_GROUP paramgen)
set(CPACK_COMPONENT_TOOL_GROUP paramtool)
set(CPACK_COMPONENT_DEV_GROUP paramgen-dev)
set(CPACK_COMPONENT_DOC_GROUP paramgen-dev)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)

set(CPACK_DEBIAN_PARAMGEN_PACKAGE_NAME paramgen)
set(CPACK_DEBIAN_PARAMGEN_DESCRIPTION "makes parameter images for camera products
A camera product's settings live in a tree of INI files. Its firmware reads
them at power-on from one parameter image of 29,928 bytes, each value at a
fixed offset. paramgen turns the one into the other.")
set(CPACK_DEBIAN_PARAMGEN_PACKAGE_SUGGESTS paramtool)

set(CPACK_DEBIAN_PARAMTOOL_PACKAGE_NAME paramtool)
set(CPACK_DEBIAN_PARAMTOOL_DESCRIPTION "check, explain, compare and edit parameter images and their trees
The companion of paramgen. It finds what is wrong or suspicious in a tree of
INI files, with file, line and column, explains every value and every byte of
an image, compares images and trees, turns an image back into a tree, edits
trees in place, and makes reports, references and headers.")
set(CPACK_DEBIAN_PARAMTOOL_PACKAGE_RECOMMENDS paramgen)

set(dev_depends "paramgen (>= ${PROJECT_VERSION})")
if(PARAMGEN_COMPANION)
  string(APPEND dev_depends ", paramtool (>= ${PROJECT_VERSION})")
endif()
set(CPACK_DEBIAN_PARAMGEN-DEV_PACKAGE_NAME paramgen-dev)
set(CPACK_DEBIAN_PARAMGEN-DEV_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PARAMGEN-DEV_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PARAMGEN-DEV_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_PARAMGEN-DEV_PACKAGE_DEPENDS "${dev_depends}")
set(CPACK_DEBIAN_PARAMGEN-DEV_DESCRIPTION "parameter images for camera products - development files
A CMake package that builds images from trees of INI files, a header and a
machine-readable layout for who reads images, the reference of all keys, and
an example product.")

include(CPack)
include(CPackComponent)
