// The component classes of HXScannerCtrls, by identity and by name. For hosts that create them.
#pragma once

#include "platform/com/guid.h"

inline constexpr CLSID CLSID_CoMHXMeasSettings = hx::MakeGuid("2C96F7D0-5B1E-4A83-9D47-E08A63C1B52F");
inline constexpr CLSID CLSID_CoMHXSettingsFactory = hx::MakeGuid("5D2E8C16-94A7-4B3F-A1D0-7C3B9F62E845");
inline constexpr CLSID CLSID_CoMHXConnSettings = hx::MakeGuid("E74B0A93-1F5D-4E68-9C2A-D8063B51F7A9");

// Pages of the hardware configuration: controls that are a DHXConfigCtrl; and their property page.
inline constexpr CLSID CLSID_HXScannerMeasSettingsCtrl = hx::MakeGuid("91D3F04B-E6A8-4C57-A2B9-0E75C84D163F");
inline constexpr CLSID CLSID_HXScannerHandheldMeasSettingsCtrl =
    hx::MakeGuid("6A0F3C92-D45B-4E17-8B6C-39E2F7054DA1");
inline constexpr CLSID CLSID_HXScannerDiagnosticsCtrl = hx::MakeGuid("F81C5D27-0B9E-4A63-B3D8-52A7E94C610D");
inline constexpr CLSID CLSID_HXScannerMeasSettingsPropPage =
    hx::MakeGuid("C0678B5E-2F1D-4A94-9E38-B471D52A60CF");

// The type library lists a fourth page, which no class implements: creating it is REGDB_E_CLASSNOTREG.
inline constexpr CLSID CLSID_HXScannerRorSettingsCtrl = hx::MakeGuid("3D85B6E1-C07F-4926-8A5D-91E4F2607BC3");

// The type library, of version 1.0, and the application that the library registers itself for.
inline constexpr GUID LIBID_HXScannerCtrls = hx::MakeGuid("A9E2471D-60C8-4F35-B19A-7D03F58E2C64");
inline constexpr GUID APPID_HXScannerCtrls = hx::MakeGuid("47F0D9B2-83A6-4E1C-95D7-B62C0E3A81F5");

inline constexpr wchar_t kProgIdHXMeasSettings[] = L"Orvel.HXScannerCtrls.HXMeasSettings.1";
inline constexpr wchar_t kProgIdHXSettingsFactory[] = L"Orvel.HXScannerCtrls.HXSettingsFactory.1";
inline constexpr wchar_t kProgIdHXConnSettings[] = L"Orvel.HXScannerCtrls.HXConnSettings.1";

inline constexpr wchar_t kProgIdHXMeasSettingsCtrl[] = L"Orvel.HXScannerCtrls.HXMeasSettingsCtrl.1";
inline constexpr wchar_t kProgIdHXHandheldMeasSettingsCtrl[] =
    L"Orvel.HXScannerCtrls.HXHandheldMeasSettingsCtrl.1";
inline constexpr wchar_t kProgIdHXDiagnosticsCtrl[] = L"Orvel.HXScannerCtrls.HXDiagnosticsCtrl.1";
inline constexpr wchar_t kProgIdHXMeasSettingsPropPage[] = L"HXSCANNERCTRL.MeasSettingsPropPage.1";
