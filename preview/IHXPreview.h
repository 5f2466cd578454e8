// What clients may call of the preview by name or number. Implemented by its one class; called on the thread
// of the user interface.
#pragma once

#include "platform/com/dispatch.h"

HX_IID(IHXPreview, "2D60B9F3-48E1-4C75-A9D2-71C5E0386FB4")
struct IHXPreview : IDispatch {
    // Drops what is shown, until the next areas or cycle arrive.
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
};
