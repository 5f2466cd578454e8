// What people who do not see a control are told it is, where no label says so. Called by pages when their
// dialog is there, on the thread of the user interface.
#pragma once

#include "platform/ui/dialog.h"

namespace hx {

// Of each control that the module has a string for: 2000 and the control's id.
void SetAccessibleNames(ui::Dialog& dialog, const ResourceModule& module);

}  // namespace hx
