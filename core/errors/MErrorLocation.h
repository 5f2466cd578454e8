// Where errors are raised. Each raising method has one location, a function-local static:
//
//     static MErrorLocation location("MLocale", "MLocale");
//     location.Set(this, 28);
//     MError error = MakeError(location, L"BadCLocale");
//     error.AddParameter(L"name", name);
//     Throw(location, error);
//
// Any thread; object and line are those of the last raise, whichever thread it was on.
#pragma once

#include <atomic>
#include <cstdint>
#include <string_view>

#include "core/errors/MError.h"
#include "core/errors/MException.h"

namespace hx {

class MErrorLocation {
public:
    // Both names are literals; reported to the diagnostics registry.
    MErrorLocation(const char* class_name, const char* method_name);
    MErrorLocation(const MErrorLocation&) = delete;
    MErrorLocation& operator=(const MErrorLocation&) = delete;

    // `object` may be null. The line is a number that the raising site keeps, whatever happens to the file.
    void Set(const void* object, int32_t line);

    const char* ClassName() const { return m_class_name; }
    const char* MethodName() const { return m_method_name; }
    const void* Object() const { return m_object.load(std::memory_order_relaxed); }
    int32_t Line() const { return m_line.load(std::memory_order_relaxed); }

private:
    const char* const m_class_name;
    const char* const m_method_name;
    std::atomic<const void*> m_object = nullptr;
    std::atomic<int32_t> m_line = -1;
};

// "Class.Method:ErrorName"; an empty part is left out together with its separator.
std::wstring ErrorCode(std::string_view class_name, std::string_view method_name,
                       std::wstring_view error_name);

// A new error of this place, reported to the diagnostics registry.
MError MakeError(const MErrorLocation& location, std::wstring_view error_name);
// The same for an error raised while another one is handled.
MError MakeCascadeError(const MErrorLocation& location, std::wstring_view error_name);

[[noreturn]] void Throw(const MErrorLocation& location, const MError& error);
// Throws the records of the caught `cause`, followed by `error`.
[[noreturn]] void ThrowWithCause(const MErrorLocation& location, const MException& cause,
                                 const MError& error);
// Reports that an error was caught and goes no further.
void Dismiss(const MErrorLocation& location, const MError& error);

}  // namespace hx
