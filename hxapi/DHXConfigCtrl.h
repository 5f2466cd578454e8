// What a page of the hardware configuration offers to the dialog that embeds it. Implemented by the page's
// control, called by its host on the thread of the user interface, in any order once the control is created;
// Save and the release come last. It is one thread for all pages of a process, not one for each: they share
// what they edit, without locks. The interface may be called by name and number, too; its events, of
// DHXConfigCtrlEvents, are none.
//
// Failures inside the page are shown to the operator by the page, or logged: the methods still succeed. Each
// method returns E_INVALIDARG for an object without the interface that it needs and for a null out-pointer,
// and nothing else.
#pragma once

#include "platform/com/dispatch.h"
#include "platform/com/safearray.h"

inline constexpr DISPID DISPID_HXCONFIG_SETSETTINGSOBJECTMAP = 1;
inline constexpr DISPID DISPID_HXCONFIG_ONSELECTED = 2;
inline constexpr DISPID DISPID_HXCONFIG_ONDESELECTED = 3;
inline constexpr DISPID DISPID_HXCONFIG_SETHXAPI = 4;
inline constexpr DISPID DISPID_HXCONFIG_SAVE = 5;
inline constexpr DISPID DISPID_HXCONFIG_INITIALISE = 6;

HX_IID(DHXConfigCtrl, "B25E7C10-48D9-4F36-8A61-F30C97E2D584")
struct DHXConfigCtrl : IDispatch {
    // An IHXSettingsObjectMap, which the page keeps with its entry 258. [control takes a reference]
    virtual HRESULT STDMETHODCALLTYPE SetSettingsObjectMap(IUnknown* settings) = 0;
    // The page is shown; another one is.
    virtual HRESULT STDMETHODCALLTYPE OnSelected() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDeselected() = 0;
    // The scanner API: an IHXApi that is an IHXApiInternal, too. [control takes a reference]
    virtual HRESULT STDMETHODCALLTYPE SetHXApi(IUnknown* api) = 0;
    // The host's dialog is closing. Only the lower 16 bits of the caller's variable are written: all set when
    // it may close, none when the operator cancelled or edits could not be stored.
    virtual HRESULT STDMETHODCALLTYPE Save(BOOL* may_close) = 0;
    // What the page is to edit. `*arguments` is an array of VARIANT whose first element names the profile to
    // select; the page writes the name of the selected one into it later, so the host keeps `arguments` and
    // the array alive as long as the control. A malformed array is an exception that leaves this method, the
    // only one of which one does; called by number it is DISP_E_EXCEPTION. A page without it answers
    // DISP_E_MEMBERNOTFOUND.
    virtual HRESULT STDMETHODCALLTYPE Initialise(BSTR driver_internal_name, BSTR device_internal_name,
                                                 BSTR function_name, SAFEARRAY** arguments) = 0;
};

HX_IID(DHXConfigCtrlEvents, "4F9A13D6-0C72-4E8B-B5A4-6D81F7C3902E")
