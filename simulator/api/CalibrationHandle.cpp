// The scanner's side of a calibration handle.
#include "simulator/api/CalibrationHandle.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "hxapi/HXApiErrors.h"
#include "platform/com/text_array.h"
#include "simulator/api/PresetValues.h"
#include "simulator/calls/TextAcross.h"

namespace hx::simulator {
namespace {

consteval const Operation& Op(std::wstring_view name) {
    return OperationNamed(L"ICalibrationHandle", name);
}

// The record that a VARIANT leads to; null for anything else.
MGlobalScanningSettings* SettingsAt(const VARIANT& variant) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): that is how the address travels
    return variant.vt == VT_UI8 ? reinterpret_cast<MGlobalScanningSettings*>(variant.ullVal) : nullptr;
}

// With a chain, whose message is what the operator reads.
HRESULT RefuseUnplugged() {
    throw Refusal{HX_E_NOTCONNECTED, {}, L"CalibrationHandle:NotConnected"};
}

}  // namespace

CalibrationHandle::CalibrationHandle(std::shared_ptr<Simulator> simulator)
    : m_simulator(std::move(simulator)), m_gate(m_simulator->Connection(), IID_ICalibrationHandle) {}

CalibrationHandle::~CalibrationHandle() {
    m_simulator->StopTrackingOf(this);
    m_simulator->StopObservingFor(this);
}

HRESULT CalibrationHandle::AcquireHandle() {
    return m_gate.Perform(Op(L"AcquireHandle"), {}, [&] {
        if (!m_simulator->IsConnected()) return RefuseUnplugged();
        m_hold = Hold::kNow;
        return S_OK;
    });
}

HRESULT CalibrationHandle::ReleaseHandle() {
    return m_gate.Perform(Op(L"ReleaseHandle"), {}, [&] {
        Hold held = Hold::kNow;
        if (m_hold.compare_exchange_strong(held, Hold::kReleased)) m_simulator->StopTrackingOf(this);
        return S_OK;
    });
}

HRESULT CalibrationHandle::InitialiseScanner(int32_t mode, int32_t options, int32_t enable) {
    return m_gate.Perform(Op(L"InitialiseScanner"), {mode, options, enable}, [&] {
        if (m_hold != Hold::kNow) return HX_E_NOTACQUIRED;
        if (enable != 0) {
            m_simulator->Initialise(this);
        } else {
            m_simulator->Disable();
        }
        return S_OK;
    });
}

HRESULT CalibrationHandle::DisableScanner() {
    return m_gate.Perform(Op(L"DisableScanner"), {}, [&] {
        if (m_hold == Hold::kNow) m_simulator->Disable();
        return S_OK;
    });
}

HRESULT CalibrationHandle::RegisterTrackingCycleObserver(IUnknown* observer) {
    return m_gate.Perform(Op(L"RegisterTrackingCycleObserver"), {Argument::Observer(observer)}, [&] {
        if (observer != nullptr && m_hold != Hold::kNow) return HX_E_NOTACQUIRED;
        m_simulator->Observe(this, ComPtr<IUnknown>(observer).as<ITrackingCycleObserver>());
        return S_OK;
    });
}

template <class Body>
HRESULT CalibrationHandle::Activate(const Body& body) {
    const Hold hold = m_hold;
    if (hold == Hold::kNever) return HX_E_NOTACQUIRED;
    return hold == Hold::kReleased ? S_OK : body();
}

HRESULT CalibrationHandle::ActivateDynamicSettings(IDynamicSettingsPreset* preset) {
    return m_gate.Perform(Op(L"ActivateDynamicSettings"), {preset}, [&] {
        if (preset == nullptr) return E_POINTER;
        return Activate([&] {
            MLaserProfileSettings profile;
            const HRESULT read = ReadPreset(ComPtr<IUnknown>(preset), profile);
            return SUCCEEDED(read) ? m_simulator->TheScanner()->SetProfile(profile) : read;
        });
    });
}

HRESULT CalibrationHandle::ActivateGlobalScanningSettings(VARIANT settings) {
    const MGlobalScanningSettings* const record = SettingsAt(settings);
    return m_gate.Perform(Op(L"ActivateGlobalScanningSettings"), {record}, [&] {
        if (record == nullptr) return E_INVALIDARG;
        return Activate([&] { return m_simulator->TheScanner()->SetGlobal(*record); });
    });
}

