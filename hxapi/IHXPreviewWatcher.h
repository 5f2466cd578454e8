// What a preview tells those who watch it. Implemented by tools and tests, advised on the preview's
// connection point for this interface; called on the thread that calls the preview.
#pragma once

#include "platform/com/unknown.h"

HX_IID(IHXPreviewWatcher, "4E0C3AAE-2A4E-49DE-A489-40E3A39B7691")
struct IHXPreviewWatcher : IUnknown {
    // It has dropped what it showed, as it was asked to. The answer makes no difference.
    virtual HRESULT STDMETHODCALLTYPE OnReset() = 0;
};
