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
    uint64_t number = 0;  // given by the list, and kept wherever the entry moves; numbers rise along the list
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
    // The entries of each name, by their numbers.
    class Index {
    public:
        void Add(std::wstring key, uint64_t number);
        void Remove(const std::wstring& key, uint64_t number);
        // Null for none.
        const uint64_t* First(const std::wstring& key) const;
        void Clear() { m_numbers.clear(); }

    private:
        std::unordered_map<std::wstring, std::vector<uint64_t>> m_numbers;
    };

    const PresetEntry* Find(const Index& index, const std::wstring& key) const;
    PresetEntry* Exact(std::wstring_view name);
    void Enter(const PresetEntry& entry);
    void Leave(const PresetEntry& entry);

    std::vector<PresetEntry> m_entries;
    uint64_t m_next_number = 0;
    Index m_exact;
    Index m_folded;
};

}  // namespace hx
