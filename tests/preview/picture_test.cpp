// What the preview draws: places, colours, scale and hints.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "preview/MillimetreScale.h"
#include "preview/PictureLayout.h"
#include "preview/Raster.h"
#include "preview/SignalColours.h"
#include "preview/SignalHint.h"

namespace {

using namespace hx::preview;
namespace ui = hx::ui;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

ui::Size Measured(std::wstring_view text) {
    return {static_cast<int32_t>(text.size()) * 6, 13};
}

PlaneArea Trapezium(double size_mm) {
    return {0, {{-size_mm, 0}, {size_mm, 0}, {1.5 * size_mm, 2 * size_mm}, {-1.5 * size_mm, 2 * size_mm}}};
}

TEST(PlaneArea, ContainsWhatIsBetweenItsCorners) {
    const PlaneArea area = Trapezium(10);
    const struct {
        double x, y;
        bool inside;
    } rows[] = {{0, 1, true},          {11, 1, false},         {14, 19, true},    {-14, 19, true},
                {0, -1, false},        {0, 21, false},         {kNan, 5, false},  {0, kNan, false},
                {kInfinity, 5, false}, {-kInfinity, 5, false}, {1e300, 5, false}, {0, 1e300, false}};
    for (const auto& row : rows) EXPECT_EQ(area.Contains(row.x, row.y), row.inside) << row.x << ", " << row.y;
    EXPECT_FALSE((PlaneArea{0, {}}).Contains(0, 0));
}

TEST(PlaneArea, OnlySensibleAreasAreCopied) {
    const double good[] = {0, 0, 1, 0, 1, 1};
    const double not_finite[] = {0, 0, kNan, 0, 1, 1};
    const double huge[] = {0, 0, 1e200, 0, 1, 1};
    const TrackingArea rows[] = {{0, good, 3},
                                 {1, good, 2},
                                 {2, nullptr, 3},
                                 {3, not_finite, 3},
                                 {4, huge, 3},
                                 {5, good, 0},
                                 {6, good, kMostCorners + 1}};
    const auto copies = CopyAreas(rows, static_cast<uint32_t>(std::size(rows)));
    ASSERT_EQ(copies.size(), 1u);
    EXPECT_EQ(copies[0].plane_number, 0);
    EXPECT_TRUE(CopyAreas(nullptr, 5).empty());
    const double another[] = {0, 0, 2, 0, 2, 2};
    const TrackingArea twice[] = {{7, good, 3}, {8, good, 3}, {7, another, 3}, {7, huge, 3}};
    const auto last = CopyAreas(twice, 4);
    ASSERT_EQ(last.size(), 2u);
    EXPECT_EQ(last[1].plane_number, 7);
    EXPECT_EQ(last[1].corners_mm[1].x_mm, 2);
    std::vector<TrackingArea> many(1000, rows[0]);
    for (int32_t i = 0; i < 1000; ++i) many[static_cast<size_t>(i)].plane_number = i;
    EXPECT_EQ(CopyAreas(many.data(), 1000).size(), kMostPlanes);
}

TEST(MillimetreScale, StepsAndNumbersAreRound) {
    const struct {
        double smallest, step, value;
        const wchar_t* text;
    } rows[] = {{0.7, 1, 3, L"3"},
                {1, 1, -10, L"\u221210"},
                {1.01, 2, 0, L"0"},
                {3, 5, 1000, L"1000"},
                {6e6, 1e7, 1e7, L"10000000"},
                {0.011, 0.02, 0.06, L"0,06"},
                {0.5, 0.5, -1.5, L"\u22121,5"},
                {0.21, 0.5, 2, L"2,0"},
                {70, 100, -0.0, L"0"}};
    for (const auto& row : rows) {
        const double step = RoundStep(row.smallest);
        EXPECT_NEAR(step, row.step, row.step * 1e-12);
        EXPECT_EQ(TickText(row.value + 0.0, step, L','), row.text);
    }
    for (const double bad : {0.0, -1.0, kNan, kInfinity}) EXPECT_EQ(RoundStep(bad), 0);
    EXPECT_EQ(TicksBetween(-0.25, 0.2, 0.1).size(), 5u);
    EXPECT_TRUE(TicksBetween(0, 1e9, 1).empty());
    EXPECT_TRUE(TicksBetween(0, 1, 0).empty());
    EXPECT_TRUE(TicksBetween(1e9, 1e9 + 1.2e-7, 2e-8).empty());
    EXPECT_EQ(TicksBetween(1e9, 1e9 + 1, 0.25).size(), 5u);
}

TEST(PictureLayout, AreasFitAtEqualScalesWithNumbersBesideThem) {
    for (const double size_mm : {0.004, 1.0, 40.0, 1e7}) {
        for (const ui::Size size : {ui::Size{216, 245}, {480, 400}, {2000, 150}, {70, 900}}) {
            SCOPED_TRACE(testing::Message() << size_mm << " mm in " << size.width << " x " << size.height);
            const PlaneArea area = Trapezium(size_mm);
            const PictureLayout layout = LayOut(size, {area}, {L"mm", L'.'}, 2, &Measured);
            for (const PlanePoint& corner : area.corners_mm) {
                const ui::FinePoint point = layout.map.At(corner.x_mm, corner.y_mm);
                EXPECT_TRUE(point.x >= layout.plot.left && point.x <= layout.plot.right &&
                            point.y >= layout.plot.top && point.y <= layout.plot.bottom);
            }
            // One of the two directions is used up.
            const double width = 3 * size_mm * layout.map.scale;
            const double height = 2 * size_mm * layout.map.scale;
            EXPECT_GT(std::max(width / layout.plot.Width(), height / layout.plot.Height()), 0.9);
            ASSERT_FALSE(layout.numbers_x.empty());
            EXPECT_GE(layout.numbers_x.front().rectangle.left, layout.unit.rectangle.right);
            for (size_t i = 1; i < layout.numbers_x.size(); ++i) {
                EXPECT_LE(layout.numbers_x[i - 1].rectangle.right, layout.numbers_x[i].rectangle.left);
            }
            for (size_t i = 1; i < layout.numbers_y.size(); ++i) {
                EXPECT_LE(layout.numbers_y[i - 1].rectangle.bottom, layout.numbers_y[i].rectangle.top);
            }
        }
    }
    const PictureLayout usual = LayOut({216, 245}, {Trapezium(40)}, {L"mm", L'.'}, 2, &Measured);
    EXPECT_GE(usual.numbers_x.size(), 3u);
    EXPECT_GE(usual.numbers_y.size(), 3u);
    for (const ui::Size size : {ui::Size{0, 0}, {1, 1}, {-5, 40}, {5, 300}}) {
        LayOut(size, {Trapezium(40)}, {L"mm", L'.'}, 2, &Measured);
    }
    EXPECT_EQ(LayOut({216, 245}, {}, {}, 2, &Measured).map.scale, 0);
    EXPECT_EQ(LayOut({216, 245}, {{0, {{3, 3}, {3, 3}, {3, 3}}}}, {}, 2, &Measured).map.scale, 0);
}

TEST(Raster, DrawsNothingOutsideItself) {
    Raster raster;
    raster.Reset({20, 10}, {});
    const DotShape dot(2);
    const uint32_t white = PixelOf({255, 255, 255});
    for (const double place : {-1e30, -3.0, 1e30, kNan, kInfinity}) {
        raster.DrawDot({place, 5}, dot, white);
        raster.DrawDot({5, place}, dot, white);
    }
    for (const uint32_t pixel : raster.Pixels()) ASSERT_EQ(pixel, 0xFF000000u);
    for (int32_t x = -4; x < 24; ++x) {
        for (const double y : {-1.0, 0.0, 9.75, 11.0}) raster.DrawDot({x + 0.3, y}, dot, white);
    }
    raster.DrawLine({-1e6, -20}, {1e6, 50}, {255, 255, 255}, 3);
    raster.FillRectangle({-100, 8, 100, 80}, {9, 9, 9});
    EXPECT_EQ(raster.Pixels()[199], PixelOf({9, 9, 9}));
    raster.Reset({-3, 7}, {});
    raster.DrawDot({0, 0}, dot, white);
    EXPECT_TRUE(raster.Pixels().empty());
}

TEST(Raster, EdgesAreSmooth) {
    Raster raster;
    raster.Reset({10, 10}, {});
    const ui::FinePoint square[] = {{2.5, 2}, {6, 2}, {6, 6}, {2.5, 6}};
    raster.FillPolygon(square, {200, 200, 200});
    const auto red = [&](size_t x, size_t y) { return raster.Pixels()[y * 10 + x] >> 16 & 0xFF; };
    EXPECT_NEAR(red(2, 4), 100, 2);
    EXPECT_NEAR(red(3, 4), 200, 2);
    EXPECT_EQ(red(6, 4), 0u);
    EXPECT_EQ(red(4, 6), 0u);
}

int32_t Brightness(ui::Colour colour) {
    return 299 * colour.red + 587 * colour.green + 114 * colour.blue;
}

TEST(SignalColours, StrongerIsFartherFromTheBackground) {
    const struct {
        ui::Colour window, text;
        int32_t sign;
    } themes[] = {{{255, 255, 255}, {0, 0, 0}, -1}, {{30, 30, 30}, {240, 240, 240}, 1}};
    for (const auto& theme : themes) {
        const SignalColours blend = MakeSignalColours(theme.window, theme.text, true);
        const SignalColours steps = MakeSignalColours(theme.window, theme.text, false);
        size_t blend_changes = 0;
        size_t step_changes = 0;
        for (size_t signal = 1; signal < kTrackingSignalSaturated; ++signal) {
            const int32_t change =
                theme.sign * (Brightness(blend.points[signal]) - Brightness(blend.points[signal - 1]));
            EXPECT_GE(change, -1000) << signal;
            if (blend.points[signal] != blend.points[signal - 1]) ++blend_changes;
            if (steps.points[signal] != steps.points[signal - 1]) ++step_changes;
        }
        EXPECT_GT(blend_changes, 100u);
        EXPECT_EQ(step_changes, 3u);
        EXPECT_GT(std::abs(Brightness(blend.points[0]) - Brightness(theme.window)), 50'000);
        for (size_t signal = 0; signal < kTrackingSignalSaturated; ++signal) {
            ASSERT_FALSE(blend.points[signal] == blend.points[kTrackingSignalSaturated]);
        }
    }
}

SignalCounts Counts(int weak, int good, int saturated) {
    SignalCounts counts;
    for (int i = 0; i < weak; ++i) counts.Add(60);
    for (int i = 0; i < good; ++i) counts.Add(500);
    for (int i = 0; i < saturated; ++i) counts.Add(i % 2 == 0 ? kTrackingSignalSaturated : uint16_t{0xFFFF});
    return counts;
}

TEST(SignalHint, StaysUntilThePictureIsClearlyBetter) {
    SignalHint hint;
    const struct {
        int weak, good, saturated;
        Hint expected;
    } steps[] = {{0, 100, 0, Hint::none},       {0, 97, 3, Hint::none},         {0, 95, 5, Hint::too_bright},
                 {0, 97, 3, Hint::too_bright},  {0, 99, 1, Hint::none},         {40, 60, 0, Hint::none},
                 {60, 40, 0, Hint::too_dark},   {60, 30, 10, Hint::too_bright}, {0, 0, 0, Hint::nothing_seen},
                 {10, 90, 0, Hint::none},       {1, 0, 0, Hint::too_dark},      {0, 0, 0, Hint::nothing_seen},
                 {1, 0, 0, Hint::nothing_seen}, {0, 9, 0, Hint::nothing_seen},  {10, 0, 0, Hint::too_dark},
                 {1, 0, 0, Hint::too_dark}};
    for (const auto& step : steps) {
        EXPECT_EQ(hint.Next(Counts(step.weak, step.good, step.saturated)), step.expected)
            << step.weak << ", " << step.good << ", " << step.saturated;
    }
    SignalCounts between;
    between.Add(static_cast<uint16_t>(0.175 * kTrackingSignalSaturated));
    EXPECT_EQ(hint.Next(between), Hint::too_dark);
    hint.Reset();
    EXPECT_EQ(hint.Next(between), Hint::none);
}

}  // namespace
