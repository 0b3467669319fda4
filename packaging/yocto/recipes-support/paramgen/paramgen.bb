SUMMARY = "Parameter images for camera products"
DESCRIPTION = "paramgen makes the parameter image of a camera product from its tree of INI files. \
paramtool, its companion, is for the machines that build and check products."
LICENSE = "MIT"
LIC_FILES_CHKSUM = "file://LICENSE;md5=f1f53ef4cdc17a4cd65ad1905660e4c8"

inherit cmake externalsrc bash-completion

# The recipe is part of the sources, and takes their version.
EXTERNALSRC = "${@os.path.abspath(os.path.join(d.getVar('THISDIR'), '../../../..'))}"
def paramgen_version(d):
    import re
    with open(os.path.join(d.getVar('EXTERNALSRC'), 'CMakeLists.txt')) as lists:
        return re.search(r'project\(paramgen VERSION ([0-9.]+)', lists.read()).group(1)
PV = "${@paramgen_version(d)}"

# The generator alone goes to the target. Builds get both programs, as paramgen-native.
EXTRA_OECMAKE = "-DPARAMGEN_TOOL=OFF"
EXTRA_OECMAKE:class-native = "-DPARAMGEN_TOOL=ON"
EXTRA_OECMAKE:class-nativesdk = "-DPARAMGEN_TOOL=ON"
DEPENDS:append:class-native = " cli11-native nlohmann-json-native"
DEPENDS:append:class-nativesdk = " nativesdk-cli11 nativesdk-nlohmann-json"

FILES:${PN} += "${datadir}/zsh ${datadir}/fish"

BBCLASSEXTEND = "native nativesdk"
