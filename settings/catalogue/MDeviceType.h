// A device type that a driver offers, and the device catalogue: the collection of all of them. Held by the
// measurement settings; any one thread at a time.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "core/records/RecordType.h"
#include "core/records/Streamable.h"
#include "settings/catalogue/MDeviceBase.h"
#include "settings/catalogue/MDeviceModel.h"

namespace hx {

// Read straight into the fields, up to the first that is missing. Raises "EmptyInternalName" for an entry
// whose name is empty. Without device settings it cannot be written.
class MDeviceType : public Streamable<MDeviceType, 1, NotStreamable<MDeviceBase>, 0> {
public:
    static const RecordType kType;

    virtual bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element);
    virtual bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    XmlFragment DeviceSettings;  // the driver's own, unread
    MSupportedDevices SupportedDevices;
};

// Raises "Read" if there is not a single member, so an empty collection is written but not read back. A newer
// version leaves it empty.
class MDeviceSettingsList : public Streamable<MDeviceSettingsList, 1, StreamableBase, 0> {
public:
    static const RecordType kType;

    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    std::map<std::wstring, MDeviceType> Members;  // by their internal names
};

}  // namespace hx
