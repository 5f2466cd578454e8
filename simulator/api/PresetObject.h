// A preset of the simulated scanner API: one profile and the operations on it. Made by calibration handles.
// Any thread.
#pragma once

#include <mutex>

#include "platform/com/class_table.h"
#include "platform/com/implements.h"
#include "simulator/api/PresetValues.h"
#include "simulator/calls/Gate.h"
#include "simulator/calls/IStoredPreset.h"

namespace hx::simulator {

class PresetObject final : public Implements<PresetObject, FreeThreaded, IDynamicSettingsPreset,
                                             IStoredPreset, ISupportErrorInfo> {
public:
    PresetObject(std::shared_ptr<Line> line, MLaserProfileSettings profile);

    HRESULT STDMETHODCALLTYPE GetName(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE SetName(BSTR name) override;
    HRESULT STDMETHODCALLTYPE GetLaserPower(double* percent) override;
    HRESULT STDMETHODCALLTYPE SetLaserPower(double percent) override;
    HRESULT STDMETHODCALLTYPE GetExposureTime(double* exposure_us) override;
    HRESULT STDMETHODCALLTYPE SetExposureTime(double exposure_us) override;
    HRESULT STDMETHODCALLTYPE GetAnalogImagerGain(uint32_t* gain) override;
    HRESULT STDMETHODCALLTYPE SetAnalogImagerGain(uint32_t gain) override;
    HRESULT STDMETHODCALLTYPE IsDLPCEnabled(BOOL* enabled) override;
    HRESULT STDMETHODCALLTYPE SetDLPCEnabled(BOOL enabled) override;
    HRESULT STDMETHODCALLTYPE Get3DEdgeFilterEnabled(BOOL* enabled) override;
    HRESULT STDMETHODCALLTYPE Set3DEdgeFilterEnabled(BOOL enabled) override;
    HRESULT STDMETHODCALLTYPE GetSignalThreshold(uint32_t* percent) override;
    HRESULT STDMETHODCALLTYPE SetSignalThreshold(uint32_t percent) override;
    HRESULT STDMETHODCALLTYPE GetEdgeFilterValue(double* value) override;
    HRESULT STDMETHODCALLTYPE SetEdgeFilterValue(double value) override;
    HRESULT STDMETHODCALLTYPE GetMaxInclination(double* degrees) override;
    HRESULT STDMETHODCALLTYPE SetMaxInclination(double degrees) override;
    HRESULT STDMETHODCALLTYPE IsRFEnabled(BOOL* enabled) override;
    HRESULT STDMETHODCALLTYPE SetRFEnabled(BOOL enabled) override;

    std::wstring StoredName() override;
    MLaserProfileSettings StoredProfile() override;
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

private:
    template <class Body>
    HRESULT Perform(const Operation& operation, std::initializer_list<Argument> arguments, const Body& body);
    template <class Value, class Member>
    HRESULT Get(const Operation& operation, Member MLaserProfileSettings::*member, Value* value);
    template <class Value, class Member>
    HRESULT Set(const Operation& operation, Member MLaserProfileSettings::*member, Value value,
                const ValueRange& range);
    HRESULT SetFlag(const Operation& operation, bool MLaserProfileSettings::*member, BOOL value);

    ModuleLock m_module_lock;
    const Gate m_gate;
    std::mutex m_mutex;  // guards m_profile
    MLaserProfileSettings m_profile;
};

}  // namespace hx::simulator
