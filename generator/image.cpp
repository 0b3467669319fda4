#include "generator/image.h"

#include "safestr/safestr.h"

namespace paramgen {

constexpr Field kHeaderFields[] = {
    CONSTANT(ImageHeader, magic, kImageMagic)
        .About("Marks the beginning of an image: \"arap\" in the file"),
    CONSTANT(ImageHeader, totalSize, sizeof(ParamImage))
        .About("Size of the whole image")
        .Unit("bytes"),
    RESERVED(ImageHeader, reserved).About("Reserved"),
};
constexpr TableOf<ImageHeader> kHeaderTable{nullptr, kHeaderFields};

constexpr Field kTailFields[] = {
    CONSTANT(ImageTail, mark, kTailMark).About("Marks the end of an image: \"mrap\" in the file"),
    CONSTANT(ImageTail, zero, 0).About("Always 0"),
};
constexpr TableOf<ImageTail> kTailTable{nullptr, kTailFields};

constexpr Field kImageFields[] = {
    RECORD(ParamImage, header, kHeaderTable),
    RECORD(ParamImage, tail, kTailTable),
    RECORD(ParamImage, devMng, kDevMngTable),
    RECORD(ParamImage, fileMng, kFileMngTable),
    RECORD(ParamImage, mediaComm, kMediaCommTable),
    RECORD(ParamImage, workMode, kWorkModeTable),
    RECORD(ParamImage, valueSet, kValueSetTable),
    RECORD(ParamImage, cam, kCamMediaTable),
    RESERVED(ParamImage, gap).About("Brings the cameras to an 8-byte boundary"),
};

constexpr TableOf<ParamImage> kImageTable{nullptr, kImageFields};

ParamImage g_image;

void BuildFrame(ParamImage* image) {
    static_cast<void>(memset_s(image, sizeof *image, 0, sizeof *image));
    image->header.magic = kImageMagic;
    image->header.totalSize = sizeof *image;
    image->tail.mark = kTailMark;
}

}  // namespace paramgen
