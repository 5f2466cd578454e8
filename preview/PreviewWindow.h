// The preview's window: asks for the newest lines as often as they can be told apart, draws them, and tells
// those who do not see it what it hints at. Asks for nothing while it is not to be seen. On the thread of the
// user interface.
#pragma once

#include <chrono>
#include <memory>

#include "platform/ui/window.h"
#include "preview/PicturePainter.h"

namespace hx::preview {

class PreviewWindow final : public ui::Window {
public:
    // About thirty pictures a second.
    static constexpr std::chrono::milliseconds kShortestInterval{33};
    // How long a hint has to last before it is read out.
    static constexpr std::chrono::milliseconds kHintLasts{1000};

    PreviewWindow(std::shared_ptr<NewestCycles> cycles, PreviewTexts texts, bool blend);
    ~PreviewWindow() override;

    const PreviewScene& Scene() const { return m_scene; }
    void OnPaint(ui::IPainter& painter) override;
    void OnAppearanceChanged() override;

protected:
    void OnMessage(const WindowMessage& message) override;
    void OnSize(const ui::Size& size) override;
    void OnShown(bool shown) override;

private:
    // These do not throw.
    void Refresh();
    // False if there is no memory for it.
    bool RefreshLater(std::chrono::milliseconds delay);
    // Reads out a hint that has not been, as soon as it has lasted.
    void HintLasts();

    void TellHint();

    const std::shared_ptr<NewestCycles> m_cycles;
    PreviewScene m_scene;
    PicturePainter m_painter;
    std::chrono::steady_clock::time_point m_refreshed;
    std::chrono::steady_clock::time_point m_hint_since;
    bool m_unpainted = false;  // the scene has changed, and nobody asked for a picture of it
    bool m_refresh_waits = false;
    bool m_telling_waits = false;
    Hint m_told_hint = Hint::none;
    std::wstring m_name;       // that others gave it
    std::wstring m_told_name;  // with the hint
};

}  // namespace hx::preview
