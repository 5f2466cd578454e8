// The presets' side of a calibration handle.
#include "hxapi/HXApiErrors.h"
#include "platform/com/array_elements.h"
#include "platform/com/text_array.h"
#include "settings/profile/ProfileNames.h"
#include "simulator/api/CalibrationHandle.h"
#include "simulator/api/PresetObject.h"
#include "simulator/calls/TextAcross.h"

namespace hx::simulator {
namespace {

consteval const Operation& Op(std::wstring_view name) {
    return OperationNamed(L"ICalibrationHandle", name);
}

void TellOutcome(PresetsOutcome outcome) {
    static constexpr const wchar_t* kCodes[] = {nullptr, kHXPresetsCustomRestored, kHXPresetsCustomGenerated,
                                                kHXPresetsUnknownVersion};
    static_assert(static_cast<size_t>(PresetsOutcome::kUnknownVersion) + 1 == std::size(kCodes));
    if (const wchar_t* const code = kCodes[static_cast<size_t>(outcome)]) throw Refusal{E_FAIL, {}, code};
}

// What the caller hands over to be stored; throws a Refusal for arrays that do not fit.
std::vector<StoredPreset> PresetsOf(SAFEARRAY* names, SAFEARRAY* presets) {
    const ArrayElements<BSTR> name_elements(names, VT_BSTR);
    const ArrayElements<IUnknown*> preset_elements(presets, VT_UNKNOWN);
    if (!name_elements.IsValid() || !preset_elements.IsValid())
        throw Refusal{E_INVALIDARG, L"The names are no array of texts, or the presets no array of objects."};
    if (name_elements.size() != preset_elements.size())
        throw Refusal{E_INVALIDARG, L"There is not a preset for each name."};
    std::vector<StoredPreset> list(name_elements.size());
    for (size_t i = 0; i < list.size(); ++i) {
        const HRESULT read = ReadPreset(ComPtr<IUnknown>(preset_elements[i]), list[i].profile);
        if (FAILED(read)) throw Refusal{read, L"A preset cannot be read."};
        // It is stored under the name by which the list calls it.
        list[i].profile.ProfileName = TextOf(name_elements[i]);
    }
    return list;
}

}  // namespace

ComPtr<IDynamicSettingsPreset> CalibrationHandle::MakePreset(const MLaserProfileSettings& profile) const {
    return Make<PresetObject>(m_simulator->Connection(), profile);
}

HRESULT CalibrationHandle::EnumerateDynamicSettingsPresets(BSTR owner, SAFEARRAY** names,
                                                           SAFEARRAY** display_names) {
    if (names) *names = nullptr;
    if (display_names) *display_names = nullptr;
    return m_gate.Perform(Op(L"EnumerateDynamicSettingsPresets"), {owner}, [&] {
        if (names == nullptr || display_names == nullptr) return E_POINTER;
        const auto [presets, outcome] = m_simulator->Presets().Enumerate(TextOf(owner));
        TellOutcome(outcome);
        std::vector<std::wstring> all_names;
        std::vector<std::wstring> all_display_names;
        for (const StoredPreset& each : presets->List().presets) {
            all_names.push_back(each.profile.ProfileName);
            all_display_names.push_back(each.display_name);
        }
        SafeArray name_array = TextArray(all_names);
        *display_names = TextArray(all_display_names).detach();
        *names = name_array.detach();
        return S_OK;
    });
}

HRESULT CalibrationHandle::GetSelectedDynamicSettingsPreset(BSTR owner, BSTR* name) {
    if (name) *name = nullptr;
    return m_gate.Perform(Op(L"GetSelectedDynamicSettingsPreset"), {owner}, [&] {
        if (name == nullptr) return E_POINTER;
        return GiveText(m_simulator->Presets().Of(TextOf(owner))->List().selected, name);
    });
}

HRESULT CalibrationHandle::GetDynamicSettingsPreset(BSTR owner, BSTR name, IDynamicSettingsPreset** preset) {
    if (preset) *preset = nullptr;
    return m_gate.Perform(Op(L"GetDynamicSettingsPreset"), {owner, name}, [&] {
        if (preset == nullptr) return E_POINTER;
        const OwnerPresets::Presets presets = m_simulator->Presets().Of(TextOf(owner));
        const StoredPreset* const found = presets->Find(TextOf(name));
        if (found == nullptr) return HX_E_NOTFOUND;
        *preset = MakePreset(found->profile).detach();
        return S_OK;
    });
}

HRESULT CalibrationHandle::SaveDynamicSettingsPresets(BSTR owner, SAFEARRAY* names, SAFEARRAY* presets,
                                                      BSTR selected) {
    return m_gate.Perform(Op(L"SaveDynamicSettingsPresets"), {owner, names, presets, selected}, [&] {
        const std::wstring owner_name = TextOf(owner);
        PresetList list{PresetsOf(names, presets), TextOf(selected)};
        // Display names do not cross the interface: those that were stored stay, a new preset has its name.
        const OwnerPresets::Presets stored = m_simulator->Presets().Of(owner_name);
        for (StoredPreset& each : list.presets) {
            const StoredPreset* const before = stored->Find(each.profile.ProfileName);
            each.display_name = before ? before->display_name : each.profile.ProfileName;
        }
        m_simulator->Presets().Save(owner_name, list);
        return S_OK;
    });
}

HRESULT CalibrationHandle::CreateDynamicSettingsPreset(IDynamicSettingsPreset** preset) {
    if (preset) *preset = nullptr;
    return m_gate.Perform(Op(L"CreateDynamicSettingsPreset"), {}, [&] {
        if (preset == nullptr) return E_POINTER;
        const ScannerModel& model = m_simulator->Model();
        MLaserProfileSettings profile;
        for (const FactoryPreset& each : model.presets) {
            if (std::wstring_view(each.name) == kDefaultProfileName) profile = ProfileOf(model, each);
        }
        profile.ProfileName.clear();
        *preset = MakePreset(profile).detach();
        return S_OK;
    });
}

}  // namespace hx::simulator
