// How every settings object exchanges its state, as tagged XML text. Implemented by settings objects, called
// by the scanner API on the thread that made the object.
#pragma once

#include "platform/com/bstr.h"
#include "platform/com/unknown.h"

HX_IID(IXmlBstrSerializable, "6E0C7B0D-52C9-4D5E-9E43-8B7A1D3F6C21")
struct IXmlBstrSerializable : IUnknown {
    // Replaces the state by what `xml` holds. [caller keeps xml] A null string gives connection settings
    // their defaults and is no document to measurement settings. E_FAIL for text that is no settings document
    // of this kind, or that holds a record of a version that is not known; E_OUTOFMEMORY. The state may have
    // changed all the same.
    virtual HRESULT STDMETHODCALLTYPE ReadXmlBstr(BSTR xml) = 0;
    // Gives the state as a document. [caller owns *xml] E_INVALIDARG for a null argument; E_FAIL;
    // E_OUTOFMEMORY.
    // `*xml` is unchanged on failure.
    virtual HRESULT STDMETHODCALLTYPE WriteXmlBstr(BSTR* xml) = 0;
};
