// Where every raised, cascaded and dismissed error is reported, for whoever keeps track of them. The errors
// know this interface alone; by default nobody listens. Any thread.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/com/hresult.h"

namespace hx {

class MErrorLocation;
class MException;

class MDiagnosticsRegistryImplementation {
public:
    virtual ~MDiagnosticsRegistryImplementation() = default;

    // There is a class of this name; told again for each source that tells of it.
    virtual void OnClass(const char* class_name) = 0;
    // A method that can raise errors was entered into the program's list of them.
    virtual void OnLocation(const char* class_name, const char* method_name) = 0;
    // A new error; one raised while another is handled; one caught and not passed on.
    virtual void OnRootError(const MErrorLocation& location, std::wstring_view error_name) = 0;
    virtual void OnCascadeError(const MErrorLocation& location, std::wstring_view error_name) = 0;
    virtual void OnDismissedError(const MErrorLocation& location, std::wstring_view code) = 0;
    // A component answered with an error code.
    virtual void OnReturnedError(const MErrorLocation& location, HRESULT result) = 0;
    // An exception ends at a component entry point, whose caller is told only a result code. `kind` is the
    // number under which the entry point's class reports.
    virtual void OnException(const MErrorLocation& location, const MException& exception, int32_t kind) = 0;
};

// The one that listens.
MDiagnosticsRegistryImplementation& DiagnosticsRegistry();

// Installs `registry`, which the caller keeps alive until it is replaced, and tells it of the classes known
// so far; null: nobody listens. Gives the one installed before, null likewise.
MDiagnosticsRegistryImplementation* SetDiagnosticsRegistry(MDiagnosticsRegistryImplementation* registry);

}  // namespace hx
