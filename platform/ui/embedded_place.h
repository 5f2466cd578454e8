// The place of one embedded component: its container's site, and the window while it is active there. Made,
// used and destroyed on the thread of the user interface. A site may call back at every call: it may close or
// move the component that is just being activated. Used by EmbeddedWindow alone.
#pragma once

#include <memory>
#include <thread>

#include "platform/com/comptr.h"
#include "platform/ui/embedded_window.h"
#include "platform/ui/message_window.h"

namespace hx::ui {

class EmbeddedWindow::Place final : public MessageWindow, public std::enable_shared_from_this<Place> {
public:
    Place(IOleClientSite* site, std::shared_ptr<const void> keeps_loaded);
    ~Place() override;

    bool IsOnItsThread() const { return std::this_thread::get_id() == m_thread; }
    IOleClientSite* Site() const { return m_site.get(); }
    Window* Active() const { return m_window && m_window->IsCreated() ? m_window.get() : nullptr; }

    // S_OK if it is active.
    HRESULT Activate(IWindowMaker& maker);
    HRESULT UIActivate();
    HRESULT UIDeactivate();
    // Twice is no error.
    HRESULT Deactivate();

    // Destroys `place` on its own thread, which is not this one.
    static void DestroyElsewhere(std::shared_ptr<Place> place) noexcept;

private:
    void OnMessage(const WindowMessage& message) override;
    HRESULT MakeShownWindow(IWindowMaker& maker, IOleInPlaceSite& in_place);
    static HRESULT FindParent(IOleInPlaceSite& in_place, Window*& parent, Rectangle& bounds);

    const std::thread::id m_thread = std::this_thread::get_id();
    const std::shared_ptr<const void> m_keeps_loaded;  // outlives the window
    const ComPtr<IOleClientSite> m_site;
    ComPtr<IOleInPlaceSite> m_in_place;  // while it has been told that the component is active
    std::shared_ptr<Window> m_window;    // shared with the call that makes it
    bool m_activating = false;
    bool m_ui_active = false;
    uint32_t m_deactivations = 0;
    std::shared_ptr<Place> m_own;  // on the way to its own thread
};

}  // namespace hx::ui
