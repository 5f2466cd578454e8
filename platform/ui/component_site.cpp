#include "platform/ui/component_site.h"

#include "platform/com/loader.h"
#include "platform/com/variant.h"
#include "platform/ui/hwnd.h"

namespace hx::ui {

HRESULT ComponentSite::Open(REFCLSID clsid, const Window& parent, const Rectangle& bounds, bool visible) {
    Place(parent, bounds, visible);
    ComPtr<IUnknown> component;
    const HRESULT created =
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, uuid_of<IUnknown>(), component.put_void());
    if (SUCCEEDED(created)) return OpenHere(component.as<IOleObject>());
    m_closed = true;
    return created;
}

HRESULT ComponentSite::Open(const ComPtr<IOleObject>& object, const Window& parent, const Rectangle& bounds,
                            bool visible) {
    Place(parent, bounds, visible);
    return OpenHere(object);
}

// Before there is a component, which may move or close the site while it is made.
void ComponentSite::Place(const Window& parent, const Rectangle& bounds, bool visible) {
    m_parent = parent.Handle();
    m_bounds = bounds;
    m_visible = visible;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the caller's own may go meanwhile
HRESULT ComponentSite::OpenHere(ComPtr<IOleObject> object) {
    const HRESULT result = object ? Embed(object) : E_NOINTERFACE;
    if (SUCCEEDED(result)) return S_OK;
    // Also if it was closed meanwhile: a call that was still running may have undone that.
    m_closed = true;
    m_in_place.reset();
    m_object.reset();
    if (object) TakeDown(object);
    return result;
}

HRESULT ComponentSite::Embed(const ComPtr<IOleObject>& object) {
    if (m_closed) return E_ABORT;
    m_object = object;
    HRESULT result = object->SetClientSite(this);
    if (FAILED(result)) return result;
    if (m_closed) return E_ABORT;

    const Rectangle placed = m_bounds;
    const RECT place = ToRect(placed);
    result = object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, ToHwnd(m_parent), &place);
    if (FAILED(result)) return result;
    if (m_closed) return E_ABORT;
    if (!m_active) return E_FAIL;
    const ComPtr<IOleInPlaceObject> in_place = object.as<IOleInPlaceObject>();
    if (!in_place) return E_NOINTERFACE;
    m_in_place = in_place;

    if (!m_visible) Show(false);
    if (m_bounds != placed) Move(m_bounds);
    return m_closed ? E_ABORT : S_OK;
}

void ComponentSite::Move(const Rectangle& bounds) {
    m_bounds = bounds;
    const ComPtr<IOleInPlaceObject> in_place = m_in_place;
    if (!in_place) return;
    const RECT place = ToRect(bounds);
    in_place->SetObjectRects(&place, &place);
}

void ComponentSite::Show(bool visible) {
    m_visible = visible;
    if (!IsOpen()) return;
    const ComPtr<IOleObject> object = m_object;
    const RECT place = ToRect(m_bounds);
    const HRESULT done =
        object->DoVerb(visible ? OLEIVERB_SHOW : OLEIVERB_HIDE, nullptr, this, 0, ToHwnd(m_parent), &place);
    if (SUCCEEDED(done)) return;
    // It cannot, so it is done for it.
    if (Window* const window = ComponentWindow()) window->Show(visible);
}

void ComponentSite::SetAccessibleName(const std::wstring& name) const {
    if (name.empty()) return;
    if (Window* const window = ComponentWindow()) window->SetAccessibleName(name);
}

Window* ComponentSite::ComponentWindow() const {
    const ComPtr<IOleInPlaceObject> in_place = m_in_place;
    HWND window = nullptr;
    if (!in_place || FAILED(in_place->GetWindow(&window))) return nullptr;
    return Window::FromHandle(ToHandle(window));
}

void ComponentSite::Close() {
    m_closed = true;
    m_in_place.reset();
    const ComPtr<IOleObject> object = std::move(m_object);
    if (object) TakeDown(object);
}

void ComponentSite::TakeDown(const ComPtr<IOleObject>& object) {
    if (const ComPtr<IOleInPlaceObject> in_place = object.as<IOleInPlaceObject>()) {
        in_place->InPlaceDeactivate();
    }
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
}

HRESULT ComponentSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (!moniker) return E_POINTER;
    *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT ComponentSite::GetContainer(IOleContainer** container) {
    if (!container) return E_POINTER;
    *container = nullptr;
    return E_NOINTERFACE;
}

HRESULT ComponentSite::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = m_closed ? nullptr : ToHwnd(m_parent);
    return m_closed ? E_FAIL : S_OK;
}

HRESULT ComponentSite::OnInPlaceActivate() {
    if (m_closed) return E_FAIL;
    m_active = true;
    return S_OK;
}

HRESULT ComponentSite::OnInPlaceDeactivate() {
    m_active = false;
    return S_OK;
}

HRESULT ComponentSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                        RECT* position, RECT* clip, OLEINPLACEFRAMEINFO* frame_info) {
    if (!frame || !document || !position || !clip || !frame_info) return E_POINTER;
    *frame = nullptr;
    *document = nullptr;
    *position = {};
    *clip = {};
    *frame_info = {frame_info->cb, FALSE, nullptr, nullptr, 0};
    if (m_closed) return E_FAIL;
    *position = ToRect(m_bounds);
    *clip = *position;
    const Window* window = Window::FromHandle(m_parent);
    while (window && window->Kind() == WindowKind::child && window->Parent()) window = window->Parent();
    if (window) frame_info->hwndFrame = ToHwnd(window->Handle());
    return S_OK;
}

HRESULT ComponentSite::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT ComponentSite::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    return E_NOTIMPL;
}

HRESULT ComponentSite::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids || count == 0) return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
}

HRESULT ComponentSite::Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                              EXCEPINFO*, UINT*) {
    if (!(reserved == IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    Variant value;
    if (member == DISPID_AMBIENT_LOCALEID) {
        value = Variant(static_cast<int32_t>(m_locale));
    } else if (member == DISPID_AMBIENT_USERMODE) {
        value = Variant(true);
    } else {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (!(flags & DISPATCH_PROPERTYGET)) return DISP_E_MEMBERNOTFOUND;
    if (result) *result = value.detach();
    return S_OK;
}

}  // namespace hx::ui
