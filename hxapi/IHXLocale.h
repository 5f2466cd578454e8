// The scanner API's language. Implemented by the API object, asked by the localisation of its controls, on
// the thread of the user interface.
#pragma once

#include "platform/com/bstr.h"
#include "platform/com/unknown.h"

HX_IID(IHXLocale, "3C1E7A52-9B0D-4D66-A2F4-5D7C18E0B9A3")
struct IHXLocale : IUnknown {
    // The language tag that the user works in, as "de-DE", [caller owns]; null on failure: E_POINTER,
    // E_FAIL if none is set.
    virtual HRESULT STDMETHODCALLTYPE GetLocale(BSTR* locale) = 0;
};
