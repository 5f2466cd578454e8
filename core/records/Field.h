// One row of a record's table: a field, the child element that carries it, its default and the versions that
// have it. Reading, writing, defaults, documents, the tool's listing and the tests walk these rows. Rows are
// made by FieldsOf; a step that no row of its kind can tell is a function of its own, in FieldOps. Any
// thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "core/filer/MFilerTaggedPair.h"
#include "core/records/VersionSet.h"

namespace hx {

struct Field;
struct ListType;
struct RecordType;

// Elements of a settings document that belong to somebody else: kept as a document of their own, unread.
struct XmlFragment {
    std::wstring text;
};

// What a field is in memory. It points into the record; a record inside a record, or a list of them, comes
// with its own table.
struct RecordRef {
    void* record;
    const RecordType* type;
};
struct ListRef {
    void* list;
    const ListType* type;
};
using FieldRef = std::variant<std::wstring*, double*, bool*, uint8_t*, int16_t*, uint16_t*, int32_t*,
                              uint32_t*, XmlFragment*, RecordRef, ListRef>;

// What a new record has in the field; none for records and lists, which start as they are made.
using FieldDefault = std::variant<std::monostate, bool, int64_t, double, const wchar_t*>;

// How a field of one type, at one place of one record class, is reached, read and written. `record` and
// `fallback` are of that class.
struct FieldOps {
    std::wstring_view type;  // the type word, or the class of a record or a list's entry
    uint8_t bits;            // of an integer; 0: none
    // Null for what is read and dropped, and for the former name of another row's field.
    FieldRef (*at)(void* record);
    // True if the document has it. Null, with `write`, for what no document has: how its reading went.
    bool (*read)(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer);
    // Null for what is never written.
    bool (*write)(const Field& field, const void* record, MFilerTaggedPair& filer);
    // A further child that it reads and writes beside its own, as the number of entries in front of them.
    std::wstring_view companion = {};
    // Of a former name: the field, which another row lists.
    FieldRef (*former)(void* record) = nullptr;
};

struct Field {
    std::wstring_view child;  // the element's name
    const FieldOps* ops;
    FieldDefault fallback;
    std::string_view unit;  // or range, or what it is; for people
    VersionSet versions = VersionSet::All();
    bool optional = false;  // absent, it does not count as missing
    int32_t flag = -1;      // index of its validity flag

    constexpr Field In(VersionSet set) const {
        Field field = *this;
        field.versions = set;
        return field;
    }
    constexpr Field Optional() const {
        Field field = *this;
        field.optional = true;
        return field;
    }
    constexpr Field Flag(int32_t index) const {
        Field field = *this;
        field.flag = index;
        return field;
    }

    bool Read(void* record, const void* defaults, MFilerTaggedPair& filer) const {
        return ops->read(*this, record, defaults, filer);
    }
    bool Write(const void* record, MFilerTaggedPair& filer) const {
        return ops->write == nullptr || ops->write(*this, record, filer);
    }
};

}  // namespace hx
