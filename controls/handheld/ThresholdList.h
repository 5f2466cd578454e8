// The list of signal thresholds: 5 to 1 percent, one a row. A member of the handheld page; on the thread of
// the user interface.
//
// A profile may have a threshold that is none of them. Pages have always taken the distance from 5 for the
// row, and that of the row for the threshold, and stored profiles count on it: 6 to 9 select the rows of 4 to
// 1; 0, and 10 and above, select none, which is written as 6.
#pragma once

#include "controls/editor/DynamicSettingsData.h"
#include "platform/ui/dialog.h"

namespace hx {

class ThresholdList {
public:
    explicit ThresholdList(ui::Dialog& dialog) : m_dialog(dialog) {}

    // When the dialog is there: the rows, of which the first is selected.
    void Initialise();
    void Show(const DynamicSettingsData& data);
    // Also if no row is selected.
    void TakeInto(DynamicSettingsData& data) const;
    // What the operator chose goes into the record; false if that is nothing.
    bool TakeChosen(DynamicSettingsData& data) const;

private:
    ui::ComboBox* List() const;

    ui::Dialog& m_dialog;
};

}  // namespace hx
