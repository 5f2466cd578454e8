#include "controls/editor/ProfileMessages.h"

#include <string>

#include "controls/messages/MessageBox.h"
#include "controls/messages/MessageLog.h"
#include "controls/messages/OperatorWords.h"
#include "core/locale/CFormattedText.h"
#include "platform/com/boundary.h"
#include "platform/ui/services.h"

namespace hx {
namespace {

constexpr char kClass[] = "BaseDynamicSettingsDlg";

}  // namespace

void ShowErrorBox(ui::Window* owner, const MException& exception) noexcept {
    AtBoundary([&] {
        static MErrorLocation location(kClass, "ErrorBox");
        location.Set(nullptr, 58);
        const MErrorFormatter::Formatted formatted = InOperatorsWords(exception);
        LogText(location, formatted.message + L"\nError codes:\n" + formatted.error_codes);
        ui::ShowMessageBox(owner, {}, formatted.message, ui::BoxIcon::error);
        return S_OK;
    });
}

void ShowTextBox(ui::Window* owner, uint32_t string_id, std::wstring_view argument) noexcept {
    AtBoundary([&] {
        static MErrorLocation location(kClass, "ShowMessage");
        location.Set(nullptr, 68);
        ShowErrorText(owner, location, FormatText(L'.', TextOrNumber(string_id), {argument}));
        return S_OK;
    });
}

}  // namespace hx
