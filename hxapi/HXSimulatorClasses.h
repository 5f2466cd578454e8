// The component classes of HXSimulator, by identity and by name. For whoever wants a scanner API without a
// scanner.
#pragma once

#include "platform/com/guid.h"

inline constexpr CLSID CLSID_HXSimulator = hx::MakeGuid("B7D41E05-6C92-4F8A-A3E6-18C50D97F2B4");
inline constexpr CLSID CLSID_HXSimulatorCtrlsInitialiser =
    hx::MakeGuid("3E80A6C9-F574-4B12-8DC3-59E2710BA4F6");
inline constexpr CLSID CLSID_HXSimulatorReplayCapture = hx::MakeGuid("94C2F7D3-0AB8-4E61-B5F9-C6D13E8207A5");

// An IHXApi that is an IHXSimulator, too. The initialiser's and the recorder's names stand with their
// interfaces.
inline constexpr wchar_t kProgIdHXSimulator[] = L"Orvel.HXSimulator.HXApi.1";
