// What a scanner takes, and how fast it is with it.
#include <limits>

#include "hxapi/HXApiErrors.h"
#include "simulator/scanner/CyclePace.h"
#include "simulator/scanner/Scanner.h"
#include "tests/simulator/scanner/scene.h"

namespace {

using namespace hx;
using namespace hx::simulator;

TEST(ScannerSettings, WhatTheModelLacksIsRefusedAndTheOldValuesStay) {
    struct Row {
        std::function<void(MLaserProfileSettings&)> change;
        HRESULT expected;
    };
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    const Row rows[] = {
        {[](auto& p) { p.Gain = 4; }, S_OK},
        {[](auto& p) { p.Gain = 3; }, E_INVALIDARG},
        {[](auto& p) { p.ExposureTime = 5000; }, S_OK},
        {[](auto& p) { p.ExposureTime = 5000.1; }, E_INVALIDARG},
        {[](auto& p) { p.ExposureTime = 0; }, E_INVALIDARG},
        {[](auto& p) { p.ExposureTime = kNan; }, E_INVALIDARG},
        {[](auto& p) { p.LaserPower = 0; }, S_OK},
        {[](auto& p) { p.LaserPower = 100.5; }, E_INVALIDARG},
        {[](auto& p) { p.SignalThreshold = 101; }, E_INVALIDARG},
        {[](auto& p) { p.MaxInclination = 91; }, E_INVALIDARG},
        {[](auto& p) { p.EdgeFilter = -1; }, E_INVALIDARG},
    };
    Scanner scanner(Model());
    for (const Row& row : rows) {
        const MLaserProfileSettings before = scanner.Profile();
        MLaserProfileSettings profile = before;
        row.change(profile);
        EXPECT_EQ(scanner.SetProfile(profile), row.expected);
        const MLaserProfileSettings& expected = row.expected == S_OK ? profile : before;
        const MLaserProfileSettings after = scanner.Profile();
        EXPECT_EQ(after.Gain, expected.Gain);
        EXPECT_EQ(after.ExposureTime, expected.ExposureTime);
        EXPECT_EQ(after.LaserPower, expected.LaserPower);
    }
    EXPECT_EQ(scanner.SetSurface(L"Sphere"), S_OK);
    EXPECT_EQ(scanner.SetSurface(L"cube"), HX_E_NOTFOUND);
    for (const ScannerModel& model : ScannerModels()) {
        Scanner other(model);
        for (const FactoryPreset& preset : model.presets) {
            EXPECT_EQ(other.SetProfile(ProfileOf(model, preset)), S_OK);
        }
    }
}

TEST(ScannerSettings, GlobalOnesAreThoseThatTheModelHas) {
    struct Row {
        const wchar_t* model;
        MGlobalScanningSettings global;
        HRESULT expected;
    };
    const Row rows[] = {
        {L"HX", {1, 3, 0, 7, 3}, S_OK},           {L"HX", {2, 0, 0, 0, 0}, E_INVALIDARG},
        {L"HX", {0, 4, 0, 0, 0}, E_INVALIDARG},   {L"HX", {0, -1, 0, 0, 0}, E_INVALIDARG},
        {L"HX", {0, 0, 0, 0, 4}, E_INVALIDARG},   {L"HX", {0, 0, 100, 0, 0}, S_OK},
        {L"HX", {0, 0, 101, 0, 0}, E_INVALIDARG}, {L"T820", {0, 2, 0, 0, 0}, S_OK},
        {L"T820", {0, 0, 0, 0, 1}, E_INVALIDARG}, {L"Handheld", {1, 2, 100, 0, 0}, S_OK},
        {L"KT05FxR3PA", {1, 1, 0, 0, 0}, S_OK},
    };
    for (const Row& row : rows) {
        Scanner scanner(Model(row.model));
        EXPECT_EQ(scanner.SetGlobal(row.global), row.expected);
        EXPECT_EQ(scanner.Global().ScanningMode, row.expected == S_OK ? row.global.ScanningMode : 0);
        EXPECT_EQ(scanner.Global().VerticalFov, row.expected == S_OK ? row.global.VerticalFov : 0);
    }
}

TEST(ScannerSettings, FrameRateFollowsViewSpeedAndExposure) {
    struct Row {
        MGlobalScanningSettings global;
        double exposure_us;
        double rate_hz;
    };
    const Row rows[] = {
        {{0, 0, 0, 0, 0}, 1000, 140}, {{0, 0, 0, 0, 1}, 1000, 105}, {{0, 0, 0, 0, 2}, 1000, 70},
        {{0, 0, 0, 0, 3}, 1000, 35},  {{0, 1, 0, 0, 0}, 1000, 280}, {{0, 2, 0, 0, 0}, 1000, 280},
        {{0, 3, 0, 0, 2}, 1000, 140}, {{1, 0, 0, 0, 0}, 1000, 154}, {{0, 2, 0, 0, 0}, 4850, 200},
        {{0, 2, 0, 0, 2}, 4850, 140},
    };
    Scanner scanner(Model());
    MLaserProfileSettings profile = scanner.Profile();
    for (const Row& row : rows) {
        profile.ExposureTime = row.exposure_us;
        ASSERT_EQ(scanner.SetProfile(profile), S_OK);
        ASSERT_EQ(scanner.SetGlobal(row.global), S_OK);
        EXPECT_NEAR(scanner.FrameRateHz(), row.rate_hz, 1e-9);
    }
    // 140 pictures of 768 rows a second.
    profile.ExposureTime = 1e6 / 140 / 768 * 100;
    ASSERT_EQ(scanner.SetProfile(profile), S_OK);
    EXPECT_EQ(scanner.ExposureRows(), 100);
}

TEST(CyclePace, MissedCyclesAreLostAndNotPiledUp) {
    using std::chrono::milliseconds;
    const CyclePace::Time start{milliseconds(5000)};
    struct Row {
        int now_ms;
        uint64_t number;
        int64_t time_us;
    };
    // At 100 Hz.
    const Row rows[] = {{0, 0, 0},       {10, 1, 10'000}, {25, 2, 20'000},
                        {75, 7, 70'000}, {80, 8, 80'000}, {1095, 109, 1'090'000}};
    CyclePace pace;
    pace.Restart(start);
    for (const Row& row : rows) {
        pace.CatchUp(start + milliseconds(row.now_ms), 100);
        EXPECT_LE(pace.Due(), start + milliseconds(row.now_ms));
        EXPECT_EQ(pace.Number(), row.number);
        EXPECT_EQ(pace.Time_us(), row.time_us);
        pace.Next(100);
    }
    pace.CatchUp(start, 100);
    EXPECT_EQ(pace.Number(), 110u) << "not due yet";
    pace.Restart(start);
    EXPECT_EQ(pace.Number(), 0u);
}

}  // namespace
