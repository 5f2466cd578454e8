#include "controls/messages/MessageBox.h"

#include "controls/messages/MessageLog.h"
#include "platform/com/boundary.h"
#include "platform/ui/services.h"

namespace hx {

void ShowErrorText(ui::Window* owner, const MErrorLocation& location, const std::wstring& text) noexcept {
    AtBoundary([&] {
        LogText(location, text);
        ui::ShowMessageBox(owner, {}, text, ui::BoxIcon::error);
        return S_OK;
    });
}

}  // namespace hx
