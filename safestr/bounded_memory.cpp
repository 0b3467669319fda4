#include <cstring>

#include "safestr/safestr.h"

namespace paramgen {
namespace {

constexpr int kRefused = -1;

bool Holds(const void* dest, std::size_t destMax, std::size_t count) {
    return dest != nullptr && destMax != 0 && count <= destMax;
}

}  // namespace

int memset_s(void* dest, std::size_t destMax, int value, std::size_t count) {
    if (!Holds(dest, destMax, count)) {
        return kRefused;
    }
    std::memset(dest, value, count);
    return 0;
}

int memcpy_s(void* dest, std::size_t destMax, const void* src, std::size_t count) {
    if (!Holds(dest, destMax, count) || src == nullptr) {
        return kRefused;
    }
    std::memcpy(dest, src, count);
    return 0;
}

int memmove_s(void* dest, std::size_t destMax, const void* src, std::size_t count) {
    if (!Holds(dest, destMax, count) || src == nullptr) {
        return kRefused;
    }
    std::memmove(dest, src, count);
    return 0;
}

}  // namespace paramgen
