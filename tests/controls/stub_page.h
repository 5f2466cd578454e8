// A page that enters what its session asks of it among the calls of the scanner API.
#pragma once

#include <functional>
#include <optional>

#include "controls/api/cHXApiEventsSinkSimple.h"
#include "controls/session/ScannerSession.h"
#include "platform/system/sleep.h"
#include "tests/controls/scripted_api.h"
#include "tests/controls/scripted_device.h"

namespace scripted {

class Recorder final : public hx::Implements<Recorder, hx::SingleThreaded, IReplayCapture>, Counted {
public:
    using Counted::Counted;
    _ReplayCaptureResult StartTrackingDataRecording() override { return Gate("Start"); }
    _ReplayCaptureResult StopTrackingDataRecording() override { return Gate("Stop"); }

private:
    _ReplayCaptureResult Gate(const std::string& call) {
        return FAILED(m_script.Gate(call)) ? ReplayCaptureFailed : ReplayCaptureSuccess;
    }
};

class StubPage final : public hx::MessageWindow,
                       public hx::cHXApiEventsSinkSimple<StubPage>,
                       private hx::ISessionPage {
public:
    StubPage(Script& script, const hx::SessionRules& rules, std::function<void()>& while_box_is_open)
        : session(*this, rules, std::make_shared<hx::libReplayCapture>(hx::Make<Recorder>(script))),
          m_script(script),
          m_while_box_is_open(while_box_is_open) {}

    hx::ComPtr<IDynamicSettingsPreset> working;
    hx::ScannerSession session;

private:
    void OnMessage(const hx::WindowMessage& message) override {
        if (message.id == hx::WM_HX_CONNECTION_STATE) {
            session.OnConnectionStateChange(hx::ConnectionStateOf(message));
        }
    }
    hx::ComPtr<IUnknown> MakeEventsSink() override {
        return cHXApiEventsSinkSimple<StubPage>::MakeEventsSink();
    }
    void ErrorBox(const hx::MException& exception) override {
        const std::wstring& code = exception.GetChain().back()->GetCode();
        m_script.calls.push_back("box " + Narrow(code.substr(code.find(L'.') + 1)));
        if (m_while_box_is_open) std::exchange(m_while_box_is_open, nullptr)();
    }
    std::shared_ptr<void> ShowWaitCursor() override {
        Enter("wait cursor");
        return std::shared_ptr<void>(nullptr, [script = &m_script](void*) { script->Gate("no cursor"); });
    }
    void EnableControls(bool enable) override { Enter(enable ? "enable" : "disable"); }
    hx::ComPtr<IUnknown> TrackingObserver() override { return hx::Make<Preset>(m_script); }
    void ResetPreview() override { Enter("reset preview"); }
    void SetPresets(hx::ComPtr<IDynamicSettingsPreset> new_working,
                    hx::ComPtr<IDynamicSettingsPreset> reference) override {
        EXPECT_FALSE(new_working == reference);
        working = new_working;
        Enter("presets");
    }
    void FillGainList() override { Enter("gains"); }
    void SetExposureRange(uint32_t longest_exposure_us) override {
        Enter("range " + std::to_string(longest_exposure_us));
    }
    void FinishReopening() override { Enter("finish"); }
    hx::ComPtr<IDynamicSettingsPreset> WorkingPreset() override { return working; }
    void RefreshFrameRate() override { Enter("frame rate"); }
    void RefreshExposureRows() override { Enter("rows"); }
    void LeaveControls() override { Enter("leave"); }

    // A hook may fail, too.
    void Enter(const std::string& what) {
        if (FAILED(m_script.Gate(what))) throw hx::MException(hx::MError(L"StubPage." + Wide(what)));
    }
    static std::wstring Wide(const std::string& text) { return {text.begin(), text.end()}; }

    Script& m_script;
    std::function<void()>& m_while_box_is_open;  // once
};

// A page at a time. Waits are entered among the calls, and not waited for.
class WithPage : public testing::Test {
protected:
    void SetUp() override {
        m_script.properties = PropertiesOf(L"device");
        s_script = &m_script;
        hx::SetSleeper([](uint32_t time_ms) { s_script->Gate("wait " + std::to_string(time_ms)); });
    }
    void TearDown() override {
        m_page.reset();
        EXPECT_EQ(m_script.alive, 0);
        hx::SetSleeper(nullptr);
    }
    // A new page, selected, with an API in the script's state.
    hx::ScannerSession& Open(const hx::SessionRules& rules = hx::kHandheldSession,
                             const hx::SessionTarget& target = {}) {
        m_page.reset();
        EXPECT_EQ(m_script.alive, 0);
        m_page.emplace(m_script, rules, m_while_box_is_open);
        m_script.calls.clear();
        hx::ScannerSession& session = m_page->session;
        session.Target() = target;
        session.Presets().SetNames(target.driver_internal_name, target.device_internal_name);
        session.OnSelected();
        session.SetApi(hx::Make<Api>(m_script));
        return session;
    }

    Script m_script;
    std::function<void()> m_while_box_is_open;
    std::optional<StubPage> m_page;

private:
    inline static Script* s_script = nullptr;
};

}  // namespace scripted
