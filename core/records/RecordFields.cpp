#include "core/records/RecordFields.h"

#include <type_traits>

#include "core/records/InGroup.h"

namespace hx {
namespace {

struct Assign {
    const FieldDefault& fallback;

    void operator()(std::wstring* value) const { *value = std::get<const wchar_t*>(fallback); }
    void operator()(double* value) const { *value = std::get<double>(fallback); }
    void operator()(bool* value) const { *value = std::get<bool>(fallback); }
    template <class T>
    void operator()(T* value) const {
        if constexpr (std::is_integral_v<T>) *value = static_cast<T>(std::get<int64_t>(fallback));
    }
    void operator()(RecordRef) const {}
    void operator()(ListRef) const {}
};

}  // namespace

bool ReadFields(std::span<const Field> fields, void* record, const void* fallback, MFilerTaggedPair& filer,
                int64_t version, ReadRule rule) {
    bool all = true;
    for (const Field& field : fields) {
        if (!field.versions.Contains(version)) continue;
        if (field.Read(record, fallback, filer) || field.optional) continue;
        all = false;
        if (rule == ReadRule::kUntilFailure) break;
    }
    return all;
}

bool WriteFields(std::span<const Field> fields, const void* record, MFilerTaggedPair& filer,
                 int64_t version) {
    for (const Field& field : fields) {
        if (field.versions.Contains(version) && !field.Write(record, filer)) return false;
    }
    return true;
}

bool ReadElement(const RecordType& type, void* record, const void* fallback, MFilerTaggedPair& filer,
                 std::wstring_view element) {
    return InGroup(filer, element, [&] {
        int64_t version = 0;
        return ReadVersion(filer, type.version, version) &&
               ReadFields(type.fields, record, fallback, filer, version, ReadRule::kUntilFailure);
    });
}

bool WriteElement(const RecordType& type, const void* record, MFilerTaggedPair& filer,
                  std::wstring_view element) {
    return InGroup(filer, element, [&] {
        return WriteVersion(filer, type.version) &&
               WriteFields(type.fields, record, filer, type.version.current);
    });
}

void SetDefaults(std::span<const Field> fields, void* record) {
    for (const Field& field : fields) {
        if (field.ops->at == nullptr) continue;
        const FieldRef at = field.ops->at(record);
        if (const auto* const inner = std::get_if<RecordRef>(&at)) {
            // The children of an element without a class of its own are values of this record.
            if (inner->type->make == nullptr) SetDefaults(inner->type->fields, inner->record);
        } else if (field.fallback.index() != 0) {
            std::visit(Assign{field.fallback}, at);
        }
    }
}

bool SameValue(FieldRef one, FieldRef other) {
    return std::visit(
        [&](auto value) {
            using Value = decltype(value);
            if constexpr (std::is_pointer_v<Value> && !std::is_same_v<Value, XmlFragment*>) {
                const Value* const second = std::get_if<Value>(&other);
                return second != nullptr && *value == **second;
            } else {
                return false;
            }
        },
        one);
}

bool ReadVersion(MFilerTaggedPair& filer, const RecordVersion& newest, int64_t& version) {
    if (newest.word == RecordVersion::kNone) return true;
    if (newest.word == RecordVersion::kUint) {
        uint32_t number = 0;
        const bool read = ReadVersion(filer, number, 0u, newest.current);
        version = number;
        return read;
    }
    int32_t number = 0;
    const bool read = ReadVersion(filer, number, 0, static_cast<int32_t>(newest.current));
    version = number;
    return read;
}

bool WriteVersion(MFilerTaggedPair& filer, const RecordVersion& version) {
    switch (version.word) {
        case RecordVersion::kInt:
            return filer.Write(kVersionChild, static_cast<int32_t>(version.current));
        case RecordVersion::kUint:
            return filer.Write(kVersionChild, version.current);
        case RecordVersion::kNone:
            break;
    }
    return true;
}

}  // namespace hx
