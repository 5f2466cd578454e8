// Whole sessions of the settings pages, call by call, as their controls' host sees them; what follows from
// each change of the connection, and what an operator sees. With and without a screen.
#include "tests/controls/measurement/hosted_page.h"
#include "platform/com/text_array.h"
#include "platform/ui/codes.h"

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

TEST_P(HostedPages, FollowsTheConnectionByItsTable) {
    const std::string nothing = kNewPresets + kRange + Store("$DARK");
    const std::string without = kAsk + nothing + m_calls.set_up;
    const std::string resumed = kRest + kAsk + (m_calls.is_handheld ? "api.Resume[]\n" : "") + nothing;
    const std::string with = kAcquire + kSetUp + SetUpWith("$DARK");
    const struct {
        int32_t before, after;
        std::string ready, not_ready;
    } kTable[] = {
        {0, 0, "", kRest + kAsk + nothing},
        // A handle from the time without a scanner does for none.
        {0, 1, "", kStop + kRest + without},
        {0, 2, "", resumed},
        {0, 5, "", ""},
        {1, 0, kStop + kRest, kStop + kRest},
        {1, 1, "", kStop + kRest + with},
        {1, 2, "", m_calls.is_handheld ? resumed : ""},
        {1, -1, "", ""},
        {2, 0, kRest, kRest},
        {2, 1, kRest + kSelection + kProperties + kCreateHandle + with, kStop + kRest + without},
        {2, 2, "", ""},
        {5, 0, "", ""},
        {5, 1, "", ""},
        {5, 2, "", ""},
    };
    for (const auto& row : kTable) {
        for (const std::string page : {"ready", "not ready", "not selected"}) {
            SCOPED_TRACE(page + ", " + std::to_string(row.before) + " to " + std::to_string(row.after));
            m_hands->SetConnectionState(row.before == 5 ? 0 : row.before, FALSE);
            Create(m_prog_id);
            Initialise(L"$DARK");
            m_page->OnSelected();
            m_page->SetHXApi(m_api.get());
            if (row.before == 5) Arrive(5);
            if (page != "ready") m_page->OnDeselected();
            if (page == "not ready") {
                Fail("GetConnectionState");
                m_page->OnSelected();
            }
            EXPECT_EQ(script.TakeBoxes().size(), page == "not ready" ? 1u : 0u);
            Text();
            Arrive(row.after);
            const std::string follows = page == "ready"       ? row.ready
                                        : page == "not ready" ? row.not_ready
                                                              : "";
            EXPECT_EQ(Text(), "events.Raise[" + std::to_string(row.after) + "]\n" + follows);
            Close();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Each, HostedPages, testing::Range(size_t{0}, std::size(kPages)),
                         [](const auto& page) { return kPages[page.param].name; });

// The places of the sliders with the texts of their edits, the check boxes, and the profile.
std::string StateOf(const hx::ui::Dialog& page) {
    std::string state;
    const std::pair<uint32_t, uint32_t> kNumbers[] = {
        {207, 210}, {204, 206}, {211, 212}, {218, 219}, {214, 217}};
    for (const auto& [slider, edit] : kNumbers) {
        state += std::to_string(page.FindAs<hx::ui::TrackBar>(slider)->Position()) + "/" +
                 hx::ToUtf8(page.Find(edit)->Text()) + " ";
    }
    for (const uint32_t box : {224, 225, 253})
        state += page.FindAs<hx::ui::CheckBox>(box)->IsChecked() ? 'x' : '-';
    const auto& list = *page.FindAs<hx::ui::ListBox>(6000);
    return state + " " + hx::ToUtf8(list.RowText(list.Selected()));
}

TEST_F(HostedPage, ShowsWhatItsOperatorDoes) {
    // Beside those of the factory, one between whole percents, and one with a gain that this scanner lacks.
    const auto handle = NewHandle();
    hx::SafeArray factory, shown;
    handle->EnumerateDynamicSettingsPresets(Text("HX"), factory.put(), shown.put());
    auto names = *hx::TextsOf(factory.get());
    names.insert(names.end(), {L"Castings", L"Foreign"});
    hx::SafeArray presets(SafeArrayCreateVector(VT_UNKNOWN, 0, static_cast<ULONG>(names.size())));
    for (LONG i = 0; i < static_cast<LONG>(names.size()); ++i) {
        const std::wstring& name = names[static_cast<size_t>(i)];
        hx::ComPtr<IDynamicSettingsPreset> preset;
        if (name.starts_with(L'$')) {
            handle->GetDynamicSettingsPreset(Text("HX"), hx::Bstr(name).get(), preset.put());
        } else {
            handle->CreateDynamicSettingsPreset(preset.put());
            preset->SetExposureTime(625);
            preset->SetAnalogImagerGain(name == L"Foreign" ? 8 : 2);
        }
        SafeArrayPutElement(presets.get(), &i, preset.get());
    }
    EXPECT_EQ(
        handle->SaveDynamicSettingsPresets(Text("HX"), hx::TextArray(names).get(), presets.get(), nullptr),
        S_OK);
    m_hands->SetConnectionState(HXConnected, FALSE);
    Create();
    Initialise(L"Castings");
    m_page->OnSelected();
    m_page->SetHXApi(m_api.get());
    const auto at = [&](uint32_t id) -> hx::ui::TrackBar& { return At<hx::ui::TrackBar>(id); };
    const auto type = [&](uint32_t edit, const wchar_t* text) {
        EXPECT_TRUE(User().Type(At<hx::ui::Edit>(edit), text));
        EXPECT_TRUE(User().Focus(At(6000)));
    };
    const auto choose = [&](int32_t row) { User().ClickRow(At<hx::ui::ListBox>(6000), row); };
    const struct {
        const char* what;
        std::function<void()> act;
        std::string state, box = "";
    } kCases[] = {
        {"nothing", [] {}, "50/50 1250/12 8/8 75/75 10/10 -xx Castings"},
        {"drags", [&] { SetTrackBar(User(), at(207), 61); }, "61/61 1250/12 8/8 75/75 10/10 -xx *Castings"},
        {"steps", [&] { User().Scroll(at(211), TB_PAGEDOWN); },
         "61/61 1250/12 18/18 75/75 10/10 -xx *Castings"},
        {"types", [&] { type(217, L"12.7"); }, "61/61 1250/12 18/18 75/75 13/13 -xx *Castings"},
        {"types too much", [&] { type(219, L"91"); }, "61/61 1250/12 18/18 9/9 13/13 -xx *Castings"},
        {"types an exposure", [&] { type(206, L"101"); }, "61/61 1000/10 18/18 9/9 13/13 -xx *Castings"},
        {"clicks", [&] { User().Click(At<hx::ui::CheckBox>(224)); },
         "61/61 1000/10 18/18 9/9 13/13 xxx *Castings"},
        {"cannot drag", [&] { EXPECT_FALSE(SetTrackBar(User(), at(207), 30)); },
         "61/61 1000/10 18/18 9/9 13/13 xxx *Castings"},
        {"is refused a profile", [&] { choose(5); }, "61/61 1000/10 18/18 9/9 13/13 xxx Castings",
         "The scanner doesn't support the gain setting of this profile."},
        {"chooses another profile", [&] { choose(0); }, "100/100 5000/50 5/5 75/75 10/10 -x- Dark"},
        {"comes back", [&] { choose(4); }, "61/61 1000/10 18/18 9/9 13/13 xxx Castings"},
    };
    for (const auto& row : kCases) {
        row.act();
        EXPECT_EQ(StateOf(*Dialog()), row.state) << row.what;
        std::string box;
        for (const auto& each : script.TakeBoxes()) box += hx::ToUtf8(each.text);
        EXPECT_EQ(box, row.box) << row.what;
    }
    EXPECT_TRUE(Save());
    EXPECT_EQ(Reported(), "Castings");
}

// The click that takes the focus from an edit is the page's as well.
TEST_F(HostedPage, AnEditOutOfRangeIsComplainedOfOnceAndTheClickCounts) {
    m_hands->SetConnectionState(HXConnected, FALSE);
    for (const bool closes : {false, true}) {
        Create(kProgIdHXHandheldMeasSettingsCtrl);
        Initialise(L"$DARK");
        m_page->OnSelected();
        m_page->SetHXApi(m_api.get());
        ASSERT_TRUE(User().Type(At<hx::ui::Edit>(210), L"101"));
        if (closes) script.while_box = [&] { Close(); };
        User().Click(At<hx::ui::CheckBox>(253));
        script.while_box = nullptr;
        const auto boxes = script.TakeBoxes();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes.front().text, L"Enter an integer between 1 and 100.");
        if (closes) break;
        EXPECT_EQ(At(210).Text(), L"10") << "what was typed before it was too much";
        EXPECT_TRUE(At<hx::ui::CheckBox>(253).IsChecked());
        Close();
    }
}

// The preview has the room that sliders of the field of view leave, whatever the size.
TEST_F(HostedPage, TheFieldOfViewFillsItsPlace) {
    const struct {
        const char* model;
        bool width, height;
    } kCases[] = {
        {"HX", true, true}, {"T820", false, true}, {"KT05FxR3W", true, false}, {"KT05FxR3PA", false, false}};
    EXPECT_TRUE(Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(89).Set(false));
    for (const auto& row : kCases) {
        m_hands->SetConnectionState(HXNotConnected, FALSE);
        EXPECT_EQ(m_hands->SetModel(Text(row.model)), S_OK);
        m_hands->SetConnectionState(HXConnected, FALSE);
        Create();
        m_page->OnSelected();
        m_page->SetHXApi(m_api.get());
        for (const int32_t size : {900, 700, 1200}) {
            Move({0, 0, size, size});
            SCOPED_TRACE(std::string(row.model) + " " + std::to_string(size));
            EXPECT_EQ(At(277).IsVisible(), row.width);
            EXPECT_EQ(At(276).IsVisible(), row.height);
            EXPECT_EQ(At(288).IsVisible(), std::string(row.model).starts_with("KT05"));
            const hx::ui::Rectangle& preview = At(106).Bounds();
            EXPECT_EQ(preview.right == At(276).Bounds().left, !row.width || !row.height);
            EXPECT_EQ(preview.bottom == At(228).Bounds().bottom, !row.width && !row.height);
        }
        EXPECT_TRUE(script.TakeBoxes().empty());
        Close();
    }
}

}  // namespace
