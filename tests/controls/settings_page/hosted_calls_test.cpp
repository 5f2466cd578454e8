// Whole sessions of the settings pages, call by call, as their controls' host sees them. With and without a
// screen.
#include "platform/ui/codes.h"
#include "tests/controls/shell/hosted_page.h"

namespace {

class HostedPage : public hosted::WithPage {
protected:
    struct Step {
        const char* what;
        std::function<void()> run;
        std::string calls;
    };
    void Check(const std::vector<Step>& steps) {
        for (const Step& step : steps) {
            step.run();
            EXPECT_EQ(Text(), step.calls) << step.what;
        }
    }
    const wchar_t* m_prog_id = kProgIdHXMeasSettingsCtrl;
    const Step m_create = {"created", [this] { Create(m_prog_id); },
                           "initialiser.GetHXApi[]\napi.GetLocale[]\n"};
    const Step m_initialise = {"initialised", [this] { Initialise(L"$DARK"); }, ""};
    const Step m_select = {"selected", [this] { m_page->OnSelected(); }, ""};
};

const std::string kAdvise = "events.Advise[observer]\napi.GetConnectionState[]\n";
const std::string kCreateOffline = R"(api.GetConnectionState[]
api.CreateCalibrationHandle[HXScanner]
)";
const std::string kSelection = R"(api.GetConnectionState[]
api.GetCurrentProfile[]
profile.GetDriverSelection[]
api.GetConnectionState[]
)";
const std::string kProperties = R"(api.GetDeviceManager[]
devices.GetDriverProperties[CategoryScanner,HXScanner]
)";
const std::string kCreateHandle = "api.CreateCalibrationHandle[HXScanner]\n";
const std::string kAsk = "api.GetConnectionState[]\n";
const std::string kAcquire =
    kAsk + "handle.AcquireHandle[]\n" + kAsk + R"(recorder.StartTrackingDataRecording[]
handle.InitialiseScanner[0,0,1]
handle.RegisterTrackingCycleObserver[observer]
)" + kAsk;
const std::string kLoad = R"(handle.EnumerateDynamicSettingsPresets[HX]
handle.GetSelectedDynamicSettingsPreset[HX]
handle.GetDynamicSettingsPreset[HX,$DEFAULT]
handle.GetDynamicSettingsPreset[HX,$SHINY]
handle.GetDynamicSettingsPreset[HX,$DARK]
handle.GetDynamicSettingsPreset[HX,$SHEETMETAL]
)";
const std::string kNewPresets =
    "handle.CreateDynamicSettingsPreset[]\nhandle.CreateDynamicSettingsPreset[]\n";
const std::string kGains = "handle.GetSupportedAnalogImagerGains[]\n";
const std::string kRange = "handle.GetMaxExposureTime[HX]\n";
const std::string kRead = R"(handle.GetFovManagementConfig[]
handle.GetFrameRate[]
handle.GetGlobalScanningSettings[HX]
handle.GetFrequencyReductionSupport[]
)";
const std::string kRate = "handle.GetFrameRate[]\n";
const std::string kRows = "handle.GetExposureTimeInRows[]\n";

std::string Activate(const std::string& profile) {
    return "handle.ActivateDynamicSettings[" + profile + "]\n" + kRows;
}
// In what the sessions of the two pages differ.
struct PageCalls {
    const char* name;
    const wchar_t* prog_id;
    std::string read;    // of the scanner, whenever a profile is shown
    std::string labels;  // of the speed, for a profile that was not shown before
    std::string set_up;  // at the end
    bool is_handheld;    // stores states that come while another page is shown; resumes a suspended scanner
};
const PageCalls kPages[] = {
    {"measurement", kProgIdHXMeasSettingsCtrl, kRead, kRate, "", false},
    {"handheld", kProgIdHXHandheldMeasSettingsCtrl,
     "handle.GetFovManagementConfig[]\nhandle.GetGlobalScanningSettings[HX]\n", "", kRate, true},
};

std::string Store(const std::string& selected, const std::string& own = "") {
    return "handle.SaveDynamicSettingsPresets[HX,[$DEFAULT,$SHINY,$DARK,$SHEETMETAL" + own + "]," + selected +
           "]\n";
}
// A profile is shown: as it is stored, with the labels of the speed, then as it is edited.
std::string Show(const std::string& profile, const std::string& own = "", const PageCalls& page = kPages[0]) {
    return page.read + page.labels + Activate(profile) + Store(profile, own) + page.read + Activate(profile);
}
const std::string kSetUp = kNewPresets + kGains + kRange;
const std::string kStop = "recorder.StopTrackingDataRecording[]\nhandle.DisableScanner[]\n";
const std::string kRest =
    "page.wait[50]\nhandle.RegisterTrackingCycleObserver[null]\nhandle.ReleaseHandle[]\n";
