// The person at the page, and why something could not be done.
#pragma once

#include "platform/ui/control.h"
#include "platform/ui/user.h"

namespace hxctl {

hx::ui::IUser& Person();
// Throw an Impossible: if the control cannot be used; and if something was not done to it.
void CheckUsable(const hx::ui::Control& control);
void CheckDone(bool done, const hx::ui::Control& control);

}  // namespace hxctl
