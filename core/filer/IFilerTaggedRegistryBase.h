// What the filers of the registry share: a group is a key, a value is a value of the same name. Nothing is
// opened until a value is read or written. One thread at a time.
//
// The key of the current level is root \ "Software" \ company key \ base path \ groups; in the 32-bit view of
// any root but the current user's, "Software\Wow6432Node" stands in place of "Software".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/registry/registry.h"

namespace hx {

class IFilerTaggedRegistryBase {
public:
    static constexpr std::wstring_view kCompanyKey = L"Orvel";

    void SetRoot(RegistryRoot root) { m_root = root; }
    // What the registry answered to the last read or write of a value. kDone, though the read was false: the
    // value is of another type.
    RegistryResult LastResult() const { return m_last_result; }

protected:
    IFilerTaggedRegistryBase(std::wstring_view base_path, bool view_32_bit)
        : m_base_path(base_path), m_view_32_bit(view_32_bit) {}
    ~IFilerTaggedRegistryBase() = default;

    bool IsDone(RegistryResult result) {
        m_last_result = result;
        return result == RegistryResult::kDone;
    }
    RegistryRoot Root() const { return m_root; }
    std::wstring KeyPath(std::wstring_view company_key) const;
    void PushGroup(std::wstring_view name) { m_groups.emplace_back(name); }
    // Leaving more groups than were entered changes nothing.
    void PopGroup() {
        if (!m_groups.empty()) m_groups.pop_back();
    }

private:
    RegistryRoot m_root = RegistryRoot::kCurrentUser;
    RegistryResult m_last_result = RegistryResult::kDone;
    std::wstring m_base_path;
    bool m_view_32_bit;
    std::vector<std::wstring> m_groups;
};

}  // namespace hx
