/// Owner of a registry entry.
#pragma once

#include <cstdlib>
#include <memory>
#include <new>

namespace paramgen {

/// Destroys an entry made by `NewEntry`.
struct EntryDeleter {
    template <typename Entry>
    void operator()(Entry* entry) const {
        entry->~Entry();
        std::free(entry);
    }
};

template <typename Entry>
using EntryPtr = std::unique_ptr<Entry, EntryDeleter>;

/// Makes a zeroed entry; null when memory runs out.
template <typename Entry>
EntryPtr<Entry> NewEntry() {
    void* memory = std::malloc(sizeof(Entry));
    return EntryPtr<Entry>(memory == nullptr ? nullptr : new (memory) Entry{});
}

}  // namespace paramgen
