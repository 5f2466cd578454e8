#include "simulator/api/PresetObject.h"

#include "simulator/calls/TextAcross.h"

namespace hx::simulator {
namespace {

using Profile = MLaserProfileSettings;

consteval const Operation& Op(std::wstring_view name) {
    return OperationNamed(L"IDynamicSettingsPreset", name);
}

}  // namespace

PresetObject::PresetObject(std::shared_ptr<Line> line, MLaserProfileSettings profile)
    : m_gate(std::move(line), IID_IDynamicSettingsPreset), m_profile(std::move(profile)) {}

template <class Body>
HRESULT PresetObject::Perform(const Operation& operation, std::initializer_list<Argument> arguments,
                              const Body& body) {
    std::wstring name;
    const HRESULT named = AtBoundary([&] {
        name = StoredName();
        return S_OK;
    });
    if (FAILED(named)) return named;
    return m_gate.Perform(operation, arguments, body, {nullptr, name});
}

template <class Value, class Member>
HRESULT PresetObject::Get(const Operation& operation, Member Profile::*member, Value* value) {
    return Perform(operation, {}, [&]() -> HRESULT {
        if (value == nullptr) return E_POINTER;
        const std::lock_guard guard(m_mutex);
        *value = static_cast<Value>(m_profile.*member);
        return S_OK;
    });
}

template <class Value, class Member>
HRESULT PresetObject::Set(const Operation& operation, Member Profile::*member, Value value,
                          const ValueRange& range) {
    return Perform(operation, {value}, [&]() -> HRESULT {
        if (!range.Has(static_cast<double>(value))) return E_INVALIDARG;
        const std::lock_guard guard(m_mutex);
        m_profile.*member = static_cast<Member>(value);
        return S_OK;
    });
}

HRESULT PresetObject::SetFlag(const Operation& operation, bool Profile::*member, BOOL value) {
    return Perform(operation, {Argument::Boolean(value)}, [&] {
        const std::lock_guard guard(m_mutex);
        m_profile.*member = value != FALSE;
        return S_OK;
    });
}

HRESULT PresetObject::GetName(BSTR* name) {
    return Perform(Op(L"GetName"), {}, [&] { return GiveText(StoredName(), name); });
}
HRESULT PresetObject::SetName(BSTR name) {
    return Perform(Op(L"SetName"), {name}, [&] {
        std::wstring text = TextOf(name);
        const std::lock_guard guard(m_mutex);
        m_profile.ProfileName.swap(text);
        return S_OK;
    });
}
HRESULT PresetObject::GetLaserPower(double* percent) {
    return Get(Op(L"GetLaserPower"), &Profile::LaserPower, percent);
}
HRESULT PresetObject::SetLaserPower(double percent) {
    return Set(Op(L"SetLaserPower"), &Profile::LaserPower, percent, kPercentRange);
}
HRESULT PresetObject::GetExposureTime(double* exposure_us) {
    return Get(Op(L"GetExposureTime"), &Profile::ExposureTime, exposure_us);
}
HRESULT PresetObject::SetExposureTime(double exposure_us) {
    return Set(Op(L"SetExposureTime"), &Profile::ExposureTime, exposure_us, kExposureRange_us);
}
HRESULT PresetObject::GetAnalogImagerGain(uint32_t* gain) {
    return Get(Op(L"GetAnalogImagerGain"), &Profile::Gain, gain);
}
HRESULT PresetObject::SetAnalogImagerGain(uint32_t gain) {
    return Set(Op(L"SetAnalogImagerGain"), &Profile::Gain, gain, kGainRange);
}
HRESULT PresetObject::IsDLPCEnabled(BOOL* enabled) {
    return Get(Op(L"IsDLPCEnabled"), &Profile::DLPCEnabled, enabled);
}
HRESULT PresetObject::SetDLPCEnabled(BOOL enabled) {
    return SetFlag(Op(L"SetDLPCEnabled"), &Profile::DLPCEnabled, enabled);
}
HRESULT PresetObject::Get3DEdgeFilterEnabled(BOOL* enabled) {
    return Get(Op(L"Get3DEdgeFilterEnabled"), &Profile::EdgeFilter3DEnabled, enabled);
}
HRESULT PresetObject::Set3DEdgeFilterEnabled(BOOL enabled) {
    return SetFlag(Op(L"Set3DEdgeFilterEnabled"), &Profile::EdgeFilter3DEnabled, enabled);
}
HRESULT PresetObject::GetSignalThreshold(uint32_t* percent) {
    return Get(Op(L"GetSignalThreshold"), &Profile::SignalThreshold, percent);
}
HRESULT PresetObject::SetSignalThreshold(uint32_t percent) {
    return Set(Op(L"SetSignalThreshold"), &Profile::SignalThreshold, percent, kPercentRange);
}
HRESULT PresetObject::GetEdgeFilterValue(double* value) {
    return Get(Op(L"GetEdgeFilterValue"), &Profile::EdgeFilter, value);
}
HRESULT PresetObject::SetEdgeFilterValue(double value) {
    return Set(Op(L"SetEdgeFilterValue"), &Profile::EdgeFilter, value, kPercentRange);
}
HRESULT PresetObject::GetMaxInclination(double* degrees) {
    return Get(Op(L"GetMaxInclination"), &Profile::MaxInclination, degrees);
}
HRESULT PresetObject::SetMaxInclination(double degrees) {
    return Set(Op(L"SetMaxInclination"), &Profile::MaxInclination, degrees, kInclinationRange_degrees);
}
HRESULT PresetObject::IsRFEnabled(BOOL* enabled) {
    return Get(Op(L"IsRFEnabled"), &Profile::RFEnabled, enabled);
}
HRESULT PresetObject::SetRFEnabled(BOOL enabled) {
    return SetFlag(Op(L"SetRFEnabled"), &Profile::RFEnabled, enabled);
}

std::wstring PresetObject::StoredName() {
    const std::lock_guard guard(m_mutex);
    return m_profile.ProfileName;
}

MLaserProfileSettings PresetObject::StoredProfile() {
    const std::lock_guard guard(m_mutex);
    return m_profile;
}

HRESULT PresetObject::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == IID_IDynamicSettingsPreset ? S_OK : S_FALSE;
}

}  // namespace hx::simulator
