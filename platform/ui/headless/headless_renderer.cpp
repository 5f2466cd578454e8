#include "platform/ui/headless/headless_renderer.h"

#include <algorithm>

#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/headless/headless_painter.h"
#include "platform/ui/headless/headless_user.h"
#include "platform/ui/headless/headless_view.h"

namespace hx::ui {
namespace {

constexpr FontUnits kFont = {6, 13};
constexpr int32_t kDotsPerInch = 96;
constexpr Rectangle kScreen{0, 0, 1920, 1080};

class Renderer final : public HeadlessRenderer {
public:
    std::unique_ptr<IWindowView> MakeView(Window& window) override {
        return std::make_unique<HeadlessView>(window, m_handles);
    }

    // There is nobody to wait for.
    void RunModal(Dialog& dialog) override {
        ++m_unscripted;
        dialog.OnClose();
        if (!dialog.HasEnded()) dialog.EndDialog(static_cast<int32_t>(IDCANCEL));
    }
    void ShowMessageBox(Window* /*owner*/, const std::wstring& /*caption*/, const std::wstring& /*text*/,
                        BoxIcon /*icon*/) override {
        ++m_unscripted;
    }
    uint32_t RunMenu(Window& /*owner*/, Point /*where*/, const std::vector<MenuLine>& /*lines*/) override {
        ++m_unscripted;
        return 0;
    }

    FontUnits DialogFont(const std::wstring& /*face*/, uint32_t /*points*/) const override { return kFont; }
    Size TextExtent(std::wstring_view text) const override { return HeadlessTextExtent(text); }
    Colour ColourOf(SystemColour colour) const override { return HeadlessColour(colour, m_dark); }
    Rectangle WorkArea(const Rectangle& /*window*/) const override { return kScreen; }
    int32_t VerticalDotsPerInch() const override { return kDotsPerInch; }

    std::wstring Name() const override { return L"no screen"; }
    void ShowWaitCursor(bool shown) override { m_wait_cursors += shown ? 1 : -1; }
    bool CopyToClipboard(const std::wstring& text) override {
        m_user.SetClipboard(text);
        return true;
    }
    void DiscardMouseMessages() override { m_discarded += m_user.DropQueued(); }
    void Pump() override {
        constexpr int kRounds = 100;  // whoever posts to himself for ever does not hold up the caller
        for (int round = 0; round < kRounds; ++round) {
            if (m_user.DoQueued() + DispatchWaitingMessages() == 0) break;
        }
    }
    IUser& User() override { return m_user; }
    bool SavePicture(Window& /*window*/, const std::wstring& /*file_name*/) override { return false; }

    std::vector<PaintStep> Paint(Window& window) override {
        HeadlessPainter painter(m_dark, m_scale);
        window.OnPaint(painter);
        return painter.TakeSteps();
    }
    std::vector<PaintStep> PaintRow(ListBox& list, int32_t index) override {
        HeadlessPainter painter(m_dark, m_scale);
        const int32_t left = -list.ScrollOffset().x;
        const int32_t top = index * list.RowHeight() - list.ScrollOffset().y;
        const int32_t width = std::max(list.Bounds().Width(), list.HorizontalExtent());
        const bool selected = list.Selected() == index;
        list.DrawRow(painter, {index,
                               {left, top, left + width, top + list.RowHeight()},
                               selected,
                               selected && list.HasFocus(),
                               list.IsEnabled()});
        return painter.TakeSteps();
    }
    size_t Invalidations(const Window& window) const override {
        const HeadlessView* const view = ViewOf(window);
        return view ? view->OfWindow().invalidations : 0;
    }
    size_t Invalidations(const Control& control) const override { return CountsOf(control).invalidations; }
    size_t ImmediatePaints(const Control& control) const override { return CountsOf(control).immediate; }

    size_t Unscripted() const override { return m_unscripted; }
    int32_t WaitCursors() const override { return m_wait_cursors; }
    size_t DiscardedMouseMessages() const override { return m_discarded; }
    void SetDark(bool dark) override {
        m_dark = dark;
        TellAppearance();
    }
    void SetScale(double scale) override {
        m_scale = scale;
        TellAppearance();
    }

private:
    static const HeadlessView* ViewOf(const Window& window) {
        return dynamic_cast<const HeadlessView*>(window.View());
    }
    static HeadlessView::Counts CountsOf(const Control& control) {
        const HeadlessView* const view = control.Parent() ? ViewOf(*control.Parent()) : nullptr;
        return view ? view->OfControl(control) : HeadlessView::Counts();
    }
    // A copy: windows may be destroyed by what they do.
    void TellAppearance() {
        const HeadlessView::Handles handles = *m_handles;
        for (const WindowHandle handle : handles) {
            Window* const window = Window::FromHandle(handle);
            if (window && window->IsCreated()) window->OnAppearanceChanged();
        }
    }

    const std::shared_ptr<HeadlessView::Handles> m_handles = std::make_shared<HeadlessView::Handles>();
    HeadlessUser m_user;
    bool m_dark = false;
    double m_scale = 1;
    int32_t m_wait_cursors = 0;
    size_t m_discarded = 0;
    size_t m_unscripted = 0;
};

}  // namespace

std::shared_ptr<HeadlessRenderer> HeadlessRenderer::Make() {
    return std::make_shared<Renderer>();
}

}  // namespace hx::ui
