#include "platform/ui/list_box.h"

#include <algorithm>

#include "platform/ui/codes.h"
#include "platform/ui/renderer.h"

namespace hx::ui {
namespace {

constexpr int32_t kTextMargin = 2;

}  // namespace

void ListBox::ChangedRows() {
    if (IsRedrawing()) Changed(ControlChange::items);
}

void ListBox::Insert(int32_t index, std::wstring text) {
    const int32_t at = index < 0 ? Count() : std::min(index, Count());
    m_rows.insert(m_rows.begin() + at, std::move(text));
    if (m_selected >= at) ++m_selected;
    ChangedRows();
}

void ListBox::Remove(int32_t index) {
    if (index < 0 || index >= Count()) return;
    m_rows.erase(m_rows.begin() + index);
    if (m_selected == index) {
        m_selected = -1;
    } else if (m_selected > index) {
        --m_selected;
    }
    ChangedRows();
}

void ListBox::Clear() {
    m_rows.clear();
    m_selected = -1;
    ChangedRows();
}

void ListBox::Select(int32_t index) {
    m_selected = index >= 0 && index < Count() ? index : -1;
    if (IsRedrawing()) Changed(ControlChange::selection);
}

void ListBox::SetRedraw(bool redraw) {
    if (!redraw) {
        ++m_suspended;
        return;
    }
    if (m_suspended == 0 || --m_suspended > 0) return;
    Changed(ControlChange::items);
}

void ListBox::SetHorizontalExtent(int32_t width) {
    if (width == m_horizontal_extent) return;
    m_horizontal_extent = std::max(width, 0);
    Changed(ControlChange::range);
}

int32_t ListBox::RowAt(Point where) const {
    if (!Rectangle{0, 0, Bounds().Width(), Bounds().Height()}.Contains(where)) return -1;
    const int64_t row = (int64_t{where.y} + m_scroll_offset.y) / std::max(RowHeight(), 1);
    return row < Count() ? static_cast<int32_t>(row) : -1;
}

int32_t ListBox::RowHeight() const {
    const IRenderer* const renderer = CurrentRenderer();
    return renderer ? std::max(renderer->TextExtent(L"X").height, 1) : 1;
}

void ListBox::DrawRow(IPainter& painter, const RowDrawing& row) {
    const bool marked = row.selected && row.enabled;
    painter.FillRectangle(row.rectangle,
                          painter.ColourOf(marked ? SystemColour::highlight : SystemColour::window));
    const SystemColour text = !row.enabled ? SystemColour::gray_text
                              : marked     ? SystemColour::highlight_text
                                           : SystemColour::window_text;
    Rectangle place = row.rectangle;
    place.left += kTextMargin;
    painter.DrawText(place, RowText(row.index), {painter.ColourOf(text), TextAlignment::left, false});
    if (row.focused) painter.DrawDottedFrame(row.rectangle, painter.ColourOf(text));
}

void ListBox::UserSelect(int32_t index) {
    if (index < 0 || index >= Count()) return;
    Select(index);
    Tell(LBN_SELCHANGE);
}

void ListBox::UserScrolled(Point offset) {
    const bool sideways = offset.x != m_scroll_offset.x;
    m_scroll_offset = offset;
    if (sideways) OnHorizontalScroll();
}

void ListBox::Detach() {
    m_rows.clear();
    m_selected = -1;
    m_horizontal_extent = 0;
    m_scroll_offset = {};
    Control::Detach();
}

}  // namespace hx::ui
