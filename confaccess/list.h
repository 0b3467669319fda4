/// Circular doubly linked list, threaded through its entries.
#pragma once

namespace paramgen {

/// A list's head, or the link part of an entry. A head that points at itself is an empty list.
struct ListLink {
    ListLink* next;
    ListLink* prev;
};

inline void ListReset(ListLink* head) {
    head->next = head;
    head->prev = head;
}

inline bool ListIsEmpty(const ListLink& head) {
    return head.next == &head;
}

/// Inserts `entry`, which is in no list, at the front.
inline void ListInsert(ListLink* head, ListLink* entry) {
    entry->next = head->next;
    entry->prev = head;
    head->next->prev = entry;
    head->next = entry;
}

/// Takes `entry` out of the list that it is in.
inline void ListRemove(ListLink* entry) {
    entry->prev->next = entry->next;
    entry->next->prev = entry->prev;
    ListReset(entry);
}

/// Takes the first entry out of a list that is not empty.
inline ListLink* ListTakeFirst(ListLink* head) {
    ListLink* first = head->next;
    head->next = first->next;
    head->next->prev = head;
    ListReset(first);
    return first;
}

}  // namespace paramgen
