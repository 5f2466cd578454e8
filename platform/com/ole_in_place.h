// How an embedded component shows itself in a window of its own inside the container's: IOleInPlaceObject is
// the component's, IOleInPlaceSite the container's; frames are windows around it with menus and tool bars,
// which containers need not have. All calls come on the thread of the user interface.
#pragma once

#include "platform/com/unknown.h"
#include "platform/com/window_types.h"

// NOLINTBEGIN(bugprone-reserved-identifier): so named by the system
struct HACCEL__;
struct HMENU__;
struct HOLEMENU__;
// NOLINTEND(bugprone-reserved-identifier)
struct OLEMENUGROUPWIDTHS;
using HACCEL = HACCEL__*;
using HMENU = HMENU__*;
using HOLEMENU = HOLEMENU__*;

HX_IID(IOleWindow, "00000114-0000-0000-C000-000000000046")
struct IOleWindow : IUnknown {
    // Of a component its own window while it is active, of a site the one that is to be its parent.
    virtual HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) = 0;
    virtual HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) = 0;
};

HX_IID(IOleInPlaceObject, "00000113-0000-0000-C000-000000000046")
struct IOleInPlaceObject : IOleWindow {
    // Its window goes.
    virtual HRESULT STDMETHODCALLTYPE InPlaceDeactivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE UIDeactivate() = 0;
    // Where it is in the parent, and what of it is to be seen.
    virtual HRESULT STDMETHODCALLTYPE SetObjectRects(const RECT* position, const RECT* clip) = 0;
    virtual HRESULT STDMETHODCALLTYPE ReactivateAndUndo() = 0;
};

struct IOleInPlaceUIWindow;

// What the container's frame tells the component that has the focus.
HX_IID(IOleInPlaceActiveObject, "00000117-0000-0000-C000-000000000046")
struct IOleInPlaceActiveObject : IOleWindow {
    // S_FALSE for a message that is not meant for the component's keys.
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL active) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL active) = 0;
    virtual HRESULT STDMETHODCALLTYPE ResizeBorder(const RECT* border, IOleInPlaceUIWindow* window,
                                                   BOOL is_frame) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) = 0;
};

HX_IID(IOleInPlaceUIWindow, "00000115-0000-0000-C000-000000000046")
struct IOleInPlaceUIWindow : IOleWindow {
    virtual HRESULT STDMETHODCALLTYPE GetBorder(RECT* border) = 0;
    virtual HRESULT STDMETHODCALLTYPE RequestBorderSpace(const RECT* widths) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetBorderSpace(const RECT* widths) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) = 0;
};

HX_IID(IOleInPlaceFrame, "00000116-0000-0000-C000-000000000046")
struct IOleInPlaceFrame : IOleInPlaceUIWindow {
    virtual HRESULT STDMETHODCALLTYPE InsertMenus(HMENU shared, OLEMENUGROUPWIDTHS* widths) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetMenu(HMENU shared, HOLEMENU descriptor, HWND object) = 0;
    virtual HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU shared) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) = 0;
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, WORD id) = 0;
};

struct OLEINPLACEFRAMEINFO {
    UINT cb;  // the caller's
    BOOL fMDIApp;
    HWND hwndFrame;
    HACCEL haccel;
    UINT cAccelEntries;
};

HX_IID(IOleInPlaceSite, "00000119-0000-0000-C000-000000000046")
struct IOleInPlaceSite : IOleWindow {
    // S_FALSE for no.
    virtual HRESULT STDMETHODCALLTYPE CanInPlaceActivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnInPlaceActivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnUIActivate() = 0;
    // `*frame` and `*document` may be null on success; they are the component's to release.
    virtual HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                                       IOleInPlaceUIWindow** document, RECT* position,
                                                       RECT* clip, OLEINPLACEFRAMEINFO* frame_info) = 0;
    virtual HRESULT STDMETHODCALLTYPE Scroll(SIZE extent) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL undoable) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE DiscardUndoState() = 0;
    virtual HRESULT STDMETHODCALLTYPE DeactivateAndUndo() = 0;
    // The component asks for another place.
    virtual HRESULT STDMETHODCALLTYPE OnPosRectChange(const RECT* position) = 0;
};
