// A page and its session with the simulated scanner API, as a host has them: what the session asks of the
// page is entered in the simulator's log, among the calls of the scanner API.
#pragma once

#include "controls/api/cHXApiEventsSinkSimple.h"
#include "controls/session/ScannerSession.h"
#include "core/errors/MDiagnosticsRegistry.h"
#include "core/errors/MErrorCom.h"
#include "hxapi/ITrackingCycleObserver.h"
#include "platform/system/sleep.h"
#include "tests/simulator/api/simulator_fixture.h"

namespace simulated {

// A preview that counts what it sees, and is counted while it is there.
class Observer final : public hx::Implements<Observer, hx::FreeThreaded, ITrackingCycleObserver> {
public:
    inline static std::atomic<int32_t> s_alive = 0;
    inline static std::atomic<uint32_t> s_cycles = 0;

    Observer() { ++s_alive; }
    ~Observer() override { --s_alive; }
    HRESULT STDMETHODCALLTYPE OnTrackingAreas(const TrackingArea*, uint32_t) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnTrackingCycle(const TrackingCycle*) override {
        ++s_cycles;
        return S_OK;
    }
};

// As JSON has it.
std::string QuotedText(const std::string& text);

// Enters what a page did, with an argument in JSON or none.
inline void LogOfPage(IHXSimulator& hands, const std::string& what, const std::string& argument = "") {
    const std::wstring arguments = L"[" + *hx::FromUtf8(argument) + L"]";
    hands.LogCall(hx::Bstr(L"page").get(), hx::Bstr(*hx::FromUtf8(what)).get(), hx::Bstr(arguments).get());
}

// The calls since the last time, one a line: "on.operation(arguments)", of a failing one with " = result".
std::vector<std::string> LinesOf(IHXSimulator& hands);
// Among them, of a connected scanner: which driver is used for it.
inline const std::string kSelection = R"(
api.GetConnectionState()
api.GetCurrentProfile()
profile.GetDriverSelection()
api.GetConnectionState())";

// The code without its class.
inline std::string CodeOf(std::wstring_view code) {
    return hx::ToUtf8(code.substr(code.find(L'.') + 1));
}

class Page final : public hx::MessageWindow,
                   public hx::cHXApiEventsSinkSimple<Page>,
                   private hx::ISessionPage {
public:
    Page(hx::ComPtr<IHXSimulator> hands, const hx::SessionRules& rules)
        : session(*this, rules), m_hands(std::move(hands)) {}

    // As a page's own handlers do with what an operation throws.
    template <class Operation>
    void Do(Operation operation) {
        try {
            operation();
        } catch (const hx::MException& exception) {
            ErrorBox(exception);
        }
    }
    hx::ComPtr<IUnknown> MakeEventsSink() override { return cHXApiEventsSinkSimple<Page>::MakeEventsSink(); }
    void ForgetEvents() override { cHXApiEventsSinkSimple<Page>::ForgetEvents(); }
    void NoteConnectionState() override { ++notes; }

    hx::ComPtr<IDynamicSettingsPreset> working;
    std::vector<std::string> boxes;           // the codes of the last errors
    HRESULT result_in_box = S_OK;             // of the call behind the last error
    std::function<void()> while_box_is_open;  // once
    std::string failing_hook;
    bool shows_nothing = false;  // when it is set up
    std::vector<int32_t> messages;
    size_t notes = 0;  // of states that the session was told
    hx::ScannerSession session;

private:
    void OnMessage(const hx::WindowMessage& message) override {
        messages.push_back(hx::ConnectionStateOf(message));
        if (message.id == hx::WM_HX_CONNECTION_STATE) session.OnConnectionStateChange(messages.back());
    }
    void ErrorBox(const hx::MException& exception) noexcept override {
        boxes.push_back(CodeOf(exception.GetChain().back()->GetCode()));
        for (const auto& error : exception.GetChain()) {
            const auto* const call = dynamic_cast<const hx::MErrorCom*>(error.get());
            if (call != nullptr) result_in_box = call->GetResult();
        }
        LogOfPage(*m_hands, "box", QuotedText(boxes.back()));
        if (while_box_is_open) std::exchange(while_box_is_open, nullptr)();
    }
    std::shared_ptr<void> ShowWaitCursor() override {
        Enter("cursor", "true");
        return {nullptr, [hands = m_hands](void*) { LogOfPage(*hands, "cursor", "false"); }};
    }
    void EnableControls(bool enable) noexcept override { Enter("enable", enable ? "true" : "false"); }
    hx::ComPtr<IUnknown> TrackingObserver() override { return m_observer; }
    void ResetPreview() override { Enter("preview"); }
    void SetPresets(hx::ComPtr<IDynamicSettingsPreset> new_working,
                    hx::ComPtr<IDynamicSettingsPreset> reference) override {
        EXPECT_FALSE(new_working == reference);
        working = std::move(new_working);
        Enter("presets");
    }
    void FillGainList() override { Enter("gains"); }
    void SetExposureRange(uint32_t longest_exposure_us) override {
        Enter("range", std::to_string(longest_exposure_us));
    }
    bool FinishReopening() override {
        Enter("finish");
        return !shows_nothing;
    }
    hx::ComPtr<IDynamicSettingsPreset> WorkingPreset() override { return working; }
    void RefreshFrameRate() noexcept override { Enter("rate"); }
    void RefreshExposureRows() override { Enter("rows"); }
    void LeaveControls() override { Enter("leave"); }

    void Enter(const std::string& what, const std::string& argument = "") {
        LogOfPage(*m_hands, what, argument);
        if (what == failing_hook) throw hx::MException(hx::MError(L"Page." + *hx::FromUtf8(what)));
    }

    const hx::ComPtr<IHXSimulator> m_hands;
    const hx::ComPtr<IUnknown> m_observer = hx::Make<Observer>().as<IUnknown>();
};

