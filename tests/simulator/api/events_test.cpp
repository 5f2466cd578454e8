// The connection's states as the listeners are told of them.
#include <future>
#include <stdexcept>

#include "tests/simulator/api/simulator_fixture.h"

namespace {

using hx::ComPtr;
using States = std::vector<int32_t>;

class Events : public SimulatorTest {
protected:
    ComPtr<Listener> Advise(std::function<HRESULT(int32_t)> also = {}) {
        auto listener = hx::Make<Listener>(std::move(also));
        DWORD cookie = 0;
        EXPECT_EQ(SimulatorTest::Events()->Advise(listener.as<IUnknown>().get(), &cookie), S_OK);
        EXPECT_NE(cookie, 0u);
        return listener;
    }
    int32_t State() {
        int32_t state = -1;
        EXPECT_EQ(m_api->GetConnectionState(&state, nullptr), S_OK);
        return state;
    }
};

TEST_F(Events, ACableTellsEachStateInOrder) {
    // The state is that of the event while it is told.
    States seen;
    const auto listener = Advise([&](int32_t) {
        seen.push_back(State());
        return S_OK;
    });
    EXPECT_EQ(m_hands->Connect(), S_OK);
    EXPECT_EQ(m_hands->Disconnect(), S_OK);
    EXPECT_EQ(m_hands->WaitForEvents(), S_OK);
    EXPECT_EQ(listener->Told(), (States{0, 2, 1, 1, 0}));
    EXPECT_EQ(seen, listener->Told());
}

TEST_F(Events, ARawStateIsThereAtOnceAndToldIfAsked) {
    const auto listener = Advise();
    EXPECT_EQ(m_hands->SetConnectionState(17, FALSE), S_OK);
    EXPECT_EQ(State(), 17);
    EXPECT_EQ(m_hands->SetConnectionState(2, TRUE), S_OK);
    EXPECT_EQ(State(), 2);
    EXPECT_EQ(m_api->Resume(nullptr), S_OK);
    EXPECT_EQ(m_hands->WaitForEvents(), S_OK);
    EXPECT_EQ(State(), 2);
    EXPECT_EQ(listener->Told(), States{2});
}

// What was still to come of a plugged cable does not come any more.
TEST_F(Events, ALostConnectionStaysLost) {
    std::promise<void> told;
    std::promise<void> lost;
    const auto listener = Advise([&](int32_t state) {
        if (state != HXSuspended) return S_OK;
        told.set_value();
        lost.get_future().wait();
        return S_OK;
    });
    EXPECT_EQ(m_hands->Connect(), S_OK);
    told.get_future().wait();
    HXSimulatorFault fault{Text("Resume"), HX_E_NOTCONNECTED, 1, 0, 0, TRUE, nullptr, nullptr, nullptr};
    EXPECT_EQ(m_hands->InjectFault(&fault), S_OK);
    EXPECT_EQ(m_api->Resume(nullptr), HX_E_NOTCONNECTED);
    lost.set_value();
    EXPECT_EQ(m_hands->WaitForEvents(), S_OK);
    EXPECT_EQ(State(), HXNotConnected);
    EXPECT_EQ(listener->Told(), (States{0, 2, 0}));
}

TEST_F(Events, AListenerThatFailsHarmsNobody) {
    const auto failing = Advise([](int32_t) { return E_FAIL; });
    const auto throwing = Advise([](int32_t) -> HRESULT { throw std::runtime_error("listener"); });
    const auto waiting = Advise([&](int32_t) {
        EXPECT_EQ(m_hands->WaitForEvents(), E_UNEXPECTED) << "would wait for itself";
        return S_OK;
    });
    const auto last = Advise();
    ConnectAndWait();
    EXPECT_EQ(last->Told(), (States{0, 2, 1}));
}

TEST_F(Events, WhoIsUnadvisedIsToldNoMore) {
    const auto listener = hx::Make<Listener>();
    const auto point = SimulatorTest::Events();
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(listener.as<IUnknown>().get(), &cookie), S_OK);
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
    EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point->Advise(m_api.get(), &cookie), CONNECT_E_CANNOTCONNECT);
    ConnectAndWait();
    EXPECT_EQ(listener->Told(), States{});
    const std::string twice[] = {
        Call("events", "Advise", R"(["observer"])"),
        Call("events", "Unadvise", "[1]"),
        Call("events", "Unadvise", "[1]", CONNECT_E_NOCONNECTION),
        Call("events", "Advise", R"(["observer"])", CONNECT_E_CANNOTCONNECT),
        Call("events", "Raise", "[0]"),
        Call("events", "Raise", "[2]"),
        Call("events", "Raise", "[1]"),
    };
    EXPECT_EQ(Calls(), std::vector<std::string>(std::begin(twice), std::end(twice)));
}

// The last reference goes in the listener's call, where the thread cannot be waited for.
TEST_F(Events, TheApiMayGoDuringAnEvent) {
    std::promise<void> called;
    std::promise<void> gone;
    auto handle = NewHandle();
    auto listener = Advise([&](int32_t) {
        called.get_future().wait();
        m_hands.reset();
        m_api.reset();
        handle.reset();
        gone.set_value();
        return S_OK;
    });
    EXPECT_EQ(m_hands->SetConnectionState(1, TRUE), S_OK);
    called.set_value();
    gone.get_future().wait();
    while (IsLoaded()) CoFreeUnusedLibraries();
}

}  // namespace
