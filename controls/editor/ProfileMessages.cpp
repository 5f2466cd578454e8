#include "controls/editor/ProfileMessages.h"

#include <string>

#include "controls/messages/MessageLog.h"
#include "controls/messages/OperatorWords.h"
#include "core/locale/CFormattedText.h"
#include "core/locale/MResourceLocale.h"
#include "platform/com/boundary.h"
#include "platform/ui/services.h"

namespace hx {
namespace {

constexpr char kClass[] = "BaseDynamicSettingsDlg";

std::wstring StringResource(uint32_t id) {
    try {
        return MResourceLocale::LoadStringResource(id);
    } catch (const MException&) {
        return FormatText(L'.', L"Unknown string resource: %u", {id});
    }
}

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
        const std::wstring text = FormatText(L'.', StringResource(string_id), {argument});
        LogText(location, text);
        ui::ShowMessageBox(owner, {}, text, ui::BoxIcon::error);
        return S_OK;
    });
}

}  // namespace hx
