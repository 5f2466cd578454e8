#include "core/log/MKLoggerAdapter.h"

#include "core/errors/MErrorLocation.h"
#include "core/log/HexText.h"
#include "core/log/ModuleLogger.h"

namespace hx {
namespace {

// The record that says most of the failure: the newest one.
std::wstring_view CodeOf(const MException& exception) {
    const MException::Chain& chain = exception.GetChain();
    return chain.empty() ? std::wstring_view() : std::wstring_view(chain.back()->GetCode());
}

}  // namespace

void MKLoggerAdapter::OnClass(const char* class_name) {
    m_events.AddNames(class_name, nullptr);
}

void MKLoggerAdapter::OnLocation(const char* class_name, const char* method_name) {
    m_events.AddNames(class_name, method_name);
}

void MKLoggerAdapter::OnRootError(const MErrorLocation& location, std::wstring_view error_name) {
    Add(KLoggerEvent::kRootError, location, error_name);
}

void MKLoggerAdapter::OnCascadeError(const MErrorLocation& location, std::wstring_view error_name) {
    Add(KLoggerEvent::kCascadeError, location, error_name);
}

void MKLoggerAdapter::OnDismissedError(const MErrorLocation& location, std::wstring_view code) {
    Add(KLoggerEvent::kDismissedError, location, code);
}

void MKLoggerAdapter::OnReturnedError(const MErrorLocation& location, HRESULT result) {
    Add(KLoggerEvent::kReturnError, location, HexText(static_cast<uint32_t>(result)).View());
}

void MKLoggerAdapter::OnException(const MErrorLocation& location, const MException& exception, int32_t kind) {
    Add(KLoggerEvent::kReturnError, location, CodeOf(exception));
    if (!ModuleLogger().Writes(MLogSeverity::kError)) return;
    try {
        std::wstring message = L"An exception of kind " + std::to_wstring(kind) + L" ended in object 0x";
        message.append(HexText(reinterpret_cast<uintptr_t>(location.Object())).View());
        message.append(L"\nError codes:\n").append(ErrorCodesText(exception));
        ModuleLogger().Log(
            {MLogSeverity::kError, location.ClassName(), location.Line(), location.MethodName(), message});
    } catch (...) {
        // Without memory the record is lost; the caller is told the result code.
    }
}

void MKLoggerAdapter::OnScopeEntered(const char* source_name, const char* method_name) noexcept {
    m_events.Add(KLoggerEvent::kScopePush, {.in_class = source_name, .at = method_name});
}

void MKLoggerAdapter::OnScopeLeft(const char* source_name, const char* method_name) noexcept {
    m_events.Add(KLoggerEvent::kScopePop, {.in_class = source_name, .at = method_name});
}

void MKLoggerAdapter::Add(KLoggerEvent event, const MErrorLocation& location,
                          std::wstring_view state) noexcept {
    m_events.Add(event, {.in_class = location.ClassName(),
                         .for_object = location.Object(),
                         .to_state = state,
                         .at = location.MethodName()});
}

}  // namespace hx
