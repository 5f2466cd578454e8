// The preview: a line on its way from the scanner's thread to the picture.
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstring>
#include <ctime>
#include <memory>
#include <thread>

#include "bench/comparisons.h"
#include "bench/expect.h"
#include "platform/ui/load_renderer.h"
#include "preview/PreviewWindow.h"

namespace hx::bench {
namespace {

using namespace hx::preview;
using Clock = std::chrono::steady_clock;

constexpr int32_t kCyclesPerSecond = 1000;
constexpr size_t kPoints = 2000;
constexpr ui::Size kSize{480, 400};
constexpr double kScale = 2;
constexpr double kMostLoad = 0.25;

constexpr double kCorners[] = {-40, -50, 40, -50, 62.5, 60, -62.5, 60};
constexpr TrackingArea kArea{0, kCorners, 4};

// As wide as those of a user.
PreviewTexts Texts() {
    return {{L"mm", L'.'},
            L"Weak",
            L"Saturated",
            L"Too bright: reduce the exposure or the laser power",
            L"Too dark: increase the exposure or the laser power",
            L"No laser line: check the exposure and the distance"};
}

// What a wave across the area has as signals.
enum class Signals { all, saturated };

std::vector<TrackingPoint> Wave(Signals signals) {
    std::vector<TrackingPoint> points;
    for (size_t i = 0; i < kPoints; ++i) {
        const double across = 2.0 * static_cast<double>(i) / kPoints - 1;
        points.push_back({static_cast<float>(40 * across), static_cast<float>(20 * std::sin(9 * across)),
                          signals == Signals::saturated
                              ? kTrackingSignalSaturated
                              : static_cast<uint16_t>(i % (kTrackingSignalSaturated + 1)),
                          static_cast<uint16_t>(i)});
    }
    return points;
}

TrackingCycle CycleOf(const std::vector<TrackingPoint>& points) {
    const auto count = static_cast<uint32_t>(points.size());
    return {0, 0, 0, count, points.data(), count, 0};
}

// Takes the picture as it is: what a toolkit does with it is not ours.
class StillPainter final : public ui::IPainter {
public:
    ui::Colour ColourOf(ui::SystemColour colour) const override {
        return colour == ui::SystemColour::window ? ui::Colour{255, 255, 255} : ui::Colour{};
    }
    ui::Size TextExtent(std::wstring_view text) const override {
        return {static_cast<int32_t>(text.size()) * 6, 13};
    }
    double Scale() const override { return kScale; }
    void FillRectangle(const ui::Rectangle&, ui::Colour) override {}
    void DrawDottedFrame(const ui::Rectangle&, ui::Colour) override {}
    void DrawEllipse(const ui::Rectangle&, ui::Colour) override {}
    void DrawLine(ui::FinePoint, ui::FinePoint, ui::Colour, double) override {}
    void FillPolygon(std::span<const ui::FinePoint>, ui::Colour) override {}
    void DrawText(const ui::Rectangle&, std::wstring_view, const ui::TextStyle&) override {}
    void DrawPixels(const ui::Rectangle&, const ui::Pixels& pixels) override { size = pixels.data.size(); }

