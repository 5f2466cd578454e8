// The newest lines of the log, the last one at the bottom. It follows them until somebody selects another
// row than the last. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/ui/list_box.h"

namespace hxhost {

class LogList final : public hx::ui::ListBox {
public:
    // How a line that came several times is shown.
    using Repeated = std::function<std::wstring(const std::wstring& line, int32_t count)>;

    static constexpr int32_t kMostLines = 500;

    // A line that is the last one already is counted there.
    void Append(const std::vector<std::wstring>& lines, const Repeated& repeated);

private:
    std::wstring m_last;
    int32_t m_count = 0;
};

}  // namespace hxhost
