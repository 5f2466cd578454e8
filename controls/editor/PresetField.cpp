#include "controls/editor/PresetField.h"

#include <algorithm>

namespace hx {
namespace {

using Preset = IDynamicSettingsPreset;
using Data = DynamicSettingsData;

// Of values that are no measure.
constexpr double kExact = 0;
constexpr double kFine = 1e-5;

template <class Value>
HRESULT Read(Preset& preset, HRESULT (STDMETHODCALLTYPE Preset::*getter)(Value*), double& value) {
    Value raw{};
    const HRESULT result = (preset.*getter)(&raw);
    if (SUCCEEDED(result)) value = static_cast<double>(raw);
    return result;
}

template <class Value>
HRESULT Write(Preset& preset, HRESULT (STDMETHODCALLTYPE Preset::*setter)(Value), double value) {
    return (preset.*setter)(static_cast<Value>(value));
}

template <auto Getter>
HRESULT Get(Preset& preset, double& value) {
    return Read(preset, Getter, value);
}

template <auto Setter>
HRESULT Set(Preset& preset, double value) {
    return Write(preset, Setter, value);
}

template <int32_t Data::*Member, int32_t Lowest, int32_t Highest>
void TakeRounded(Data& data, double value) {
    data.*Member = RoundedWithin(value, Lowest, Highest);
}

template <BOOL Data::*Member>
void TakeFlag(Data& data, double value) {
    data.*Member = static_cast<BOOL>(value);
}

void TakeThreshold(Data& data, double value) {
    constexpr double kHighest = 100;
    data.signal_threshold = static_cast<uint32_t>(std::min(value, kHighest));
}

template <auto Member>
double Give(const Data& data) {
    return static_cast<double>(data.*Member);
}

}  // namespace

const std::array<PresetField, kPresetFieldCount> kPresetFields = {{
    {L"GetLaserPower", L"SetLaserPower", Get<&Preset::GetLaserPower>, Set<&Preset::SetLaserPower>,
     TakeRounded<&Data::laser_power, 1, 100>, Give<&Data::laser_power>, kFine},
    {L"IsDLPCEnabled", L"SetDLPCEnabled", Get<&Preset::IsDLPCEnabled>, Set<&Preset::SetDLPCEnabled>,
     TakeFlag<&Data::automatic_laser_power>, Give<&Data::automatic_laser_power>, kExact},
    {L"GetExposureTime", L"SetExposureTime", Get<&Preset::GetExposureTime>, Set<&Preset::SetExposureTime>,
     nullptr, nullptr, kExact},
    // That both sides have the same name is meant.
    {L"GetAnalogImagerGain", L"SetAnalogImagerGain", Get<&Preset::GetAnalogImagerGain>,
     Set<&Preset::SetAnalogImagerGain>, nullptr, Give<&Data::gain>, kExact, false},
    {L"Get3DEdgeFilterEnabled", L"Set3DEdgeFilterEnabled", Get<&Preset::Get3DEdgeFilterEnabled>,
     Set<&Preset::Set3DEdgeFilterEnabled>, TakeFlag<&Data::edge_filter_3d>, Give<&Data::edge_filter_3d>,
     kExact},
    {L"GetSignalThreshold", L"SetSignalThreshold", Get<&Preset::GetSignalThreshold>,
     Set<&Preset::SetSignalThreshold>, TakeThreshold, Give<&Data::signal_threshold>, kExact},
    {L"GetEdgeFilterValue", L"SetEdgeFilterValue", Get<&Preset::GetEdgeFilterValue>,
     Set<&Preset::SetEdgeFilterValue>, TakeRounded<&Data::edge_filter, 0, 100>, Give<&Data::edge_filter>,
     kFine},
    {L"GetMaxInclination", L"SetMaxInclination", Get<&Preset::GetMaxInclination>,
     Set<&Preset::SetMaxInclination>, TakeRounded<&Data::max_inclination, 0, 90>,
     Give<&Data::max_inclination>, kFine},
    {L"IsRFEnabled", L"SetRFEnabled", Get<&Preset::IsRFEnabled>, Set<&Preset::SetRFEnabled>,
     TakeFlag<&Data::reflection_filter>, Give<&Data::reflection_filter>, kExact},
}};

}  // namespace hx
