// Presets in their order, with two ways to find one by its name, neither of which walks the list. Of entries
// of the same name the first is found. One thread at a time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hxapi/IDynamicSettingsPreset.h"
#include "platform/com/comptr.h"

namespace hx {

struct PresetEntry {
    std::wstring name;          // as the scanner API knows it
    std::wstring display_name;  // as the operator sees it
    uint8_t flag = 0;           // an entry with another value is not found by its exact name
    ComPtr<IDynamicSettingsPreset> preset;
};

class PresetList {
public:
    const std::vector<PresetEntry>& Entries() const { return m_entries; }

    // Null if there is none. Good until the list changes.
    const PresetEntry* FindExact(std::wstring_view name) const;
    const PresetEntry* FindWithoutCase(std::wstring_view name) const;

    void Clear();
    void Append(PresetEntry entry);
    // Of the entry of that exact name; false if there is none.
    bool Remove(std::wstring_view name);
    bool Rename(std::wstring_view name, std::wstring_view new_name);
    bool SetDisplayName(std::wstring_view name, std::wstring_view display_name);
    bool SetPreset(std::wstring_view name, ComPtr<IDynamicSettingsPreset> preset);

private:
    using Positions = std::unordered_map<std::wstring, size_t>;

    PresetEntry* Exact(std::wstring_view name);
    const PresetEntry* Find(const Positions& positions, const std::wstring& key) const;
    void Index() const;
    void Enter(size_t position) const;

    std::vector<PresetEntry> m_entries;
    // The first entry of each name. Made when a name is looked for after the names have moved.
    mutable bool m_indexed = false;
    mutable Positions m_exact;
    mutable Positions m_folded;
};

}  // namespace hx
