// ControlObject: a class of components that containers embed in their windows, with everything that
// containers ask of them but the window itself:
//     class Gauge final : public hx::ui::ControlObject<Gauge, hx::FreeThreaded, IGauge> {
//     public:
//         static const hx::ui::ControlClass kControlClass;
//     private:
//         std::unique_ptr<hx::ui::Window> MakeWindow() override;
//     };
// DispatchControlObject is the same for a class that is called by name, too (implements_dispatch.h).
// Containers call on the thread of the user interface. The last reference of a FreeThreaded object may be
// dropped on any thread, also while its window is still there: the window goes when its own thread next
// dispatches messages. A container that calls Close never leaves it so far.
#pragma once

#include <cstring>
#include <cwchar>

#include "platform/com/boundary.h"
#include "platform/com/class_table.h"
#include "platform/com/implements_dispatch.h"
#include "platform/com/loader.h"
#include "platform/ui/embedded_window.h"

namespace hx::ui {

// What is the same for all objects of a class.
struct ControlClass {
    CLSID clsid;
    const wchar_t* type_name;  // for people
    DWORD misc_status;         // OLEMISC_...
    SIZEL extent;              // at first; ToHimetric (hwnd.h)
};

template <class Self, class Base>
class ControlMethods : public Base, private IWindowMaker {
public:
    // IOleObject; there is nothing to be stored, linked or listened to.
    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override {
        return AtBoundary([&] { return m_window.SetClientSite(site); });
    }
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override {
        return m_window.GetClientSite(site);
    }
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Close(DWORD) override {
        return AtBoundary([&] { return m_window.InPlaceDeactivate(); });
    }
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override { return None(moniker); }
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject** data) override { return None(data); }
    // Those of showing and hiding, and the primary one, which shows.
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, MSG*, IOleClientSite*, LONG, HWND, const RECT* at) override {
        return AtBoundary([&] { return m_window.DoVerb(*this, verb, at); });
    }
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override { return None(verbs); }
    HRESULT STDMETHODCALLTYPE Update() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE IsUpToDate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* clsid) override {
        if (!clsid) return E_POINTER;
        *clsid = Self::kControlClass.clsid;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR* name) override {
        if (!name) return E_POINTER;
        const wchar_t* const text = Self::kControlClass.type_name;
        const size_t bytes = (std::wcslen(text) + 1) * sizeof(wchar_t);
        *name = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
        if (!*name) return E_OUTOFMEMORY;
        std::memcpy(*name, text, bytes);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) override {
        return m_window.SetExtent(aspect, size);
    }
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) override {
        return m_window.GetExtent(aspect, size);
    }
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink*, DWORD* connection) override {
        if (!connection) return E_POINTER;
        *connection = 0;
        return OLE_E_ADVISENOTSUPPORTED;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** list) override {
        return None(list, OLE_E_ADVISENOTSUPPORTED);
    }
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override {
        if (!status) return E_POINTER;
        *status = aspect == DVASPECT_CONTENT ? Self::kControlClass.misc_status : 0;
        return aspect == DVASPECT_CONTENT ? S_OK : DV_E_DVASPECT;
    }
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

    // IOleInPlaceObject. What is not to be seen of the window lies outside its parent, which cuts it off.
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override { return m_window.GetWindow(window); }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override {
        return AtBoundary([&] { return m_window.InPlaceDeactivate(); });
    }
    HRESULT STDMETHODCALLTYPE UIDeactivate() override {
        return AtBoundary([&] { return m_window.UIDeactivate(); });
    }
    HRESULT STDMETHODCALLTYPE SetObjectRects(const RECT* position, const RECT*) override {
        return AtBoundary([&] { return m_window.SetObjectRects(position); });
    }
    HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override { return E_NOTIMPL; }

protected:
    ControlMethods() : m_window(Self::kControlClass.extent, std::make_shared<ModuleLock>()) {}

    // IWindowMaker
    HRESULT OnWindowCreated(Window&) override { return S_OK; }

    // Its window, null unless active in place; the container's language.
    const EmbeddedWindow& Embedded() const { return m_window; }

private:
    template <class I>
    static HRESULT None(I** out, HRESULT result = E_NOTIMPL) {
        if (!out) return E_POINTER;
        *out = nullptr;
        return result;
    }

    EmbeddedWindow m_window;
};

template <class Self, class Threading, class... Others>
using ControlObject =
    ControlMethods<Self, Implements<Self, Threading, IOleObject, IOleWindow, IOleInPlaceObject, Others...>>;

template <class Self, class Threading, class First, class... Others>
using DispatchControlObject = ControlMethods<
    Self, ImplementsDispatch<Self, Threading, First, Others..., IOleObject, IOleWindow, IOleInPlaceObject>>;

}  // namespace hx::ui
