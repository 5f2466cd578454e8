// What a list inside a record is, for whoever handles lists of any kind. Any thread.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/filer/TaggedType.h"
#include "core/records/RecordType.h"

namespace hx {

// `key` is empty in a list without keys.
using EntryVisitor = std::function<void(std::wstring_view key, FieldRef entry)>;

struct ListType {
    const RecordType* entries;  // their class; null for plain values
    std::wstring_view word;     // the type word of plain values
    // Every entry in its order.
    void (*each)(void* list, const EntryVisitor& visit);
    // So many new entries instead of the old ones; null for a list whose entries have keys.
    void (*renew)(void* list, size_t count);
};

namespace detail {

template <class T>
FieldRef RefTo(T& entry) {
    if constexpr (requires { T::kType; }) {
        return RecordRef{&entry, &T::kType};
    } else {
        return &entry;
    }
}

template <class T>
constexpr const RecordType* TypeOfEntry() {
    if constexpr (requires { T::kType; }) {
        return &T::kType;
    } else {
        return nullptr;
    }
}

template <class T>
constexpr std::wstring_view WordOfEntry() {
    if constexpr (requires { T::kType; }) {
        return {};
    } else {
        return TaggedType<T>::kWord;
    }
}

}  // namespace detail

template <class T>
struct VectorType {
    static constexpr ListType kType{
        detail::TypeOfEntry<T>(),
        detail::WordOfEntry<T>(),
        [](void* list, const EntryVisitor& visit) {
            for (T& entry : *static_cast<std::vector<T>*>(list)) visit({}, detail::RefTo(entry));
        },
        [](void* list, size_t count) { *static_cast<std::vector<T>*>(list) = std::vector<T>(count); },
    };
};

template <class T>
struct MapType {
    static constexpr ListType kType{
        detail::TypeOfEntry<T>(),
        detail::WordOfEntry<T>(),
        [](void* list, const EntryVisitor& visit) {
            for (auto& [key, entry] : *static_cast<std::map<std::wstring, T>*>(list)) {
                visit(key, detail::RefTo(entry));
            }
        },
        nullptr,
    };
};

}  // namespace hx
