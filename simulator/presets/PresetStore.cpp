#include "simulator/presets/PresetStore.h"

#include <algorithm>
#include <unordered_set>

#include "simulator/presets/FactoryList.h"
#include "simulator/presets/OwnerFiles.h"
#include "simulator/presets/PresetFile.h"

namespace hx::simulator {
namespace {

bool HasPredefined(const PresetList& list) {
    return std::ranges::any_of(
        list.presets, [](const StoredPreset& preset) { return IsPredefined(preset.profile.ProfileName); });
}

// With the factory's presets that it lacks in front: the file's own word on one counts more. What is selected
// is in the list then.
PresetList WithFactorys(const ScannerModel& model, PresetList list) {
    PresetList whole = FactoryList(model);
    std::unordered_set<std::wstring_view> told;
    for (const StoredPreset& preset : list.presets) told.insert(preset.profile.ProfileName);
    std::erase_if(whole.presets,
                  [&](const StoredPreset& preset) { return told.contains(preset.profile.ProfileName); });
    std::ranges::move(list.presets, std::back_inserter(whole.presets));
    if (Contains(whole, list.selected)) whole.selected = std::move(list.selected);
    return whole;
}

bool NeedsMending(const StoredList& stored) {
    return stored.condition != StoredList::kAbsent &&
           (stored.condition != StoredList::kWhole || !HasPredefined(stored.list));
}

// The list that can be made of what is stored.
HRESULT Mend(const OwnerFiles& files, StoredList& stored, PresetList& list, PresetsOutcome& outcome,
             std::wstring& reason) {
    const bool is_unknown = stored.condition == StoredList::kPartly || stored.condition == StoredList::kNewer;
    PresetsOutcome found = PresetsOutcome::kUnknownVersion;
    PresetList mended = std::move(stored.list);
    if (!HasPredefined(mended)) {
        std::vector<StoredPreset> users;
        const HRESULT result = files.ReadArchived(users, reason);
        if (FAILED(result)) return result;
        if (!is_unknown) {
            found = users.empty() ? PresetsOutcome::kCustomGenerated : PresetsOutcome::kCustomRestored;
            if (users.empty()) users.push_back(CustomOf(files.Model()));
        }
        AddMissing(mended, std::move(users));
    }
    mended = WithFactorys(files.Model(), std::move(mended));
    // On disk first, told then: after a crash in between there is nothing left to tell, after one before it
    // is told by the next Load.
    const HRESULT result = files.Replace(stored, !stored.IsToldByList(), mended, reason);
    if (FAILED(result)) return result;
    list = std::move(mended);
    outcome = found;
    return S_OK;
}

// Users' presets of `old` that are not among the names.
bool LosesUsers(const PresetList& old, const std::unordered_set<std::wstring_view>& names) {
    return std::ranges::any_of(old.presets, [&](const StoredPreset& preset) {
        return IsUsers(preset.profile.ProfileName) && !names.contains(preset.profile.ProfileName);
    });
}

// The new list, but for its hidden presets, with those of the old one at the places where they were.
PresetList WithHiddenOf(std::vector<StoredPreset> old, const PresetList& list) {
    PresetList merged{{}, list.selected};
    merged.presets.reserve(old.size() + list.presets.size());
    auto next = list.presets.begin();
    const auto append_up_to = [&](size_t count) {
        for (; next != list.presets.end() && merged.presets.size() < count; ++next) {
            if (!IsHidden(next->profile.ProfileName)) merged.presets.push_back(*next);
        }
    };
    for (size_t i = 0; i < old.size(); ++i) {
        if (!IsHidden(old[i].profile.ProfileName)) continue;
        append_up_to(i);
        merged.presets.push_back(std::move(old[i]));
    }
    append_up_to(merged.presets.size() + list.presets.size());
    return merged;
}

}  // namespace

PresetStore::PresetStore(std::filesystem::path folder, const ScannerModel& model)
    : m_folder(std::move(folder)), m_model(model) {}

HRESULT PresetStore::Load(std::wstring_view owner, PresetList& list, PresetsOutcome& outcome,
                          std::wstring& reason) {
    list = {};
    outcome = PresetsOutcome::kNone;
    reason.clear();
    const OwnerFiles files(m_folder, owner, m_model);
    StoredList stored;
    HRESULT result = files.Read(stored, reason);
    std::optional<FileLock> lock;
    if (SUCCEEDED(result) && NeedsMending(stored)) {
        result = files.Lock(lock, reason);
        // Somebody else may have mended it, or saved another list, before it was locked.
        if (SUCCEEDED(result)) result = files.Read(stored, reason);
        if (SUCCEEDED(result) && NeedsMending(stored)) return Mend(files, stored, list, outcome, reason);
    }
    if (FAILED(result)) return result;
    list = stored.condition == StoredList::kAbsent ? FactoryList(m_model) : std::move(stored.list);
    return S_OK;
}

FileStamp PresetStore::Stamp(std::wstring_view owner) const {
    return StampOf(OwnerFiles::ListFile(m_folder, owner));
}

HRESULT PresetStore::Save(std::wstring_view owner, const PresetList& list, std::wstring& reason) {
    reason.clear();
    std::unordered_set<std::wstring_view> names;
    const auto refuse = [&](std::wstring_view name, const wchar_t* why) {
        reason.assign(name).append(L": ").append(why);
        return E_INVALIDARG;
    };
    for (const StoredPreset& preset : list.presets) {
        const std::wstring& name = preset.profile.ProfileName;
        if (IsHidden(name)) continue;
        if (const wchar_t* const why = WhyNotKept(preset)) return refuse(name, why);
        if (!names.insert(name).second) return refuse(name, L"two presets have this name");
    }
    if (!CanBeKept(list.selected)) return refuse(list.selected, L"the name is no text");
    if (!CanBeKept(owner)) return refuse(owner, L"the owner's name is no text");

    const OwnerFiles files(m_folder, owner, m_model);
    std::optional<FileLock> lock;
    HRESULT result = files.Lock(lock, reason);
    if (FAILED(result)) return result;
    StoredList stored;
    result = files.Read(stored, reason);
    if (FAILED(result)) return result;
    const bool keep = !stored.IsToldByList() || LosesUsers(stored.list, names);
    const bool has_list = stored.condition == StoredList::kWhole || stored.condition == StoredList::kPartly;
    PresetList old = has_list ? std::move(stored.list) : FactoryList(m_model);
    return files.Replace(stored, keep, WithHiddenOf(std::move(old.presets), list), reason);
}

HRESULT PresetStore::Reset(std::wstring_view owner, std::wstring& reason) {
    reason.clear();
    const OwnerFiles files(m_folder, owner, m_model);
    StoredList stored;
    HRESULT result = files.Read(stored, reason);
    // Nothing is made for an owner that was never seen.
    if (SUCCEEDED(result) && stored.condition == StoredList::kAbsent) return S_OK;
    reason.clear();
    std::optional<FileLock> lock;
    result = files.Lock(lock, reason);
    if (FAILED(result)) return result;
    result = files.Read(stored, reason);
    if (FAILED(result)) {
        reason.clear();
        result = files.SetAside(reason);
        if (FAILED(result)) return result;
        return files.Replace({}, false, FactoryList(m_model), reason);
    }
    const bool keep = !stored.IsToldByList() || LosesUsers(stored.list, {});
    return files.Replace(stored, keep, FactoryList(m_model), reason);
}

}  // namespace hx::simulator
