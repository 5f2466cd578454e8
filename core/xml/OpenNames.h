// How many open elements bear each name. The indexer asks it whether a stray end tag belongs to an outer
// element.
#pragma once

#include <cstdint>
#include <cwctype>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace hx {

class OpenNames {
public:
    explicit OpenNames(bool ignore_case) : m_ignore_case(ignore_case) {}

    void Add(std::wstring_view name) { ++m_counts[Key(name)]; }

    void Remove(std::wstring_view name) {
        const auto found = m_counts.find(Key(name));
        if (--found->second == 0) m_counts.erase(found);
    }

    bool Contains(std::wstring_view name) const { return m_counts.contains(Key(name)); }

private:
    std::wstring Key(std::wstring_view name) const {
        std::wstring key(name);
        if (m_ignore_case) {
            for (wchar_t& c : key) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
        }
        return key;
    }

    const bool m_ignore_case;
    std::unordered_map<std::wstring, uint32_t> m_counts;
};

}  // namespace hx
