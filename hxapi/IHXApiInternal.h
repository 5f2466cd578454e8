// The part of the scanner API that is meant for its own pages: which devices are chosen, and the handle
// through which a scanner is driven. Implemented by the object that is an IHXApi; called on the thread of the
// user interface. `detail` is as in IHXApi.
#pragma once

#include "hxapi/IHXProfile.h"
#include "platform/com/errorinfo.h"

HX_IID(IHXApiInternal, "C83A6F19-7E52-4D0B-B4C6-0A915DE27F38")
struct IHXApiInternal : IUnknown {
    // The profile that the API works with now. [caller owns *profile], null on failure: E_POINTER, E_FAIL if
    // there is none.
    virtual HRESULT STDMETHODCALLTYPE GetCurrentProfile(IHXProfile** profile, IErrorInfo** detail) = 0;
    // A new handle for the scanner of that name, [caller owns *object], null on failure: HX_E_NOTFOUND for
    // one that the API does not know, E_NOINTERFACE, E_POINTER. The name is the internal name of the
    // scanner's driver or of its device, and may be empty where there is but one scanner. `iid` is the
    // interface that the caller will ask the object for.
    virtual HRESULT STDMETHODCALLTYPE CreateCalibrationHandle(BSTR device_internal_name, REFIID iid,
                                                              IUnknown** object, IErrorInfo** detail) = 0;
};
