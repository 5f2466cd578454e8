#include "apps/hxctl/scanner/stored_presets.h"

#include <algorithm>

#include "apps/hxctl/scanner/failed_call.h"
#include "core/errors/MErrorCom.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

using hx::MLaserProfileSettings;

constexpr const wchar_t* kOutcomes[] = {kHXPresetsCustomRestored, kHXPresetsCustomGenerated,
                                        kHXPresetsUnknownVersion};

// Whether a failed enumeration only tells what the API had to do to the presets; `message` for the operator.
bool IsOutcome(const hx::MErrorCom& error, std::string& message) {
    hx::MException chain;
    chain.AppendChained(error);
    message = MessageOf(chain);
    return std::ranges::any_of(kOutcomes, [&](const wchar_t* code) {
        return std::ranges::any_of(chain.GetChain(),
                                   [&](const auto& each) { return each->GetCode() == code; });
    });
}

// One row for each value: how it goes from a preset to a profile and back.
struct ValueRow {
    const char* getter;
    const char* setter;
    HRESULT (*get)(IDynamicSettingsPreset& preset, MLaserProfileSettings& profile);
    HRESULT (*set)(IDynamicSettingsPreset& preset, const MLaserProfileSettings& profile);
};

template <auto get, auto set, auto member, class Travels>
constexpr ValueRow Row(const char* getter, const char* setter) {
    return {getter, setter,
            [](IDynamicSettingsPreset& preset, MLaserProfileSettings& profile) {
                Travels value{};
                const HRESULT result = (preset.*get)(&value);
                using Kept = std::remove_reference_t<decltype(profile.*member)>;
                if (SUCCEEDED(result)) profile.*member = static_cast<Kept>(value);
                return result;
            },
            [](IDynamicSettingsPreset& preset, const MLaserProfileSettings& profile) {
                return (preset.*set)(static_cast<Travels>(profile.*member));
            }};
}

using P = IDynamicSettingsPreset;
using S = MLaserProfileSettings;
constexpr ValueRow kValues[] = {
    Row<&P::GetLaserPower, &P::SetLaserPower, &S::LaserPower, double>("GetLaserPower", "SetLaserPower"),
    Row<&P::GetExposureTime, &P::SetExposureTime, &S::ExposureTime, double>("GetExposureTime",
                                                                            "SetExposureTime"),
    Row<&P::GetAnalogImagerGain, &P::SetAnalogImagerGain, &S::Gain, uint32_t>("GetAnalogImagerGain",
                                                                              "SetAnalogImagerGain"),
    Row<&P::IsDLPCEnabled, &P::SetDLPCEnabled, &S::DLPCEnabled, BOOL>("IsDLPCEnabled", "SetDLPCEnabled"),
    Row<&P::Get3DEdgeFilterEnabled, &P::Set3DEdgeFilterEnabled, &S::EdgeFilter3DEnabled, BOOL>(
        "Get3DEdgeFilterEnabled", "Set3DEdgeFilterEnabled"),
    Row<&P::GetSignalThreshold, &P::SetSignalThreshold, &S::SignalThreshold, uint32_t>("GetSignalThreshold",
                                                                                       "SetSignalThreshold"),
    Row<&P::GetEdgeFilterValue, &P::SetEdgeFilterValue, &S::EdgeFilter, double>("GetEdgeFilterValue",
                                                                                "SetEdgeFilterValue"),
    Row<&P::GetMaxInclination, &P::SetMaxInclination, &S::MaxInclination, double>("GetMaxInclination",
                                                                                  "SetMaxInclination"),
    Row<&P::IsRFEnabled, &P::SetRFEnabled, &S::RFEnabled, BOOL>("IsRFEnabled", "SetRFEnabled"),
};

}  // namespace

const NamedPreset* StoredPresets::Find(std::wstring_view name) const {
    const auto found =
        std::ranges::find_if(presets, [&](const NamedPreset& each) { return each.name.view() == name; });
    return found != presets.end() ? &*found : nullptr;
}

StoredPresets LoadPresets(Desk& desk, ICalibrationHandle& handle, const hx::Bstr& owner) {
    constexpr char kEnumerate[] = "EnumerateDynamicSettingsPresets";
    const IID& iid = hx::uuid_of<ICalibrationHandle>();
    hx::SafeArray names;
    hx::SafeArray display_names;
    const auto enumerate = [&] {
        return handle.EnumerateDynamicSettingsPresets(owner.get(), names.put(), display_names.put());
    };
    HRESULT result = enumerate();
    if (FAILED(result)) {
        const hx::MErrorCom error(result, &handle, iid);
        std::string message;
        if (!IsOutcome(error, message)) FailCall(kEnumerate, error);
        desk.Notice(message);
        result = enumerate();
    }
    CheckCall(kEnumerate, result, handle, iid);
    StoredPresets stored;
    CheckCall("GetSelectedDynamicSettingsPreset",
              handle.GetSelectedDynamicSettingsPreset(owner.get(), stored.selected.put()), handle, iid);
    const std::vector<std::wstring> displayed = TextsOf(display_names);
    for (const std::wstring& name : TextsOf(names)) {
        NamedPreset& preset = stored.presets.emplace_back();
        preset.name = hx::Bstr(name);
        if (stored.presets.size() <= displayed.size()) {
            preset.display_name = hx::Bstr(displayed[stored.presets.size() - 1]);
        }
        CheckCall("GetDynamicSettingsPreset",
                  handle.GetDynamicSettingsPreset(owner.get(), preset.name.get(), preset.preset.put()),
                  handle, iid);
    }
    return stored;
}

void SavePresets(ICalibrationHandle& handle, const hx::Bstr& owner, const StoredPresets& presets) {
    const auto count = static_cast<ULONG>(presets.presets.size());
    const hx::SafeArray names(SafeArrayCreateVector(VT_BSTR, 0, count));
    const hx::SafeArray objects(SafeArrayCreateVector(VT_UNKNOWN, 0, count));
    if (!names || !objects) throw std::bad_alloc();
    for (LONG i = 0; i < static_cast<LONG>(count); ++i) {
        const NamedPreset& preset = presets.presets[static_cast<size_t>(i)];
        CheckCall("SafeArrayPutElement", SafeArrayPutElement(names.get(), &i, preset.name.get()));
        CheckCall("SafeArrayPutElement",
                  SafeArrayPutElement(objects.get(), &i, static_cast<IUnknown*>(preset.preset.get())));
    }
    CheckCall(
        "SaveDynamicSettingsPresets",
        handle.SaveDynamicSettingsPresets(owner.get(), names.get(), objects.get(), presets.selected.get()),
        handle, hx::uuid_of<ICalibrationHandle>());
}

MLaserProfileSettings ProfileOf(const NamedPreset& preset) {
    MLaserProfileSettings profile;
    profile.ProfileName = preset.name.view();
    for (const ValueRow& row : kValues)
        CheckCall(row.getter, row.get(*preset.preset, profile), preset.preset);
    return profile;
}

void SetValues(IDynamicSettingsPreset& preset, const MLaserProfileSettings& profile) {
    const hx::Bstr name(profile.ProfileName);
    const IID& iid = hx::uuid_of<IDynamicSettingsPreset>();
    CheckCall("SetName", preset.SetName(name.get()), preset, iid);
    for (const ValueRow& row : kValues) {
        CheckCall((hx::ToUtf8(profile.ProfileName) + "." + row.setter).c_str(), row.set(preset, profile),
                  preset, iid);
    }
}

}  // namespace hxctl
