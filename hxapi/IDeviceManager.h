// Tells what the drivers of the scanner API report about themselves and their devices. Implemented by the
// API; called on the thread of the user interface.
#pragma once

#include "platform/com/bstr.h"
#include "platform/com/errorinfo.h"

// The category of scanner drivers.
inline constexpr wchar_t kHXCategoryScanner[] = L"CategoryScanner";

HX_IID(IDeviceManager, "2F6B85C4-D910-4A7E-A3F8-64E05C1B9D72")
struct IDeviceManager : IUnknown {
    // The properties document (root "Properties") of the driver of that internal name and of the device
    // attached to it. [caller owns *xml], null on failure: E_FAIL if the driver cannot tell, and `detail`
    // then has a description for the user; HX_E_NOTFOUND for an unknown category or name; E_POINTER. `detail`
    // as in IHXApi.
    virtual HRESULT STDMETHODCALLTYPE GetDriverProperties(BSTR category, BSTR internal_name, BSTR* xml,
                                                          IErrorInfo** detail) = 0;
};
