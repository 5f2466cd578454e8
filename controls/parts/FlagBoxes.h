// The check boxes for the flags of a profile on a settings page: automatic laser power, 3D filter, reflection
// filter. A member of its page; on the thread of the user interface.
#pragma once

#include "controls/editor/DynamicSettingsData.h"
#include "platform/ui/dialog.h"

namespace hx {

class FlagBoxes {
public:
    explicit FlagBoxes(ui::Dialog& dialog) : m_dialog(dialog) {}

    void Show(const DynamicSettingsData& data);
    void TakeInto(DynamicSettingsData& data) const;

private:
    ui::Dialog& m_dialog;
};

}  // namespace hx
