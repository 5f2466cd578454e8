#include "settings/catalogue/CatalogueRecords.h"

namespace hx {

bool ReadEntry(const RecordType& type, void* entry, const std::wstring& name, MFilerTaggedPair& filer,
               MErrorLocation& location) {
    int64_t version = 0;
    if (!ReadVersion(filer, type.version, version)) return false;
    const auto read = [&](std::span<const Field> rows) {
        return ReadFields(rows, entry, entry, filer, version, ReadRule::kUntilFailure);
    };
    // A name that is absent is none; one that is there and empty is an error.
    if (!read(type.fields.first(1)) || !filer.Found()) return false;
    if (name.empty()) {
        location.Set(entry, 17);
        Throw(location, MakeError(location, L"EmptyInternalName"));
    }
    return read(type.fields.subspan(1));
}

void ThrowNoMember(const void* collection, std::wstring_view category, MErrorLocation& location) {
    location.Set(collection, 25);
    MError error = MakeError(location, L"Read");
    error.AddParameter(L"category", category);
    Throw(location, error);
}

}  // namespace hx
