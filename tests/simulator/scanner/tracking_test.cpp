// The tracking thread: what an observer is told, when it is not, and what may happen meanwhile.
#include <atomic>
#include <future>
#include <thread>

#include "simulator/scanner/Scanner.h"
#include "tests/simulator/scanner/scene.h"
#include "tests/simulator/seen_cycles.h"

namespace {

using namespace hx;
using namespace hx::simulator;

void Track(Scanner& scanner, const ComPtr<SeenCycles>& observer) {
    scanner.SetObserver(observer);
    scanner.SetConnected(true);
    scanner.Initialise();
}

TEST(Tracking, TellsTheAreasAndThenTheCyclesPlaneByPlane) {
    Scanner scanner(Model());
    ASSERT_EQ(scanner.SetSurface(L"waves"), S_OK);
    const auto observer = Make<SeenCycles>();
    Track(scanner, observer);
    observer->WaitFor(7);
    const std::vector<SeenCycle> seen = observer->Seen();
    EXPECT_EQ(observer->Corners().size(), 8 * Model().plane_count);
    const OpticalSettings settings = OpticalSettingsOf(scanner.Profile(), scanner.Global());
    for (size_t i = 0; i < seen.size(); ++i) {
        const TrackingCycle& cycle = seen[i].cycle;
        EXPECT_EQ(seen[i].areas_told, 1u);
        EXPECT_EQ(cycle.plane_number, static_cast<int32_t>(i % Model().plane_count));
        if (i == 0) {
            EXPECT_EQ(cycle.number, 0u);
            EXPECT_EQ(cycle.time_us, 0);
        } else {
            EXPECT_GT(cycle.number, seen[i - 1].cycle.number);
            EXPECT_GT(cycle.time_us, seen[i - 1].cycle.time_us);
        }
        const Picture expected =
            Take(L"waves", settings, cycle.number, static_cast<uint32_t>(cycle.plane_number));
        EXPECT_TRUE(SamePoints(seen[i].points, expected.points));
        EXPECT_EQ(cycle.column_count, expected.column_count);
        EXPECT_EQ(cycle.saturated_count, expected.saturated_count);
    }
}

TEST(Tracking, NeedsConnectionAndInitialisationAndCountsAnew) {
    Scanner scanner(Model(L"Handheld"));
    const auto observer = Make<SeenCycles>();
    // Whichever comes last starts it, and the first cycle of all has number 0.
    scanner.SetObserver(observer);
    scanner.Initialise();
    scanner.SetConnected(true);
    observer->WaitFor(3);
    scanner.Disable();
    scanner.Initialise();
    const size_t before = observer->Seen().size();
    observer->WaitFor(before + 3);
    const std::vector<SeenCycle> seen = observer->Seen();
    EXPECT_EQ(seen.front().cycle.number, 0u);
    EXPECT_EQ(std::ranges::count_if(seen, [](const SeenCycle& one) { return one.cycle.number == 0; }), 2);
}

TEST(Tracking, NewSettingsComeWithTheNextCyclesAndTheirAreasBefore) {
    Scanner scanner(Model());
    const auto observer = Make<SeenCycles>();
    Track(scanner, observer);
    observer->WaitFor(2);
    ASSERT_EQ(scanner.SetGlobal({1, 2, 0, 0, 0}), S_OK);
    observer->WaitFor(observer->Seen().size() + 2);
    const SeenCycle last = observer->Seen().back();
    EXPECT_EQ(last.areas_told, 2u);
    EXPECT_EQ(last.cycle.column_count, 512u);
    EXPECT_EQ(observer->Corners()[0], -22.8125);

    // Each new observer hears of them for itself; the one before hears no more.
    const auto next = Make<SeenCycles>();
    scanner.SetObserver(next);
    next->WaitFor(1);
    const size_t seen = observer->Seen().size();
    next->WaitFor(4);
    EXPECT_EQ(observer->Seen().size(), seen);
    EXPECT_EQ(next->Seen().front().areas_told, 1u);
}

TEST(Tracking, AutomaticLaserPowerBringsADarkSurfaceToLight) {
    Scanner scanner(Model());
    MLaserProfileSettings profile = scanner.Profile();
    profile.LaserPower = 2;
    profile.SignalThreshold = 1;
    profile.DLPCEnabled = true;
    ASSERT_EQ(scanner.SetProfile(profile), S_OK);
    const auto observer = Make<SeenCycles>();
    Track(scanner, observer);
    observer->WaitFor(16);
    const std::vector<SeenCycle> seen = observer->Seen();
    EXPECT_GT(MeanSignal(seen[15].points), 5 * MeanSignal(seen[0].points));
    EXPECT_EQ(scanner.Profile().LaserPower, 2) << "what is set stays";
}

// Every call returns while an observer is in the midst of one.
TEST(Tracking, NothingWaitsForAnObserver) {
    Scanner scanner(Model());
    const auto observer = Make<SeenCycles>();
    std::promise<void> go_on;
    observer->during_cycle = [&, waiting = go_on.get_future().share()] { waiting.wait(); };
    Track(scanner, observer);
    observer->WaitFor(1);
    scanner.SetGlobal({1, 0, 0, 0, 0});
    scanner.SetProfile(scanner.Profile());
    scanner.SetObserver(nullptr);
    scanner.Disable();
    scanner.Initialise();
    scanner.SetConnected(false);
    double exposure_us = 0;
    EXPECT_EQ(scanner.DetectExposure(exposure_us), S_OK);
    EXPECT_EQ(observer->Seen().size(), 1u);
    go_on.set_value();
}

TEST(Tracking, AnObserverMayEndItAll) {
    auto scanner = std::make_shared<Scanner>(Model());
    const auto observer = Make<SeenCycles>();
    std::promise<void> gone;
    observer->during_cycle = [&, held = scanner]() mutable {
        if (!held) return;
        held->SetObserver(nullptr);
        held->Disable();
        // Until this is the last reference.
        while (held.use_count() > 1) std::this_thread::yield();
        held.reset();
        gone.set_value();
    };
    Track(*scanner, observer);
    scanner.reset();
    gone.get_future().wait();
    EXPECT_EQ(observer->Seen().size(), 1u);
}

TEST(Tracking, DetectionLeavesTheSettingsAndFailsWhenNothingIsSeen) {
    Scanner scanner(Model());
    const double before = scanner.Profile().ExposureTime;
    double value = -1;
    ASSERT_EQ(scanner.SetSurface(L"nothing"), S_OK);
    EXPECT_EQ(scanner.DetectExposure(value), E_FAIL);
    EXPECT_EQ(scanner.DetectLaserPower(value), E_FAIL);
    EXPECT_EQ(value, -1);
    ASSERT_EQ(scanner.SetSurface(L"dark"), S_OK);
    EXPECT_EQ(scanner.DetectExposure(value), S_OK);
    EXPECT_GT(value, before) << "a dark surface needs more";
    EXPECT_EQ(scanner.Profile().ExposureTime, before);
}

// For the thread checker, and for whoever would deadlock.
TEST(Tracking, EightThreadsMayChangeEverything) {
    Scanner scanner(Model());
    scanner.SetConnected(true);
    std::atomic<uint64_t> next{0};
    const auto change = [&] {
        for (int i = 0; i < 60; ++i) {
            const uint64_t kind = next++;
            MLaserProfileSettings profile = scanner.Profile();
            double value = 0;
            switch (kind % 9) {
                case 0:
                    scanner.Initialise();
                    break;
                case 1:
                    scanner.SetObserver(Make<SeenCycles>());
                    break;
                case 2:
                    scanner.SetGlobal({static_cast<int32_t>(kind / 9 % 2), 1, 0, 0, 0});
                    break;
                case 3:
                    profile.DLPCEnabled = kind / 9 % 2 == 0;
                    EXPECT_EQ(scanner.SetProfile(profile), S_OK);
                    break;
                case 4:
                    scanner.SetSurface(Scanner::SurfaceNames()[kind / 9 % 7]);
                    break;
                case 5:
                    scanner.Disable();
                    break;
                case 6:
                    scanner.SetConnected(kind / 9 % 3 != 0);
                    break;
                case 7:
                    scanner.DetectLaserPower(value);
                    break;
                case 8:
                    scanner.SetObserver(nullptr);
                    break;
            }
            EXPECT_GT(scanner.FrameRateHz(), 0);
            EXPECT_LE(scanner.Global().HorizontalFov, 1);
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) threads.emplace_back(change);
    for (std::thread& thread : threads) thread.join();
    const auto observer = Make<SeenCycles>();
    Track(scanner, observer);
    observer->WaitFor(3);
}

}  // namespace
