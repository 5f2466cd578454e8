#include "tests/simulator/api/every_operation.h"

namespace {

using P = ApiCallPlaces;
using Preset = IDynamicSettingsPreset;

template <auto getter, auto place>
int32_t Get(P& p) {
    return (p.on.preset.get()->*getter)(&(p.*place));
}
template <auto setter, auto value>
int32_t Set(P& p) {
    return (p.on.preset.get()->*setter)(value);
}
template <auto query, auto place>
int32_t Ask(P& p) {
    return (p.on.handle.get()->*query)(&(p.*place));
}

int32_t SaveTwo(P& p) {
    const hx::SafeArray names(SafeArrayCreateVector(VT_BSTR, 0, 2));
    const hx::SafeArray presets(SafeArrayCreateVector(VT_UNKNOWN, 0, 2));
    LONG place = 0;
    for (const wchar_t* const name : {L"$DEFAULT", L"MINE"}) {
        SafeArrayPutElement(names.get(), &place, hx::Bstr(name).get());
        SafeArrayPutElement(presets.get(), &place, p.on.preset.get());
        ++place;
    }
    return p.on.handle->SaveDynamicSettingsPresets(p.on.device.get(), names.get(), presets.get(), nullptr);
}

// Gives back what it took.
int32_t Advise(P& p) {
    const HRESULT result = p.on.events->Advise(p.on.listener.as<IUnknown>().get(), &p.count);
    if (SUCCEEDED(result)) p.on.events->Unadvise(p.count);
    return result;
}

int32_t Unadvise(P& p) {
    p.on.events->Advise(p.on.listener.as<IUnknown>().get(), &p.count);
    return p.on.events->Unadvise(p.count);
}

using Handle = ICalibrationHandle;

constexpr ApiCall kCalls[] = {
    {L"IHXApi.GetConnectionState", [](P& p) { return p.on.api->GetConnectionState(&p.number, p.detail); }},
    {L"IHXApi.Resume", [](P& p) { return p.on.api->Resume(p.detail); }},
    {L"IHXApi.GetDeviceManager",
     [](P& p) { return p.on.api->GetDeviceManager(p.As<IDeviceManager>(), p.detail); }},
    {L"IHXApiInternal.GetCurrentProfile",
     [](P& p) { return p.on.api.as<IHXApiInternal>()->GetCurrentProfile(p.As<IHXProfile>(), p.detail); }},
    {L"IHXApiInternal.CreateCalibrationHandle",
     [](P& p) {
         return p.on.api.as<IHXApiInternal>()->CreateCalibrationHandle(
             p.on.driver.get(), IID_ICalibrationHandle, p.object.put(), p.detail);
     }},
    {L"IHXLocale.GetLocale", [](P& p) { return p.on.api.as<IHXLocale>()->GetLocale(p.text.put()); }},
    {L"IHXProfile.GetDriverSelection", [](P& p) { return p.on.profile->GetDriverSelection(p.array.put()); }},
    {L"IDeviceManager.GetDriverProperties",
     [](P& p) {
         return p.on.devices->GetDriverProperties(hx::Bstr(kHXCategoryScanner).get(), p.on.driver.get(),
                                                  p.text.put(), p.detail);
     }},
    {L"IConnectionPoint.Advise", &Advise},
    {L"IConnectionPoint.Unadvise", &Unadvise},
    {L"ICalibrationHandle.AcquireHandle", [](P& p) { return p.on.handle->AcquireHandle(); }},
    {L"ICalibrationHandle.ReleaseHandle", [](P& p) { return p.on.handle->ReleaseHandle(); }},
    {L"ICalibrationHandle.InitialiseScanner",
     [](P& p) { return p.on.handle->AcquireHandle(), p.on.handle->InitialiseScanner(0, 0, 1); }},
    {L"ICalibrationHandle.DisableScanner", [](P& p) { return p.on.handle->DisableScanner(); }},
    {L"ICalibrationHandle.RegisterTrackingCycleObserver",
     [](P& p) { return p.on.handle->RegisterTrackingCycleObserver(nullptr); }},
    {L"ICalibrationHandle.ActivateDynamicSettings",
     [](P& p) {
         return p.on.handle->AcquireHandle(), p.on.handle->ActivateDynamicSettings(p.on.preset.get());
     }},
    {L"ICalibrationHandle.ActivateGlobalScanningSettings",
     [](P& p) {
         return p.on.handle->AcquireHandle(), p.on.handle->ActivateGlobalScanningSettings(p.Settings());
     }},
    {L"ICalibrationHandle.GetGlobalScanningSettings",
     [](P& p) { return p.on.handle->GetGlobalScanningSettings(p.on.device.get(), p.Settings()); }},
    {L"ICalibrationHandle.GetFovManagementConfig", &Ask<&Handle::GetFovManagementConfig, &P::config>},
    {L"ICalibrationHandle.GetFrequencyReductionSupport",
     &Ask<&Handle::GetFrequencyReductionSupport, &P::number>},
    {L"ICalibrationHandle.GetSupportedAnalogImagerGains",
     [](P& p) { return p.on.handle->GetSupportedAnalogImagerGains(p.array.put()); }},
    {L"ICalibrationHandle.GetMaxExposureTime",
     [](P& p) { return p.on.handle->GetMaxExposureTime(p.on.device.get(), &p.count); }},
    {L"ICalibrationHandle.GetFrameRate", &Ask<&Handle::GetFrameRate, &P::real>},
    {L"ICalibrationHandle.GetExposureTimeInRows", &Ask<&Handle::GetExposureTimeInRows, &P::number>},
    {L"ICalibrationHandle.DetectExposureTime",
     [](P& p) { return p.on.handle->AcquireHandle(), p.on.handle->DetectExposureTime(&p.small); }},
    {L"ICalibrationHandle.DetectLaserPower",
     [](P& p) { return p.on.handle->AcquireHandle(), p.on.handle->DetectLaserPower(&p.real); }},
    {L"ICalibrationHandle.EnumerateDynamicSettingsPresets",
     [](P& p) {
         return p.on.handle->EnumerateDynamicSettingsPresets(p.on.device.get(), p.array.put(),
                                                             p.other_array.put());
     }},
    {L"ICalibrationHandle.GetSelectedDynamicSettingsPreset",
     [](P& p) { return p.on.handle->GetSelectedDynamicSettingsPreset(p.on.device.get(), p.text.put()); }},
    {L"ICalibrationHandle.GetDynamicSettingsPreset",
     [](P& p) {
         return p.on.handle->GetDynamicSettingsPreset(p.on.device.get(), hx::Bstr(L"MINE").get(),
                                                      p.As<Preset>());
     }},
    {L"ICalibrationHandle.SaveDynamicSettingsPresets", &SaveTwo},
    {L"ICalibrationHandle.CreateDynamicSettingsPreset",
     [](P& p) { return p.on.handle->CreateDynamicSettingsPreset(p.As<Preset>()); }},
    {L"ICalibrationHandle.CloseHandle", [](P& p) { return p.on.handle->CloseHandle(); }},
    {L"IDynamicSettingsPreset.GetName", [](P& p) { return p.on.preset->GetName(p.text.put()); }},
    {L"IDynamicSettingsPreset.SetName",
     [](P& p) { return p.on.preset->SetName(hx::Bstr(L"A \"name\"").get()); }},
    {L"IDynamicSettingsPreset.GetLaserPower", &Get<&Preset::GetLaserPower, &P::real>},
    {L"IDynamicSettingsPreset.SetLaserPower", &Set<&Preset::SetLaserPower, 30>},
    {L"IDynamicSettingsPreset.GetExposureTime", &Get<&Preset::GetExposureTime, &P::real>},
    {L"IDynamicSettingsPreset.SetExposureTime", &Set<&Preset::SetExposureTime, 300>},
    {L"IDynamicSettingsPreset.GetAnalogImagerGain", &Get<&Preset::GetAnalogImagerGain, &P::count>},
    {L"IDynamicSettingsPreset.SetAnalogImagerGain", &Set<&Preset::SetAnalogImagerGain, 1>},
    {L"IDynamicSettingsPreset.IsDLPCEnabled", &Get<&Preset::IsDLPCEnabled, &P::number>},
    {L"IDynamicSettingsPreset.SetDLPCEnabled", &Set<&Preset::SetDLPCEnabled, TRUE>},
    {L"IDynamicSettingsPreset.Get3DEdgeFilterEnabled", &Get<&Preset::Get3DEdgeFilterEnabled, &P::number>},
    {L"IDynamicSettingsPreset.Set3DEdgeFilterEnabled", &Set<&Preset::Set3DEdgeFilterEnabled, TRUE>},
    {L"IDynamicSettingsPreset.GetSignalThreshold", &Get<&Preset::GetSignalThreshold, &P::count>},
    {L"IDynamicSettingsPreset.SetSignalThreshold", &Set<&Preset::SetSignalThreshold, 20>},
    {L"IDynamicSettingsPreset.GetEdgeFilterValue", &Get<&Preset::GetEdgeFilterValue, &P::real>},
    {L"IDynamicSettingsPreset.SetEdgeFilterValue", &Set<&Preset::SetEdgeFilterValue, 5>},
    {L"IDynamicSettingsPreset.GetMaxInclination", &Get<&Preset::GetMaxInclination, &P::real>},
    {L"IDynamicSettingsPreset.SetMaxInclination", &Set<&Preset::SetMaxInclination, 75>},
    {L"IDynamicSettingsPreset.IsRFEnabled", &Get<&Preset::IsRFEnabled, &P::number>},
    {L"IDynamicSettingsPreset.SetRFEnabled", &Set<&Preset::SetRFEnabled, FALSE>},
    {L"IReplayCapture.StartTrackingDataRecording",
     [](P& p) -> int32_t { return p.on.recorder->StartTrackingDataRecording(); }},
    {L"IReplayCapture.StopTrackingDataRecording",
     [](P& p) -> int32_t { return p.on.recorder->StopTrackingDataRecording(); }},
    {L"ICtrlsInitialiser.GetHXApi", [](P& p) { return p.on.initialiser->GetHXApi(p.object.put()); }},
};

}  // namespace

