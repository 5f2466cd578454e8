#include "settings/base/FlaggedFields.h"

namespace hx {
namespace {

bool IsChanged(const Field& field, const FlaggedWriting& writing) {
    if (!writing.flags[static_cast<size_t>(field.flag)]) return false;
    if (writing.reference == nullptr) return true;
    // The references are only looked at.
    return !SameValue(field.ops->at(const_cast<void*>(writing.record)),
                      field.ops->at(const_cast<void*>(writing.reference)));
}

const void* Source(const Field& field, const FlaggedWriting& writing) {
    const bool own = writing.flags[static_cast<size_t>(field.flag)] || writing.reference == nullptr;
    return own ? writing.record : writing.reference;
}

}  // namespace

bool ReadFlagged(std::span<const Field> fields, void* record, const void* defaults, MFilerTaggedPair& filer,
                 int64_t version, ValidityFlags& flags) {
    bool all = true;
    for (const Field& field : fields) {
        if (!field.versions.Contains(version)) continue;
        const bool read = field.Read(record, defaults, filer);
        if (field.flag >= 0) flags[static_cast<size_t>(field.flag)] = read;
        all &= read || field.optional;
    }
    return all;
}

bool WriteFlagged(std::span<const Field> fields, const FlaggedWriting& writing, MFilerTaggedPair& filer,
                  int64_t version) {
    for (const Field& field : fields) {
        if (field.flag < 0 || !field.versions.Contains(version)) continue;
        if (writing.changes_only && !IsChanged(field, writing)) continue;
        if (!field.Write(Source(field, writing), filer)) return false;
    }
    return true;
}

}  // namespace hx
