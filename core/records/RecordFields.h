// Walks the table of a record: its version, then its fields in their order. Called by the records' own read
// and write operations.
#pragma once

#include <limits>

#include "core/records/RecordType.h"

namespace hx {

enum class ReadRule {
    kUntilFailure,  // nothing is attempted behind the first field that is missing
    kAll,           // every field is attempted
};

// Reads the rows that `version` has; true if each that is not optional was there. What is missing is taken
// from `fallback`, which may be the record itself.
bool ReadFields(std::span<const Field> fields, void* record, const void* fallback, MFilerTaggedPair& filer,
                int64_t version, ReadRule rule);
// Writes the rows that `version` has; stops at the first failure.
bool WriteFields(std::span<const Field> fields, const void* record, MFilerTaggedPair& filer, int64_t version);
// An element that its table tells wholly: opened, its version checked, its rows read up to the first failure;
// and the same for writing.
bool ReadElement(const RecordType& type, void* record, const void* fallback, MFilerTaggedPair& filer,
                 std::wstring_view element);
bool WriteElement(const RecordType& type, const void* record, MFilerTaggedPair& filer,
                  std::wstring_view element);
// Gives every value its default.
void SetDefaults(std::span<const Field> fields, void* record);
// Of two values of the same type; false for anything but plain values.
bool SameValue(FieldRef one, FieldRef other);

template <class R>
bool ReadFields(R& record, const R& fallback, MFilerTaggedPair& filer, int64_t version, ReadRule rule) {
    return ReadFields(R::kType.fields, &record, &fallback, filer, version, rule);
}
template <class R>
bool WriteFields(const R& record, MFilerTaggedPair& filer) {
    return WriteFields(R::kType.fields, &record, filer, R::kType.version.current);
}
template <class R>
void SetDefaults(R& record) {
    SetDefaults(R::kType.fields, &record);
}

inline constexpr std::wstring_view kVersionChild = L"Version";

// False if it is missing, and `version` is then `fallback`, or greater than `newest`.
template <class V>
bool ReadVersion(MFilerTaggedPair& filer, V& version, V fallback, V newest = std::numeric_limits<V>::max()) {
    return filer.Read<V>(kVersionChild, version, fallback) && version <= newest;
}
// The same for a class whose version is an unsigned or signed number; true for one without.
bool ReadVersion(MFilerTaggedPair& filer, const RecordVersion& newest, int64_t& version);
// The current version of the class.
bool WriteVersion(MFilerTaggedPair& filer, const RecordVersion& version);

}  // namespace hx
