// A whole properties document as one record, for whoever handles documents like records: the tool, the
// format's document. It is read as the pages read it. One thread at a time.
#pragma once

#include "settings/properties/MHXFamilyDeviceProperties.h"
#include "settings/properties/MPropertiesHelper.h"

namespace hx {

class PropertiesDocument {
public:
    static const RecordType kType;

    // The children of the root, and not of `element`. Raises "ReadImpTagged" instead of being false.
    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element, const PropertiesDocument& defaults);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    MCommonDriverProperties Driver;
    MHXFamilyDeviceProperties Device;
    bool DeviceRead = false;  // and not refused, or absent

private:
    // A document of a driver alone is written as such; a new record as one with a device.
    bool m_has_device_list = true;
};

}  // namespace hx
