// Hands an exception to the other side of a component boundary. Called by entry points of components that
// support error information, in their handlers. On the thread of the failed call.
#pragma once

#include "core/errors/MException.h"
#include "platform/com/guid.h"
#include "platform/com/hresult.h"

namespace hx {

class MDiagnosticsAtl {
public:
    // Logs the exception as the user reads it, with its codes, and makes it the thread's error information:
    // description = its chain document with the matching rule, source = the ProgID registered for the class
    // (empty if there is none), about `iid`. Gives `result` back, for the entry point to return. Does not
    // throw: without memory the thread is left without error information.
    static HRESULT MExceptionAsErrorinfo(REFCLSID component_class, const MException& exception, REFIID iid,
                                         HRESULT result) noexcept;
};

}  // namespace hx
