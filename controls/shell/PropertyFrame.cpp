#include "controls/shell/PropertyFrame.h"

#include "controls/messages/OperatorWords.h"
#include "controls/shell/ControlSupport.h"
#include "core/locale/MResourceLocale.h"

namespace hx {

bool PropertyFrame::Run(ui::Window* owner) {
    return RunModal(MResourceLocale::ResourceModule(), kTemplate, owner) >= 0;
}

bool PropertyFrame::OnInitDialog() {
    SetCaption(TextOrNothing(kCaption));
    return true;
}

}  // namespace hx
