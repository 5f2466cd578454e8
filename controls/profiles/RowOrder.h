// The order of profiles in the list: predefined ones first, then the operator's own, each by display name
// without regard to case, in no language. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace hx {

class RowOrder {
public:
    RowOrder(bool user_defined, std::wstring_view display_name);

    bool operator<(const RowOrder& other) const;

private:
    bool m_user_defined;
    std::wstring m_folded;  // once, not at each comparison
};

}  // namespace hx
