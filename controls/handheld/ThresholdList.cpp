#include "controls/handheld/ThresholdList.h"

#include <cstdlib>

#include "controls/handheld/HandheldControls.h"
#include "core/locale/CFormattedText.h"

namespace hx {
namespace {

constexpr int32_t kRows = 5;

// The row of a threshold, and the threshold of a row.
int32_t DistanceFromRows(int32_t of) {
    return std::abs(of - kRows);
}

}  // namespace

ui::ComboBox* ThresholdList::List() const {
    return m_dialog.FindAs<ui::ComboBox>(kThresholdList);
}

void ThresholdList::Initialise() {
    ui::ComboBox* const list = List();
    if (!list) return;
    list->Clear();
    for (int32_t percent = kRows; percent > 0; --percent) list->Add(FormatText(L'.', L"%d%%", {percent}));
    list->Select(0);
}

void ThresholdList::Show(const DynamicSettingsData& data) {
    if (ui::ComboBox* const list = List()) {
        list->Select(DistanceFromRows(static_cast<int32_t>(data.signal_threshold)));
    }
}

void ThresholdList::TakeInto(DynamicSettingsData& data) const {
    if (const ui::ComboBox* const list = List()) {
        data.signal_threshold = static_cast<uint32_t>(DistanceFromRows(list->Selected()));
    }
}

bool ThresholdList::TakeChosen(DynamicSettingsData& data) const {
    const ui::ComboBox* const list = List();
    if (!list || list->Selected() < 0) return false;
    TakeInto(data);
    return true;
}

}  // namespace hx
