// The presets that are stored, for whoever looks at them from outside.
#include <type_traits>

#include "simulator/api/ApiObject.h"
#include "simulator/calls/JsonText.h"
#include "simulator/calls/TextAcross.h"

namespace hx::simulator {
namespace {

using Profile = MLaserProfileSettings;

struct ValueRow {
    const wchar_t* name;
    void (*append)(std::wstring& json, const Profile& profile);
};

template <auto member>
void AppendValue(std::wstring& json, const Profile& profile) {
    const auto value = profile.*member;
    if constexpr (std::is_same_v<decltype(value), const bool>) {
        json += value ? L"true" : L"false";
    } else {
        AppendJsonNumber(json, static_cast<double>(value));
    }
}

constexpr ValueRow kValues[] = {
    {L"LaserPower", &AppendValue<&Profile::LaserPower>},
    {L"ExposureTime", &AppendValue<&Profile::ExposureTime>},
    {L"Gain", &AppendValue<&Profile::Gain>},
    {L"DLPCEnabled", &AppendValue<&Profile::DLPCEnabled>},
    {L"EdgeFilter3DEnabled", &AppendValue<&Profile::EdgeFilter3DEnabled>},
    {L"SignalThreshold", &AppendValue<&Profile::SignalThreshold>},
    {L"EdgeFilter", &AppendValue<&Profile::EdgeFilter>},
    {L"MaxInclination", &AppendValue<&Profile::MaxInclination>},
    {L"RFEnabled", &AppendValue<&Profile::RFEnabled>},
};

void AppendPreset(std::wstring& json, const StoredPreset& preset) {
    json += L"{\"name\":";
    AppendJsonText(json, preset.profile.ProfileName);
    json += L",\"displayName\":";
    AppendJsonText(json, preset.display_name);
    json += L",\"values\":";
    wchar_t separator = L'{';
    for (const ValueRow& row : kValues) {
        json += separator;
        AppendJsonText(json, row.name);
        json += L':';
        row.append(json, preset.profile);
        separator = L',';
    }
    json += L"}}";
}

}  // namespace

HRESULT ApiObject::ReadPresets(BSTR owner, BSTR* json) {
    if (json == nullptr) return E_POINTER;
    *json = nullptr;
    return AtBoundary([&]() -> HRESULT {
        try {
            const OwnerPresets::Presets presets = m_simulator->Presets().Of(TextOf(owner));
            std::wstring text = L"{\"selected\":";
            AppendJsonText(text, presets->List().selected);
            text += L",\"presets\":[";
            const wchar_t* separator = L"";
            for (const StoredPreset& each : presets->List().presets) {
                text += separator;
                AppendPreset(text, each);
                separator = L",";
            }
            return GiveText(text + L"]}", json);
        } catch (const Refusal& refusal) {
            return refusal.result;
        }
    });
}

}  // namespace hx::simulator
