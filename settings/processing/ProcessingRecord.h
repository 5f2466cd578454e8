// Base of the records of image processing: a version, the rows of the table, and the strict rule. Held by
// the owning record; on its thread.
#pragma once

#include <string_view>

#include "core/records/InGroup.h"
#include "settings/base/SettingsObjectBase.h"

namespace hx {

// The version, which must be there, then every row that it has. No version is too new; a missing one reads
// on as the current one.
bool ReadProcessingRows(const RecordType& type, void* record, const void* defaults, MFilerTaggedPair& filer,
                        bool strict);

template <class R>
class ProcessingRecord : public SettingsObjectBase {
public:
    // Reads group `element` by the strict rule, straight into the record. Without a version the read fails
    // in any case, and goes on.
    virtual bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element, const R& defaults) {
        return InGroup(filer, element, [&] { return ReadImpTagged(filer, defaults); });
    }
    // The same, and true if there is no such group.
    bool ReadIfThere(MFilerTaggedPair& filer, std::wstring_view element, const R& defaults) {
        return InOptionalGroup(filer, element, [&] { return ReadImpTagged(filer, defaults); });
    }
    virtual bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
        return WriteElement(R::kType, static_cast<const R*>(this), filer, element);
    }

protected:
    ProcessingRecord() = default;
    ProcessingRecord(const ProcessingRecord&) = default;
    ProcessingRecord& operator=(const ProcessingRecord&) = default;
    ~ProcessingRecord() = default;

    // What is in the group.
    virtual bool ReadImpTagged(MFilerTaggedPair& filer, const R& defaults) {
        return ReadProcessingRows(R::kType, static_cast<R*>(this), &defaults, filer, IsStrict());
    }
};

}  // namespace hx
