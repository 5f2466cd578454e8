// Reads the properties document of a driver into a record of the driver and one of the device attached to it.
// Called by the pages that ask the scanner API's device manager; one thread at a time.
#pragma once

#include <string>

#include "settings/properties/MCommonDeviceProperties.h"
#include "settings/properties/MCommonDriverProperties.h"

namespace hx {

class MPropertiesHelper {
public:
    static constexpr std::wstring_view kRoot = L"Properties";
    // Within the root; the device is inside its list.
    static constexpr std::wstring_view kDriver = L"Driver";
    static constexpr std::wstring_view kDeviceList = L"DeviceList";
    static constexpr std::wstring_view kDevice = L"Device";
    // Of the document; a newer one is refused.
    static constexpr uint32_t kVersion = 2;

    // The records may be of classes derived from these; they outlive the helper.
    MPropertiesHelper(MCommonDriverProperties& driver, MCommonDeviceProperties& device)
        : m_driver(driver), m_device(device) {}

    // What is missing keeps the value that the records have. Raises "ReadImpTagged" for a document that
    // cannot be read; what could be is in the records then. A document without a device list is one of a
    // driver alone; a device that cannot be read does no harm unless it is required. The text is moved in.
    void ReadXML(std::wstring xml, bool device_required);
    // The same within the root of an open document.
    void Read(MFilerTaggedPair& filer, bool device_required);
    // Writes the children of the root.
    static bool WriteDocument(MFilerTaggedPair& filer, const MCommonDriverProperties& driver,
                              const MCommonDeviceProperties& device);

private:
    bool ReadImpTagged(MFilerTaggedPair& filer, bool device_required);

    MCommonDriverProperties& m_driver;
    MCommonDeviceProperties& m_device;
};

}  // namespace hx
