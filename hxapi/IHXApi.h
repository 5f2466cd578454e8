// The scanner API: owns the connection to the scanner, its drivers and its stored profiles. Implemented by
// the measuring-device layer of a host, which hands it to every page; called by the pages on the thread of
// the user interface, though it may be called on any.
//
// The same object answers IHXApiInternal, may answer IHXLocale, and is a connection point container with a
// connection point for IHXApiEvents.
//
// `detail`: what the API has to say about a failure beyond the result code, [caller owns]; null on success,
// and may be null on failure.
#pragma once

#include "hxapi/IDeviceManager.h"
#include "platform/com/errorinfo.h"

// Whether there is a scanner to talk to. Other numbers are no error; nothing is done about them.
enum HXConnectionState : int32_t {
    HXNotConnected = 0,
    HXConnected = 1,  // handles can be acquired, the scanner initialised
    HXSuspended = 2,  // connected, and to be resumed before it is used
};

HX_IID(IHXApi, "5B0E94D7-21C3-4F68-9A1D-C47E83F0B256")
struct IHXApi : IUnknown {
    // `*state` is an HXConnectionState, and unchanged on failure. E_POINTER.
    virtual HRESULT STDMETHODCALLTYPE GetConnectionState(int32_t* state, IErrorInfo** detail) = 0;
    // Asks a suspended scanner to become usable; that it is so is told by an event. S_OK also where there is
    // nothing to resume; E_FAIL if the scanner refuses.
    virtual HRESULT STDMETHODCALLTYPE Resume(IErrorInfo** detail) = 0;
    // [caller owns *manager], null on failure: E_POINTER, E_FAIL.
    virtual HRESULT STDMETHODCALLTYPE GetDeviceManager(IDeviceManager** manager, IErrorInfo** detail) = 0;
};
