#include "apps/hxhost/LogList.h"

#include <algorithm>

#include "platform/ui/renderer.h"

namespace hxhost {

void LogList::Append(const std::vector<std::wstring>& lines, const Repeated& repeated) {
    constexpr int32_t kMargin = 12;
    if (lines.empty()) return;
    const bool follows = Selected() < 0 || Selected() == Count() - 1;
    const hx::ui::RedrawSuspended suspended(*this);
    for (const std::wstring& line : lines) {
        std::wstring shown = line;
        if (Count() > 0 && line == m_last) {
            shown = repeated(line, ++m_count);
            Remove(Count() - 1);
        } else {
            m_last = line;
            m_count = 1;
        }
        if (Count() == kMostLines) Remove(0);
        const int32_t width = hx::ui::CurrentRenderer()->TextExtent(shown).width + kMargin;
        SetHorizontalExtent(std::max(HorizontalExtent(), width));
        Insert(Count(), std::move(shown));
    }
    if (follows) Select(Count() - 1);
}

}  // namespace hxhost
