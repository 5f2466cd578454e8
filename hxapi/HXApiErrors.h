// What the scanner API answers with besides the usual result codes. For whoever calls or implements it.
#pragma once

#include "platform/com/hresult.h"

// The scanner is not connected, or was lost while the call ran.
inline constexpr HRESULT HX_E_NOTCONNECTED = static_cast<HRESULT>(0x8004A001);
// Asked of a calibration handle that does not hold the scanner: AcquireHandle comes first.
inline constexpr HRESULT HX_E_NOTACQUIRED = static_cast<HRESULT>(0x8004A002);
// No device, preset or model of that name.
inline constexpr HRESULT HX_E_NOTFOUND = static_cast<HRESULT>(0x8004A003);
