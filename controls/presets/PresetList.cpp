#include "controls/presets/PresetList.h"

#include <algorithm>

#include "platform/system/case_fold.h"

namespace hx {

void PresetList::Index::Add(std::wstring key, uint64_t number) {
    std::vector<uint64_t>& numbers = m_numbers[std::move(key)];
    numbers.insert(std::ranges::lower_bound(numbers, number), number);
}

void PresetList::Index::Remove(const std::wstring& key, uint64_t number) {
    const auto found = m_numbers.find(key);
    if (found == m_numbers.end()) return;
    std::erase(found->second, number);
    if (found->second.empty()) m_numbers.erase(found);
}

const uint64_t* PresetList::Index::First(const std::wstring& key) const {
    const auto found = m_numbers.find(key);
    return found != m_numbers.end() && !found->second.empty() ? &found->second.front() : nullptr;
}

void PresetList::Enter(const PresetEntry& entry) {
    if (entry.flag == 0) m_exact.Add(entry.name, entry.number);
    m_folded.Add(FoldCase(entry.name), entry.number);
}

void PresetList::Leave(const PresetEntry& entry) {
    m_exact.Remove(entry.name, entry.number);
    m_folded.Remove(FoldCase(entry.name), entry.number);
}

const PresetEntry* PresetList::Find(const Index& index, const std::wstring& key) const {
    const uint64_t* const number = index.First(key);
    if (number == nullptr) return nullptr;
    return &*std::ranges::lower_bound(m_entries, *number, {}, &PresetEntry::number);
}

const PresetEntry* PresetList::FindExact(std::wstring_view name) const {
    return Find(m_exact, std::wstring(name));
}

const PresetEntry* PresetList::FindWithoutCase(std::wstring_view name) const {
    return Find(m_folded, FoldCase(name));
}

PresetEntry* PresetList::Exact(std::wstring_view name) {
    const PresetEntry* const entry = FindExact(name);
    return entry != nullptr ? &m_entries[static_cast<size_t>(entry - m_entries.data())] : nullptr;
}

void PresetList::Clear() {
    m_exact.Clear();
    m_folded.Clear();
    m_entries.clear();
}

void PresetList::Append(PresetEntry entry) {
    entry.number = m_next_number++;
    m_entries.push_back(std::move(entry));
    Enter(m_entries.back());
}

bool PresetList::Remove(std::wstring_view name) {
    const PresetEntry* const entry = FindExact(name);
    if (entry == nullptr) return false;
    Leave(*entry);
    m_entries.erase(m_entries.begin() + (entry - m_entries.data()));
    return true;
}

bool PresetList::Rename(std::wstring_view name, std::wstring_view new_name) {
    PresetEntry* const entry = Exact(name);
    if (entry == nullptr) return false;
    Leave(*entry);
    entry->name = new_name;
    entry->display_name = new_name;
    Enter(*entry);
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
