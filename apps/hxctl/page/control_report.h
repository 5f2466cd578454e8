// What a control shows, and the names of what else is shown, for reports.
#pragma once

#include "apps/hxctl/record_json.h"
#include "platform/ui/control.h"
#include "platform/ui/renderer.h"

namespace hxctl {

Json Report(const hx::ui::Control& control);
// A control's id as reports have it: -1 of one without.
std::string IdText(uint32_t id);
// "error" and so on.
const char* IconName(hx::ui::BoxIcon icon);
// "saved", "cancelled", "discarded"; of any other dialog its number.
Json ModalResultName(int32_t result);

}  // namespace hxctl
