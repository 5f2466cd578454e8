// IUnknown, which every component interface starts with, and IClassFactory, which creates a class's objects.
// Implemented with hx::Implements, held in hx::ComPtr: nothing outside this folder counts by hand.
// Counting is safe on any thread if the object says so; everything else as the object says.
#pragma once

#include "platform/com/guid.h"
#include "platform/com/hresult.h"

HX_IID(IUnknown, "00000000-0000-0000-C000-000000000046")
struct IUnknown {
    // `*object` holds a reference of the caller's, or null on failure: E_NOINTERFACE, E_POINTER for a null
    // `object`.
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;

    // Both give the new count, good for diagnosis only.
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};

HX_IID(IClassFactory, "00000001-0000-0000-C000-000000000046")
struct IClassFactory : IUnknown {
    // A new object's `iid` interface, [caller owns]; null on failure. CLASS_E_NOAGGREGATION if `outer` is
    // given and the class cannot be part of another object.
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) = 0;

    // Keeps the library loaded while nothing of it is in use; calls come in pairs.
    virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) = 0;
};
