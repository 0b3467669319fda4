################################################################################
#
# paramgen
#
################################################################################

PARAMGEN_SITE = $(BR2_EXTERNAL_PARAMGEN_PATH)/../..
PARAMGEN_SITE_METHOD = local
PARAMGEN_LICENSE = MIT
PARAMGEN_LICENSE_FILES = LICENSE

# The generator alone goes to the target.
PARAMGEN_CONF_OPTS = -DPARAMGEN_TOOL=OFF
ifeq ($(BR2_STATIC_LIBS),y)
PARAMGEN_CONF_OPTS += -DPARAMGEN_STATIC=ON
endif

# The host gets both programs and the CMake package. CLI11 and nlohmann-json are
# the build machine's own.
HOST_PARAMGEN_CONF_OPTS = -DPARAMGEN_TOOL=ON

$(eval $(cmake-package))
$(eval $(host-cmake-package))
