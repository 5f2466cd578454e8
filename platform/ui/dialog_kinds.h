// What kind of control a line of a template asks for, and a simple control of that kind. Inside platform/ui.
#pragma once

#include <memory>
#include <optional>

#include "platform/ui/control.h"

namespace hx::ui {

// Nothing if no kind of control is called so.
std::optional<ControlKind> KindOfLine(const DialogControl& line);
std::unique_ptr<Control> MakeControlOf(ControlKind kind);
// Its text is there to say what it is, and may mark a mnemonic: not so what is in an edit.
bool IsNamedByText(ControlKind kind);

}  // namespace hx::ui
