// A scanner's scanning measurement settings: those of the device itself in version 1, in all others the
// device catalogue. Held by the measurement settings object; on its thread.
#pragma once

#include <cstdint>
#include <string_view>

#include "settings/catalogue/MDeviceType.h"
#include "settings/device/MDeviceMeasurementSettings.h"

namespace hx {

class MScanningMeasurementFacetSettings {
public:
    // The element in which the record travels.
    static constexpr std::wstring_view kElement = L"ScanningMeasurementFacetSettings";
    // With settings of the device instead of a catalogue.
    static constexpr int32_t kDeviceVersion = 1;
    static constexpr bool kReadsNewer = true;
    static constexpr bool kKeepsVersion = true;
    static const RecordType kType;

    // Reads group `element`. Without a version the body is read as that of version 1, and kept, and the read
    // fails; without the group nothing changes. Passes on what the catalogue raises.
    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                    const MScanningMeasurementFacetSettings& defaults);
    // Always writes the current version; the body is that of the record's own version. A record of version 1
    // therefore does not read back what it writes, and neither does one with an empty catalogue.
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    int32_t Version = 0;  // that of the element read last
    MDeviceMeasurementSettings DeviceMeasurementSettings;
    MDeviceSettingsList DeviceSettingsList;
};

}  // namespace hx
