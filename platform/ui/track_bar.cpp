#include <algorithm>
#include <limits>

#include "platform/ui/codes.h"
#include "platform/ui/controls.h"
#include "platform/ui/dialog.h"

namespace hx::ui {
namespace {

constexpr int32_t kDefaultMaximum = 100;
constexpr int32_t kPagesOfRange = 5;

int32_t Clamped(int64_t value, int32_t minimum, int32_t maximum) {
    return static_cast<int32_t>(std::clamp<int64_t>(value, minimum, maximum));
}

struct KeyCode {
    uint32_t key;
    uint32_t code;
};
constexpr KeyCode kKeyCodes[] = {
    {VK_LEFT, TB_LINEUP},  {VK_UP, TB_LINEUP},     {VK_RIGHT, TB_LINEDOWN}, {VK_DOWN, TB_LINEDOWN},
    {VK_PRIOR, TB_PAGEUP}, {VK_NEXT, TB_PAGEDOWN}, {VK_HOME, TB_TOP},       {VK_END, TB_BOTTOM},
};

}  // namespace

void TrackBar::OnAttached(const DialogControl& /*line*/) {
    m_minimum = 0;
    m_page_size_set = false;
    m_line_size = 1;
    m_position = 0;
    SetRange(0, kDefaultMaximum);
}

bool TrackBar::IsVertical() const {
    return (Style() & TBS_VERT) != 0;
}

void TrackBar::SetRange(int32_t minimum, int32_t maximum) {
    m_minimum = minimum;
    m_maximum = std::max(minimum, maximum);
    m_position = std::clamp(m_position, m_minimum, m_maximum);
    const int64_t page = (int64_t{m_maximum} - m_minimum) / kPagesOfRange;
    if (!m_page_size_set) m_page_size = Clamped(page, 1, std::numeric_limits<int32_t>::max());
    Changed(ControlChange::range);
}

void TrackBar::SetPageSize(int32_t size) {
    m_page_size = std::max(size, 0);
    m_page_size_set = true;
    Changed(ControlChange::range);
}

void TrackBar::SetLineSize(int32_t size) {
    m_line_size = std::max(size, 0);
    Changed(ControlChange::range);
}

void TrackBar::SetPosition(int32_t position) {
    const int32_t clamped = std::clamp(position, m_minimum, m_maximum);
    if (clamped == m_position) return;
    m_position = clamped;
    Changed(ControlChange::value);
}

void TrackBar::UserScroll(uint32_t code, int32_t position, int32_t times) {
    const auto by = [this](int64_t distance) { return Clamped(m_position + distance, m_minimum, m_maximum); };
    switch (code) {
        case TB_LINEUP:
            SetPosition(by(-int64_t{m_line_size} * times));
            break;
        case TB_LINEDOWN:
            SetPosition(by(int64_t{m_line_size} * times));
            break;
        case TB_PAGEUP:
            SetPosition(by(-int64_t{m_page_size} * times));
            break;
        case TB_PAGEDOWN:
            SetPosition(by(int64_t{m_page_size} * times));
            break;
        case TB_TOP:
            SetPosition(m_minimum);
            break;
        case TB_BOTTOM:
            SetPosition(m_maximum);
            break;
        case TB_THUMBTRACK:
        case TB_THUMBPOSITION:
            SetPosition(position);
            break;
        default:
            break;
    }
    if (Parent()) Parent()->OnScroll(*this, code, m_position);
}

std::optional<uint32_t> TrackBar::CodeOfKey(uint32_t key) const {
    if (IsVertical() && (Style() & TBS_DOWNISLEFT) != 0) {
        if (key == VK_DOWN) return TB_LINEUP;
        if (key == VK_UP) return TB_LINEDOWN;
    }
    const auto* const found = std::find_if(std::begin(kKeyCodes), std::end(kKeyCodes),
                                           [&](const KeyCode& row) { return row.key == key; });
    return found == std::end(kKeyCodes) ? std::nullopt : std::optional(found->code);
}

// Away is up, or to the right.
uint32_t TrackBar::CodeOfWheel(bool away) const {
    return away == IsVertical() ? TB_LINEUP : TB_LINEDOWN;
}

}  // namespace hx::ui
