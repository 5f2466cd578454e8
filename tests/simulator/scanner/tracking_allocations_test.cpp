// The tracking thread has all its memory from the start. With a heap of its own, which counts.
#include <gtest/gtest.h>

#include <array>
#include <future>

#include "bench/allocations.h"
#include "platform/com/implements.h"
#include "simulator/scanner/Scanner.h"

namespace {

using namespace hx::simulator;

class CountingObserver final
    : public hx::Implements<CountingObserver, hx::FreeThreaded, ITrackingCycleObserver> {
public:
    HRESULT STDMETHODCALLTYPE OnTrackingAreas(const TrackingArea*, uint32_t) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnTrackingCycle(const TrackingCycle*) override {
        if (m_count == counts.size()) return S_OK;
        counts[m_count++] = hx::bench::Allocations();
        if (m_count == counts.size()) done.set_value();
        return S_OK;
    }

    std::array<size_t, 12> counts{};
    std::promise<void> done;

private:
    size_t m_count = 0;
};

TEST(TrackingAllocations, NoCycleTakesMemory) {
    const auto observer = hx::Make<CountingObserver>();
    Scanner scanner(*FindScannerModel(L"HX"));
    hx::MLaserProfileSettings profile = scanner.Profile();
    profile.DLPCEnabled = true;
    profile.RFEnabled = false;
    ASSERT_EQ(scanner.SetProfile(profile), S_OK);
    ASSERT_EQ(scanner.SetSurface(L"shiny"), S_OK);
    scanner.SetObserver(observer);
    scanner.Initialise();
    scanner.SetConnected(true);
    observer->done.get_future().wait();
    EXPECT_EQ(observer->counts.back(), observer->counts.front());
}

}  // namespace
