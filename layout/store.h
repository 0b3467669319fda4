/// The memory of the layout.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <memory_resource>
#include <span>
#include <string_view>
#include <type_traits>

#include "layout/name.h"

namespace paramgen::layout {

/// Memory for lists and texts, which stay valid until the process ends. One thread at a time may
/// use it.
class Store {
public:
    /// The store of this process. It is never destroyed: the layout refers to it.
    static Store& Get();

    /// A list of `count` items, which are as `T{}`.
    template <typename T>
    std::span<T> List(std::size_t count) {
        static_assert(std::is_trivially_destructible_v<T>);
        T* const items = static_cast<T*>(memory_.allocate(count * sizeof(T), alignof(T)));
        std::uninitialized_value_construct_n(items, count);
        return {items, count};
    }

    /// `list` with one more item.
    template <typename T>
    std::span<const T> With(std::span<const T> list, const T& item) {
        const std::span<T> longer = List<T>(list.size() + 1);
        std::copy(list.begin(), list.end(), longer.begin());
        longer.back() = item;
        return longer;
    }

    /// The texts one behind the other.
    Name Join(std::span<const std::string_view> texts);

private:
    static constexpr std::size_t kFirstPiece = std::size_t{1} << 20U;

    std::pmr::monotonic_buffer_resource memory_{kFirstPiece};
};

}  // namespace paramgen::layout
