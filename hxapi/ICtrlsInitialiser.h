// Leads a control to the scanner API before its host has handed that over, so that the control can speak the
// API's language from the start. An optional component of the host installation, created by name; on the
// thread of the user interface.
#pragma once

#include "platform/com/unknown.h"

inline constexpr wchar_t kProgIdCtrlsInitialiser[] = L"Orvel.Ctrls.CtrlsInitialiser.1";

HX_IID(ICtrlsInitialiser, "0DB4E7F8-93A2-4651-8C7D-2E5F60B1A9C3")
struct ICtrlsInitialiser : IUnknown {
    // The scanner API object, [caller owns]; null on failure. E_POINTER.
    virtual HRESULT STDMETHODCALLTYPE GetHXApi(IUnknown** api) = 0;
};
