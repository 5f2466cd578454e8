// A component object on the stack that only counts: tests read off it who took and who gave back how much.
#pragma once

#include "platform/com/dispatch.h"

class Counted final : public IUnknown {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = iid == IID_IUnknown ? this : nullptr;
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        ++taken;
        return ++held;
    }
    ULONG STDMETHODCALLTYPE Release() override { return --held; }

    ULONG held = 0;   // references out there now
    ULONG taken = 0;  // references ever taken
};
