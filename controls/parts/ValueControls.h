// The sliders and edits of a settings page's numbers, as its table has them. A member of its page; on the
// thread of the user interface. Nothing here tells anybody but the edits, which notify their dialog of what
// is written into them.
#pragma once

#include <list>
#include <span>

#include "controls/parts/ValueRow.h"
#include "controls/widgets/MEditFloat.h"
#include "platform/ui/dialog.h"

namespace hx {

class ValueControls {
public:
    // Binds the controls of the rows, which outlive this as the dialog does.
    ValueControls(ui::Dialog& dialog, std::span<const ValueRow> rows);

    // When the dialog is there.
    void Initialise();

    bool HasSlider(uint32_t id) const;
    bool HasEdit(uint32_t id) const;
    // Whether its text is a value of its row.
    bool HoldsValue(uint32_t edit) const;

    void ShowInSliders(const DynamicSettingsData& data);
    // But those that are read as typed.
    void ShowInEdits(const DynamicSettingsData& data);
    void ShowInEdit(uint32_t edit, const DynamicSettingsData& data);

    void TakeSliders(DynamicSettingsData& data) const;
    // But those that are read as typed. What is no number, or out of bounds, is not taken.
    void TakeEdits(DynamicSettingsData& data) const;
    // That one, and its slider follows; false if there is nothing new to take.
    bool TakeTyped(uint32_t edit, DynamicSettingsData& data);

private:
    struct Pair {
        explicit Pair(const ValueRow& of) : row(of) {}

        const ValueRow& row;
        ui::TrackBar slider;
        MEditFloat edit;
    };

    Pair* Find(uint32_t edit);

    std::list<Pair> m_pairs;
};

}  // namespace hx