ApiObjects::ApiObjects(hx::ComPtr<IHXApi> of, hx::ComPtr<IReplayCapture> recorder_of,
                       hx::ComPtr<ICtrlsInitialiser> initialiser_of)
    : api(std::move(of)),
      recorder(std::move(recorder_of)),
      initialiser(std::move(initialiser_of)),
      listener(hx::Make<Listener>()) {
    const auto internal = api.as<IHXApiInternal>();
    hx::ComPtr<IUnknown> new_handle;
    internal->GetCurrentProfile(profile.put(), nullptr);
    internal->CreateCalibrationHandle(nullptr, IID_ICalibrationHandle, new_handle.put(), nullptr);
    handle = new_handle.as<ICalibrationHandle>();
    handle->CreateDynamicSettingsPreset(preset.put());
    preset->SetName(hx::Bstr(L"MINE").get());
    api->GetDeviceManager(devices.put(), nullptr);
    api.as<IConnectionPointContainer>()->FindConnectionPoint(IID_IHXApiEvents, events.put());
    api.as<IHXSimulator>()->GetDevice(driver.put(), device.put());
}

VARIANT ApiCallPlaces::Settings() {
    VARIANT address{};
    address.vt = VT_UI8;
    address.ullVal = reinterpret_cast<uint64_t>(&settings);
    return address;
}

std::span<const ApiCall> EveryOperation() {
    return kCalls;
}
