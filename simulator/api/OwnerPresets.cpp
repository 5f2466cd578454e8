#include "simulator/api/OwnerPresets.h"

#include "platform/system/folders.h"
#include "platform/system/utf8.h"
#include "simulator/calls/Gate.h"

namespace hx::simulator {
namespace {

void Require(HRESULT result, const std::wstring& reason) {
    if (FAILED(result)) throw Refusal{result, reason};
}

std::wstring UsualFolder() {
    std::wstring folder;
    Require(FindSpecialFolder(SpecialFolder::kAllUsersData, folder),
            L"There is no folder for the data of all users.");
    if (!EndsWithSeparator(folder)) folder += kPathSeparator;
    return folder + L"Orvel/HXSimulator/Presets";
}

}  // namespace

PresetsByName::PresetsByName(PresetList list) : m_list(std::move(list)) {
    m_by_name.reserve(m_list.presets.size());
    for (const StoredPreset& each : m_list.presets) m_by_name.emplace(each.profile.ProfileName, &each);
}

const StoredPreset* PresetsByName::Find(std::wstring_view name) const {
    const auto found = m_by_name.find(name);
    return found != m_by_name.end() ? found->second : nullptr;
}

void OwnerPresets::SetModel(const ScannerModel& model) {
    const std::lock_guard guard(m_mutex);
    m_model = &model;
    Forget();
}

void OwnerPresets::SetFolder(std::wstring folder) {
    const std::lock_guard guard(m_mutex);
    m_folder.swap(folder);
    Forget();
}

OwnerPresets::Presets OwnerPresets::Of(const std::wstring& owner) {
    const std::lock_guard guard(m_mutex);
    const auto known = m_known.find(owner);
    const bool holds = known != m_known.end() && known->second.stamp == Store().Stamp(owner);
    return holds ? known->second.presets : Load(owner);
}

std::pair<OwnerPresets::Presets, PresetsOutcome> OwnerPresets::Enumerate(const std::wstring& owner) {
    const std::lock_guard guard(m_mutex);
    Presets presets = Load(owner);
    PresetsOutcome outcome = PresetsOutcome::kNone;
    if (const auto untold = m_untold.extract(Place(Folder(), owner))) outcome = untold.mapped();
    return {std::move(presets), outcome};
}

void OwnerPresets::Save(const std::wstring& owner, const PresetList& list) {
    const std::lock_guard guard(m_mutex);
    m_known.erase(owner);
    std::wstring reason;
    const HRESULT result = Store().Save(owner, list, reason);
    Require(result, reason);
}

void OwnerPresets::Reset(const std::wstring& owner) {
    const std::lock_guard guard(m_mutex);
    m_known.erase(owner);
    std::wstring reason;
    const HRESULT result = Store().Reset(owner, reason);
    Require(result, reason);
}

std::wstring OwnerPresets::Folder() const {
    return m_folder.empty() ? UsualFolder() : m_folder;
}

PresetStore& OwnerPresets::Store() {
    if (!m_store) m_store = std::make_unique<PresetStore>(ToUtf8(Folder()), *m_model);
    return *m_store;
}

void OwnerPresets::Forget() {
    m_store.reset();
    m_known.clear();
}

OwnerPresets::Presets OwnerPresets::Load(const std::wstring& owner) {
    m_known.erase(owner);
    PresetList list;
    PresetsOutcome outcome = PresetsOutcome::kNone;
    std::wstring reason;
    const FileStamp stamp = Store().Stamp(owner);
    const HRESULT result = Store().Load(owner, list, outcome, reason);
    Require(result, reason);
    // Whoever reads first need not be the one who is told.
    if (outcome != PresetsOutcome::kNone) m_untold[{Folder(), owner}] = outcome;
    auto presets = std::make_shared<const PresetsByName>(std::move(list));
    m_known[owner] = {presets, stamp};
    return presets;
}

}  // namespace hx::simulator
