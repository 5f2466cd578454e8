#include "controls/parts/FlagBoxes.h"

#include "controls/parts/PageControls.h"

namespace hx {
namespace {

struct FlagRow {
    uint32_t box;
    BOOL DynamicSettingsData::*flag;
};

constexpr FlagRow kFlags[] = {
    {kAutomaticBox, &DynamicSettingsData::automatic_laser_power},
    {kEdgeFilter3DBox, &DynamicSettingsData::edge_filter_3d},
    {kReflectionFilterBox, &DynamicSettingsData::reflection_filter},
};

}  // namespace

void FlagBoxes::Show(const DynamicSettingsData& data) {
    for (const FlagRow& row : kFlags) {
        auto* const box = m_dialog.FindAs<ui::CheckBox>(row.box);
        if (box) box->SetChecked(data.*row.flag != FALSE);
    }
}

void FlagBoxes::TakeInto(DynamicSettingsData& data) const {
    for (const FlagRow& row : kFlags) {
        const auto* const box = m_dialog.FindAs<ui::CheckBox>(row.box);
        if (box) data.*row.flag = box->IsChecked() ? TRUE : FALSE;
    }
}

}  // namespace hx