std::string Scan(int width, int height, int speed) {
    return R"(handle.DisableScanner[]
handle.RegisterTrackingCycleObserver[null]
handle.ActivateGlobalScanningSettings[{HorizontalFov:)" +
           std::to_string(width) + ",VerticalFov:" + std::to_string(height) +
           ",FovIndicator:0,ScanningMode:0,FrequencySelection:" + std::to_string(speed) + R"(}]
handle.InitialiseScanner[0,0,1]
handle.RegisterTrackingCycleObserver[observer]
)";
}
std::string Raised(const std::string& states) {
    std::string text;
    for (const char state : states) text += std::string("events.Raise[") + state + "]\n";
    return text;
}

TEST_F(HostedPage, WithAScannerFromTheBeginning) {
    m_hands->SetConnectionState(HXConnected, FALSE);
    Check({
        m_create,
        m_initialise,
        m_select,
        {"handed over", [&] { m_page->SetHXApi(m_api.get()); },
         kAdvise + kSelection + kProperties + kCreateHandle + kAcquire + kLoad + kSetUp + Show("$DARK")},
        {"moved", [&] { User().Scroll(At<hx::ui::TrackBar>(207), TB_PAGEUP); }, Activate("$DARK")},
        {"typed", [&] { User().Type(At<hx::ui::Edit>(212), L"7"); }, Activate("$DARK")},
        {"left", [&] { User().Focus(At(6000)); }, Activate("$DARK")},
        {"3D filter", [&] { User().Click(At<hx::ui::CheckBox>(225)); }, Activate("$DARK")},
        {"gain", [&] { User().Choose(At<hx::ui::ComboBox>(286), 2); }, Activate("$DARK")},
        {"half the width", [&] { User().Scroll(At<hx::ui::TrackBar>(277), TB_BOTTOM); },
         Scan(1, 0, 0) + Activate("$DARK") + kRate},
        {"slower", [&] { User().Scroll(At<hx::ui::TrackBar>(289), TB_TOP); },
         Scan(1, 0, 3) + Activate("$DARK") + kRate},
        {"another profile, cancelled", [&] { User().ClickRow(At<hx::ui::ListBox>(6000), 0); }, ""},
        {"closing, with nowhere to answer", [&] { EXPECT_EQ(m_page->Save(nullptr), E_INVALIDARG); }, ""},
        {"closing, cancelled", [&] { EXPECT_FALSE(Save()); }, Store("$DARK")},
        {"closing, discarded",
         [&] {
             script.AnswerModal({hx::ui::Script::Answer::By::button, IDOK, {}});
             EXPECT_TRUE(Save());
             EXPECT_EQ(Reported(), "$DARK");
         },
         Show("$DARK") + Store("$DARK")},
        {"closed", [&] { Close(); }, "handle.CloseHandle[]\nevents.Unadvise[1]\n" + kStop + kRest},
    });
}

class HostedPages : public HostedPage, public testing::WithParamInterface<size_t> {
protected:
    HostedPages() { m_prog_id = m_calls.prog_id; }
    // With which a set-up ends.
    std::string SetUpWith(const std::string& profile, const std::string& own = "") const {
        return Show(profile, own, m_calls) + m_calls.set_up;
    }
    const PageCalls& m_calls = kPages[GetParam()];
};

