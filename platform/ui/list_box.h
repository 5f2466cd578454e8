// A list of rows of one height, one of which can be selected. Whoever derives from it draws the rows; by
// itself it shows their texts. On the thread of the user interface.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/control.h"

namespace hx::ui {

struct RowDrawing {
    int32_t index = 0;
    Rectangle rectangle;
    bool selected = false;
    bool focused = false;  // the list has the keyboard's input, and this row of it
    bool enabled = true;   // the list
};

// What tools and assistive technology can ask about a row; a list that has no such notions tells the text.
struct RowFacts {
    std::wstring key;     // names the row whatever the language
    bool own = false;     // made by the person rather than delivered
    bool marked = false;  // has changes that are not stored
};

class HX_PLATFORM_API ListBox : public Control {
public:
    ListBox() : Control(ControlKind::list_box) {}

    int32_t Count() const { return static_cast<int32_t>(m_rows.size()); }
    const std::wstring& RowText(int32_t index) const { return m_rows.at(static_cast<size_t>(index)); }
    // Of a row that there is.
    virtual RowFacts FactsOf(int32_t index) const { return {RowText(index), false, false}; }
    // Before the row that is now there, or at the end. The selected row stays it.
    void Insert(int32_t index, std::wstring text);
    // The selection is gone if it was that row.
    void Remove(int32_t index);
    void Clear();
    // -1 for none.
    int32_t Selected() const { return m_selected; }
    // None if there is no such row. Tells nobody; the row is scrolled into view.
    void Select(int32_t index);

    // While suspended, nothing is shown of what changes; then all of it at once. To be paired; see
    // RedrawSuspended.
    void SetRedraw(bool redraw);
    bool IsRedrawing() const { return m_suspended == 0; }
    // Rows wider than the list can be scrolled to so many pixels.
    void SetHorizontalExtent(int32_t width);
    int32_t HorizontalExtent() const { return m_horizontal_extent; }
    // The row there, in the list's own pixels; -1 for none.
    int32_t RowAt(Point where) const;

    // Asked by a renderer.
    virtual int32_t RowHeight() const;
    virtual void DrawRow(IPainter& painter, const RowDrawing& row);

    void UserSelect(int32_t index);
    // The first row to be seen, and how far the rows are moved to the left: reported by a renderer.
    void UserScrolled(Point offset);
    const Point& ScrollOffset() const { return m_scroll_offset; }
    void Detach() override;

protected:
    // Rows were scrolled sideways.
    virtual void OnHorizontalScroll() { Invalidate(); }

private:
    void ChangedRows();

    std::vector<std::wstring> m_rows;
    int32_t m_selected = -1;
    int32_t m_suspended = 0;
    int32_t m_horizontal_extent = 0;
    Point m_scroll_offset;  // pixels
};

// Rows change without being shown as long as this lives.
class RedrawSuspended {
public:
    explicit RedrawSuspended(ListBox& list) : m_list(list) { m_list.SetRedraw(false); }
    RedrawSuspended(const RedrawSuspended&) = delete;
    RedrawSuspended& operator=(const RedrawSuspended&) = delete;
    ~RedrawSuspended() { m_list.SetRedraw(true); }

private:
    ListBox& m_list;
};

}  // namespace hx::ui
