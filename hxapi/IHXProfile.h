// A profile of the scanner API: a choice of devices and their settings. Implemented by the API; called on the
// thread of the user interface.
#pragma once

#include "platform/com/safearray.h"
#include "platform/com/unknown.h"

HX_IID(IHXProfile, "96D1F2A0-4B8C-4E37-8D5A-13BC70E6924F")
struct IHXProfile : IUnknown {
    // The internal names of the chosen drivers: localiser, trigger device, scanner; an empty text for none. A
    // one-dimensional array of three VT_BSTR, [caller owns]; null on failure: E_POINTER, E_FAIL if the
    // profile cannot be read.
    virtual HRESULT STDMETHODCALLTYPE GetDriverSelection(SAFEARRAY** internal_names) = 0;
};
