#include "paramtool/read_back.h"

#include "image/entry.h"
#include "image/key_text.h"
#include "layout/layout.h"

namespace paramgen::paramtool {

compile::Compilation ReadBack(const image::Image& image) {
    compile::Compilation run = {};
    for (const layout::Value& value : layout::Values()) {
        if (value.HasKey() && image::IsRead(image, value)) {
            run.answers.push_back(
                {.module = value.module,
                 .key = value.section + ":" + value.key,
                 .text = image::KeyText(value, image::BytesOf(image, value)).value_or(""),
                 .place = compile::Place{.offset = value.offset, .size = value.size},
                 .afterRangeError = false});
        }
    }
    return run;
}

}  // namespace paramgen::paramtool
