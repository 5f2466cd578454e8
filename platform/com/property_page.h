// Property pages: components that show and change the properties of other components, in a frame that
// somebody else makes around several of them. A control names its pages' classes through
// ISpecifyPropertyPages; the frame makes the pages, gives each a site and the objects, and shows one at a
// time. All calls come on the thread of the user interface.
#pragma once

#include "platform/com/dispatch.h"
#include "platform/com/window_types.h"

// A counted array; `pElems` to be freed with CoTaskMemFree.
struct CAUUID {
    ULONG cElems;
    GUID* pElems;
};

HX_IID(ISpecifyPropertyPages, "B196B28B-BAB4-101A-B69C-00AA00341D07")
struct ISpecifyPropertyPages : IUnknown {
    // The CLSIDs of the pages, in the order in which they are to stand.
    virtual HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) = 0;
};

// Why a page calls OnStatusChange
inline constexpr DWORD PROPPAGESTATUS_DIRTY = 1;
inline constexpr DWORD PROPPAGESTATUS_VALIDATE = 2;
inline constexpr DWORD PROPPAGESTATUS_CLEAN = 4;

HX_IID(IPropertyPageSite, "B196B28C-BAB4-101A-B69C-00AA00341D07")
struct IPropertyPageSite : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetLocaleID(LCID* locale) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown** container) = 0;
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) = 0;
};

// The strings are to be freed with CoTaskMemFree, and may be null.
struct PROPPAGEINFO {
    ULONG cb;  // the caller's
    LPOLESTR pszTitle;
    SIZE size;  // in pixels
    LPOLESTR pszDocString;
    LPOLESTR pszHelpFile;
    DWORD dwHelpContext;
};

// How a page is shown
inline constexpr UINT SW_HIDE = 0;
inline constexpr UINT SW_SHOWNORMAL = 1;
inline constexpr UINT SW_SHOW = 5;  // as it last was

HX_IID(IPropertyPage, "B196B28D-BAB4-101A-B69C-00AA00341D07")
struct IPropertyPage : IUnknown {
    // Null takes it away again.
    virtual HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* site) = 0;
    // Makes the page's window, hidden; Deactivate destroys it.
    virtual HRESULT STDMETHODCALLTYPE Activate(HWND parent, const RECT* bounds, BOOL modal) = 0;
    virtual HRESULT STDMETHODCALLTYPE Deactivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* info) = 0;
    // Whose properties are shown; none takes them away again.
    virtual HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown** objects) = 0;
    // SW_...
    virtual HRESULT STDMETHODCALLTYPE Show(UINT command) = 0;
    virtual HRESULT STDMETHODCALLTYPE Move(const RECT* bounds) = 0;
    // S_OK if there is something to apply, else S_FALSE.
    virtual HRESULT STDMETHODCALLTYPE IsPageDirty() = 0;
    virtual HRESULT STDMETHODCALLTYPE Apply() = 0;
    virtual HRESULT STDMETHODCALLTYPE Help(LPCOLESTR folder) = 0;
    // S_FALSE for a message that the page has no use for.
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) = 0;
};
