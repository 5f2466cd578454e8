// Every operation of the scanner API that a session calls fails at each of its calls: what the operator is
// told, how the session goes on, and that a reconnection sets the page up again.
#include <algorithm>
#include <iterator>
#include <set>
#include <span>

#include "platform/com/text_array.h"
#include "tests/controls/simulated_page.h"

namespace {

using simulated::Page;

constexpr HRESULT kResults[] = {
    E_FAIL,    E_POINTER,    E_INVALIDARG,  E_OUTOFMEMORY,     E_ACCESSDENIED,   E_ABORT,
    E_NOTIMPL, E_UNEXPECTED, E_NOINTERFACE, HX_E_NOTCONNECTED, HX_E_NOTACQUIRED, HX_E_NOTFOUND,
};

// What follows from the failure of a call: error boxes, entries of the module's log, and whether further
// calls of the scanner API do.
struct Consequence {
    std::string phase;
    std::string operation;  // "" for all that are not listed before
    int32_t nth;            // of its calls in the phase; -1 for all
    size_t boxes, logged;
    bool goes_on;
};
const Consequence kConsequences[] = {
    // Who tells of no events, or of no state at once, is no reason for a box; without a state nothing is
    // opened.
    {"hand over", "Advise", -1, 0, 0, true},
    {"hand over", "GetConnectionState", 0, 0, 0, false},
    {"hand over", "", -1, 1, 1, false},
    // It begins with giving back what the suspended scanner had.
    {"connected", "RegisterTrackingCycleObserver", 0, 0, 1, true},
    {"connected", "ReleaseHandle", 0, 0, 1, true},
    {"connected", "StartTrackingDataRecording", -1, 0, 0, true},
    {"connected", "", -1, 1, 1, false},
    {"apply", "", -1, 1, 0, false},
    {"field of view", "DisableScanner", -1, 0, 0, true},
    {"field of view", "", -1, 1, 0, false},
    // The rest of giving back is left undone.
    {"deselect", "", -1, 0, 1, false},
    {"select", "StartTrackingDataRecording", -1, 0, 0, true},
    {"select", "", -1, 1, 0, true},
    {"custom", "", -1, 1, 0, false},
    {"save", "", -1, 1, 0, false},
    {"destroy", "CloseHandle", -1, 0, 1, true},
    {"destroy", "Unadvise", -1, 0, 0, true},
    {"destroy", "", -1, 0, 1, false},
};

const Consequence& ConsequenceOf(const std::string& phase, const std::string& operation, int32_t nth) {
    return *std::ranges::find_if(kConsequences, [&](const Consequence& each) {
        return each.phase == phase && (each.operation.empty() || each.operation == operation) &&
               (each.nth < 0 || each.nth == nth);
    });
}

std::string OperationOf(const std::string& line) {
    const size_t dot = line.find('.');
    return line.substr(dot + 1, line.find('(') - dot - 1);
}
bool IsOfPage(const std::string& line) {
    return line.starts_with("page.");
}
size_t CountOf(const std::vector<std::string>& lines, const char* what) {
    return static_cast<size_t>(
        std::ranges::count_if(lines, [&](const std::string& line) { return line.starts_with(what); }));
}

class SessionFaults : public simulated::WithPages {
protected:
    struct Phase {
        std::string name;
        std::function<void(Page&)> run;
        bool saves = false;
    };

