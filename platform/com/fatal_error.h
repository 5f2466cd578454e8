// FatalComError: a mistake in the program, not a failure of the moment. Unlike an MException it is not for a
// page to show and go on: it passes all handlers up to the entry point, where AtBoundary makes its result of
// it.
#pragma once

#include "platform/com/hresult.h"

namespace hx {

struct FatalComError {
    HRESULT result = E_FAIL;
};

}  // namespace hx
