#include "core/errors/MErrorLocation.h"

#include "core/errors/MDiagnosticsRegistry.h"

namespace hx {

MErrorLocation::MErrorLocation(const char* class_name, const char* method_name)
    : m_class_name(class_name), m_method_name(method_name) {
    DiagnosticsRegistry().OnLocation(class_name, method_name);
}

void MErrorLocation::Set(const void* object, int32_t line) {
    m_object.store(object, std::memory_order_relaxed);
    m_line.store(line, std::memory_order_relaxed);
}

std::wstring ErrorCode(std::string_view class_name, std::string_view method_name,
                       std::wstring_view error_name) {
    std::wstring code(class_name.begin(), class_name.end());
    if (!method_name.empty()) {
        if (!code.empty()) code += L'.';
        code.append(method_name.begin(), method_name.end());
    }
    if (!error_name.empty()) {
        if (!code.empty()) code += L':';
        code += error_name;
    }
    return code;
}

MError MakeError(const MErrorLocation& location, std::wstring_view error_name) {
    DiagnosticsRegistry().OnRootError(location, error_name);
    return MError(ErrorCode(location.ClassName(), location.MethodName(), error_name));
}

MError MakeCascadeError(const MErrorLocation& location, std::wstring_view error_name) {
    DiagnosticsRegistry().OnCascadeError(location, error_name);
    return MError(ErrorCode(location.ClassName(), location.MethodName(), error_name));
}

void Throw(const MErrorLocation&, const MError& error) {
    throw MException(error);
}

void ThrowWithCause(const MErrorLocation&, const MException& cause, const MError& error) {
    MException exception(cause);
    exception.AppendChained(error);
    throw exception;
}

void Dismiss(const MErrorLocation& location, const MError& error) {
    DiagnosticsRegistry().OnDismissedError(location, error.GetCode());
}

}  // namespace hx
