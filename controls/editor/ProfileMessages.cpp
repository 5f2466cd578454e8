#include "controls/editor/ProfileMessages.h"

#include <string>

#include "core/locale/CFormattedText.h"
#include "core/locale/MResourceLocale.h"
#include "core/log/ModuleLogger.h"
#include "core/messages/MErrorFormatter.h"
#include "core/messages/MErrorFormatterResource.h"
#include "platform/com/boundary.h"
#include "platform/ui/services.h"

namespace hx {
namespace {

constexpr char kFile[] = "BaseDynamicSettingsDlg";

void Log(int32_t line, const char* method, std::wstring_view text) {
    ModuleLogger().Log({MLogSeverity::kError, kFile, line, method, text});
}

// The messages of this program's own errors are among the formatter's rules from the first box on.
const MErrorFormatter& Formatter() {
    static MErrorFormatter& formatter = []() -> MErrorFormatter& {
        MErrorFormatter::Get().AddRule(MErrorFormatterResource::Get());
        return MErrorFormatter::Get();
    }();
    return formatter;
}

// The operator is told that something failed even where the words for it are missing.
MErrorFormatter::Formatted InWords(const MException& exception) {
    try {
        return Formatter().Format(exception);
    } catch (const MException&) {
        MErrorFormatter::Formatted formatted;
        formatted.message = MErrorFormatter::kNoDescription;
        formatted.error_codes = ErrorCodesText(exception);
        return formatted;
    }
}

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
        const MErrorFormatter::Formatted formatted = InWords(exception);
        Log(58, "BaseDynamicSettingsDlg::ErrorBox",
            formatted.message + L"\nError codes:\n" + formatted.error_codes);
        ui::ShowMessageBox(owner, {}, formatted.message, ui::BoxIcon::error);
        return S_OK;
    });
}

void ShowTextBox(ui::Window* owner, uint32_t string_id, std::wstring_view argument) noexcept {
    AtBoundary([&] {
        const std::wstring text = FormatText(L'.', StringResource(string_id), {argument});
        Log(68, "BaseDynamicSettingsDlg::ShowMessage", text);
        ui::ShowMessageBox(owner, {}, text, ui::BoxIcon::error);
        return S_OK;
    });
}

}  // namespace hx
