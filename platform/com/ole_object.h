// IOleObject, which every embedded component has, and IOleClientSite, which its container gives it. All calls
// come on the thread of the user interface. docs/embedding.md tells their order.
#pragma once

#include "platform/com/unknown.h"
#include "platform/com/window_types.h"

struct IAdviseSink;
struct IDataObject;
struct IEnumOLEVERB;
struct IEnumSTATDATA;
struct IMoniker;
struct IOleContainer;
struct LOGPALETTE;

// What a component can be asked to do
inline constexpr LONG OLEIVERB_PRIMARY = 0;
inline constexpr LONG OLEIVERB_SHOW = -1;
inline constexpr LONG OLEIVERB_HIDE = -3;
inline constexpr LONG OLEIVERB_UIACTIVATE = -4;
inline constexpr LONG OLEIVERB_INPLACEACTIVATE = -5;
inline constexpr LONG OLEIVERB_PROPERTIES = -7;

// What becomes of its data when it is closed
inline constexpr DWORD OLECLOSE_SAVEIFDIRTY = 0;
inline constexpr DWORD OLECLOSE_NOSAVE = 1;
inline constexpr DWORD OLECLOSE_PROMPTSAVE = 2;

// What containers may know of a class before they make an object
inline constexpr DWORD OLEMISC_RECOMPOSEONRESIZE = 0x00001;
inline constexpr DWORD OLEMISC_CANTLINKINSIDE = 0x00010;
inline constexpr DWORD OLEMISC_INSIDEOUT = 0x00080;
inline constexpr DWORD OLEMISC_ACTIVATEWHENVISIBLE = 0x00100;
inline constexpr DWORD OLEMISC_SETCLIENTSITEFIRST = 0x20000;

inline constexpr DWORD DVASPECT_CONTENT = 1;

HX_IID(IOleClientSite, "00000118-0000-0000-C000-000000000046")
struct IOleClientSite : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SaveObject() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) = 0;
    // The component is to be seen: the container scrolls to it, or does nothing.
    virtual HRESULT STDMETHODCALLTYPE ShowObject() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL shown) = 0;
    virtual HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() = 0;
};

HX_IID(IOleObject, "00000112-0000-0000-C000-000000000046")
struct IOleObject : IUnknown {
    // Null takes it away again: a component holds nothing of its container after that.
    virtual HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR container, LPCOLESTR object) = 0;
    // It has no window after that, whatever is answered.
    virtual HRESULT STDMETHODCALLTYPE Close(DWORD save) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetMoniker(DWORD which, IMoniker* moniker) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) = 0;
    virtual HRESULT STDMETHODCALLTYPE InitFromData(IDataObject* data, BOOL creation, DWORD reserved) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD reserved, IDataObject** data) = 0;
    // `message`, `parent` and `place` may be null.
    virtual HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index,
                                             HWND parent, const RECT* place) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) = 0;
    virtual HRESULT STDMETHODCALLTYPE Update() = 0;
    virtual HRESULT STDMETHODCALLTYPE IsUpToDate() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* clsid) = 0;
    // To be freed with CoTaskMemFree.
    virtual HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) = 0;
    virtual HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) = 0;
    virtual HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** connections) = 0;
    // OLEMISC_...
    virtual HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE* palette) = 0;
};
