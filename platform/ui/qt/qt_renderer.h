// Windows as the toolkit's widgets. Made once per process; on the thread of the user interface.
#pragma once

#include "platform/ui/qt/message_pump.h"
#include "platform/ui/qt/qt_user.h"
#include "platform/ui/renderer.h"

namespace hx::ui {

class QtRenderer final : public IRenderer {
public:
    std::unique_ptr<IWindowView> MakeView(Window& window) override;
    void RunModal(Dialog& dialog) override;
    void ShowMessageBox(Window* owner, const std::wstring& caption, const std::wstring& text,
                        BoxIcon icon) override;
    uint32_t RunMenu(Window& owner, Point where, const std::vector<MenuLine>& lines) override;
    FontUnits DialogFont(const std::wstring& face, uint32_t points) const override;
    Size TextExtent(std::wstring_view text) const override;
    Colour ColourOf(SystemColour colour) const override;
    Rectangle WorkArea(const Rectangle& window) const override;
    int32_t VerticalDotsPerInch() const override;
    std::wstring Name() const override;
    void ShowWaitCursor(bool shown) override;
    bool CopyToClipboard(const std::wstring& text) override;
    void DiscardMouseMessages() override;
    void Pump() override;
    IUser& User() override { return m_user; }
    bool SavePicture(Window& window, const std::wstring& file_name) override;

private:
    MessagePump m_pump;
    QtUser m_user;
};

}  // namespace hx::ui