    // A new page, with the presets of the factory, whose session goes through the phases up to that one,
    // but for those that save: a disk takes its time.
    Page& RunUntil(size_t phase, const hx::SessionRules& rules) {
        EndPages();
        const std::filesystem::path folder = m_folder.path() / std::to_string(++m_runs);
        EXPECT_EQ(m_hands->SetPresetsFolder(hx::Bstr(folder.wstring()).get()), S_OK);
        m_hands->SetConnectionState(HXSuspended, FALSE);
        Page& page = NewPage(rules, {true, L"HXScanner", L"HX", L"$DARK"});
        page.session.OnSelected();
        for (size_t i = 0; i < phase; ++i) {
            if (!m_phases[i].saves) m_phases[i].run(page);
        }
        Lines();
        return page;
    }
    // The calls, but for the cookie, which is another one for each page.
    std::vector<std::string> Run(Page& page, size_t phase) {
        m_phases[phase].run(page);
        std::vector<std::string> lines = Lines();
        for (std::string& line : lines) {
            if (!line.starts_with("events.Unadvise(")) continue;
            const size_t cookie = line.find('(') + 1;
            line.erase(cookie, line.find(')') - cookie);
        }
        return lines;
    }
    void Change(Page& page, int32_t state) {
        m_hands->SetConnectionState(state, FALSE);
        page.session.OnConnectionStateChange(state);
    }

    // Of each phase of a session in which nothing fails.
    std::vector<std::vector<std::string>> GoodSession(const hx::SessionRules& rules) {
        std::vector<std::vector<std::string>> good;
        Page& page = RunUntil(0, rules);
        for (size_t i = 0; i < m_phases.size(); ++i) good.push_back(Run(page, i));
        EXPECT_TRUE(page.boxes.empty());
        return good;
    }

    // The call at that place of the phase fails.
    void CheckCase(const hx::SessionRules& rules, size_t phase, const std::vector<std::string>& good,
                   size_t place, HRESULT result) {
        const std::string operation = OperationOf(good[place]);
        const std::span<const std::string> before(good.data(), place);
        const auto nth = static_cast<int32_t>(std::ranges::count_if(before, [&](const std::string& line) {
            return !IsOfPage(line) && OperationOf(line) == operation;
        }));
        SCOPED_TRACE(m_phases[phase].name + ", " + operation + " " + std::to_string(nth) + ", " +
                     std::to_string(result));
        const Consequence& expected = ConsequenceOf(m_phases[phase].name, operation, nth);
        Page& page = RunUntil(phase, rules);
        Fail(operation, result, nth);
        const std::vector<std::string> calls = Run(page, phase);
        m_hands->ClearFaults();

        ASSERT_GT(calls.size(), place);
        EXPECT_TRUE(std::ranges::equal(before, std::span(calls.data(), place)))
            << "something else was called before";
        EXPECT_TRUE(calls[place].starts_with(good[place] + " = ")) << calls[place];
        const auto goes_on = [&](const std::vector<std::string>& lines) {
            return !std::ranges::all_of(std::span(lines).subspan(place + 1), &IsOfPage);
        };
        EXPECT_EQ(goes_on(calls), expected.goes_on && goes_on(good));
        EXPECT_EQ(CountOf(calls, "page.box("), expected.boxes);
        EXPECT_EQ(CountOf(calls, "page.logged("), expected.logged);
        for (const std::string& box : page.boxes) EXPECT_TRUE(box.ends_with(":" + operation)) << box;
        // That the device manager cannot be had is told without the reason.
        const bool tells_result = expected.boxes != 0 && operation != "GetDeviceManager";
        EXPECT_EQ(page.result_in_box, tells_result ? result : S_OK);
        CheckRecovery(page, phase);
    }

    // With the scanner plugged in again the page is set up, once it is shown, and can be closed; a page that
    // was closed makes room for another one.
    void CheckRecovery(Page& failed, size_t phase) {
        if (m_phases[phase].name == "deselect") failed.session.OnSelected();
        if (m_phases[phase].name == "destroy") {
            Open();
        } else {
            for (const int32_t state : {HXNotConnected, HXSuspended, HXConnected}) Change(failed, state);
        }
        Page& page = m_pages.back();
        const std::vector<std::string> calls = Lines();
        EXPECT_EQ(CountOf(calls, "page.box(") + CountOf(calls, "page.enable(false)"), 0u);
        EXPECT_GE(CountOf(calls, "page.enable(true)"), 1u);
        EXPECT_TRUE(page.session.IsHandleAcquired() && page.session.IsDeviceCurrent());
        EXPECT_GE(page.session.Presets().Count(), 4u);
    }

