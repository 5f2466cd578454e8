// One configuration that a device offers, and the collection of those that a capability has. Held by the
// device catalogue; any one thread at a time.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/records/RecordType.h"

namespace hx {

// Read straight into the fields, up to the first that is missing. Raises "EmptyInternalName" for an entry
// whose name is empty. Without device settings it cannot be written.
class MConfiguration {
public:
    static const RecordType kType;

    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    std::wstring InternalName;
    XmlFragment DeviceSettings;  // the driver's own, unread
};

// Raises "Read" if there is not a single member, so an empty collection is written but not read back. A newer
// version leaves it empty.
class MSupportedConfigurations {
public:
    static const RecordType kType;

    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    std::vector<MConfiguration> Members;  // as they came
};

}  // namespace hx
