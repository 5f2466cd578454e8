#include "platform/ui/embedded_window.h"

#include <utility>

#include "platform/com/variant.h"
#include "platform/system/locale_data.h"
#include "platform/ui/embedded_place.h"
#include "platform/ui/hwnd.h"

namespace hx::ui {

EmbeddedWindow::EmbeddedWindow(SIZEL extent, std::shared_ptr<const void> keeps_loaded)
    : m_extent(extent), m_keeps_loaded(std::move(keeps_loaded)) {}

EmbeddedWindow::~EmbeddedWindow() {
    if (!m_place) return;
    if (m_place->IsOnItsThread()) {
        m_place->Deactivate();
    } else {
        Place::DestroyElsewhere(std::move(m_place));
    }
}

HRESULT EmbeddedWindow::SetClientSite(IOleClientSite* site) {
    if (site && m_place && m_place->Site() == site) return S_OK;
    // Made first, so that a failure leaves what there is.
    std::shared_ptr<Place> place = site ? std::make_shared<Place>(site, m_keeps_loaded) : nullptr;
    m_place.swap(place);
    if (place) place->Deactivate();
    return S_OK;
}

HRESULT EmbeddedWindow::GetClientSite(IOleClientSite** site) const {
    if (!site) return E_POINTER;
    return ComPtr<IOleClientSite>(m_place ? m_place->Site() : nullptr).copy_to(site);
}

HRESULT EmbeddedWindow::DoVerb(IWindowMaker& maker, LONG verb, const RECT* place) {
    const std::shared_ptr<Place> here = m_place;
    switch (verb) {
        case OLEIVERB_HIDE:
            if (!here) return S_OK;
            here->UIDeactivate();
            if (Window* const window = here->Active()) window->Show(false);
            return S_OK;
        case OLEIVERB_PRIMARY:
        case OLEIVERB_SHOW:
        case OLEIVERB_UIACTIVATE:
        case OLEIVERB_INPLACEACTIVATE:
            break;
        default:
            return verb < 0 ? E_NOTIMPL : OLEOBJ_S_INVALIDVERB;
    }
    if (!here) return E_UNEXPECTED;
    const HRESULT active = here->Activate(maker);
    if (active != S_OK) return active;
    if (Window* const window = here->Active()) {
        if (place) window->Move(ToRectangle(*place));
        window->Show(true);
    }
    if (verb != OLEIVERB_PRIMARY && verb != OLEIVERB_UIACTIVATE) return S_OK;
    const HRESULT told = here->UIActivate();
    Window* const window = SUCCEEDED(told) ? here->Active() : nullptr;
    if (window && !window->FocusedWithin()) window->FocusFirst();
    return told;
}

HRESULT EmbeddedWindow::SetExtent(DWORD aspect, const SIZEL* size) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!size) return E_POINTER;
    if (size->cx < 0 || size->cy < 0) return E_INVALIDARG;
    m_extent = *size;
    return S_OK;
}

HRESULT EmbeddedWindow::GetExtent(DWORD aspect, SIZEL* size) const {
    if (!size) return E_POINTER;
    *size = {};
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *size = m_extent;
    return S_OK;
}

HRESULT EmbeddedWindow::InPlaceDeactivate() {
    const std::shared_ptr<Place> place = m_place;
    return place ? place->Deactivate() : S_OK;
}

HRESULT EmbeddedWindow::UIDeactivate() {
    const std::shared_ptr<Place> place = m_place;
    return place ? place->UIDeactivate() : S_OK;
}

HRESULT EmbeddedWindow::SetObjectRects(const RECT* position) {
    if (!position) return E_POINTER;
    Window* const window = Active();
    if (!window) return OLE_E_NOT_INPLACEACTIVE;
    window->Move(ToRectangle(*position));
    return S_OK;
}

HRESULT EmbeddedWindow::GetWindow(HWND* window) const {
    if (!window) return E_POINTER;
    *window = nullptr;
    const Window* const active = Active();
    if (!active) return OLE_E_NOT_INPLACEACTIVE;
    *window = ToHwnd(active->Handle());
    return S_OK;
}

Window* EmbeddedWindow::Active() const {
    return m_place ? m_place->Active() : nullptr;
}

std::optional<std::string> EmbeddedWindow::ContainerLanguage() const {
    const Variant value = Ambient(DISPID_AMBIENT_LOCALEID);
    if (value.type() != VT_I4) return std::nullopt;
    return LocaleOfLcid(static_cast<uint32_t>(value->lVal));
}

bool EmbeddedWindow::IsInUserMode() const {
    const Variant value = Ambient(DISPID_AMBIENT_USERMODE);
    return value.type() != VT_BOOL || value->boolVal != VARIANT_FALSE;
}

Variant EmbeddedWindow::Ambient(DISPID property) const {
    if (!m_place) return {};
    const ComPtr<IDispatch> ambient = ComPtr<IOleClientSite>(m_place->Site()).as<IDispatch>();
    if (!ambient) return {};
    DISPPARAMS none{};
    Variant value;
    const HRESULT result =
        ambient->Invoke(property, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, value.put(), nullptr, nullptr);
    return SUCCEEDED(result) ? std::move(value) : Variant();
}

}  // namespace hx::ui
