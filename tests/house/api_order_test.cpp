// What the published interfaces of the scanner API, and their records, look like to code compiled elsewhere.
#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

#include "hxapi/ICalibrationHandle.h"
#include "hxapi/ICtrlsInitialiser.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiEvents.h"
#include "hxapi/IHXApiInternal.h"
#include "hxapi/IHXLocale.h"
#include "hxapi/IHXSettingsObjectMap.h"
#include "hxapi/IHXSimulator.h"
#include "hxapi/IReplayCapture.h"
#include "hxapi/ITrackingCycleObserver.h"
#include "tests/vtable_slot.h"

namespace {

// A vtable pointer and nothing else, with no destructor among the slots.
template <class... Interfaces>
constexpr bool kPlainInterfaces = ((sizeof(Interfaces) == sizeof(void*) &&
                                    !std::has_virtual_destructor_v<Interfaces>)&&...);
static_assert(kPlainInterfaces<IHXApi, IHXApiInternal, IHXApiEvents, IHXLocale, IHXProfile, IDeviceManager,
                               ICalibrationHandle, IDynamicSettingsPreset, IHXSettingsObjectMap,
                               ICtrlsInitialiser, IReplayCapture, ITrackingCycleObserver, IHXSimulator>);

static_assert(sizeof(HXConnectionState) == 4 && HXNotConnected == 0 && HXConnected == 1 && HXSuspended == 2);
static_assert(sizeof(_ReplayCaptureResult) == 4);

using Scanning = MGlobalScanningSettings;
static_assert(sizeof(Scanning) == 20 && offsetof(Scanning, HorizontalFov) == 0);
static_assert(offsetof(Scanning, VerticalFov) == 4 && offsetof(Scanning, FovIndicator) == 8);
static_assert(offsetof(Scanning, ScanningMode) == 12 && offsetof(Scanning, FrequencySelection) == 16);
static_assert(sizeof(FovManagementConfig) == 4 && std::is_standard_layout_v<Scanning>);

static_assert(sizeof(TrackingPoint) == 12 && offsetof(TrackingPoint, y_mm) == 4);
static_assert(offsetof(TrackingPoint, signal) == 8 && offsetof(TrackingPoint, column) == 10);
static_assert(sizeof(TrackingCycle) == 40 && offsetof(TrackingCycle, time_us) == 8);
static_assert(offsetof(TrackingCycle, plane_number) == 16 && offsetof(TrackingCycle, column_count) == 20);
static_assert(offsetof(TrackingCycle, points) == 24 && offsetof(TrackingCycle, point_count) == 32);
static_assert(offsetof(TrackingCycle, saturated_count) == 36);
static_assert(sizeof(TrackingArea) == 24 && offsetof(TrackingArea, corners_mm) == 8);
static_assert(offsetof(TrackingArea, corner_count) == 16);

using Fault = HXSimulatorFault;
static_assert(sizeof(Fault) == 56 && offsetof(Fault, operation) == 0 && offsetof(Fault, result) == 8);
static_assert(offsetof(Fault, times) == 12 && offsetof(Fault, after) == 16 &&
              offsetof(Fault, delay_ms) == 20);
static_assert(offsetof(Fault, hang_up) == 24 && offsetof(Fault, chain_code) == 32);
static_assert(offsetof(Fault, text) == 40 && offsetof(Fault, preset) == 48);

// In front of an interface's own slots stand the three of IUnknown.
#define EXPECT_ORDER(Interface, ...) ExpectSlots(#Interface, 3, __VA_ARGS__)

TEST(ApiOrder, Api) {
    using Api = IHXApi;
    EXPECT_ORDER(IHXApi, &Api::GetConnectionState, &Api::Resume, &Api::GetDeviceManager);
    EXPECT_ORDER(IHXApiInternal, &IHXApiInternal::GetCurrentProfile,
                 &IHXApiInternal::CreateCalibrationHandle);
    EXPECT_ORDER(IHXLocale, &IHXLocale::GetLocale);
    EXPECT_ORDER(IHXProfile, &IHXProfile::GetDriverSelection);
    EXPECT_ORDER(IDeviceManager, &IDeviceManager::GetDriverProperties);
    EXPECT_ORDER(IHXSettingsObjectMap, &IHXSettingsObjectMap::GetSettingsObject);
    EXPECT_ORDER(ICtrlsInitialiser, &ICtrlsInitialiser::GetHXApi);
    using Capture = IReplayCapture;
    EXPECT_ORDER(IReplayCapture, &Capture::StartTrackingDataRecording, &Capture::StopTrackingDataRecording);
    using Observer = ITrackingCycleObserver;
    EXPECT_ORDER(ITrackingCycleObserver, &Observer::OnTrackingAreas, &Observer::OnTrackingCycle);
}

TEST(ApiOrder, CalibrationHandle) {
    using Handle = ICalibrationHandle;
    EXPECT_ORDER(ICalibrationHandle, &Handle::AcquireHandle, &Handle::ReleaseHandle,
                 &Handle::InitialiseScanner, &Handle::DisableScanner, &Handle::RegisterTrackingCycleObserver,
                 &Handle::ActivateDynamicSettings, &Handle::ActivateGlobalScanningSettings,
                 &Handle::GetGlobalScanningSettings, &Handle::GetFovManagementConfig,
                 &Handle::GetFrequencyReductionSupport, &Handle::GetSupportedAnalogImagerGains,
                 &Handle::GetMaxExposureTime, &Handle::GetFrameRate, &Handle::GetExposureTimeInRows,
                 &Handle::DetectExposureTime, &Handle::DetectLaserPower,
                 &Handle::EnumerateDynamicSettingsPresets, &Handle::GetSelectedDynamicSettingsPreset,
                 &Handle::GetDynamicSettingsPreset, &Handle::SaveDynamicSettingsPresets,
                 &Handle::CreateDynamicSettingsPreset, &Handle::CloseHandle);
}

TEST(ApiOrder, Preset) {
    using Preset = IDynamicSettingsPreset;
    EXPECT_ORDER(IDynamicSettingsPreset, &Preset::GetName, &Preset::SetName, &Preset::GetLaserPower,
                 &Preset::SetLaserPower, &Preset::GetExposureTime, &Preset::SetExposureTime,
                 &Preset::GetAnalogImagerGain, &Preset::SetAnalogImagerGain, &Preset::IsDLPCEnabled,
                 &Preset::SetDLPCEnabled, &Preset::Get3DEdgeFilterEnabled, &Preset::Set3DEdgeFilterEnabled,
                 &Preset::GetSignalThreshold, &Preset::SetSignalThreshold, &Preset::GetEdgeFilterValue,
                 &Preset::SetEdgeFilterValue, &Preset::GetMaxInclination, &Preset::SetMaxInclination,
                 &Preset::IsRFEnabled, &Preset::SetRFEnabled);
}

TEST(ApiOrder, Simulator) {
    using Simulator = IHXSimulator;
    EXPECT_ORDER(IHXSimulator, &Simulator::GetModels, &Simulator::SetModel, &Simulator::GetModel,
                 &Simulator::GetDevice, &Simulator::SetConnectionState, &Simulator::Connect,
                 &Simulator::Disconnect, &Simulator::WaitForEvents, &Simulator::SetLocale,
                 &Simulator::GetSurfaces, &Simulator::SetSurface, &Simulator::SetPresetsFolder,
                 &Simulator::ResetPresets, &Simulator::InjectFault, &Simulator::ClearFaults,
                 &Simulator::GetOperations, &Simulator::TakeCalls, &Simulator::LogCall,
                 &Simulator::SetProperties);
}

}  // namespace
