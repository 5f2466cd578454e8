// AtBoundary: the one place where an exception becomes an HRESULT. Every interface method and exported
// function whose body may throw runs it in here. Usable on any thread.
#pragma once

#include <new>
#include <utility>

#include "platform/com/fatal_error.h"

namespace hx {

// Runs `body` and gives its HRESULT; std::bad_alloc becomes E_OUTOFMEMORY, a FatalComError its result, any
// other exception E_FAIL. Logs nothing and leaves the thread's error information alone: the body knows more
// and says more.
template <class F>
HRESULT AtBoundary(F&& body) noexcept {
    try {
        return std::forward<F>(body)();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const FatalComError& error) {
        return error.result;
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace hx
