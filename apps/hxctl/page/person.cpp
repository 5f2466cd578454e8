#include "apps/hxctl/page/person.h"

#include "apps/hxctl/page/control_report.h"
#include "apps/hxctl/page/script_command.h"
#include "platform/ui/dialog.h"
#include "platform/ui/modal.h"
#include "platform/ui/renderer.h"

namespace hxctl {

hx::ui::IUser& Person() {
    return hx::ui::CurrentRenderer()->User();
}

void CheckUsable(const hx::ui::Control& control) {
    const hx::ui::Dialog* const dialog = control.Parent();
    const std::string name = "control " + IdText(control.Id());
    if (!dialog) throw Impossible("there is no " + name + " any more");
    if (!control.IsVisible()) throw Impossible(name + " is hidden");
    if (!control.IsEnabled()) throw Impossible(name + " is disabled");
    if (!dialog->IsShown()) throw Impossible("the page is hidden");
    if (hx::ui::IsBehindModal(*dialog)) throw Impossible("a dialog or box is in front of the page");
}

void CheckDone(bool done, const hx::ui::Control& control) {
    if (done) return;
    CheckUsable(control);
    throw Impossible("control " + IdText(control.Id()) + " cannot be used so");
}

}  // namespace hxctl
