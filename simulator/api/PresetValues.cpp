#include "simulator/api/PresetValues.h"

#include "simulator/calls/IStoredPreset.h"

namespace hx::simulator {
namespace {

using Preset = IDynamicSettingsPreset;
using Profile = MLaserProfileSettings;

// One value through its getter; E_INVALIDARG outside the range.
template <class Value, class Member>
HRESULT Read(Preset& preset, HRESULT (Preset::*getter)(Value*), const ValueRange& range, Member& member) {
    Value value{};
    const HRESULT result = (preset.*getter)(&value);
    if (FAILED(result)) return result;
    if (!range.Has(static_cast<double>(value))) return E_INVALIDARG;
    member = static_cast<Member>(value);
    return S_OK;
}

HRESULT ReadFlag(Preset& preset, HRESULT (Preset::*getter)(BOOL*), bool& member) {
    BOOL value = FALSE;
    const HRESULT result = (preset.*getter)(&value);
    if (SUCCEEDED(result)) member = value != FALSE;
    return result;
}

HRESULT ReadThroughGetters(Preset& preset, Profile& profile) {
    Bstr name;
    HRESULT result = preset.GetName(name.put());
    const auto then = [&](const auto& read) {
        if (SUCCEEDED(result)) result = read();
    };
    profile.ProfileName = name.view();
    then([&] { return Read(preset, &Preset::GetLaserPower, kPercentRange, profile.LaserPower); });
    then([&] { return Read(preset, &Preset::GetExposureTime, kExposureRange_us, profile.ExposureTime); });
    then([&] { return Read(preset, &Preset::GetAnalogImagerGain, kGainRange, profile.Gain); });
    then([&] { return ReadFlag(preset, &Preset::IsDLPCEnabled, profile.DLPCEnabled); });
    then([&] { return ReadFlag(preset, &Preset::Get3DEdgeFilterEnabled, profile.EdgeFilter3DEnabled); });
    then([&] { return Read(preset, &Preset::GetSignalThreshold, kPercentRange, profile.SignalThreshold); });
    then([&] { return Read(preset, &Preset::GetEdgeFilterValue, kPercentRange, profile.EdgeFilter); });
    then([&] {
        return Read(preset, &Preset::GetMaxInclination, kInclinationRange_degrees, profile.MaxInclination);
    });
    then([&] { return ReadFlag(preset, &Preset::IsRFEnabled, profile.RFEnabled); });
    return result;
}

}  // namespace

HRESULT ReadPreset(const ComPtr<IUnknown>& object, MLaserProfileSettings& profile) {
    if (const auto own = object.as<IStoredPreset>()) {
        profile = own->StoredProfile();
        return S_OK;
    }
    const auto preset = object.as<Preset>();
    return preset ? ReadThroughGetters(*preset, profile) : E_INVALIDARG;
}

}  // namespace hx::simulator
