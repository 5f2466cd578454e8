// A calibration handle of the simulated scanner API. Any thread.
#pragma once

#include <atomic>

#include "hxapi/ICalibrationHandle.h"
#include "platform/com/implements.h"
#include "simulator/api/Simulator.h"

namespace hx::simulator {

class CalibrationHandle final
    : public Implements<CalibrationHandle, FreeThreaded, ICalibrationHandle, ISupportErrorInfo> {
public:
    explicit CalibrationHandle(std::shared_ptr<Simulator> simulator);
    ~CalibrationHandle() override;

    HRESULT STDMETHODCALLTYPE AcquireHandle() override;
    HRESULT STDMETHODCALLTYPE ReleaseHandle() override;
    HRESULT STDMETHODCALLTYPE InitialiseScanner(int32_t mode, int32_t options, int32_t enable) override;
    HRESULT STDMETHODCALLTYPE DisableScanner() override;
    HRESULT STDMETHODCALLTYPE RegisterTrackingCycleObserver(IUnknown* observer) override;

    HRESULT STDMETHODCALLTYPE ActivateDynamicSettings(IDynamicSettingsPreset* preset) override;
    HRESULT STDMETHODCALLTYPE ActivateGlobalScanningSettings(VARIANT settings) override;
    HRESULT STDMETHODCALLTYPE GetGlobalScanningSettings(BSTR device_internal_name, VARIANT settings) override;
    HRESULT STDMETHODCALLTYPE GetFovManagementConfig(FovManagementConfig* config) override;
    HRESULT STDMETHODCALLTYPE GetFrequencyReductionSupport(int32_t* supported) override;

    HRESULT STDMETHODCALLTYPE GetSupportedAnalogImagerGains(SAFEARRAY** gains) override;
    HRESULT STDMETHODCALLTYPE GetMaxExposureTime(BSTR device_internal_name, uint32_t* exposure_us) override;
    HRESULT STDMETHODCALLTYPE GetFrameRate(double* frame_rate_hz) override;
    HRESULT STDMETHODCALLTYPE GetExposureTimeInRows(int32_t* rows) override;
    HRESULT STDMETHODCALLTYPE DetectExposureTime(int16_t* exposure_us) override;
    HRESULT STDMETHODCALLTYPE DetectLaserPower(double* percent) override;

    HRESULT STDMETHODCALLTYPE EnumerateDynamicSettingsPresets(BSTR owner, SAFEARRAY** names,
                                                              SAFEARRAY** display_names) override;
    HRESULT STDMETHODCALLTYPE GetSelectedDynamicSettingsPreset(BSTR owner, BSTR* name) override;
    HRESULT STDMETHODCALLTYPE GetDynamicSettingsPreset(BSTR owner, BSTR name,
                                                       IDynamicSettingsPreset** preset) override;
    HRESULT STDMETHODCALLTYPE SaveDynamicSettingsPresets(BSTR owner, SAFEARRAY* names, SAFEARRAY* presets,
                                                         BSTR selected) override;
    HRESULT STDMETHODCALLTYPE CreateDynamicSettingsPreset(IDynamicSettingsPreset** preset) override;

    HRESULT STDMETHODCALLTYPE CloseHandle() override;
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

private:
    enum class Hold { kNever, kNow, kReleased };

    // A query of one value: E_POINTER without a place for it.
    template <class Value, class Ask>
    HRESULT Query(const Operation& operation, std::initializer_list<Argument> arguments, Value* value,
                  const Ask& ask);
    template <class Value, class Give>
    HRESULT Detect(const Operation& operation, Value* value, HRESULT (Scanner::*look)(double&) const,
                   const Give& give);
    // Does something to the scanner, which a handle that held it and was released is silent about.
    template <class Body>
    HRESULT Activate(const Body& body);
    ComPtr<IDynamicSettingsPreset> MakePreset(const MLaserProfileSettings& profile) const;

    ModuleLock m_module_lock;
    const std::shared_ptr<Simulator> m_simulator;
    const Gate m_gate;
    std::atomic<Hold> m_hold = Hold::kNever;
};

}  // namespace hx::simulator
