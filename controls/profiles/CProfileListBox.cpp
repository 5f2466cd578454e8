#include "controls/profiles/CProfileListBox.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "controls/presets/MDynamicSettingsPresets.h"
#include "platform/system/case_fold.h"
#include "settings/profile/ProfileNames.h"

namespace hx {
namespace {

// Until something wider is drawn.
constexpr int32_t kFirstExtent = 1000;

}  // namespace

CProfileListBox::Entry::Entry(const std::wstring& name, std::wstring display, bool user_defined)
    : row{name, user_defined ? 1u : 0u, false},
      display_name(std::move(display)),
      folded_name(FoldCase(name)),
      order(user_defined, display_name) {}

std::vector<CProfileListBox::Entry> CProfileListBox::MakeEntries() {
    const MDynamicSettingsPresets& presets = MDynamicSettingsPresets::GetInstance();
    std::vector<Entry> entries;
    entries.reserve(presets.Count());
    for (size_t i = 0; i < presets.Count(); ++i) {
        const PresetEntry& preset = presets.At(i);
        entries.emplace_back(preset.name, preset.display_name, !presets.IsReserved(preset.name));
    }
    std::ranges::stable_sort(entries, std::less(), &Entry::order);
    return entries;
}

// Names that differ in their case alone are possible: the exact one is meant if it is there.
int32_t CProfileListBox::Find(const std::vector<Entry>& entries, std::wstring_view name) {
    const std::wstring folded = FoldCase(name);
    int32_t found = -1;
    for (size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].folded_name != folded) continue;
        if (entries[i].row.name == name) return static_cast<int32_t>(i);
        if (found < 0) found = static_cast<int32_t>(i);
    }
    return found;
}

void CProfileListBox::Refill() {
    const ui::RedrawSuspended suspended(*this);
    ClearRows();
    std::vector<Entry> entries = MakeEntries();
    int32_t selected = -1;
    if (m_handler != nullptr) {
        selected = Find(entries, m_handler->GetCurrentPresetName());
        if (selected >= 0) entries[static_cast<size_t>(selected)].row.modified = m_handler->IsModified();
    }
    if (selected < 0) selected = Find(entries, kCustomProfileName);
    for (const Entry& entry : entries) Insert(Count(), entry.Text());
    m_entries = std::move(entries);
    Select(std::max(selected, 0));
    SetHorizontalExtent(kFirstExtent);
}

int32_t CProfileListBox::FindByName(std::wstring_view name) const {
    return Find(m_entries, name);
}

int32_t CProfileListBox::SelectByName(std::wstring_view name) {
    const int32_t index = FindByName(name);
    if (index >= 0) Select(index);
    return index;
}

const CProfileListBox::Entry* CProfileListBox::EntryAt(int32_t index) const {
    const auto place = static_cast<size_t>(index);
    return index >= 0 && place < m_entries.size() ? &m_entries[place] : nullptr;
}

std::wstring CProfileListBox::SelectedName() const {
    const Entry* const entry = EntryAt(Selected());
    return entry != nullptr ? entry->row.name : std::wstring();
}

const ProfileRow& CProfileListBox::Row(int32_t index) const {
    return m_entries.at(static_cast<size_t>(index)).row;
}

ui::RowFacts CProfileListBox::FactsOf(int32_t index) const {
    const ProfileRow& row = Row(index);
    return {row.name, row.user_defined != 0, row.modified};
}

bool CProfileListBox::IsModified(std::wstring_view name) const {
    const Entry* const entry = EntryAt(FindByName(name));
    return entry != nullptr && entry->row.modified;
}

void CProfileListBox::MarkModified(int32_t index, bool modified) {
    if (EntryAt(index) == nullptr) return;
    const auto old_place = m_entries.begin() + index;
    old_place->row.modified = modified;
    std::wstring text = old_place->Text();
    {
        const ui::RedrawSuspended suspended(*this);
        Remove(index);
        // Behind those that sort alike, itself among them.
        const auto behind = std::ranges::upper_bound(m_entries, old_place->order, std::less(), &Entry::order);
        index = static_cast<int32_t>(behind - m_entries.begin()) - 1;
        std::rotate(old_place, old_place + 1, behind);
        Insert(index, std::move(text));
        Select(index);
    }
    Invalidate(true);
}

void CProfileListBox::MarkModified(std::wstring_view name, bool modified) {
    MarkModified(FindByName(name), modified);
}

void CProfileListBox::ClearRows() {
    m_entries.clear();
    m_widest_text = 0;
    Clear();
}

void CProfileListBox::Detach() {
    m_entries.clear();
    ListBox::Detach();
}

}  // namespace hx
