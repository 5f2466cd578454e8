// What a record class is, for whoever handles records of any class: its name, its version, its table of
// fields, and its read and write operations. Each class has one as its static member kType. Any thread.
#pragma once

#include <concepts>
#include <memory>
#include <span>

#include "core/records/Field.h"

namespace hx {

// How the first child, "Version", travels, and which version is written. kNone: the record has no version.
struct RecordVersion {
    enum Word : uint8_t { kNone, kInt, kUint };
    Word word;
    uint32_t current;
};

struct RecordType {
    std::wstring_view name;  // the class
    RecordVersion version;
    std::span<const Field> fields;
    std::string_view purpose;  // one sentence, for people

    // ReadTagged and WriteTagged of the class; null for an element that is read and written by its table
    // alone. Writing fails for a class without WriteTagged.
    bool (*read)(void* record, MFilerTaggedPair& filer, std::wstring_view element, const void* defaults);
    bool (*write)(const void* record, MFilerTaggedPair& filer, std::wstring_view element);
    // A new record; null for an element that has no class of its own: its fields are the owner's.
    std::shared_ptr<void> (*make)();
    // Whether the value with this validity flag came from the document; null for a class without such flags.
    bool (*is_valid)(const void* record, uint32_t flag) = nullptr;
    // The version that was read last; null for a class that does not keep it.
    FieldRef (*version_at)(void* record) = nullptr;
    // A newer version is read, too, as the newest that is known; otherwise it is refused.
    bool reads_newer = false;
    // What is written is what the version has that was read, not what the current one has.
    bool keeps_version = false;
};

// R's ReadTagged, whether or not it takes a record of the same class as defaults.
template <class R>
bool ReadRecord(R& record, MFilerTaggedPair& filer, std::wstring_view element, const R& defaults) {
    if constexpr (requires { record.ReadTagged(filer, element, defaults); }) {
        return record.ReadTagged(filer, element, defaults);
    } else {
        return record.ReadTagged(filer, element);
    }
}

// A class that is only ever read has no WriteTagged.
template <class R>
concept WritableRecord = requires(const R& record, MFilerTaggedPair& filer, std::wstring_view element) {
    { record.WriteTagged(filer, element) } -> std::same_as<bool>;
};

// The type of class R.
template <class R>
constexpr RecordType RecordTypeOf(std::wstring_view name, RecordVersion version,
                                  std::span<const Field> fields, std::string_view purpose) {
    RecordType type{
        name,
        version,
        fields,
        purpose,
        [](void* record, MFilerTaggedPair& filer, std::wstring_view element, const void* defaults) {
            return ReadRecord(*static_cast<R*>(record), filer, element, *static_cast<const R*>(defaults));
        },
        [](const void* record, MFilerTaggedPair& filer, std::wstring_view element) {
            if constexpr (WritableRecord<R>) {
                return static_cast<const R*>(record)->WriteTagged(filer, element);
            } else {
                return false;
            }
        },
        []() -> std::shared_ptr<void> { return std::make_shared<R>(); },
    };
    if constexpr (requires(const R& record) { record.IsValid(0u); }) {
        type.is_valid = [](const void* record, uint32_t flag) {
            return static_cast<const R*>(record)->IsValid(flag);
        };
    }
    if constexpr (requires(R & record) { FieldRef(&record.Version); }) {
        type.version_at = [](void* record) -> FieldRef { return &static_cast<R*>(record)->Version; };
    }
    if constexpr (requires { R::kReadsNewer; }) type.reads_newer = R::kReadsNewer;
    if constexpr (requires { R::kKeepsVersion; }) type.keeps_version = R::kKeepsVersion;
    return type;
}

}  // namespace hx
