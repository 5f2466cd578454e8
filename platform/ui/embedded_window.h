// What a component that is embedded in a container's window knows of its container, and its window there: the
// part of control_object.h that is the same for every class. On the thread of the user interface; only the
// destructor may run on another one.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/com/ole_control.h"
#include "platform/ui/window.h"

namespace hx::ui {

// What the class has to say.
class IWindowMaker {
public:
    // Not created yet. Null or an exception fail the activation. It may be there for a moment after the
    // object is gone (EmbeddedWindow), so what they have in common belongs to both.
    virtual std::unique_ptr<Window> MakeWindow() = 0;
    // It was created and is not to be seen yet; a failure is that of the activation.
    virtual HRESULT OnWindowCreated(Window& window) = 0;

protected:
    ~IWindowMaker() = default;
};

class HX_PLATFORM_API EmbeddedWindow {
public:
    // `keeps_loaded` is held as long as there is anything of the class's library in use here.
    EmbeddedWindow(SIZEL extent, std::shared_ptr<const void> keeps_loaded);
    EmbeddedWindow(const EmbeddedWindow&) = delete;
    EmbeddedWindow& operator=(const EmbeddedWindow&) = delete;
    // A window that is still there, and what is held of the container, goes now on the container's thread; on
    // another one as soon as the container's thread dispatches its messages. If that has ended, they stay.
    ~EmbeddedWindow();

    // As the methods of the same names of IOleObject, IOleInPlaceObject and IOleWindow. They may throw.
    HRESULT SetClientSite(IOleClientSite* site);
    HRESULT GetClientSite(IOleClientSite** site) const;
    HRESULT DoVerb(IWindowMaker& maker, LONG verb, const RECT* place);
    HRESULT SetExtent(DWORD aspect, const SIZEL* size);
    HRESULT GetExtent(DWORD aspect, SIZEL* size) const;
    HRESULT InPlaceDeactivate();
    HRESULT UIDeactivate();
    HRESULT SetObjectRects(const RECT* position);
    HRESULT GetWindow(HWND* window) const;

    // Null unless active in place.
    Window* Active() const;
    // That of the container's texts ("de-DE"); nothing if it does not say.
    std::optional<std::string> ContainerLanguage() const;
    // False while somebody designs the container's dialog; true if it does not say.
    bool IsInUserMode() const;

private:
    class Place;

    // A property of the container; empty if it does not say.
    Variant Ambient(DISPID property) const;

    SIZEL m_extent;
    const std::shared_ptr<const void> m_keeps_loaded;
    std::shared_ptr<Place> m_place;  // while there is a site
};

}  // namespace hx::ui
