// What the panels of this window have in common: how a tool tip says what a control is for, and why it is
// disabled.
#pragma once

#include <functional>
#include <string>

#include "apps/hxhost/HostTexts.h"
#include "platform/ui/controls.h"

namespace hxhost {

// Tells the operator; also entered in the log.
using Tell = std::function<void(const std::wstring& text)>;

inline void EnableWithTip(hx::ui::Control& control, bool enabled, const HostTexts& texts, uint32_t tip,
                          uint32_t why_disabled) {
    control.Enable(enabled);
    control.SetToolTip(texts.Text(enabled ? tip : why_disabled));
}

inline std::wstring Chosen(const hx::ui::ComboBox& box) {
    const int32_t index = box.Selected();
    return index < 0 ? std::wstring() : box.Items()[static_cast<size_t>(index)];
}

inline bool Choose(hx::ui::ComboBox& box, const std::wstring& item) {
    for (size_t i = 0; i < box.Items().size(); ++i) {
        if (box.Items()[i] != item) continue;
        box.Select(static_cast<int32_t>(i));
        return true;
    }
    return false;
}

}  // namespace hxhost
