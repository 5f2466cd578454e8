#include "controls/presets/PresetList.h"

#include "platform/system/case_fold.h"

namespace hx {

void PresetList::Enter(size_t position) const {
    const PresetEntry& entry = m_entries[position];
    if (entry.flag == 0) m_exact.try_emplace(entry.name, position);
    m_folded.try_emplace(FoldCase(entry.name), position);
}

void PresetList::Index() const {
    if (m_indexed) return;
    m_exact.clear();
    m_folded.clear();
    for (size_t position = 0; position < m_entries.size(); ++position) Enter(position);
    m_indexed = true;
}

const PresetEntry* PresetList::Find(const Positions& positions, const std::wstring& key) const {
    const auto found = positions.find(key);
    return found != positions.end() ? &m_entries[found->second] : nullptr;
}

const PresetEntry* PresetList::FindExact(std::wstring_view name) const {
    Index();
    return Find(m_exact, std::wstring(name));
}

const PresetEntry* PresetList::FindWithoutCase(std::wstring_view name) const {
    Index();
    return Find(m_folded, FoldCase(name));
}

PresetEntry* PresetList::Exact(std::wstring_view name) {
    const PresetEntry* const entry = FindExact(name);
    return entry != nullptr ? &m_entries[static_cast<size_t>(entry - m_entries.data())] : nullptr;
}

void PresetList::Clear() {
    m_indexed = false;
    m_entries.clear();
}

void PresetList::Append(PresetEntry entry) {
    m_entries.push_back(std::move(entry));
    if (!m_indexed) return;
    m_indexed = false;  // unless the entry gets in
    Enter(m_entries.size() - 1);
    m_indexed = true;
}

bool PresetList::Remove(std::wstring_view name) {
    const PresetEntry* const entry = FindExact(name);
    if (entry == nullptr) return false;
    m_indexed = false;
    m_entries.erase(m_entries.begin() + (entry - m_entries.data()));
    return true;
}

bool PresetList::Rename(std::wstring_view name, std::wstring_view new_name) {
    PresetEntry* const entry = Exact(name);
    if (entry == nullptr) return false;
    std::wstring display_name(new_name);
    m_indexed = false;
    entry->name = new_name;
    entry->display_name = std::move(display_name);
    return true;
}

bool PresetList::SetDisplayName(std::wstring_view name, std::wstring_view display_name) {
    PresetEntry* const entry = Exact(name);
    if (entry != nullptr) entry->display_name = display_name;
    return entry != nullptr;
}

bool PresetList::SetPreset(std::wstring_view name, ComPtr<IDynamicSettingsPreset> preset) {
    PresetEntry* const entry = Exact(name);
    if (entry != nullptr) entry->preset = std::move(preset);
    return entry != nullptr;
}

}  // namespace hx
