// Showing parts of a dialog. A control that the dialog's template lacks is passed over.
#pragma once

#include <span>

#include "platform/ui/dialog.h"

namespace hx {

inline void ShowControl(const ui::Dialog& dialog, uint32_t id, bool visible) {
    if (ui::Control* const control = dialog.Find(id)) control->Show(visible);
}

inline void ShowControls(const ui::Dialog& dialog, std::span<const uint32_t> ids, bool visible) {
    for (const uint32_t id : ids) ShowControl(dialog, id, visible);
}

inline void ShowText(const ui::Dialog& dialog, uint32_t id, const std::wstring& text) {
    if (ui::Control* const control = dialog.Find(id)) control->SetText(text);
}

}  // namespace hx
