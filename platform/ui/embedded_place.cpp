#include "platform/ui/embedded_place.h"

#include <utility>

#include "platform/com/boundary.h"
#include "platform/ui/hwnd.h"

namespace hx::ui {
namespace {

constexpr uint32_t kDestroy = 1;

class Flag {
public:
    explicit Flag(bool& flag) : m_flag(flag) { m_flag = true; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;
    ~Flag() { m_flag = false; }

private:
    bool& m_flag;
};

}  // namespace

EmbeddedWindow::Place::Place(IOleClientSite* site, std::shared_ptr<const void> keeps_loaded)
    : m_keeps_loaded(std::move(keeps_loaded)), m_site(site) {}

EmbeddedWindow::Place::~Place() {
    Deactivate();
}

HRESULT EmbeddedWindow::Place::Activate(IWindowMaker& maker) {
    if (Active()) return S_OK;
    if (m_activating) return OLEOBJ_S_CANNOT_DOVERB_NOW;
    const Flag activating(m_activating);
    Deactivate();  // its window may have gone with the parent
    const ComPtr<IOleInPlaceSite> in_place = m_site.as<IOleInPlaceSite>();
    if (!in_place) return E_NOINTERFACE;

    const uint32_t deactivations = m_deactivations;
    const HRESULT allowed = in_place->CanInPlaceActivate();
    if (allowed != S_OK) return FAILED(allowed) ? allowed : E_FAIL;
    if (m_deactivations != deactivations) return E_ABORT;
    const HRESULT entered = in_place->OnInPlaceActivate();
    if (FAILED(entered)) return entered;
    m_in_place = in_place;
    HRESULT shown = E_ABORT;
    if (m_deactivations == deactivations) {
        shown = AtBoundary([&] { return MakeShownWindow(maker, *in_place); });
        if (m_deactivations != deactivations) return E_ABORT;
    }
    if (FAILED(shown)) Deactivate();
    return shown;
}

HRESULT EmbeddedWindow::Place::MakeShownWindow(IWindowMaker& maker, IOleInPlaceSite& in_place) {
    const uint32_t deactivations = m_deactivations;
    Window* parent = nullptr;
    Rectangle bounds;
    const HRESULT found = FindParent(in_place, parent, bounds);
    if (FAILED(found)) return found;
    if (m_deactivations != deactivations) return E_ABORT;

    const std::shared_ptr<Window> window = maker.MakeWindow();
    if (!window) return E_FAIL;
    window->Create(WindowKind::child, parent, bounds);
    if (!window->IsCreated()) return E_FAIL;
    m_window = window;
    window->WatchFocus([weak = weak_from_this()](bool within) {
        const std::shared_ptr<Place> place = weak.lock();
        if (place) within ? place->UIActivate() : place->UIDeactivate();
    });
    const HRESULT ready = maker.OnWindowCreated(*window);
    if (FAILED(ready)) return ready;
    if (m_deactivations != deactivations) return E_ABORT;
    window->Show(true);
    m_site->ShowObject();
    return S_OK;
}

HRESULT EmbeddedWindow::Place::FindParent(IOleInPlaceSite& in_place, Window*& parent, Rectangle& bounds) {
    HWND handle = nullptr;
    HRESULT result = in_place.GetWindow(&handle);
    if (FAILED(result)) return result;
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    RECT position{};
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof(info);
    result = in_place.GetWindowContext(frame.put(), document.put(), &position, &clip, &info);
    if (FAILED(result)) return result;
    parent = Window::FromHandle(ToHandle(handle));
    bounds = ToRectangle(position);
    return parent && parent->IsCreated() ? S_OK : OLE_E_INVALIDHWND;
}

HRESULT EmbeddedWindow::Place::UIActivate() {
    if (m_ui_active || !m_in_place) return S_OK;
    m_ui_active = true;
    const ComPtr<IOleInPlaceSite> in_place = m_in_place;
    const HRESULT told = in_place->OnUIActivate();
    if (FAILED(told)) m_ui_active = false;
    return told;
}

HRESULT EmbeddedWindow::Place::UIDeactivate() {
    if (!std::exchange(m_ui_active, false)) return S_OK;
    const ComPtr<IOleInPlaceSite> in_place = m_in_place;
    if (in_place) in_place->OnUIDeactivate(FALSE);
    return S_OK;
}

HRESULT EmbeddedWindow::Place::Deactivate() {
    ++m_deactivations;
    if (!m_in_place) return S_OK;
    UIDeactivate();
    const ComPtr<IOleInPlaceSite> in_place = std::move(m_in_place);
    const std::shared_ptr<Window> window = std::move(m_window);
    if (window) window->Destroy();
    if (in_place) in_place->OnInPlaceDeactivate();
    return S_OK;
}

void EmbeddedWindow::Place::DestroyElsewhere(std::shared_ptr<Place> place) noexcept {
    const WindowHandle handle = place->Handle();
    Place& that = *place;
    // From here on it destroys itself when the message comes. Without its thread nothing of it can be
    // destroyed, and it stays.
    that.m_own = std::move(place);
    AtBoundary([&] { return PostWindowMessage(handle, {kDestroy, 0, 0}) ? S_OK : S_FALSE; });
}

void EmbeddedWindow::Place::OnMessage(const WindowMessage& message) {
    if (message.id != kDestroy) return;
    const std::shared_ptr<Place> own = std::move(m_own);
}

}  // namespace hx::ui
