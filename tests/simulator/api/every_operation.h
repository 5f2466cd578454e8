// A valid call of every operation of the simulated scanner API, by the name under which it is listed.
#pragma once

#include <span>

#include "hxapi/ICtrlsInitialiser.h"
#include "hxapi/IReplayCapture.h"
#include "tests/simulator/api/simulator_fixture.h"

// One object of each kind.
struct ApiObjects {
    explicit ApiObjects(hx::ComPtr<IHXApi> of, hx::ComPtr<IReplayCapture> recorder_of,
                        hx::ComPtr<ICtrlsInitialiser> initialiser_of);

    hx::ComPtr<IHXApi> api;
    hx::ComPtr<IReplayCapture> recorder;
    hx::ComPtr<ICtrlsInitialiser> initialiser;
    hx::ComPtr<IHXProfile> profile;
    hx::ComPtr<IDeviceManager> devices;
    hx::ComPtr<IConnectionPoint> events;
    hx::ComPtr<ICalibrationHandle> handle;
    hx::ComPtr<IDynamicSettingsPreset> preset;
    hx::ComPtr<Listener> listener;
    hx::Bstr driver, device;
};

// The objects, and places for what one call gives.
struct ApiCallPlaces {
    ApiObjects& on;
    IErrorInfo** detail = nullptr;
    hx::ComPtr<IUnknown> object{};
    hx::Bstr text{};
    hx::SafeArray array{}, other_array{};
    double real = 0;
    uint32_t count = 0;
    int32_t number = 0;
    int16_t small = 0;
    FovManagementConfig config{};
    MGlobalScanningSettings settings{};

    template <class I>
    I** As() {
        return reinterpret_cast<I**>(object.put_void());
    }
    VARIANT Settings();
};

struct ApiCall {
    const wchar_t* name;
    int32_t (*call)(ApiCallPlaces&);
};
std::span<const ApiCall> EveryOperation();
