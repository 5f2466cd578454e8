// What a driver tells of the device attached to it: of every device; scanners and the HX family add to it.
// Read from the driver's properties document by MPropertiesHelper, then only queried; one thread at a time.
#pragma once

#include <map>
#include <vector>

#include "settings/properties/MButtonProperties.h"

namespace hx {

class MCommonDeviceProperties {
public:
    static const RecordType kType;
    // The element that every class of device begins with.
    static const RecordType kCommon;

    MCommonDeviceProperties();

    // Reads group `element`, straight into the record, up to the first child that is missing and required. An
    // element of buttons replaces them all; configurations are added to those that the record has. `defaults`
    // may be of any class of device; fields that it lacks are as in a new record.
    virtual bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                            const MCommonDeviceProperties& defaults);
    virtual bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;
    virtual ~MCommonDeviceProperties() = default;
    // From now on "Powered" is neither read nor written, if the class has it at all.
    virtual void DisablePowered() {}

    std::wstring ConfigurationIdentity;
    std::wstring InternalName;
    std::wstring DisplayName;
    std::map<std::wstring, std::wstring> Configurations;  // what is chosen, by the capability's internal name
    std::vector<MButtonProperties> Buttons;

protected:
    bool ReadImpTagged(MFilerTaggedPair& filer, const MCommonDeviceProperties& defaults);
};

// `defaults`, if they have the fields of R; else a new record.
template <class R>
const R& DefaultsAs(const MCommonDeviceProperties& defaults) {
    static const R fresh;
    const auto* const same = dynamic_cast<const R*>(&defaults);
    return same == nullptr ? fresh : *same;
}

}  // namespace hx
