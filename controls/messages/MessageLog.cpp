#include "controls/messages/MessageLog.h"

#include <string>

#include "core/log/ModuleLogger.h"
#include "platform/com/boundary.h"

namespace hx {

// Without memory the log lacks an entry.
void LogText(const MErrorLocation& location, std::wstring_view text) noexcept {
    AtBoundary([&] {
        const std::string method = std::string(location.ClassName()) + "::" + location.MethodName();
        ModuleLogger().Log({MLogSeverity::kError, location.ClassName(), location.Line(), method, text});
        return S_OK;
    });
}

void LogDismissed(const MErrorLocation& location, const MError& error) noexcept {
    AtBoundary([&] {
        Dismiss(location, error);
        LogText(location, L"Error codes:\n" + ErrorCodesText(MException(error)));
        return S_OK;
    });
}

void LogDialogError(const MErrorLocation& location, const ui::DialogError& failure) noexcept {
    AtBoundary([&] {
        MError error = MakeError(location, L"CreateDialog");
        error.AddParameter(L"reason", ui::DialogError::NameOf(failure.reason));
        error.AddParameter(L"module", failure.module_file_name);
        error.AddParameter(L"dialog", failure.dialog_id);
        error.AddParameter(L"control", failure.control_id);
        error.AddParameter(L"hresult", static_cast<uint32_t>(failure.result), true);
        LogDismissed(location, error);
        return S_OK;
    });
}

}  // namespace hx
