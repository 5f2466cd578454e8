#include "controls/widgets/AccessibleNames.h"

namespace hx {

void SetAccessibleNames(ui::Dialog& dialog, const ResourceModule& module) {
    constexpr uint32_t kFirstName = 2000;
    for (ui::Control* const control : dialog.Controls()) {
        if (control->Id() == kNoControlId) continue;
        if (const std::wstring* const name = module.String(kFirstName + control->Id())) {
            control->SetAccessibleName(*name);
        }
    }
}

}  // namespace hx