TEST_P(HostedPages, WithACableThatComesAndGoes) {
    const std::string afresh = kSelection + kCreateHandle + kAcquire + kSetUp;
    Check({
        m_create,
        m_select,
        m_initialise,
        {"handed over", [&] { m_page->SetHXApi(m_api.get()); },
         kAdvise + kCreateOffline + kAsk + kLoad + kNewPresets + kRange + Store("$DARK")},
        {"nothing is sent",
         [&] {
             auto& power = At<hx::ui::TrackBar>(207);
             const int32_t before = power.Position();
             SetTrackBar(User(), power, 50);
             EXPECT_FALSE(User().Scroll(At<hx::ui::TrackBar>(m_calls.is_handheld ? 277 : 289), TB_PAGEUP));
             EXPECT_FALSE(User().Click(At<hx::ui::Button>(269)));
             SetTrackBar(User(), power, before);
         },
         ""},
        {"plugged in",
         [&] {
             m_hands->Connect();
             Handle();
         },
         Raised("021") + kRest + kSelection + kProperties + kCreateHandle + kAcquire + kSetUp +
             SetUpWith("$DARK")},
        {"suspended", [&] { Arrive(2); }, Raised("2")},
        {"a suspended one is left alone", [&] { SetTrackBar(User(), At<hx::ui::TrackBar>(207), 50); }, ""},
        {"resumed by itself", [&] { Arrive(1); },
         Raised("1") + kRest + afresh + m_calls.read + m_calls.labels + Activate("$DARK") + m_calls.set_up},
        {"another page is shown", [&] { m_page->OnDeselected(); }, kStop + kRest},
        {"this one again", [&] { m_page->OnSelected(); }, kAcquire + Activate("$DARK")},
        {"detection", [&] { User().Click(At<hx::ui::Button>(269)); },
         "handle.DetectExposureTime[]\n" + Activate("$DARK") + "handle.DetectLaserPower[]\n" +
             Activate("$DARK") + Activate("$DARK")},
        {"pulled out",
         [&] {
             m_hands->Disconnect();
             Handle();
         },
         Raised("10") + kStop + kRest},
        {"kept under another name",
         [&] {
             script.AnswerModal({hx::ui::Script::Answer::By::button, 284, L"Own"});
             EXPECT_TRUE(Save());
             EXPECT_EQ(Reported(), "Own");
         },
         "handle.CreateDynamicSettingsPreset[]\n" + Store("$DARK", ",Own") + Store("Own", ",Own")},
        {"plugged in again",
         [&] {
             m_hands->Connect();
             Handle();
         },
         // The first state already finds the scanner there, which the page does not take as connected yet.
         Raised("021") + kSelection + kCreateHandle + kAcquire + kNewPresets + kRange + Store("Own", ",Own") +
             kRest + afresh + SetUpWith("Own", ",Own")},
        {"another page is shown", [&] { m_page->OnDeselected(); }, kStop + kRest},
        {"pulled out unseen",
         [&] {
             m_hands->Disconnect();
             Handle();
         },
         Raised("10")},
        {"this one again", [&] { m_page->OnSelected(); },
         kAsk + (m_calls.is_handheld ? "" : Activate("Own"))},
        {"plugged in again",
         [&] {
             m_hands->Connect();
             Handle();
         },
         Raised("021") +
             (m_calls.is_handheld ? ""
                                  : kStop + kRest + kSelection + kCreateHandle + kAcquire + kNewPresets +
                                        kRange + Store("Own", ",Own")) +
             kRest + afresh + SetUpWith("Own", ",Own")},
        {"closed", [&] { Close(); }, "handle.CloseHandle[]\nevents.Unadvise[1]\n" + kStop + kRest},
    });
}

TEST_P(HostedPages, OfAHostThatDoesNotSayWhatItConfigures) {
    m_hands->SetConnectionState(HXConnected, FALSE);
    const std::string shown = kAcquire + kLoad + kSetUp + SetUpWith("$DEFAULT");
    const auto hand_over = [&] { m_page->SetHXApi(m_api.get()); };
    Check({
        m_create,
        {"handed over unseen", hand_over, kAdvise},
        {"selected", [&] { m_page->OnSelected(); }, ""},
        {"handed over again", hand_over,
         "events.Unadvise[1]\n" + kAdvise + kSelection + kProperties + kCreateHandle + shown},
        {"closed", [&] { Close(); }, "handle.CloseHandle[]\nevents.Unadvise[2]\n" + kStop + kRest},
    });
    // Without a scanner there is nobody whose profiles could be loaded, once and for all.
    m_hands->SetConnectionState(HXNotConnected, FALSE);
    Check({
        m_create,
        m_select,
        {"handed over", hand_over,
         kAdvise + kAsk + "api.CreateCalibrationHandle[]\n" + kAsk + kNewPresets +
             "handle.GetMaxExposureTime[]\n"},
        {"plugged in", [&] { Arrive(2), Arrive(1); },
         Raised("21") + kRest + kSelection + kProperties + kCreateHandle + kAcquire + kSetUp +
             m_calls.set_up},
        {"closed", [&] { Close(); }, "handle.CloseHandle[]\nevents.Unadvise[3]\n" + kStop + kRest},
    });
}

TEST_P(HostedPages, OfAProfileForOnce) {
    m_hands->SetConnectionState(HXConnected, FALSE);
    const std::string shown = m_calls.read + m_calls.labels + Activate("$CUSTOM") + Store("$DEFAULT") +
                              m_calls.read + Activate("$CUSTOM");
    Check({
        m_create,
        {"initialised", [&] { Initialise(L"$CUSTOM"); }, ""},
        m_select,
        {"handed over", [&] { m_page->SetHXApi(m_api.get()); },
         kAdvise + kSelection + kProperties + kCreateHandle + kAcquire + kLoad +
             "handle.CreateDynamicSettingsPreset[]\n" + Store("$DEFAULT", ",$CUSTOM") + kSetUp + shown +
             m_calls.set_up},
        {"closing",
         [&] {
             EXPECT_TRUE(Save());
             EXPECT_EQ(Reported(), "$CUSTOM");
         },
         shown + Store("$DEFAULT")},
        {"another one instead", [&] { Initialise(L"$SHINY"); }, ""},
        {"and set up", [&] { Arrive(0), Arrive(1); },
         Raised("0") + kStop + kRest + Raised("1") + kSelection + kCreateHandle + kAcquire + kSetUp +
             SetUpWith("$SHINY")},
    });
}

INSTANTIATE_TEST_SUITE_P(Each, HostedPages, testing::Range(size_t{0}, std::size(kPages)),
                         [](const auto& page) { return kPages[page.param].name; });

}  // namespace
