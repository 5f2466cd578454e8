// The operations of the simulated scanner API: one row each, from which the list of operations, the faults
// and the log of calls follow. Constant; any thread.
#pragma once

#include <string_view>

namespace hx::simulator {

// What a failure of an operation leaves behind.
enum class FailureForm {
    kResult,     // the result alone
    kDetail,     // a detail, for callers that ask for one
    kErrorInfo,  // the thread's error information
    kNumber,     // no HRESULT: any number but 0 is a failure
};

// A preset is logged with its name behind this.
inline constexpr std::wstring_view kPresetPrefix = L"preset:";

struct Operation {
    std::wstring_view interface_name;
    std::wstring_view name;
    std::wstring_view logged_as;
    FailureForm failure = FailureForm::kResult;
};

// clang-format off
inline constexpr Operation kOperations[] = {
    {L"IHXApi", L"GetConnectionState", L"api", FailureForm::kDetail},
    {L"IHXApi", L"Resume", L"api", FailureForm::kDetail},
    {L"IHXApi", L"GetDeviceManager", L"api", FailureForm::kDetail},
    {L"IHXApiInternal", L"GetCurrentProfile", L"api", FailureForm::kDetail},
    {L"IHXApiInternal", L"CreateCalibrationHandle", L"api", FailureForm::kDetail},
    {L"IHXLocale", L"GetLocale", L"api"},
    {L"IHXProfile", L"GetDriverSelection", L"profile"},
    {L"IDeviceManager", L"GetDriverProperties", L"devices", FailureForm::kDetail},
    {L"IConnectionPoint", L"Advise", L"events"},
    {L"IConnectionPoint", L"Unadvise", L"events"},
    {L"ICalibrationHandle", L"AcquireHandle", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"ReleaseHandle", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"InitialiseScanner", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"DisableScanner", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"RegisterTrackingCycleObserver", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"ActivateDynamicSettings", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"ActivateGlobalScanningSettings", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"GetGlobalScanningSettings", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"GetFovManagementConfig", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"GetFrequencyReductionSupport", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"GetSupportedAnalogImagerGains", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"GetMaxExposureTime", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"GetFrameRate", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"GetExposureTimeInRows", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"DetectExposureTime", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"DetectLaserPower", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"EnumerateDynamicSettingsPresets", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"GetSelectedDynamicSettingsPreset", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"GetDynamicSettingsPreset", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"SaveDynamicSettingsPresets", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"CreateDynamicSettingsPreset", L"handle", FailureForm::kErrorInfo},
    {L"ICalibrationHandle", L"CloseHandle", L"handle", FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"GetName", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"SetName", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"GetLaserPower", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"SetLaserPower", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"GetExposureTime", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"SetExposureTime", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"GetAnalogImagerGain", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"SetAnalogImagerGain", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"IsDLPCEnabled", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"SetDLPCEnabled", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"Get3DEdgeFilterEnabled", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"Set3DEdgeFilterEnabled", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"GetSignalThreshold", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"SetSignalThreshold", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"GetEdgeFilterValue", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"SetEdgeFilterValue", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"GetMaxInclination", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"SetMaxInclination", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"IsRFEnabled", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IDynamicSettingsPreset", L"SetRFEnabled", kPresetPrefix, FailureForm::kErrorInfo},
    {L"IReplayCapture", L"StartTrackingDataRecording", L"recorder", FailureForm::kNumber},
    {L"IReplayCapture", L"StopTrackingDataRecording", L"recorder", FailureForm::kNumber},
    {L"ICtrlsInitialiser", L"GetHXApi", L"initialiser"},
};
// clang-format on

// The row of an operation; one that has none does not compile.
consteval const Operation& OperationNamed(std::wstring_view interface_name, std::wstring_view name) {
    for (const Operation& each : kOperations) {
        if (each.interface_name == interface_name && each.name == name) return each;
    }
    throw "no such operation";
}

// By its name, with the interface's in front or without; null if there is none.
const Operation* FindOperation(std::wstring_view name);

}  // namespace hx::simulator
