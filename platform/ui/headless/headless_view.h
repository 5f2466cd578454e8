// A window that nobody sees: it counts how often it, and each control of it, was to be painted.
#pragma once

#include <map>
#include <memory>
#include <set>

#include "platform/ui/renderer.h"

namespace hx::ui {

class HeadlessView final : public IWindowView {
public:
    struct Counts {
        size_t invalidations = 0;
        size_t immediate = 0;
    };
    // The handles of all windows that have a view.
    using Handles = std::set<uint64_t>;

    HeadlessView(const Window& window, std::shared_ptr<Handles> handles);
    HeadlessView(const HeadlessView&) = delete;
    HeadlessView& operator=(const HeadlessView&) = delete;
    ~HeadlessView() override;

    const Counts& OfWindow() const { return m_window; }
    Counts OfControl(const Control& control) const;

    void OnMoved() override {}
    void OnShown() override {}
    void OnCaption() override {}
    void OnAccessibleName() override {}
    void Invalidate(bool now) override;
    void OnControl(Control& control, ControlChange change) override;
    void InvalidateControl(Control& control, bool now) override;
    void OnFocus() override {}
    void OnDefaultButton() override {}

private:
    const uint64_t m_handle;
    const std::shared_ptr<Handles> m_handles;
    Counts m_window;
    std::map<const Control*, Counts> m_controls;
};

}  // namespace hx::ui
