// A window for previews on no screen, lines for them, and what they paint.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "hxapi/ITrackingCycleObserver.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/window.h"

namespace hx_test {

inline constexpr double kSquareCorners[] = {-50, 0, 50, 0, 50, 100, -50, 100};
inline constexpr TrackingArea kSquare{0, kSquareCorners, 4};

inline TrackingCycle CycleOf(const std::vector<TrackingPoint>& points, int32_t plane) {
    const auto count = static_cast<uint32_t>(points.size());
    return {0, 0, plane, count, points.data(), count, 0};
}

struct Painted {
    explicit Painted(const std::vector<hx::ui::PaintStep>& steps) {
        for (const hx::ui::PaintStep& step : steps) {
            if (step.kind == hx::ui::PaintStep::Kind::pixels) {
                pixels = step.pixels;
                pixel_size = step.pixel_size;
            }
            text += step.text;
            if (!step.text.empty()) text += L"\n";
        }
        window = hx::ui::CurrentRenderer()->ColourOf(hx::ui::SystemColour::window);
        text_colour = hx::ui::CurrentRenderer()->ColourOf(hx::ui::SystemColour::window_text);
    }

    std::vector<uint32_t> pixels;
    hx::ui::Size pixel_size;
    std::wstring text;
    hx::ui::Colour window;
    hx::ui::Colour text_colour;
};

// The colours of pixels that changed, and how many there are.
struct Differences {
    std::set<uint32_t> colours;
    size_t pixels = 0;
};

inline Differences DifferencesOf(const Painted& before, const Painted& after) {
    Differences differences;
    if (before.pixels.size() != after.pixels.size()) return differences;
    for (size_t i = 0; i < after.pixels.size(); ++i) {
        if (before.pixels[i] == after.pixels[i]) continue;
        differences.colours.insert(after.pixels[i]);
        ++differences.pixels;
    }
    return differences;
}

// False if it took too long.
template <class Condition>
bool DispatchUntil(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        hx::WaitForMessage(std::chrono::milliseconds(100));
        hx::DispatchMessages();
    }
    return true;
}

class PreviewTest : public testing::Test {
protected:
    class Frame final : public hx::ui::Window {};

    PreviewTest() {
        hx::ui::SetRenderer(m_renderer);
        m_frame.Create(hx::ui::WindowKind::frame, nullptr, {0, 0, 400, 400});
        m_frame.Show(true);
    }
    ~PreviewTest() override {
        m_frame.Destroy();
        hx::ui::SetRenderer(nullptr);
    }

    const std::shared_ptr<hx::ui::HeadlessRenderer> m_renderer = hx::ui::HeadlessRenderer::Make();
    Frame m_frame;
};

}  // namespace hx_test
