// What a scanner driver tells of itself. Read from its properties document by MPropertiesHelper, then only
// queried; one thread at a time.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/records/RecordType.h"

namespace hx {

class MCommonDriverProperties {
public:
    static const RecordType kType;

    MCommonDriverProperties();

    // Reads group `element`, straight into the record, up to the first child that is missing.
    virtual bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                            const MCommonDriverProperties& defaults);
    virtual bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;
    virtual ~MCommonDriverProperties() = default;

    std::wstring InternalName;
    std::wstring DisplayName;
    std::wstring DriverVersion;
    std::vector<std::wstring> SupportedDevices;  // internal names of models
    std::vector<std::wstring> SupportedFacets;
};

}  // namespace hx
