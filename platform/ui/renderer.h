// What shows windows: a toolkit on a screen, or none at all. A host sets one before it makes its first
// window; what page code calls is in windows, dialogs and services.h. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/api.h"
#include "platform/ui/control.h"
#include "platform/ui/geometry.h"
#include "platform/ui/painter.h"

namespace hx::ui {

class Dialog;
class IUser;
class ListBox;
class Window;

// Shows one window, or one dialog with its controls; made when the window is created, after all its controls.
// What it shows it asks the window for; here it is told what has changed since.
class IWindowView {
public:
    virtual ~IWindowView() = default;

    virtual void OnMoved() = 0;
    virtual void OnShown() = 0;
    virtual void OnCaption() = 0;
    virtual void OnAccessibleName() = 0;
    virtual void Invalidate(bool now) = 0;
    // Of a dialog:
    virtual void OnControl(Control& control, ControlChange change) = 0;
    virtual void InvalidateControl(Control& control, bool now) = 0;
    virtual void OnFocus() = 0;
    virtual void OnDefaultButton() = 0;
};

// One line of a menu as it is shown; the text has its mnemonic, that of a separator is empty.
struct MenuLine {
    uint32_t id = 0;
    std::wstring text;
    bool enabled = true;
    bool separator = false;
};

enum class BoxIcon { none, information, warning, error };

// The average letter of a font and its height.
struct FontUnits {
    int32_t average_width = 0;
    int32_t height = 0;
};

class IRenderer {
public:
    virtual ~IRenderer() = default;

    virtual std::unique_ptr<IWindowView> MakeView(Window& window) = 0;

    // Returns when the dialog has ended. It is created, and not visible before.
    virtual void RunModal(Dialog& dialog) = 0;
    // Returns when it was closed; there is only OK.
    virtual void ShowMessageBox(Window* owner, const std::wstring& caption, const std::wstring& text,
                                BoxIcon icon) = 0;
    // At that place of the window; the id of what was chosen, 0 for nothing.
    virtual uint32_t RunMenu(Window& owner, Point where, const std::vector<MenuLine>& lines) = 0;

    // Of dialogs with a font of that many points.
    virtual FontUnits DialogFont(const std::wstring& face, uint32_t points) const = 0;
    virtual Size TextExtent(std::wstring_view text) const = 0;
    virtual Colour ColourOf(SystemColour colour) const = 0;
    // Where a window may be of the screen that most of it is on, or of the main one if it is on none.
    virtual Rectangle WorkArea(const Rectangle& window) const = 0;
    // The screen's, at 100 %: 96.
    virtual int32_t VerticalDotsPerInch() const = 0;

    // What it shows windows with, and its version, in words for people: "Qt 6.4.2".
    virtual std::wstring Name() const = 0;

    virtual void ShowWaitCursor(bool shown) = 0;
    // Into the desktop's clipboard, in place of what is there; false if it does not take it.
    virtual bool CopyToClipboard(const std::wstring& text) = 0;
    // What the mouse did that no window has been told of yet.
    virtual void DiscardMouseMessages() = 0;
    // Handles everything that has been posted and has to be painted, without waiting.
    virtual void Pump() = 0;

    // Somebody who does by himself what a person does at the machine.
    virtual IUser& User() = 0;
    // The window as it is shown now, into a PNG file; false if this renderer has no pictures or the file
    // cannot be written.
    virtual bool SavePicture(Window& window, const std::wstring& file_name) = 0;
};

// Null if none was set: then windows cannot be created.
HX_PLATFORM_API IRenderer* CurrentRenderer();
// While no window is created. Gives the one before.
HX_PLATFORM_API std::shared_ptr<IRenderer> SetRenderer(std::shared_ptr<IRenderer> renderer);

}  // namespace hx::ui
