// What containers and controls, which are components for dialogs, say to each other: the interfaces of
// embedding, the control's and its site's own ones, and the properties of its surroundings that a control may
// ask its site's IDispatch for. All calls come on the thread of the user interface.
#pragma once

#include "platform/com/dispatch.h"
#include "platform/com/ole_in_place.h"
#include "platform/com/ole_object.h"

// Properties of a control that have the same number in every class
inline constexpr DISPID DISPID_TEXT = -517;     // VT_BSTR
inline constexpr DISPID DISPID_CAPTION = -518;  // VT_BSTR

// Properties of the surroundings; VT_BOOL unless told
inline constexpr DISPID DISPID_AMBIENT_BACKCOLOR = -701;    // VT_I4, 0x00BBGGRR
inline constexpr DISPID DISPID_AMBIENT_DISPLAYNAME = -702;  // VT_BSTR
inline constexpr DISPID DISPID_AMBIENT_FORECOLOR = -704;    // VT_I4, 0x00BBGGRR
inline constexpr DISPID DISPID_AMBIENT_LOCALEID = -705;     // VT_I4, an LCID
inline constexpr DISPID DISPID_AMBIENT_USERMODE = -709;     // false while somebody designs the dialog
inline constexpr DISPID DISPID_AMBIENT_UIDEAD = -710;       // true while input is to be ignored
inline constexpr DISPID DISPID_AMBIENT_SHOWGRABHANDLES = -711;
inline constexpr DISPID DISPID_AMBIENT_SHOWHATCHING = -712;
inline constexpr DISPID DISPID_AMBIENT_DISPLAYASDEFAULT = -713;
inline constexpr DISPID DISPID_AMBIENT_SUPPORTSMNEMONICS = -714;

// The keys that a control wants beside those of its window.
struct CONTROLINFO {
    ULONG cb;  // the caller's
    HACCEL hAccel;
    USHORT cAccel;
    DWORD dwFlags;
};

HX_IID(IOleControl, "B196B288-BAB4-101A-B69C-00AA00341D07")
struct IOleControl : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnMnemonic(MSG* message) = 0;
    // DISPID_UNKNOWN for several.
    virtual HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID property) = 0;
    // Calls nest: as many with FALSE as with TRUE.
    virtual HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) = 0;
};

struct POINTF {
    float x;
    float y;
};

HX_IID(IOleControlSite, "B196B289-BAB4-101A-B69C-00AA00341D07")
struct IOleControlSite : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE OnControlInfoChanged() = 0;
    virtual HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL lock) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** control) = 0;
    virtual HRESULT STDMETHODCALLTYPE TransformCoords(POINT* himetric, POINTF* container, DWORD flags) = 0;
    // S_FALSE if the container has no use for it either.
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, DWORD modifiers) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnFocus(BOOL got) = 0;
    virtual HRESULT STDMETHODCALLTYPE ShowPropertyFrame() = 0;
};
