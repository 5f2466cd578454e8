// hxctl scanner presets: what the scanner API has stored, changed as the pages change it.
#include <charconv>
#include <iterator>
#include <map>

#include "apps/hxctl/scanner/failed_call.h"
#include "apps/hxctl/scanner/presets_document.h"
#include "apps/hxctl/scanner/stored_presets.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"
#include "settings/profile/ProfileNames.h"

namespace hxctl {
namespace {

using hx::MLaserProfileSettings;

// The desk with an owner's presets on it.
struct Presets {
    Presets(Desk& a_desk, const PresetsRequest& request, DeskAnswer& an_answer)
        : desk(a_desk),
          answer(an_answer),
          owner(request.owner.empty() ? a_desk.DeviceName() : BstrOf(request.owner)) {}

    void Load() { stored = LoadPresets(desk, *handle, owner); }
    void Save() { SavePresets(*handle, owner, stored); }
    bool Has(std::wstring_view name) const { return stored.Find(name) != nullptr; }

    NamedPreset& Add(std::wstring_view name) {
        NamedPreset& added = stored.presets.emplace_back();
        added.name = hx::Bstr(name);
        CheckCall("CreateDynamicSettingsPreset", handle->CreateDynamicSettingsPreset(added.preset.put()),
                  handle);
        return added;
    }

