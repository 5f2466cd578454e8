// The way to an object itself, for code of the same process and the same build. Implemented by measurement
// settings objects; called on the thread that made the object.
#pragma once

#include "platform/com/unknown.h"

HX_IID(IGetPointer, "47E1C9B5-8A02-4D6F-93BC-2F5D70E8A16B")
struct IGetPointer : IUnknown {
    // The address of the implementing object, good as long as the caller holds a reference to it; none is
    // taken. What class it is of is the caller's to know. E_POINTER for a null argument.
    virtual HRESULT STDMETHODCALLTYPE GetPointer(void** pointer) = 0;
};
