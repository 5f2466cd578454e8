// How the rows of the list of profiles look.
#include <algorithm>

#include "controls/profiles/CProfileListBox.h"
#include "platform/ui/renderer.h"

namespace hx {
namespace {

constexpr int32_t kItemMargin = 1;
constexpr int32_t kTextGap = 1;  // above and below, so that no letter touches the frame
constexpr int32_t kTextInset = 3;
constexpr int32_t kDotsPerInch = 96;
constexpr ui::Colour kMarginColour{100, 100, 100};
constexpr wchar_t kNoPicture = 0xFFFD;
constexpr size_t kTabWidth = 8;

struct RowColours {
    ui::SystemColour background;
    ui::SystemColour text;
};

RowColours ColoursOf(const ui::RowDrawing& row, bool predefined) {
    using enum ui::SystemColour;
    if (row.selected) return {highlight, highlight_text};
    return {predefined ? button_face : window, row.enabled ? window_text : gray_text};
}

// Neither breaks the line nor changes how what is behind it is shown.
bool IsShownAsItIs(wchar_t character) {
    const auto code = static_cast<uint32_t>(character);
    const bool control = (code < 0x20 && code != '\t') || (code >= 0x7F && code < 0xA0);
    const bool layout = (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    const bool invalid = (code >= 0xD800 && code < 0xE000) || code > 0x10FFFF;
    return !control && !layout && !invalid;
}

std::wstring Shown(std::wstring text) {
    std::ranges::replace_if(
        text, [](wchar_t character) { return !IsShownAsItIs(character); }, kNoPicture);
    return text;
}

// A tab is no wider than so many blanks.
std::wstring WithoutTabs(std::wstring_view text) {
    std::wstring blanks;
    for (const wchar_t character : text) {
        blanks.append(character == L'\t' ? kTabWidth : 1, character == L'\t' ? L' ' : character);
    }
    return blanks;
}

}  // namespace

int32_t CProfileListBox::RowHeight() const {
    const ui::IRenderer* const renderer = ui::CurrentRenderer();
    if (renderer == nullptr) return ListBox::RowHeight();
    const int32_t height = renderer->TextExtent(L"X").height + 2 * (kItemMargin + kTextGap);
    return std::max(1, height * renderer->VerticalDotsPerInch() / kDotsPerInch);
}

void CProfileListBox::DrawRow(ui::IPainter& painter, const ui::RowDrawing& row) {
    const Entry* const entry = EntryAt(row.index);
    const std::wstring text = Shown(entry != nullptr ? entry->Text() : RowText(row.index));
    const RowColours colours = ColoursOf(row, entry != nullptr && entry->row.user_defined == 0);
    const ui::Rectangle inside = row.rectangle.Deflated(kItemMargin);
    const ui::Colour text_colour = painter.ColourOf(colours.text);
    painter.FillRectangle(row.rectangle, kMarginColour);
    painter.FillRectangle(inside, painter.ColourOf(colours.background));

    ui::Rectangle place = row.rectangle;
    place.left += kTextInset;
    place.right -= kTextInset;
    painter.DrawText(place, text, {text_colour, ui::TextAlignment::left, true});
    if (row.focused) painter.DrawDottedFrame(inside, text_colour);

    m_widest_text = std::max(m_widest_text, painter.TextExtent(WithoutTabs(text)).width);
    const int32_t needed = m_widest_text + 2 * kTextInset;
    if (needed > HorizontalExtent()) SetHorizontalExtent(needed);
}

}  // namespace hx
