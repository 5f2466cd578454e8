// One component inside a window: a container makes a site for each. It creates the component, activates it in
// place and takes it down again; to the component it is what a container is. On the thread of the user
// interface, apart from counting.
//
// A component may answer any call with a failure, and may call back at any call: also so that the site is
// closed, or the window destroyed, while a method of it runs. Whoever calls holds a reference meanwhile.
#pragma once

#include <string>

#include "platform/com/implements.h"
#include "platform/com/ole_control.h"
#include "platform/ui/window.h"

namespace hx::ui {

class HX_PLATFORM_API ComponentSite final
    : public Implements<ComponentSite, FreeThreaded, IOleClientSite, IOleWindow, IOleInPlaceSite, IDispatch> {
public:
    // The number of the language that components in it are to speak.
    explicit ComponentSite(LCID locale) : m_locale(locale) {}

    // Once. Bounds are in the window, which is created. What the component or the loader says; E_ABORT if it
    // was closed meanwhile, E_FAIL if the component did not activate itself though it says so. On failure it
    // is closed.
    HRESULT Open(REFCLSID clsid, const Window& parent, const Rectangle& bounds, bool visible);
    // The same with one that the container has created and set up. On failure it is taken down like any
    // other.
    HRESULT Open(const ComPtr<IOleObject>& object, const Window& parent, const Rectangle& bounds,
                 bool visible);
    bool IsOpen() const { return static_cast<bool>(m_in_place); }
    // Empty unless open.
    ComPtr<IUnknown> Component() const { return IsOpen() ? m_object.as<IUnknown>() : nullptr; }

    // That the component shows itself in; null unless open, or if it is none of this process.
    Window* ComponentWindow() const;

    void Move(const Rectangle& bounds);
    void Show(bool visible);
    // Of the component's window, if it is one of this process; an empty name leaves it its own.
    void SetAccessibleName(const std::wstring& name) const;
    // Nothing of the component is held after that.
    void Close();

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override;
    HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleInPlaceSite. A component has no say in its place, and there are no menus and tool bars to share.
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return m_closed ? S_FALSE : S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override;
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               RECT* position, RECT* clip,
                                               OLEINPLACEFRAMEINFO* frame_info) override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override;
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(const RECT*) override { return E_NOTIMPL; }

    // IDispatch: the properties of the surroundings, DISPID_AMBIENT_...
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* bad_argument) override;

private:
    void Place(const Window& parent, const Rectangle& bounds, bool visible);
    HRESULT OpenHere(ComPtr<IOleObject> object);
    HRESULT Embed(const ComPtr<IOleObject>& object);
    static void TakeDown(const ComPtr<IOleObject>& object);
    const LCID m_locale;
    WindowHandle m_parent = 0;
    Rectangle m_bounds;
    bool m_visible = true;
    bool m_closed = false;
    bool m_active = false;  // says the component
    ComPtr<IOleObject> m_object;
    ComPtr<IOleInPlaceObject> m_in_place;  // once it is open
};

}  // namespace hx::ui