// Pages, and a simulated HX with presets in a folder of the test's own. Waits are entered in the log and not
// waited for; failures that only the log of the module is told of are entered, too.
class WithPages : public SimulatorTest, private hx::MDiagnosticsRegistryImplementation {
protected:
    static constexpr const hx::SessionRules* kBothRules[] = {&hx::kMeasurementSession, &hx::kHandheldSession};

    void SetUp() override {
        SimulatorTest::SetUp();
        s_test = this;
        hx::SetSleeper(
            [](uint32_t time_ms) { LogOfPage(*s_test->m_hands, "wait", std::to_string(time_ms)); });
        hx::SetDiagnosticsRegistry(this);
    }
    void TearDown() override {
        EndPages();
        hx::SetDiagnosticsRegistry(nullptr);
        hx::SetSleeper(nullptr);
        // The cycle on its way is over once the library can be unloaded.
        SimulatorTest::TearDown();
        EXPECT_EQ(Observer::s_alive, 0);
    }

    Page& NewPage(const hx::SessionRules& rules = hx::kHandheldSession,
                  const hx::SessionTarget& target = {}) {
        Page& page = m_pages.emplace_back(m_hands, rules);
        page.session.Target() = target;
        page.session.Presets().SetNames(target.driver_internal_name, target.device_internal_name);
        return page;
    }
    // A new page instead of all others, selected, with the scanner in that state; its calls are forgotten.
    Page& Open(int32_t state = HXConnected, const hx::SessionRules& rules = hx::kHandheldSession,
               const hx::SessionTarget& target = {}) {
        EndPages();
        m_hands->SetConnectionState(state, FALSE);
        Page& page = NewPage(rules, target);
        page.session.OnSelected();
        page.session.SetApi(m_api);
        return page;
    }
    // With the last page goes the presets manager.
    void EndPages() {
        m_pages.clear();
        const hx::PresetsReference fresh;
        EXPECT_TRUE(fresh->OwnerName().empty() && fresh->Count() == 0 && !fresh->Handle());
    }
    // The simulator tells of a state, and the pages handle it.
    void Arrive(int32_t state) {
        m_hands->SetConnectionState(state, TRUE);
        Handle();
    }
    void Handle() {
        m_hands->WaitForEvents();
        hx::DispatchMessages();
    }
    void Fail(const std::string& operation, HRESULT result = E_FAIL, int32_t after = 0, int32_t times = 1,
              const wchar_t* chain_code = nullptr) {
        const hx::Bstr name(*hx::FromUtf8(operation));
        const hx::Bstr code = chain_code ? hx::Bstr(chain_code) : hx::Bstr();
        const HXSimulatorFault fault{name.get(), result,     times,   after,  0,
                                     FALSE,      code.get(), nullptr, nullptr};
        EXPECT_EQ(m_hands->InjectFault(&fault), S_OK) << operation;
    }
    std::vector<std::string> Lines() { return LinesOf(*m_hands); }
    std::string Text() {
        std::string text = "\n";
        for (const std::string& line : Lines()) text += line + "\n";
        return text;
    }
    using SimulatorTest::Text;

    std::list<Page> m_pages;

private:
    void OnClass(const char*) override {}
    void OnLocation(const char*, const char*) override {}
    void OnRootError(const hx::MErrorLocation&, std::wstring_view) override {}
    void OnCascadeError(const hx::MErrorLocation&, std::wstring_view) override {}
    void OnDismissedError(const hx::MErrorLocation&, std::wstring_view code) override {
        LogOfPage(*m_hands, "logged", QuotedText(CodeOf(code)));
    }
    void OnReturnedError(const hx::MErrorLocation&, HRESULT) override {}
    void OnException(const hx::MErrorLocation&, const hx::MException&, int32_t) override {}

    inline static WithPages* s_test = nullptr;
};

}  // namespace simulated
