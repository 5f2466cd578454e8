#include "controls/profiles/RowOrder.h"

#include "platform/system/case_fold.h"

namespace hx {

RowOrder::RowOrder(bool user_defined, std::wstring_view display_name)
    : m_user_defined(user_defined), m_folded(FoldCase(display_name)) {}

bool RowOrder::operator<(const RowOrder& other) const {
    if (m_user_defined != other.m_user_defined) return other.m_user_defined;
    return m_folded < other.m_folded;
}

}  // namespace hx
