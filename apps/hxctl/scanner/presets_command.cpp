// hxctl scanner presets: what the scanner API has stored, changed as the pages change it.
#include <cmath>
#include <map>

#include "apps/hxctl/scanner/failed_call.h"
#include "apps/hxctl/scanner/presets_document.h"
#include "apps/hxctl/scanner/stored_presets.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

using hx::MLaserProfileSettings;

// The desk with an owner's presets on it.
struct Presets {
    Presets(Desk& a_desk, const PresetsRequest& request, Json& an_answer)
        : desk(a_desk),
          answer(an_answer),
          owner(request.owner.empty() ? a_desk.DeviceName() : BstrOf(request.owner)) {
        Load();
    }

    void Load() {
        std::string told;
        stored = LoadPresets(*handle, owner, told);
        if (!told.empty()) notice += told + "\n";
    }
    void Save() { SavePresets(*handle, owner, stored); }

    NamedPreset& Add(std::wstring_view name) {
        NamedPreset& added = stored.presets.emplace_back();
        added.name = hx::Bstr(name);
        CheckCall("CreateDynamicSettingsPreset", handle->CreateDynamicSettingsPreset(added.preset.put()),
                  handle);
        return added;
    }

    Desk& desk;
    Json& answer;
    const hx::Bstr owner;
    const hx::ComPtr<ICalibrationHandle> handle = desk.Handle();
    StoredPresets stored;
    std::string notice;  // what the operator is to be told, a line each
};

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

std::string ListPresets(Presets& presets, const PresetsRequest&) {
    presets.answer["selected"] = TextOf(presets.stored.selected);
    Json& list = presets.answer["presets"] = Json::array();
    std::string text;
    for (const NamedPreset& each : presets.stored.presets) {
        MLaserProfileSettings profile = ProfileOf(each);
        const bool selected = each.name.view() == presets.stored.selected.view();
        text += selected ? "* " : "  ";
        text += TextOf(each.name);
        if (each.display_name.view() != each.name.view()) text += " (" + TextOf(each.display_name) + ")";
        text += ": laser power " + std::to_string(std::lround(profile.LaserPower)) + " %, exposure " +
                std::to_string(std::lround(profile.ExposureTime)) + " us, gain " +
                std::to_string(profile.Gain) + "\n";
        Json entry = {{"name", TextOf(each.name)}, {"displayName", TextOf(each.display_name)}};
        entry["values"] = FieldsOf(MLaserProfileSettings::kType, &profile);
        list.push_back(std::move(entry));
    }
    return text;
}

std::string SavePreset(Presets& presets, const PresetsRequest& request) {
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
    return (is_new ? "Saved: " : "Replaced: ") + request.name + "\n";
}

std::string DeletePreset(Presets& presets, const PresetsRequest& request) {
    const hx::Bstr name = BstrOf(request.name);
    if (presets.stored.Find(name.view()) == nullptr) throw FailedCall("no preset \"" + request.name + "\"");
    if (!IsUsersOwn(name.view())) {
        throw FailedCall("\"" + request.name + "\" is a predefined preset and cannot be deleted");
    }
    std::erase_if(presets.stored.presets,
                  [&](const NamedPreset& each) { return each.name.view() == name.view(); });
    if (presets.stored.selected.view() == name.view()) presets.stored.selected = hx::Bstr(L"$DEFAULT");
    presets.Save();
    return "Deleted: " + request.name + "\n";
}

std::string ExportPresets(Presets& presets, const PresetsRequest& request) {
    std::vector<MLaserProfileSettings> profiles;
    for (const NamedPreset& each : presets.stored.presets) {
        if (IsUsersOwn(each.name.view())) profiles.push_back(ProfileOf(each));
    }
    if (profiles.empty()) throw FailedCall("there are no presets of the user's own");
    std::string document = PresetsDocument(profiles);
    presets.answer["exported"] = profiles.size();
    if (request.file == "-") return document;
    if (const hx::FileError error = hx::WriteFileAtomically(request.file, document)) {
        throw FailedCall(request.file + ": " + error.code.message());
    }
    return "Exported: " + std::to_string(profiles.size()) + "\n";
}

std::string ImportPresets(Presets& presets, const PresetsRequest& request) {
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
    presets.answer["imported"] = profiles.size();
    return "Imported: " + std::to_string(profiles.size()) + "\n";
}

std::string ResetPresets(Presets& presets, const PresetsRequest& request) {
    CheckCall("ResetPresets", presets.desk.Simulator().ResetPresets(presets.owner.get()));
    presets.Load();
    return ListPresets(presets, request);
}

// In the order of PresetsAction.
constexpr std::string (*kActions[])(Presets& presets, const PresetsRequest& request) = {
    &ListPresets, &SavePreset, &DeletePreset, &ExportPresets, &ImportPresets, &ResetPresets};

}  // namespace

Outcome RunScannerPresets(PresetsAction action, const PresetsRequest& request, bool json) {
    return AtDesk(request.scanner, json, [&](Desk& desk, Json& answer) {
        Presets presets(desk, request, answer);
        answer["owner"] = TextOf(presets.owner);
        std::string text = kActions[static_cast<size_t>(action)](presets, request);
        if (!presets.notice.empty()) answer["notice"] = presets.notice;
        return presets.notice + text;
    });
}

}  // namespace hxctl
