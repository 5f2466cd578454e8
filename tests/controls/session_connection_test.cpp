// What changes of the connection lead to, on both pages, and what happens when they come in between.
#include "tests/controls/stub_page.h"

namespace {

class SessionConnection : public scripted::WithPage {
protected:
    // A selected page that has seen `stored`, set up, or given back while the handle stays.
    void Start(const hx::SessionRules& rules, int32_t stored, bool acquired) {
        m_script.state = stored;
        Open(rules);
        if (!acquired) {
            m_script.failures = {{"GetConnectionState", {E_FAIL, 0}}};
            m_page->session.OnDeselected();
            m_page->session.OnSelected();
            m_script.failures.clear();
        }
        ASSERT_EQ(m_page->session.IsHandleAcquired(), acquired);
        ASSERT_EQ(m_page->session.ConnectionState(), stored);
        m_script.calls.clear();
    }
    // What a change did: R released, r the same without stopping the scanner, C a handle was created, O set
    // up.
    std::string Effect(int32_t arrived) {
        m_script.state = arrived;
        m_page->session.OnConnectionStateChange(arrived);
        std::string effect;
        bool stopped = false;
        for (const std::string& call : std::exchange(m_script.calls, {})) {
            if (call == "DisableScanner") stopped = true;
            if (call == "ReleaseHandle") effect += std::exchange(stopped, false) ? 'R' : 'r';
            if (call.starts_with("CreateCalibrationHandle")) effect += 'C';
            if (call == "finish") effect += 'O';
        }
        return effect;
    }
};

TEST_F(SessionConnection, EveryRowOfBothPages) {
    struct Row {
        int32_t stored;
        int32_t arrived;
        std::string acquired;      // the effect on a page that is set up
        std::string not_acquired;  // and on one that is not, but has a handle
        std::string measurement_not_acquired;
    };
    const Row rows[] = {
        {0, 0, "", "rO", "rO"}, {0, 1, "", "RO", "RO"}, {0, 2, "", "rO", "rO"}, {1, 0, "R", "R", "R"},
        {1, 1, "", "RO", "RO"}, {1, 2, "", "rO", ""},   {2, 0, "r", "r", "r"},  {2, 1, "rCO", "RO", "RO"},
        {2, 2, "", "", ""},     {0, 7, "", "", ""},     {1, -1, "", "", ""},
    };
    for (const auto* rules : {&hx::kHandheldSession, &hx::kMeasurementSession}) {
        for (const Row& row : rows) {
            SCOPED_TRACE(std::to_string(row.stored) + " to " + std::to_string(row.arrived));
            Start(*rules, row.stored, true);
            EXPECT_EQ(Effect(row.arrived), row.acquired);
            EXPECT_EQ(m_page->session.ConnectionState(), row.arrived);
            EXPECT_EQ(!m_page->session.Handle(), row.arrived == 0 && row.stored != 0);
            Start(*rules, row.stored, false);
            EXPECT_EQ(Effect(row.arrived),
                      rules == &hx::kMeasurementSession ? row.measurement_not_acquired : row.not_acquired);
        }
    }
}

TEST_F(SessionConnection, ALostConnectionComesBackWithANewHandle) {
    Start(hx::kHandheldSession, 1, true);
    EXPECT_EQ(Effect(0), "R");
    EXPECT_EQ(Effect(1), "CO");
    m_script.failures = {{"Stop", {E_FAIL, 0}}};  // which does not save the handle
    EXPECT_EQ(Effect(0), "");
    EXPECT_FALSE(m_page->session.Handle());
}

TEST_F(SessionConnection, ASuspendedScannerIsResumedWhereThePageDoesThat) {
    for (const auto* rules : {&hx::kHandheldSession, &hx::kMeasurementSession}) {
        m_script.state = HXSuspended;
        Open(*rules);
        const std::string calls = m_script.Calls();
        EXPECT_EQ(calls.find("Resume") != std::string::npos, rules == &hx::kHandheldSession);
        EXPECT_EQ(calls.find("AcquireHandle"), std::string::npos);
        EXPECT_EQ(Effect(1), "rCO");
    }
}

TEST_F(SessionConnection, WhatArrivesWhileAnotherPageIsShown) {
    for (const auto* rules : {&hx::kHandheldSession, &hx::kMeasurementSession}) {
        Start(*rules, 1, true);
        m_page->session.OnDeselected();
        m_script.calls.clear();
        m_page->session.OnConnectionStateChange(0);
        EXPECT_EQ(m_script.Calls(), "");
        EXPECT_EQ(m_page->session.ConnectionState(), rules == &hx::kHandheldSession ? 0 : 1);
        EXPECT_TRUE(m_page->session.Handle());
    }
}

// Events reach the session through the page's window, those of a new API instead of the old one's.
TEST_F(SessionConnection, EventsArriveThroughTheWindow) {
    Start(hx::kHandheldSession, 1, true);
    const auto api = hx::Make<scripted::Api>(m_script);
    m_page->session.SetApi(api);
    ASSERT_EQ(api->Events().Sinks().size(), 1u);
    VARIANT state{};
    state.vt = VT_I4;
    DISPPARAMS arguments{&state, nullptr, 1, 0};
    api->Events().Sinks()[0].as<IDispatch>()->Invoke(3, IID_NULL, 0, DISPATCH_METHOD, &arguments, nullptr,
                                                     nullptr, nullptr);
    EXPECT_EQ(m_page->session.ConnectionState(), 1);
    hx::DispatchMessages();
    EXPECT_EQ(m_page->session.ConnectionState(), 0);
    m_page->session.SetApi(nullptr);
    EXPECT_TRUE(api->Events().Sinks().empty());
}

TEST_F(SessionConnection, ChangesDuringAnOperationWaitForItsEnd) {
    m_script.failures = {{"AcquireHandle", {E_FAIL, 0}}};
    m_while_box_is_open = [&] {
        m_script.failures.clear();
        m_script.calls.clear();
        m_page->session.OnConnectionStateChange(0);
        m_page->session.OnConnectionStateChange(1);
        EXPECT_EQ(m_script.Calls(), "");
    };
    Open();
    const std::string calls = m_script.Calls();
    EXPECT_TRUE(
        calls.starts_with("disable, frame rate, Stop, DisableScanner, wait 50, "
                          "RegisterTrackingCycleObserver null, ReleaseHandle, GetConnectionState"))
        << calls;
    EXPECT_TRUE(m_page->session.IsHandleAcquired());
    {
        // What the page itself does counts, too.
        const hx::SessionOperations::Scope outer(m_page->session.Operations());
        const hx::SessionOperations::Scope inner(m_page->session.Operations());
        m_page->session.OnConnectionStateChange(HXSuspended);
        // Another API takes the first one's word away.
        m_script.state = HXNotConnected;
        m_page->session.SetApi(hx::Make<scripted::Api>(m_script));
        EXPECT_EQ(m_page->session.ConnectionState(), 1);
        m_script.calls.clear();
    }
    EXPECT_EQ(m_page->session.ConnectionState(), 0);
    EXPECT_TRUE(m_script.Calls().starts_with("Stop, DisableScanner"));
    {
        // However many they are, each is handled when the one before is over.
        const hx::SessionOperations::Scope scope(m_page->session.Operations());
        for (int i = 0; i < 100000; ++i) m_page->session.OnConnectionStateChange(7);
    }
    EXPECT_EQ(m_page->session.ConnectionState(), 7);
}

// A host may destroy the page while a box is open. Nothing may touch the page afterwards.
TEST_F(SessionConnection, ThePageMayGoWhileABoxIsOpen) {
    for (const bool outcome : {false, true}) {
        for (const bool destroyed : {false, true}) {
            m_script.failures = {
                {outcome ? "EnumerateDynamicSettingsPresets" : "AcquireHandle", {E_FAIL, 0}}};
            m_script.chain_code = kHXPresetsUnknownVersion;
            m_while_box_is_open = [&] {
                m_page->session.OnConnectionStateChange(0);
                m_page->session.OnDestroy();
                if (destroyed) m_page.reset();
                m_script.calls.clear();
            };
            Open();
            EXPECT_EQ(m_script.Calls(), outcome ? "no cursor" : "");
        }
    }
}

}  // namespace