    size_t size = 0;
};

struct PartTimes {
    double put;
    double put_copy;  // a plain copy of as many bytes
    double frame;
    double frame_copy;
};

PartTimes TimeParts(Benchmark& benchmark, Signals signals) {
    const std::vector<TrackingPoint> points = Wave(signals);
    const TrackingCycle cycle = CycleOf(points);
    NewestCycles cycles;
    cycles.PutAreas(&kArea, 1);
    PreviewScene scene;
    PicturePainter picture(Texts(), true);
    StillPainter painter;
    std::vector<TrackingPoint> line_copy(points.size());
    std::vector<uint32_t> picture_copy(static_cast<size_t>(kSize.width * kSize.height * kScale * kScale));
    const std::vector<uint32_t> pixels(picture_copy.size(), 7);
    const auto nothing = [] {};
    const auto put = [&] { cycles.PutCycle(cycle); };
    const std::vector<double> medians =
        Compete({{"put", nothing, put},
                 {"copy of a line", nothing,
                  [&] {
                      std::memcpy(line_copy.data(), points.data(), points.size() * sizeof(TrackingPoint));
                      // Without a use of it the copy would be left out.
                      Expect(line_copy.back().column == points.back().column, "memcpy", "a line");
                  }},
                 {"frame", put,
                  [&] {
                      put();
                      Expect(scene.Update(cycles), "HX", "a line");
                      picture.Paint(painter, kSize, scene);
                  }},
                 {"copy of a picture", nothing,
                  [&] {
                      std::memcpy(picture_copy.data(), pixels.data(), pixels.size() * sizeof(uint32_t));
                      Expect(picture_copy.back() == 7, "memcpy", "a picture");
                  }}},
                benchmark.HowMuch());
    Expect(scene.Points().size() == kPoints && painter.size == picture_copy.size(), "HX", "the picture");
    return {medians[0], medians[1], medians[2] - medians[0], medians[3]};
}

class Frame final : public ui::Window {};

// The processor's time for each second of it, with the toolkit's part.
double LoadOnScreen(const std::shared_ptr<ui::IRenderer>& renderer, double seconds, Signals signals) {
    ui::SetRenderer(renderer);
    const auto cycles = std::make_shared<NewestCycles>();
    Frame frame;
    frame.Create(ui::WindowKind::frame, nullptr, {0, 0, kSize.width, kSize.height});
    PreviewWindow window(cycles, Texts(), true);
    window.Create(ui::WindowKind::child, &frame, {0, 0, kSize.width, kSize.height});
    window.Show(true);
    frame.Show(true);
    renderer->Pump();
    cycles->PutAreas(&kArea, 1);
    std::atomic<bool> ends = false;
    std::thread scanner([&] {
        const std::vector<TrackingPoint> points = Wave(signals);
        auto due = Clock::now();
        while (!ends) {
            cycles->PutCycle(CycleOf(points));
            due += std::chrono::microseconds(1'000'000 / kCyclesPerSecond);
            std::this_thread::sleep_until(due);
        }
    });
    const auto start = Clock::now();
    const std::clock_t used = std::clock();
    while (std::chrono::duration<double>(Clock::now() - start).count() < seconds) {
        WaitForMessage(std::chrono::milliseconds(10));
        renderer->Pump();
    }
    const double load = static_cast<double>(std::clock() - used) / CLOCKS_PER_SEC /
                        std::chrono::duration<double>(Clock::now() - start).count();
    ends = true;
    scanner.join();
    window.Destroy();
    frame.Destroy();
    ui::SetRenderer(nullptr);
    return load;
}

std::string Percent(double portion) {
    return FormatNumber(100 * portion, 1) + " %";
}

}  // namespace

void ComparePreview(Benchmark& benchmark) {
    const PartTimes times = TimeParts(benchmark, Signals::all);
    const PartTimes bright = TimeParts(benchmark, Signals::saturated);
    Table parts(
        "Preview",
        "A line of 2,000 points that is handed over, and a picture of it in a window of 480 x 400 at a "
        "scale of 2; beside them a plain copy of as many bytes.",
        {"What", "HX takes", "Copy takes", "HX / copy"});
    parts.Add({"a line handed over", FormatTime(times.put), FormatTime(times.put_copy),
               FormatNumber(times.put / times.put_copy, 2)});
    parts.Add({"a picture", FormatTime(times.frame), FormatTime(times.frame_copy),
               FormatNumber(times.frame / times.frame_copy, 2)});
    parts.Add({"a picture, all saturated", FormatTime(bright.frame), FormatTime(bright.frame_copy),
               FormatNumber(bright.frame / bright.frame_copy, 2)});
    benchmark.report.Add(parts.Markdown());

    Table load(
        "Preview on a screen",
        "1,000 such lines a second, thirty pictures of them, and the same with what the toolkit does to "
        "show them: the time of one core.",
        {"What", "Of a core", "At most", "Met"});
    const auto add = [&](const char* what, double portion) {
        load.Add({what, Percent(portion), Percent(kMostLoad), portion <= kMostLoad ? "yes" : "no"});
    };
    const double seconds = benchmark.quick ? 1 : 5;
    std::wstring reason;
    const auto renderer = ui::LoadScreenRenderer({true, kScale, false}, reason);
    add("HX alone", kCyclesPerSecond * times.put + 30 * times.frame);
    if (renderer) add("with the toolkit", LoadOnScreen(renderer, seconds, Signals::all));
    add("HX alone, all saturated", kCyclesPerSecond * bright.put + 30 * bright.frame);
    if (renderer) {
        add("with the toolkit, all saturated", LoadOnScreen(renderer, seconds, Signals::saturated));
    }
    benchmark.report.Add(load.Markdown());
}

}  // namespace hx::bench