    const std::vector<Phase> m_phases = {
        {"hand over", [this](Page& page) { page.session.SetApi(m_api); }},
        {"connected", [this](Page& page) { Change(page, HXConnected); }},
        {"apply",
         [](Page& page) { page.Do([&] { page.session.ApplySettingsToHardware(page.working, true); }); }},
        {"field of view",
         [](Page& page) { page.Do([&] {
                              page.session.ApplyGlobalScanningSettings({1, 0, 0, 0, 0});
                          }); }},
        {"save",
         [](Page& page) { page.Do([&] { page.session.Presets().SetPreset(L"Own", page.working); }); }},
        {"deselect", [](Page& page) { page.session.OnDeselected(); }},
        {"select", [](Page& page) { page.session.OnSelected(); }},
        {"custom", [](Page& page) { page.Do([&] { page.session.Presets().SetCustomPreset(); }); }, true},
        {"save", [](Page& page) { page.Do([&] { page.session.Presets().SetPreset(L"Own", page.working); }); },
         true},
        {"destroy", [](Page& page) { page.session.OnDestroy(); }},
    };
    int m_runs = 0;
};

// The number of cases changes when a session calls more or less; those of the operations change with the
// simulator's table.
TEST_F(SessionFaults, EveryCallOfASessionByEveryResult) {
    size_t cases = 0;
    std::set<std::string> used;
    for (const hx::SessionRules* rules : kBothRules) {
        const auto good = GoodSession(*rules);
        for (size_t phase = 0; phase < good.size(); ++phase) {
            for (size_t place = 0; place < good[phase].size(); ++place) {
                if (IsOfPage(good[phase][place])) continue;
                used.insert(OperationOf(good[phase][place]));
                for (const HRESULT result : kResults) {
                    CheckCase(*rules, phase, good[phase], place, result);
                    ++cases;
                }
            }
        }
    }
    // A good session of each kind makes so many calls together.
    EXPECT_EQ(cases, 123u * std::size(kResults));

    // What no session calls may fail as it likes.
    hx::SafeArray listed;
    ASSERT_EQ(m_hands->GetOperations(listed.put()), S_OK);
    const auto operations = hx::TextsOf(listed.get());
    EXPECT_EQ(operations->size(), 55u);
    EXPECT_EQ(used.size(), 25u);
    const auto good = GoodSession(hx::kHandheldSession);
    for (const std::wstring& name : *operations) {
        const std::string operation = hx::ToUtf8(name);
        if (!used.contains(operation.substr(operation.find('.') + 1))) Fail(operation, E_FAIL, 0, -1);
    }
    EXPECT_EQ(GoodSession(hx::kHandheldSession), good);
}

// A hook of the page that fails counts as the operation's failure.
TEST_F(SessionFaults, APageMayFailItself) {
    for (const std::string hook : {"presets", "gains", "range", "finish"}) {
        EndPages();
        m_hands->SetConnectionState(HXConnected, FALSE);
        Page& page = NewPage();
        page.failing_hook = hook;
        page.session.OnSelected();
        page.session.SetApi(m_api);
        EXPECT_TRUE(Text().ends_with("page.box(" + hook + ")\npage.enable(false)\npage.rate()\n")) << hook;
        EXPECT_EQ(page.boxes.size(), 1u);
    }
    Page& page = Open();
    // The operator was told already.
    page.shows_nothing = true;
    Arrive(HXNotConnected);
    Text();
    Arrive(HXConnected);
    EXPECT_TRUE(Text().ends_with("page.finish()\npage.enable(false)\npage.rate()\n"));
    EXPECT_TRUE(page.boxes.empty());
    page.failing_hook = "leave";
    page.session.OnDeselected();
    EXPECT_TRUE(Text().ends_with("page.leave()\npage.logged(leave)\n"));
    EXPECT_FALSE(page.session.IsSelected());
}

}  // namespace