HRESULT CalibrationHandle::GetGlobalScanningSettings(BSTR device_internal_name, VARIANT settings) {
    return m_gate.Perform(Op(L"GetGlobalScanningSettings"), {device_internal_name}, [&] {
        MGlobalScanningSettings* const record = SettingsAt(settings);
        if (record == nullptr) return E_INVALIDARG;
        if (!m_simulator->IsDevice(TextOf(device_internal_name))) return HX_E_NOTFOUND;
        *record = m_simulator->TheScanner()->Global();
        return S_OK;
    });
}

template <class Value, class Ask>
HRESULT CalibrationHandle::Query(const Operation& operation, std::initializer_list<Argument> arguments,
                                 Value* value, const Ask& ask) {
    return m_gate.Perform(operation, arguments, [&]() -> HRESULT {
        if (value == nullptr) return E_POINTER;
        return ask(*m_simulator->TheScanner());
    });
}

HRESULT CalibrationHandle::GetFovManagementConfig(FovManagementConfig* config) {
    return Query(Op(L"GetFovManagementConfig"), {}, config, [&](const Scanner& scanner) {
        config->Managed = scanner.Model().fov_managed;
        return S_OK;
    });
}

HRESULT CalibrationHandle::GetFrequencyReductionSupport(int32_t* supported) {
    return Query(Op(L"GetFrequencyReductionSupport"), {}, supported, [&](const Scanner& scanner) {
        *supported = scanner.Model().reduces_frequency ? 1 : 0;
        return S_OK;
    });
}

HRESULT CalibrationHandle::GetSupportedAnalogImagerGains(SAFEARRAY** gains) {
    if (gains) *gains = nullptr;
    return Query(Op(L"GetSupportedAnalogImagerGains"), {}, gains, [&](const Scanner& scanner) {
        std::vector<std::wstring> texts;
        for (const uint32_t gain : scanner.Model().gains) texts.push_back(std::to_wstring(gain));
        *gains = TextArray(texts).detach();
        return S_OK;
    });
}

HRESULT CalibrationHandle::GetMaxExposureTime(BSTR device_internal_name, uint32_t* exposure_us) {
    return Query(Op(L"GetMaxExposureTime"), {device_internal_name}, exposure_us, [&](const Scanner& scanner) {
        if (!m_simulator->IsDevice(TextOf(device_internal_name))) return HX_E_NOTFOUND;
        *exposure_us = scanner.Model().longest_exposure_us;
        return S_OK;
    });
}

HRESULT CalibrationHandle::GetFrameRate(double* frame_rate_hz) {
    return Query(Op(L"GetFrameRate"), {}, frame_rate_hz, [&](const Scanner& scanner) {
        *frame_rate_hz = scanner.FrameRateHz();
        return S_OK;
    });
}

HRESULT CalibrationHandle::GetExposureTimeInRows(int32_t* rows) {
    return Query(Op(L"GetExposureTimeInRows"), {}, rows, [&](const Scanner& scanner) {
        *rows = scanner.ExposureRows();
        return S_OK;
    });
}

template <class Value, class Give>
HRESULT CalibrationHandle::Detect(const Operation& operation, Value* value,
                                  HRESULT (Scanner::*look)(double&) const, const Give& give) {
    return Query(operation, {}, value, [&](const Scanner& scanner) {
        if (m_hold != Hold::kNow) return HX_E_NOTACQUIRED;
        if (!m_simulator->IsConnected()) return RefuseUnplugged();
        double found = 0;
        const HRESULT result = (scanner.*look)(found);
        // It takes its time, in which a cable can be pulled.
        if (!m_simulator->IsConnected()) return RefuseUnplugged();
        if (SUCCEEDED(result)) *value = give(found);
        return result;
    });
}

HRESULT CalibrationHandle::DetectExposureTime(int16_t* exposure_us) {
    return Detect(Op(L"DetectExposureTime"), exposure_us, &Scanner::DetectExposure, [](double found_us) {
        constexpr double kMost_us = std::numeric_limits<int16_t>::max();
        return static_cast<int16_t>(std::clamp(std::round(found_us), 1.0, kMost_us));
    });
}

HRESULT CalibrationHandle::DetectLaserPower(double* percent) {
    return Detect(Op(L"DetectLaserPower"), percent, &Scanner::DetectLaserPower,
                  [](double found_percent) { return found_percent; });
}

HRESULT CalibrationHandle::CloseHandle() {
    // Nothing is kept for a caller who drives no more: tracking and observer are others', or given back.
    return m_gate.Perform(Op(L"CloseHandle"), {}, [] { return S_OK; });
}

HRESULT CalibrationHandle::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == IID_ICalibrationHandle ? S_OK : S_FALSE;
}

}  // namespace hx::simulator
