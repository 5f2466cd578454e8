// What the settings do to the picture, as physics and the filters have it.
#include <cmath>
#include <map>

#include "simulator/scanner/LaserPower.h"
#include "simulator/scanner/SignalSearch.h"
#include "tests/simulator/scanner/scene.h"

namespace {

using namespace hx::simulator;

TEST(Optics, LightIsPowerTimesExposureTimesGain) {
    struct Row {
        const char* what;
        std::function<void(OpticalSettings&)> change;
        double factor;
    };
    const Row rows[] = {
        {"half the power", [](auto& s) { s.laser_power_percent /= 2; }, 0.5},
        {"half the exposure", [](auto& s) { s.exposure_us /= 2; }, 0.5},
        {"gain", [](auto& s) { s.gain = 2, s.exposure_us /= 4; }, 0.5},
        {"no light", [](auto& s) { s.laser_power_percent = 0; }, 0},
    };
    const double usual = MeanSignal(Take(L"plane", PlainSettings()).points);
    EXPECT_GT(usual, 400);
    for (const Row& row : rows) {
        OpticalSettings settings = PlainSettings();
        settings.signal_threshold_percent = 1;
        row.change(settings);
        const Picture picture = Take(L"plane", settings);
        if (row.factor == 0) {
            EXPECT_TRUE(picture.points.empty()) << row.what;
            continue;
        }
        EXPECT_NEAR(MeanSignal(picture.points) / usual, row.factor, 0.02) << row.what;
    }
}

TEST(Optics, EverySurfaceOfEveryModelStaysWithinTheImagerAndTheArea) {
    for (const ScannerModel& model : ScannerModels()) {
        const MeasurementArea& area = DetailsOf(model).area;
        for (const Surface& surface : Surfaces()) {
            for (uint64_t cycle = 0; cycle < 3000; cycle += 331) {
                OpticalSettings settings = PlainSettings(model);
                settings.reflection_filter = false;
                const Picture picture = Take(surface.name, settings, cycle, model.plane_count - 1, model);
                int32_t before = -1;
                for (const TrackingPoint& point : picture.points) {
                    EXPECT_GT(point.column, before);
                    before = point.column;
                    EXPECT_LT(point.column, model.columns);
                    EXPECT_LE(point.signal, kTrackingSignalSaturated);
                    EXPECT_TRUE(point.y_mm >= area.near_mm && point.y_mm <= area.far_mm);
                    EXPECT_LE(std::abs(point.x_mm), area.HalfWidthAt(point.y_mm) + 0.01);
                }
                if (surface.name == std::wstring_view(L"plane")) {
                    EXPECT_EQ(picture.points.size(), model.columns);
                }
            }
        }
    }
}

TEST(Optics, MoreExposureSaturatesMoreAndBlurs) {
    const auto deviation = [](const Picture& picture) {
        double sum = 0;
        for (size_t i = 1; i < picture.points.size(); ++i) {
            sum += std::abs(picture.points[i].y_mm - picture.points[i - 1].y_mm);
        }
        return sum / static_cast<double>(picture.points.size());
    };
    OpticalSettings settings = PlainSettings();
    uint32_t before = 0;
    for (const double factor : {1.6, 2.0, 3.0}) {
        settings.exposure_us = PlainSettings().exposure_us * factor;
        const uint32_t saturated = Take(L"waves", settings).saturated_count;
        EXPECT_GT(saturated, before) << factor;
        before = saturated;
    }
    const Picture usual = Take(L"plane", PlainSettings());
    const Picture bright = Take(L"plane", settings);
    EXPECT_EQ(usual.saturated_count, 0u);
    EXPECT_EQ(bright.saturated_count, bright.points.size());
    EXPECT_GT(deviation(bright), 3 * deviation(usual));
}

TEST(Optics, FiltersTakeOutMoreTheFartherTheyAreSet) {
    struct Row {
        const wchar_t* surface;
        std::vector<std::function<void(OpticalSettings&)>> steps;  // each takes more than the one before
    };
    const auto threshold = [](double value) {
        return [=](OpticalSettings& s) { s.signal_threshold_percent = value; };
    };
    const auto inclination = [](double value) {
        return [=](OpticalSettings& s) { s.max_inclination_degrees = value; };
    };
    const auto edges = [](bool enabled, double value) {
        return [=](OpticalSettings& s) { s.edge_filter_3d = enabled, s.edge_filter = value; };
    };
    const Row rows[] = {
        {L"waves", {threshold(0), threshold(40), threshold(55), threshold(100)}},
        {L"sphere", {inclination(90), inclination(60), inclination(30), inclination(10)}},
        {L"steps", {edges(false, 0), edges(true, 0), edges(true, 20), edges(true, 100)}},
    };
    for (const Row& row : rows) {
        size_t before = Model().columns + 1;
        for (const auto& step : row.steps) {
            OpticalSettings settings = PlainSettings();
            step(settings);
            const size_t count = Take(row.surface, settings).points.size();
            EXPECT_LT(count, before);
            before = count;
        }
    }
}

TEST(Optics, TheEdgeFilterTakesThePointsInTheAirBesideAStep) {
    const MeasurementArea& area = DetailsOf(Model()).area;
    const auto in_the_air = [&](const Picture& picture) {
        return std::ranges::count_if(picture.points, [&](const TrackingPoint& point) {
            const double depth = (point.y_mm - area.near_mm) / area.Depth();
            // The treads lie at 0.35, 0.5 and 0.65.
            return std::abs(std::remainder(depth - 0.05, 0.15)) > 0.01;
        });
    };
    OpticalSettings settings = PlainSettings();
    EXPECT_GT(in_the_air(Take(L"steps", settings)), 0);
    settings.edge_filter_3d = true;
    EXPECT_EQ(in_the_air(Take(L"steps", settings)), 0);
}

TEST(Optics, ReflectionsAreThereOnlyWithoutTheirFilterAndOnlyBesideGloss) {
    for (const auto& [surface, expected] :
         std::map<std::wstring, bool>{{L"shiny", true}, {L"plane", false}}) {
        OpticalSettings settings = PlainSettings();
        settings.signal_threshold_percent = 2;
        const Picture filtered = Take(surface, settings);
        settings.reflection_filter = false;
        const Picture all = Take(surface, settings);
        ASSERT_EQ(all.points.size(), filtered.points.size());
        size_t false_points = 0;
        for (size_t i = 0; i < all.points.size(); ++i) {
            false_points += std::abs(all.points[i].y_mm - filtered.points[i].y_mm) > 5 ? 1 : 0;
        }
        EXPECT_EQ(false_points > 50, expected);
        EXPECT_EQ(false_points != 0, expected);
    }
}

TEST(Optics, TheFieldOfViewIsAPartOfTheWhole) {
    const MeasurementArea& area = DetailsOf(Model()).area;
    struct Row {
        MGlobalScanningSettings global;
        double near_portion, far_portion;
        uint32_t first_column, column_count;
        std::array<double, 8> corners;
    };
    const Row rows[] = {
        {{0, 0}, 0, 1, 0, 1024, {-40, -50, -62.5, 60, 62.5, 60, 40, -50}},
        {{1, 0}, 0, 1, 256, 512, {-20, -50, -31.25, 60, 31.25, 60, 20, -50}},
        {{0, 1}, 0, 0.5, 0, 1024, {-40, -50, -51.25, 5, 51.25, 5, 40, -50}},
        {{0, 2}, 0.25, 0.75, 0, 1024, {-45.625, -22.5, -56.875, 32.5, 56.875, 32.5, 45.625, -22.5}},
        {{1, 3}, 0.5, 1, 256, 512, {-25.625, 5, -31.25, 60, 31.25, 60, 25.625, 5}},
    };
    const Picture whole = Take(L"waves", PlainSettings());
    for (const Row& row : rows) {
        OpticalSettings settings = PlainSettings();
        settings.global = row.global;
        EXPECT_EQ(CornersOf(ViewOf(Model(), row.global), area), row.corners);
        std::vector<TrackingPoint> expected;
        for (const TrackingPoint& point : whole.points) {
            const double depth = (point.y_mm - area.near_mm) / area.Depth();
            if (depth < row.near_portion || depth > row.far_portion || point.column < row.first_column ||
                point.column >= row.first_column + row.column_count) {
                continue;
            }
            expected.push_back(point);
        }
        const Picture part = Take(L"waves", settings);
        EXPECT_TRUE(SamePoints(part.points, expected));
        EXPECT_FALSE(expected.empty());
        EXPECT_EQ(part.column_count, row.column_count);
    }
}

TEST(Optics, ThePictureDependsOnCycleAndPlaneAndOnNothingElse) {
    const Picture first = Take(L"waves", PlainSettings(), 100, 1);
    PictureMaker used(Model());
    used.Make({Model(), *FindSurface(L"shiny"), 7, 2}, PlainSettings());
    const Picture again = used.Make({Model(), *FindSurface(L"waves"), 100, 1}, PlainSettings());
    EXPECT_TRUE(SamePoints(first.points, again.points));
    EXPECT_FALSE(SamePoints(first.points, Take(L"waves", PlainSettings(), 101, 1).points));
    EXPECT_FALSE(SamePoints(first.points, Take(L"waves", PlainSettings(), 100, 2).points));
}

TEST(LaserPower, IsControlledTowardsTheBestSignal) {
    for (const wchar_t* surface : {L"plane", L"waves", L"shiny"}) {
        for (const double start : {1.0, 100.0}) {
            OpticalSettings settings = PlainSettings();
            settings.laser_power_percent = start;
            Picture picture;
            for (uint64_t cycle = 0; cycle < 60; ++cycle) {
                picture = Take(surface, settings, cycle);
                settings.laser_power_percent = NextLaserPower(settings.laser_power_percent, picture);
            }
            EXPECT_LE(picture.saturated_count, picture.points.size() / 10);
            // As far as the brightest part of the surface allows.
            const bool is_even = surface == std::wstring_view(L"plane");
            EXPECT_NEAR(MeanSignal(picture.points), kBestSignal * kTrackingSignalSaturated,
                        is_even ? 80 : 400);
        }
    }
    Picture dark;
    EXPECT_EQ(NextLaserPower(99, dark), 100) << "up to the end while nothing is seen";
}

using Search = std::optional<double>(const ScannerModel&, const Surface&, uint64_t, const OpticalSettings&);

// Values at which the signal is worse than at the one that was found.
TEST(SignalSearch, FindsWhatIsBetterThanHalfAndDouble) {
    struct Row {
        Search* search;
        double OpticalSettings::*value;
        double highest;
    };
    const Row rows[] = {
        {&BestExposure, &OpticalSettings::exposure_us, static_cast<double>(Model().longest_exposure_us)},
        {&BestLaserPower, &OpticalSettings::laser_power_percent, 100},
    };
    PictureMaker maker(Model());
    for (const Row& row : rows) {
        for (const wchar_t* name : {L"plane", L"steps", L"waves", L"sphere", L"shiny", L"dark"}) {
            const Surface& surface = *FindSurface(name);
            OpticalSettings settings = PlainSettings();
            settings.signal_threshold_percent = 3;
            const std::optional<double> best = row.search(Model(), surface, 40, settings);
            ASSERT_TRUE(best.has_value());
            EXPECT_GT(*best, 0);
            EXPECT_LE(*best, row.highest);
            const auto score = [&](double value) {
                settings.*row.value = value;
                return SignalScore(maker, Model(), surface, 40, settings).value_or(-100);
            };
            const double found = score(*best);
            SCOPED_TRACE(testing::PrintToString(std::wstring(name)) + testing::PrintToString(*best));
            for (const double factor : {0.5, 0.8, 1.25, 2.0}) {
                if (*best * factor > row.highest) continue;
                EXPECT_GT(found, score(*best * factor)) << factor;
            }
        }
        EXPECT_FALSE(row.search(Model(), *FindSurface(L"nothing"), 0, PlainSettings()).has_value());
    }
    OpticalSettings no_light = PlainSettings();
    no_light.laser_power_percent = 0;
    EXPECT_FALSE(BestExposure(Model(), *FindSurface(L"plane"), 0, no_light).has_value());
}

}  // namespace
