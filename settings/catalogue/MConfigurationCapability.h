// What can be configured at a device, and the collection of all that can at one model. Held by the device
// catalogue; any one thread at a time.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/records/RecordType.h"
#include "settings/catalogue/MConfiguration.h"

namespace hx {

// Read straight into the fields, up to the first that is missing. Raises "EmptyInternalName" for an empty
// name.
class MConfigurationCapability {
public:
    static const RecordType kType;

    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    std::wstring InternalName;
    MSupportedConfigurations SupportedConfigurations;
};

// Raises "Read" if there is not a single member, so an empty collection is written but not read back. A newer
// version leaves it empty.
class MSupportedConfigurationCapabilities {
public:
    static const RecordType kType;

    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    std::vector<MConfigurationCapability> Members;  // as they came
};

}  // namespace hx
