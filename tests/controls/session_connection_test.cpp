// What changes of the connection lead to, told by the simulated scanner API on its own thread, and what
// happens when they come in between.
#include "platform/com/fatal_error.h"
#include "tests/controls/simulated_page.h"

namespace {

using simulated::Page;

class SessionConnection : public simulated::WithPages {
protected:
    // A selected page that has seen `stored`, set up, or given back while the handle stays.
    Page& Start(const hx::SessionRules& rules, int32_t stored, bool acquired) {
        Page& page = Open(stored, rules, {true, L"HXScanner", L"HX", L"$DARK"});
        if (!acquired) {
            page.session.OnDeselected();
            Fail("GetConnectionState");
            page.session.OnSelected();
        }
        EXPECT_EQ(page.session.IsHandleAcquired(), acquired);
        EXPECT_EQ(page.session.ConnectionState(), stored);
        Lines();
        return page;
    }
    // What a change did: R released, r the same without stopping the scanner, C a handle was created, O set
    // up.
    std::string Effect(int32_t arrived) {
        Arrive(arrived);
        std::string effect;
        bool stopped = false;
        for (const std::string& call : Lines()) {
            if (call == "handle.DisableScanner()") stopped = true;
            if (call == "handle.ReleaseHandle()") effect += std::exchange(stopped, false) ? 'R' : 'r';
            if (call.starts_with("api.CreateCalibrationHandle")) effect += 'C';
            if (call == "page.enable(true)") effect += 'O';
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
    for (const auto* rules : kBothRules) {
        const bool is_handheld = rules == &hx::kHandheldSession;
        for (const Row& row : rows) {
            SCOPED_TRACE(std::to_string(row.stored) + " to " + std::to_string(row.arrived));
            Page& set_up = Start(*rules, row.stored, true);
            EXPECT_EQ(Effect(row.arrived), row.acquired);
            EXPECT_EQ(set_up.session.ConnectionState(), row.arrived);
            EXPECT_EQ(!set_up.session.Handle(), row.arrived == 0 && row.stored != 0);
            Start(*rules, row.stored, false);
            EXPECT_EQ(Effect(row.arrived), is_handheld ? row.not_acquired : row.measurement_not_acquired);
            // While another page is shown nothing follows.
            Page& unselected = Start(*rules, row.stored, true);
            unselected.session.OnDeselected();
            Lines();
            Arrive(row.arrived);
            EXPECT_EQ(Text(), "\nevents.Raise(" + std::to_string(row.arrived) + ")\n");
            EXPECT_EQ(unselected.session.ConnectionState(), is_handheld ? row.arrived : row.stored);
            EXPECT_TRUE(unselected.session.Handle());
        }
        // From a state that it does not know the page goes nowhere.
        for (const int32_t arrived : {0, 1, 2}) {
            Start(*rules, 0, true);
            Arrive(7);
            EXPECT_EQ(Effect(arrived), "") << arrived;
        }
    }
}

TEST_F(SessionConnection, ChangesDuringAnOperationWaitForItsEnd) {
    Page& page = NewPage();
    m_hands->SetConnectionState(HXConnected, FALSE);
    page.session.OnSelected();
    Fail("AcquireHandle");
    page.while_box_is_open = [&] {
        Arrive(0);
        Arrive(1);
        EXPECT_EQ(page.messages, (std::vector<int32_t>{0, 1}));
        EXPECT_EQ(page.session.ConnectionState(), 1);
        Lines();
    };
    page.session.SetApi(m_api);
    const std::string calls = Text();
    EXPECT_TRUE(
        calls.starts_with("\npage.enable(false)\npage.rate()\nrecorder.StopTrackingDataRecording()\n"
                          "handle.DisableScanner()\npage.wait(50)\n"))
        << calls;
    EXPECT_TRUE(page.session.IsHandleAcquired());
    {
        // What the page itself does counts, too.
        const hx::SessionOperations::Scope outer(page.session.Operations());
        const hx::SessionOperations::Scope inner(page.session.Operations());
        Arrive(HXSuspended);
        // Another API takes the first one's word away.
        m_hands->SetConnectionState(HXNotConnected, FALSE);
        page.session.SetApi(m_api);
        EXPECT_EQ(page.session.ConnectionState(), 1);
    }
    EXPECT_EQ(page.session.ConnectionState(), 0);
    {
        // However many they are, each is handled when the one before is over.
        const hx::SessionOperations::Scope scope(page.session.Operations());
        for (int i = 0; i < 100000; ++i) page.session.OnConnectionStateChange(7);
    }
    EXPECT_EQ(page.session.ConnectionState(), 7);
    // Without an API nobody is told.
    page.session.SetApi(nullptr);
    Arrive(0);
    EXPECT_EQ(page.session.ConnectionState(), 7);
}

TEST_F(SessionConnection, AListenerIsAdvisedOnceAndItsCookieForgotten) {
    Page& page = NewPage();
    hx::ApiEventsConnection connection;
    Fail("Advise");
    connection.Advise(m_api.get(), page.MakeEventsSink().get());
    EXPECT_EQ(connection.Cookie(), 0xFEFEFEFEu);
    for (int i = 0; i < 2; ++i) {
        connection.Advise(m_api.get(), page.MakeEventsSink().get());
        try {
            connection.Advise(m_api.get(), page.MakeEventsSink().get());
            ADD_FAILURE();
        } catch (const hx::FatalComError& error) {
            EXPECT_EQ(error.result, E_FAIL);
        }
        page.messages.clear();
        Arrive(1);
        EXPECT_EQ(page.messages.size(), 1u);
        connection.Unadvise(m_api.get());
        EXPECT_EQ(connection.Cookie(), 0xFEFEFEFEu);
        Arrive(1);
        EXPECT_EQ(page.messages.size(), 1u);
    }
}

// A host may show another page while a box is open, and what was under way then ends.
TEST_F(SessionConnection, ThePageMayBeLeftWhileABoxIsOpen) {
    const auto expect_left = [&](Page& page, const std::string& calls) {
        EXPECT_TRUE(calls.ends_with("page.leave()\n") ||
                    calls.ends_with("page.leave()\npage.cursor(false)\n"))
            << calls;
        EXPECT_FALSE(page.session.IsSelected() || page.session.IsHandleAcquired());
    };
    for (const auto* rules : kBothRules) {
        for (const bool outcome : {false, true}) {
            EndPages();
            m_hands->SetConnectionState(HXConnected, FALSE);
            Page& page = NewPage(*rules);
            page.session.OnSelected();
            Fail(outcome ? "EnumerateDynamicSettingsPresets" : "AcquireHandle", E_FAIL, 0, 1,
                 outcome ? kHXPresetsUnknownVersion : nullptr);
            page.while_box_is_open = [&] { page.session.OnDeselected(); };
            page.session.SetApi(m_api);
            expect_left(page, Text());
        }
        Page& page = Open(HXConnected, *rules);
        page.session.OnDeselected();
        Lines();
        Fail("AcquireHandle");
        page.while_box_is_open = [&] { page.session.OnDeselected(); };
        page.session.OnSelected();
        expect_left(page, Text());
    }
}

TEST_F(SessionConnection, AStateThatWaitedCountsThoughThePageIsLeft) {
    for (const auto* rules : kBothRules) {
        Page& page = Open(HXConnected, *rules);
        {
            const hx::SessionOperations::Scope scope(page.session.Operations());
            Arrive(0);
            page.session.OnDeselected();
        }
        EXPECT_EQ(page.session.ConnectionState(), 0);
        EXPECT_FALSE(page.session.Handle());
        page.session.OnSelected();
        Arrive(1);
        EXPECT_TRUE(page.session.IsHandleAcquired());
    }
}

TEST_F(SessionConnection, WhatAnOlderApiHasPostedIsForgotten) {
    Page& page = Open();
    const size_t before = page.notes;
    m_hands->SetConnectionState(HXNotConnected, TRUE);
    m_hands->WaitForEvents();
    m_hands->SetConnectionState(HXConnected, FALSE);
    page.session.SetApi(m_api);
    hx::DispatchMessages();
    EXPECT_TRUE(page.session.IsHandleAcquired());
    EXPECT_EQ(page.notes, before + 1);  // the new one's answer alone
}

// A host may destroy the page while a box is open. Nothing may touch the page afterwards.
TEST_F(SessionConnection, ThePageMayGoWhileABoxIsOpen) {
    for (const bool outcome : {false, true}) {
        for (const bool destroyed : {false, true}) {
            m_hands->SetConnectionState(HXConnected, FALSE);
            Page& page = NewPage();
            page.session.OnSelected();
            if (outcome) {
                Fail("EnumerateDynamicSettingsPresets", E_FAIL, 0, 1, kHXPresetsUnknownVersion);
            } else {
                Fail("AcquireHandle");
            }
            page.while_box_is_open = [&] {
                Arrive(0);
                page.session.OnDestroy();
                if (destroyed) m_pages.clear();
                Lines();
            };
            page.session.SetApi(m_api);
            EXPECT_EQ(Text(), outcome ? "\npage.cursor(false)\n" : "\n");
            EndPages();
        }
    }
}

}  // namespace
