// Events on many threads while pages come and go on that of the user interface.
#include <thread>

#include "tests/controls/simulated_page.h"

namespace {

using simulated::Page;

constexpr int kThreads = 8;
constexpr int32_t kStates[] = {0, 1, 2, 1, 7};

HRESULT Raise(IUnknown& sink, int32_t state) {
    VARIANT argument{};
    argument.vt = VT_I4;
    argument.lVal = state;
    DISPPARAMS arguments{&argument, nullptr, 1, 0};
    return hx::ComPtr<IUnknown>(&sink).as<IDispatch>()->Invoke(
        DISPID_HXCONNECTIONSTATECHANGED, IID_NULL, 0, DISPATCH_METHOD, &arguments, nullptr, nullptr, nullptr);
}

class SessionThreads : public simulated::WithPages {
protected:
    // Calls `raise` so often on each of the threads, with its number and with states in turn, while
    // `meanwhile` runs here, again and again, at least once.
    template <class RaiseState, class Meanwhile>
    static void OnManyThreads(int often, const RaiseState& raise, const Meanwhile& meanwhile) {
        std::atomic<int> running = kThreads;
        std::vector<std::thread> threads;
        for (int number = 0; number < kThreads; ++number) {
            threads.emplace_back([&, number] {
                for (int i = 0; i < often; ++i) {
                    raise(number, kStates[static_cast<size_t>(number + i) % std::size(kStates)]);
                    std::this_thread::yield();
                }
                --running;
            });
        }
        do meanwhile();
        while (running > 0);
        for (std::thread& each : threads) each.join();
    }
};

TEST_F(SessionThreads, PagesComeAndGo) {
    std::mutex mutex;
    std::vector<hx::ComPtr<IUnknown>> sinks;  // also of pages that are gone
    const auto page_of = [&](const hx::SessionRules& rules) -> Page& {
        Page& page = NewPage(rules);
        const std::lock_guard guard(mutex);
        sinks.push_back(page.MakeEventsSink());
        return page;
    };
    const auto raise = [&](int number, int32_t state) {
        if (number % 2 == 0) {
            EXPECT_EQ(m_hands->SetConnectionState(state, TRUE), S_OK);
            return;
        }
        std::unique_lock lock(mutex);
        if (sinks.empty()) return;
        const hx::ComPtr<IUnknown> sink = sinks.back();
        lock.unlock();
        EXPECT_EQ(Raise(*sink, state), S_OK);
    };
    bool destroys = false;
    OnManyThreads(400, raise, [&] {
        Page& first = page_of(hx::kMeasurementSession);
        Page& second = page_of(hx::kHandheldSession);
        first.session.SetApi(m_api);
        second.session.SetApi(m_api);
        first.session.OnSelected();
        hx::DispatchMessages();
        first.Do([&] { first.session.ApplyGlobalScanningSettings({1, 0, 0, 0, 0}); });
        first.session.OnDeselected();
        second.session.OnSelected();
        hx::DispatchMessages();
        second.Do([&] { second.session.ApplySettingsToHardware(second.working, true); });
        if ((destroys = !destroys)) second.session.OnDestroy();
        EndPages();
        EXPECT_EQ(hx::DispatchMessages(), 0u) << "for a page that is gone";
    });
    for (const auto& sink : sinks) EXPECT_EQ(Raise(*sink, 1), S_OK);
    EXPECT_EQ(hx::DispatchMessages(), 0u);
}

TEST_F(SessionThreads, APageEndsWithTheStateOfTheApi) {
    for (const hx::SessionRules* rules : kBothRules) {
        Page& page = Open(HXConnected, *rules);
        OnManyThreads(
            50, [&](int, int32_t state) { m_hands->SetConnectionState(state, TRUE); }, &hx::DispatchMessages);
        Handle();
        int32_t state = -1;
        EXPECT_EQ(m_api->GetConnectionState(&state, nullptr), S_OK);
        EXPECT_EQ(page.messages.size(), 50u * kThreads);
        EXPECT_EQ(page.messages.back(), state);
        EXPECT_EQ(page.session.ConnectionState(), state);
        page.session.OnDestroy();
        Arrive(HXConnected);
        EXPECT_EQ(page.messages.size(), 50u * kThreads);
    }
}

}  // namespace
