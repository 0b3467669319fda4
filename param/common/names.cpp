#include "param/common/names.h"

namespace paramgen {

bool NameTable::FindName(std::int32_t number, std::size_t* index) const {
    for (std::size_t i = 0; i < count_; ++i) {
        if (Number(i) == number) {
            *index = i;
            return true;
        }
    }
    return false;
}

}  // namespace paramgen
