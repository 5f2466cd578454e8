// How a container has a component store what is its own in a stream, and gives it back to a new object of the
// class: either Load or InitNew comes first, and once. On the thread of the user interface.
#pragma once

#include "platform/com/stream.h"

HX_IID(IPersist, "0000010C-0000-0000-C000-000000000046")
struct IPersist : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetClassID(CLSID* clsid) = 0;
};

HX_IID(IPersistStreamInit, "7FD52380-4E07-101B-AE2D-08002B2EC713")
struct IPersistStreamInit : IPersist {
    // S_OK if it has changed since it was stored, else S_FALSE.
    virtual HRESULT STDMETHODCALLTYPE IsDirty() = 0;
    virtual HRESULT STDMETHODCALLTYPE Load(IStream* stream) = 0;
    virtual HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clear_dirty) = 0;
    // As many bytes as Save writes at most.
    virtual HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) = 0;
    virtual HRESULT STDMETHODCALLTYPE InitNew() = 0;
};