    Desk& desk;
    DeskAnswer& answer;
    const hx::Bstr owner;
    const hx::ComPtr<ICalibrationHandle> handle = desk.Handle();
    StoredPresets stored;
};

// The shortest that is exactly this number.
std::string NumberText(double value) {
    char text[32];
    return {text, std::to_chars(std::begin(text), std::end(text), value).ptr};
}

bool IsUsersOwn(std::wstring_view name) {
    return !name.starts_with(L'$') && !name.starts_with(L'@');
}

// A name that only the system gives is refused in the library's own words.
void CheckUsersName(const std::wstring& name) {
    try {
        MLaserProfileSettings().ValidateProfileName(name);
    } catch (const hx::MException& exception) {
        throw FailedCall(MessageOf(exception));
    }
}

void ListPresets(Presets& presets, const PresetsRequest&) {
    presets.Load();
    presets.answer.json["selected"] = TextOf(presets.stored.selected);
    Json& list = presets.answer.json["presets"] = Json::array();
    std::string& text = presets.answer.text;
    for (const NamedPreset& each : presets.stored.presets) {
        MLaserProfileSettings profile = ProfileOf(each);
        const bool selected = each.name.view() == presets.stored.selected.view();
        text += selected ? "* " : "  ";
        text += TextOf(each.name);
        if (each.display_name.view() != each.name.view()) text += " (" + TextOf(each.display_name) + ")";
        text += ": laser power " + NumberText(profile.LaserPower) + " %, exposure " +
                NumberText(profile.ExposureTime) + " us, gain " + std::to_string(profile.Gain) + "\n";
        Json entry = {{"name", TextOf(each.name)}, {"displayName", TextOf(each.display_name)}};
        entry["values"] = FieldsOf(MLaserProfileSettings::kType, &profile);
        list.push_back(std::move(entry));
    }
}

void SavePreset(Presets& presets, const PresetsRequest& request) {
    presets.Load();
    const hx::Bstr name = BstrOf(request.name);
    CheckUsersName(std::wstring(name.view()));
    MLaserProfileSettings profile;
    const NamedPreset* from = presets.stored.Find(name.view());
    const bool is_new = from == nullptr;
    if (!request.from.empty()) {
        from = presets.stored.Find(BstrOf(request.from).view());
        if (from == nullptr) throw FailedCall("no preset \"" + request.from + "\"");
    }
    if (from != nullptr) profile = ProfileOf(*from);
    if (is_new) {
        const NamedPreset& added = presets.Add(name.view());
        if (from == nullptr) profile = ProfileOf(added);
    }
    profile.ProfileName = name.view();
    if (request.exposure_us) profile.ExposureTime = *request.exposure_us;
    if (request.laser_power_percent) profile.LaserPower = *request.laser_power_percent;
    SetValues(*presets.stored.Find(name.view())->preset, profile);
    if (request.select) presets.stored.selected = name;
    presets.Save();
    presets.answer.json["saved"] = request.name;
    presets.answer.text = (is_new ? "Saved: " : "Replaced: ") + request.name + "\n";
}

void DeletePreset(Presets& presets, const PresetsRequest& request) {
    presets.Load();
    const hx::Bstr name = BstrOf(request.name);
    if (presets.stored.Find(name.view()) == nullptr) throw FailedCall("no preset \"" + request.name + "\"");
    if (!IsUsersOwn(name.view())) {
        throw FailedCall("\"" + request.name + "\" is a predefined preset and cannot be deleted");
    }
    std::erase_if(presets.stored.presets,
                  [&](const NamedPreset& each) { return each.name.view() == name.view(); });
    if (presets.stored.selected.view() == name.view()) {
        presets.stored.selected =
            hx::Bstr(presets.Has(hx::kDefaultProfileName) ? hx::kDefaultProfileName : L"");
    }
    presets.Save();
    presets.answer.json["deleted"] = request.name;
    presets.answer.text = "Deleted: " + request.name + "\n";
}

void ExportPresets(Presets& presets, const PresetsRequest& request) {
    presets.Load();
    std::vector<MLaserProfileSettings> profiles;
    for (const NamedPreset& each : presets.stored.presets) {
        if (IsUsersOwn(each.name.view())) profiles.push_back(ProfileOf(each));
    }
    if (profiles.empty()) throw FailedCall("there are no presets of the user's own");
    std::string document = PresetsDocument(profiles);
    presets.answer.json["exported"] = profiles.size();
    if (request.file == "-") {
        presets.answer.json["document"] = document;
        presets.answer.text = std::move(document);
        presets.answer.is_document = true;
        return;
    }
    if (const hx::FileError error = hx::WriteFileAtomically(request.file, document)) {
        throw FailedCall(request.file + ": " + error.code.message());
    }
    presets.answer.text = "Exported: " + std::to_string(profiles.size()) + "\n";
}

void ImportPresets(Presets& presets, const PresetsRequest& request) {
    presets.Load();
    std::string reason;
    auto text = ReadTextFile(request.file, reason);
    if (!text) throw FailedCall(reason);
    const std::vector<MLaserProfileSettings> profiles = ReadPresetsDocument(std::move(*text));
    std::map<std::wstring, size_t> places;
    for (const NamedPreset& each : presets.stored.presets) {
        places.emplace(std::wstring(each.name.view()), places.size());
    }
    for (const MLaserProfileSettings& profile : profiles) {
        CheckUsersName(profile.ProfileName);
        const auto there = places.find(profile.ProfileName);
        const NamedPreset& preset =
            there != places.end() ? presets.stored.presets[there->second] : presets.Add(profile.ProfileName);
        SetValues(*preset.preset, profile);
    }
    presets.Save();
    presets.answer.json["imported"] = profiles.size();
    presets.answer.text = "Imported: " + std::to_string(profiles.size()) + "\n";
}

void ResetPresets(Presets& presets, const PresetsRequest& request) {
    CheckCall("ResetPresets", presets.desk.Simulator().ResetPresets(presets.owner.get()));
    ListPresets(presets, request);
}

// In the order of PresetsAction.
constexpr void (*kActions[])(Presets& presets, const PresetsRequest& request) = {
    &ListPresets, &SavePreset, &DeletePreset, &ExportPresets, &ImportPresets, &ResetPresets};

}  // namespace

Outcome RunScannerPresets(PresetsAction action, const PresetsRequest& request, bool json) {
    return AtDesk(request.scanner, json, [&](Desk& desk, DeskAnswer& answer) {
        Presets presets(desk, request, answer);
        answer.json["owner"] = TextOf(presets.owner);
        kActions[static_cast<size_t>(action)](presets, request);
    });
}

}  // namespace hxctl
