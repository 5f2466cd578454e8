#include "controls/parts/ValueControls.h"

#include <algorithm>
#include <cwctype>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace hx {
namespace {

// The whole number at the beginning of the text; none where there is none, so that an edit that was emptied
// does not pass for a zero.
std::optional<int64_t> WholeNumber(std::wstring_view text) {
    constexpr int64_t kMost = std::numeric_limits<int32_t>::max();
    size_t at = 0;
    while (at < text.size() && std::iswspace(static_cast<wint_t>(text[at])) != 0) ++at;
    const bool negative = at < text.size() && text[at] == L'-';
    if (negative || (at < text.size() && text[at] == L'+')) ++at;
    const size_t first_digit = at;
    int64_t number = 0;
    for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at) {
        number = std::min(kMost, number * 10 + (text[at] - L'0'));
    }
    if (at == first_digit) return {};
    return negative ? -number : number;
}

// None if the row has no such value.
std::optional<int32_t> ValueOf(const ValueRow& row, std::wstring_view text) {
    const std::optional<int64_t> number = WholeNumber(text);
    if (!number) return {};
    const int64_t value = *number * row.unit;
    if (value < row.minimum || value > row.maximum) return {};
    return static_cast<int32_t>(value);
}

// The place of a value is the value of that place as well.
int32_t PlaceOf(const ValueRow& row, int32_t value) {
    return row.is_vertical ? row.minimum + row.maximum - value : value;
}

}  // namespace

ValueControls::ValueControls(ui::Dialog& dialog, std::span<const ValueRow> rows) {
    for (const ValueRow& row : rows) {
        Pair& pair = m_pairs.emplace_back(row);
        dialog.Bind(row.slider, pair.slider);
        dialog.Bind(row.edit, pair.edit);
    }
}

void ValueControls::Initialise() {
    for (Pair& pair : m_pairs) {
        pair.slider.SetRange(pair.row.minimum, pair.row.maximum);
        pair.slider.SetPageSize(pair.row.page_size);
        pair.slider.SetLineSize(pair.row.line_size);
        pair.edit.SetDecimals(0);
    }
}

bool ValueControls::HasSlider(uint32_t id) const {
    return std::ranges::any_of(m_pairs, [&](const Pair& pair) { return pair.row.slider == id; });
}

bool ValueControls::HasEdit(uint32_t id) const {
    return std::ranges::any_of(m_pairs, [&](const Pair& pair) { return pair.row.edit == id; });
}

bool ValueControls::HoldsValue(uint32_t edit) const {
    return std::ranges::any_of(m_pairs, [&](const Pair& pair) {
        return pair.row.edit == edit && ValueOf(pair.row, pair.edit.Text());
    });
}

void ValueControls::ShowInSliders(const DynamicSettingsData& data) {
    for (Pair& pair : m_pairs) pair.slider.SetPosition(PlaceOf(pair.row, pair.row.get(data)));
}

void ValueControls::ShowInEdits(const DynamicSettingsData& data) {
    for (Pair& pair : m_pairs) {
        if (!pair.row.is_read_as_typed) ShowInEdit(pair.row.edit, data);
    }
}

void ValueControls::ShowInEdit(uint32_t edit, const DynamicSettingsData& data) {
    Pair* const pair = Find(edit);
    if (!pair) return;
    std::wstring text = std::to_wstring(pair->row.get(data) / pair->row.unit);
    // The same again would move the caret.
    if (text != pair->edit.Text()) pair->edit.SetText(std::move(text));
}

void ValueControls::TakeSliders(DynamicSettingsData& data) const {
    for (const Pair& pair : m_pairs) pair.row.set(data, PlaceOf(pair.row, pair.slider.Position()));
}

void ValueControls::TakeEdits(DynamicSettingsData& data) const {
    for (const Pair& pair : m_pairs) {
        if (pair.row.is_read_as_typed) continue;
        if (const auto value = ValueOf(pair.row, pair.edit.Text())) pair.row.set(data, *value);
    }
}

bool ValueControls::TakeTyped(uint32_t edit, DynamicSettingsData& data) {
    Pair* const pair = Find(edit);
    const std::optional<int32_t> value = pair ? ValueOf(pair->row, pair->edit.Text()) : std::nullopt;
    if (!value || *value == pair->row.get(data)) return false;
    pair->row.set(data, *value);
    pair->slider.SetPosition(PlaceOf(pair->row, *value));
    return true;
}

ValueControls::Pair* ValueControls::Find(uint32_t edit) {
    const auto found = std::ranges::find_if(m_pairs, [&](const Pair& pair) { return pair.row.edit == edit; });
    return found == m_pairs.end() ? nullptr : &*found;
}

}  // namespace hx
