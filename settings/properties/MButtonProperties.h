// One hardware button of a device. Held by the device's properties; on their thread.
#pragma once

#include <string>
#include <string_view>

#include "core/records/RecordType.h"

namespace hx {

class MButtonProperties {
public:
    static const RecordType kType;

    MButtonProperties();

    // Reads group `element`, straight into the record, up to the first child that is missing.
    virtual bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                            const MButtonProperties& defaults);
    virtual bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;
    virtual ~MButtonProperties() = default;

    int32_t ButtonID{};
    std::wstring ButtonDisplayName;
    std::wstring ButtonColour;
};

}  // namespace hx
