// What the scanner API answers with besides the usual result codes. For whoever calls or implements it.
#pragma once

#include <string_view>

#include "platform/com/hresult.h"

// The scanner is not connected, or was lost while the call ran.
inline constexpr HRESULT HX_E_NOTCONNECTED = static_cast<HRESULT>(0x8004A001);
// Asked of a calibration handle that does not hold the scanner: AcquireHandle comes first.
inline constexpr HRESULT HX_E_NOTACQUIRED = static_cast<HRESULT>(0x8004A002);
// No device, preset or model of that name.
inline constexpr HRESULT HX_E_NOTFOUND = static_cast<HRESULT>(0x8004A003);

struct HXApiError {
    HRESULT code;
    std::string_view name;
};
inline constexpr HXApiError kHXApiErrors[] = {
    {HX_E_NOTCONNECTED, "HX_E_NOTCONNECTED"},
    {HX_E_NOTACQUIRED, "HX_E_NOTACQUIRED"},
    {HX_E_NOTFOUND, "HX_E_NOTFOUND"},
};

// The constant's name; empty for a code that has none above.
constexpr std::string_view HXApiErrorName(HRESULT result) {
    for (const HXApiError& each : kHXApiErrors) {
        if (each.code == result) return each.name;
    }
    return {};
}
