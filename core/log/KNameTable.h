// Gives names small numbers, so that an event stores numbers alone. Guarded by the event store's lock.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace hx {

using KNameNumber = uint16_t;
// The event has no such part; it has one whose name nobody knows; there were more names than a table takes.
inline constexpr KNameNumber kNoName = 0xFFFF;
inline constexpr KNameNumber kUnknownName = 0xFFFE;
inline constexpr KNameNumber kNameBeyondTable = 0xFFFD;

// Name: what a name is kept as. View: what it is looked up by.
template <class Name, class View = Name>
class KNameTable {
public:
    static constexpr size_t kCapacity = 4096;

    // The number of the name, which is entered unless it is there; kNameBeyondTable when the table is full.
    // Throws std::bad_alloc.
    KNameNumber Number(View name) {
        const auto found = m_numbers.find(name);
        if (found != m_numbers.end()) return found->second;
        if (m_names.size() == kCapacity) return kNameBeyondTable;
        const auto number = static_cast<KNameNumber>(m_names.size());
        m_names.push_back(nullptr);
        m_names.back() = &m_numbers.emplace(name, number).first->first;
        return number;
    }

    // Null for a number that was never given.
    const Name* Find(KNameNumber number) const { return number < m_names.size() ? m_names[number] : nullptr; }

private:
    struct Hash {
        using is_transparent = void;
        size_t operator()(View name) const { return std::hash<View>()(name); }
    };

    std::unordered_map<Name, KNameNumber, Hash, std::equal_to<>> m_numbers;  // its keys stay where they are
    std::vector<const Name*> m_names;                                        // by number
};

using KTextTable = KNameTable<std::string, std::string_view>;
using KWideTextTable = KNameTable<std::wstring, std::wstring_view>;
using KAddressTable = KNameTable<uint64_t>;
using KNumberTable = KNameTable<uint32_t>;

}  // namespace hx
