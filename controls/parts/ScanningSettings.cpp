#include "controls/parts/ScanningSettings.h"

#include "controls/api/ApiOperation.h"

namespace hx {

MGlobalScanningSettings ScanningSettingsOf(SettingsPage& page, MErrorLocation& location) {
    MGlobalScanningSettings settings;
    VARIANT address{};
    address.vt = VT_UI8;
    address.ullVal = reinterpret_cast<uintptr_t>(&settings);
    const Bstr device(page.Session().Target().device_internal_name);
    ApiOperation(location, &page)
        .Call(15, L"GetGlobalScanningSettings", page.Session().Handle(),
              &ICalibrationHandle::GetGlobalScanningSettings, device.get(), address);
    return settings;
}

FovManagementConfig FieldOfViewConfigOf(SettingsPage& page, MErrorLocation& location) {
    FovManagementConfig config;
    ApiOperation(location, &page)
        .Call(23, L"GetFovManagementConfig", page.Session().Handle(),
              &ICalibrationHandle::GetFovManagementConfig, &config);
    return config;
}

}  // namespace hx
