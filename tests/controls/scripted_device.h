// The properties document of a driver with a device of which nothing but its name can be read.
#pragma once

#include "tests/settings/properties/properties_xml.h"

namespace scripted {

inline std::wstring PropertiesOf(const std::wstring& device) {
    using namespace properties_xml;
    const std::wstring driver =
        Group(L"CommonDriverProperties",
              Uint(L"Version", 2) + properties_xml::Text(L"InternalName", L"driver") +
                  properties_xml::Text(L"DisplayName", L"D") + properties_xml::Text(L"DriverVersion", L"1") +
                  Group(L"SupportedDevices", L""));
    const std::wstring common =
        Group(L"CommonDeviceProperties", Uint(L"Version", 1) + properties_xml::Text(L"InternalName", device));
    return Group(L"Properties", Uint(L"Version", 2) + Group(L"Driver", driver) +
                                    Group(L"DeviceList", Group(L"Device", common)));
}

}  // namespace scripted
