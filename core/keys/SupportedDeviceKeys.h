// The keys that say which scanners a driver offers, each with a path of its own.
// A part of the table of MRegistryKeyLib.
#pragma once

#include <algorithm>
#include <array>

#include "core/keys/RegistryKeyRow.h"

namespace Orvel::RegistryKeys {

inline constexpr RegistryKeyPlace kProxyDevice{
    kMachine, L"HXAPI4\\Components\\Orvel.Scanner.Proxy.1\\SupportedDevices\\JBX Fx2"};
inline constexpr std::wstring_view kFamilyDevices =
    L"HXAPI4\\Components\\Orvel.HXFamilyDrivers.CoMScannerDriverHXFamily.1\\SupportedDevices\\";

template <size_t size>
struct DeviceName {
    // Implicit, so that a literal can be the argument of a template.
    constexpr DeviceName(const wchar_t (&name)[size]) { std::ranges::copy(name, text); }
    wchar_t text[size]{};
};

template <DeviceName name>
inline constexpr auto kFamilyDevicePath = [] {
    std::array<wchar_t, kFamilyDevices.size() + std::size(name.text) - 1> path{};
    std::copy_n(name.text, std::size(name.text) - 1, std::ranges::copy(kFamilyDevices, path.begin()).out);
    return path;
}();

template <DeviceName name>
inline constexpr RegistryKeyPlace kFamilyDevice{
    kMachine, {kFamilyDevicePath<name>.data(), kFamilyDevicePath<name>.size()}};

inline constexpr RegistryKeyRow kSupportedDeviceKeys[] = {
    {118, kFamilyDevice<L"YW F45">, L"Enabled", kBoolean, 3, 118, 0,
     L"Supported devices: offer the scanner YW F45 [true|false]"},
    {119, kFamilyDevice<L"YW F45 LS">, L"Enabled", kBoolean, 3, 119, 0,
     L"Supported devices: offer the scanner YW F45 LS [true|false]"},
    {120, kFamilyDevice<L"KT FX05">, L"Enabled", kBoolean, 3, 120, 0,
     L"Supported devices: offer the scanner KT FX05 [true|false]"},
    {121, kFamilyDevice<L"KT E25">, L"Enabled", kBoolean, 3, 121, 0,
     L"Supported devices: offer the scanner KT E25 [true|false]"},
    {122, kFamilyDevice<L"KT EX25">, L"Enabled", kBoolean, 3, 122, 0,
     L"Supported devices: offer the scanner KT EX25 [true|false]"},
    {123, kFamilyDevice<L"KT F35">, L"Enabled", kBoolean, 3, 123, 0,
     L"Supported devices: offer the scanner KT F35 [true|false]"},
    {124, kFamilyDevice<L"KT FX35">, L"Enabled", kBoolean, 3, 124, 0,
     L"Supported devices: offer the scanner KT FX35 [true|false]"},
    {125, kFamilyDevice<L"KT05FxR3PA">, L"Enabled", kBoolean, 3, 125, 0,
     L"Supported devices: offer the scanner KT05FxR3PA [true|false]"},
    {126, kFamilyDevice<L"KT05FxR3PTB">, L"Enabled", kBoolean, 3, 126, 0,
     L"Supported devices: offer the scanner KT05FxR3PTB [true|false]"},
    {127, kFamilyDevice<L"KT05FxR3W">, L"Enabled", kBoolean, 3, 127, 0,
     L"Supported devices: offer the scanner KT05FxR3W [true|false]"},
    {128, kFamilyDevice<L"T820W">, L"Enabled", kBoolean, 3, 128, 0,
     L"Supported devices: offer the scanner T820W [true|false]"},
    {129, kProxyDevice, L"Detected", kBoolean, 3, 129, 0,
     L"Supported devices: the scanner JBX Fx2 was detected [true|false]"},
    {130, kFamilyDevice<L"P550">, L"Enabled", kBoolean, 3, 130, 0,
     L"Supported devices: offer the scanner P550 [true|false]"},
};

}  // namespace Orvel::RegistryKeys
