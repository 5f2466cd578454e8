// The measurement page as its operator and its host have it: its dialog on no screen, with a scripted
// scanner.
#include "tests/controls/measurement/scripted_page.h"

#include "platform/system/debugger_output.h"

namespace hx {
namespace {

TEST_F(MeasurementPage, TakesWhatIsTypedWithinBounds) {
    Open();
    struct Row {
        uint32_t edit;
        const wchar_t* typed;
        uint32_t slider;
        int32_t position;
        const char* text;  // when it was left
    };
    // An exposure between whole percents stays as it is while others are typed.
    const Row kRows[] = {{212, L"6", 204, 1250, "6"},    {210, L"", 207, 30, "30"},
                         {210, L"0", 207, 30, "30"},     {210, L"101", 207, 10, "10"},
                         {210, L"12.7", 207, 13, "13"},  {210, L"100", 207, 100, "100"},
                         {212, L"", 211, 6, "6"},        {212, L"x", 211, 6, "6"},
                         {212, L"0", 211, 0, "0"},       {212, L"-1", 211, 0, "0"},
                         {217, L"100", 214, 100, "100"}, {217, L"99999999999", 214, 99, "99"},
                         {206, L"0", 204, 1250, "12"},   {206, L"100", 204, 10000, "100"},
                         {206, L"101", 204, 1000, "10"}, {206, L"12.7", 204, 1300, "13"}};
    for (const Row& row : kRows) {
        auto& edit = At<ui::Edit>(row.edit);
        ASSERT_TRUE(User().Type(edit, row.typed));
        ASSERT_TRUE(User().Focus(page->ProfileList()));
        EXPECT_EQ(Position(row.slider), row.position) << row.edit << " " << ToUtf8(row.typed);
        EXPECT_EQ(TextOf(row.edit), row.text) << row.edit << " " << ToUtf8(row.typed);
    }
    EXPECT_EQ(Working().exposure_us, 1300);
    EXPECT_EQ(Working().laser_power, 100);
    EXPECT_TRUE(boxes.TakeBoxes().empty());
}

TEST_F(MeasurementPage, SlidersAreFollowedWhileTheThumbMovesAndAtTheEnd) {
    Open();
    auto& slider = At<ui::TrackBar>(207);
    std::vector<int32_t> cursors;
    script.during = [&](const std::string&) { cursors.push_back(m_renderer->WaitCursors()); };
    User().Drag(slider, 60);
    EXPECT_EQ(script.Calls(), "ActivateDynamicSettings 60");
    User().Drop(slider);
    EXPECT_EQ(script.Calls(), "ActivateDynamicSettings 60, ActivateDynamicSettings 60");
    User().Scroll(slider, TB_PAGEDOWN);
    EXPECT_EQ(script.Calls(), "ActivateDynamicSettings 70") << "at its end alone";
    EXPECT_EQ(cursors, (std::vector<int32_t>{0, 0, 1, 1})) << "none while a slider is held";
    script.during = nullptr;
    EXPECT_EQ(TextOf(210), "70");
    EXPECT_TRUE(page->IsModified());
    EXPECT_EQ(slider.Style() & TBS_DOWNISLEFT, TBS_DOWNISLEFT);
}

TEST_F(MeasurementPage, ControlsAreEnabledByRulesAndSayWhyNot) {
    SwitchOn(kDetectKey);
    SwitchOn(kSpeedKey);
    New();
    Create();
    EXPECT_EQ(Enabled(), Ids{6000});
    EXPECT_EQ(Reason(204), "2901") << "nothing was set up";
    const Ids all(std::begin(kControls), std::end(kControls));
    struct Row {
        const char* what;
        int32_t state;
        bool automatic, filters_3d;
        int32_t reduces_frequency;
        Ids disabled;
        uint32_t asked;
        const char* reason;
    };
    const Row kRows[] = {
        {"all", HXConnected, false, true, 1, {}, 207, ""},
        {"automatic", HXConnected, true, true, 1, {207, 210}, 210, "2902"},
        {"no 3D filter", HXConnected, false, false, 1, {218, 219}, 218, "2904"},
        {"one speed", HXConnected, false, true, 0, {289}, 289, "2905"},
        {"not connected", HXNotConnected, false, true, 1, {269, 289}, 269, "2903"},
    };
    for (const Row& row : kRows) {
        script.values[L"Own"].automatic_laser_power = row.automatic ? TRUE : FALSE;
        script.values[L"Own"].edge_filter_3d = row.filters_3d ? TRUE : FALSE;
        script.reduces_frequency = row.reduces_frequency;
        Open(row.state);
        Ids expected = all;
        for (const uint32_t id : row.disabled) expected.erase(id);
        EXPECT_EQ(Enabled(), expected) << row.what;
        EXPECT_EQ(Reason(row.asked), row.reason) << row.what;
    }
    Open();
    script.failures["ActivateDynamicSettings"] = {E_FAIL, 0};
    EXPECT_TRUE(User().Click(At<ui::CheckBox>(224)));
    EXPECT_FALSE(At(207).IsEnabled()) << "the box is what the controls follow, refused or not";
    EXPECT_EQ(boxes.TakeBoxes().size(), 1U);
}

TEST_F(MeasurementPage, TheFieldOfViewIsLaidOutAsTheScannerAllows) {
    struct Row {
        int32_t config;
        bool forced, width, height, rate;
    };
    const Row kRows[] = {{-1, false, true, true, true}, {0, false, false, false, false},
                         {1, false, true, false, true}, {2, false, false, true, true},
                         {3, false, true, true, true},  {-1, true, true, true, true},
                         {0, true, true, true, true},   {1, true, true, true, true}};
    for (const Row& row : kRows) {
        if (row.forced) SwitchOn(kFieldOfViewKey);
        script.field_of_view = row.config;
        Open();
        const std::string what = std::to_string(row.config) + (row.forced ? " forced" : "");
        for (const uint32_t id : {277, 113, 114}) EXPECT_EQ(At(id).IsVisible(), row.width) << what << id;
        for (const uint32_t id : {276, 115, 116}) EXPECT_EQ(At(id).IsVisible(), row.height) << what << id;
        EXPECT_EQ(At(228).IsVisible(), row.rate) << what;
        EXPECT_EQ(TextOf(228), row.config < 0 ? "Frame rate: NA Hz" : "Frame rate: 50 Hz") << what;
        for (const int32_t width : {1100, 1000}) {
            page->Move({0, 0, width, 700});
            const ui::Rectangle& preview = At(106).Bounds();
            const bool filled = !row.width || !row.height;
            EXPECT_EQ(preview.right == At(276).Bounds().left, filled) << what;
            EXPECT_EQ(preview.bottom == At(228).Bounds().bottom, filled && !row.rate) << what;
        }
    }
    Open(HXNotConnected);
    EXPECT_FALSE(At(277).IsVisible() || At(228).IsVisible()) << "forced or not, without a scanner";
}

TEST_F(MeasurementPage, ScanningSettingsAreGivenBackAsTheyWereReadButForItsOwn) {
    SwitchOn(kSpeedKey);
    script.field_of_view = 3;
    script.reduces_frequency = 1;
    script.scanning = {1, 3, 100, 7, 1};
    Open();
    EXPECT_EQ(Position(277), 1);
    EXPECT_EQ(Position(276), 0) << "the far half is none of its places";
    EXPECT_EQ(Position(289), 2);
    EXPECT_EQ(TextOf(290) + TextOf(291) + TextOf(292) + TextOf(293), "70 Hz50 Hz35 Hz15 Hz");
    User().Scroll(At<ui::TrackBar>(289), TB_LINEUP);
    EXPECT_EQ(script.Calls(),
              "DisableScanner, RegisterTrackingCycleObserver, ActivateGlobalScanningSettings 1 3 100 7 2, "
              "InitialiseScanner, RegisterTrackingCycleObserver, ActivateDynamicSettings 30, GetFrameRate");
    User().Scroll(At<ui::TrackBar>(276), TB_LINEDOWN);
    EXPECT_EQ(script.scanning.VerticalFov, 2);
    script.failures["ActivateGlobalScanningSettings"] = {E_FAIL, 0};
    User().Scroll(At<ui::TrackBar>(289), TB_LINEUP);
    EXPECT_EQ(boxes.TakeBoxes().size(), 1U);
    EXPECT_EQ(Position(289), 1) << "the old place";
    // The operator stays with a profile, of which the page has made no labels then.
    script.failures.clear();
    User().ClickRow(page->ProfileList(), page->ProfileList().FindByName(L"$DEFAULT"));
    User().Drag(At<ui::TrackBar>(207), 60);
    User().Drop(At<ui::TrackBar>(207));
    boxes.AnswerModal({ui::Script::Answer::By::button, IDCANCEL, {}});
    User().ClickRow(page->ProfileList(), page->ProfileList().FindByName(L"Own"));
    EXPECT_EQ(boxes.TakeModals().size(), 1U);
    const std::string labels = TextOf(290) + TextOf(293);
    script.frame_rate_hz = 90;
    script.failures["ActivateDynamicSettings"] = {E_FAIL, 0};
    script.calls.clear();
    User().Scroll(At<ui::TrackBar>(289), TB_LINEUP);
    EXPECT_EQ(script.Calls().find("GetFrameRate"), std::string::npos);
    EXPECT_EQ(TextOf(290) + TextOf(293), labels) << "not the new rate with the old part of it";
    EXPECT_EQ(Position(289), 1);
}

TEST_F(MeasurementPage, RefusesMalformedArgumentsAndKeepsTheNames) {
    const SafeArray number(SafeArrayCreateVector(VT_VARIANT, 0, 1));
    SAFEARRAY* array = number.get();
    Open();
    EXPECT_EQ(scripted::Raised([&] { page->Initialise(L"driver", L"device", L"", &array); }),
              "CMeasSettingsDlg.Initialise:InvalidArgumentType");
    EXPECT_TRUE(User().ClickRow(page->ProfileList(), 0));
    EXPECT_EQ(Reported(), "Own") << "the array of the call before is not the page's any more";
    EXPECT_EQ(page->Session().Target().device_internal_name, L"device");
}

TEST_F(MeasurementPage, FollowsTheStateThatCameBeforeItsWindowOnce) {
    static size_t notes = 0;
    SetDebuggerOutput([](std::wstring_view text) {
        notes += text == L"\n\nHXMeasSettingsDlg: connection state changed.\n\n" ? 1 : 0;
    });
    script.state = HXNotConnected;
    New();
    page->OnSelected();
    page->SetApi(api);
    Arrive(HXSuspended);
    Arrive(HXConnected);
    EXPECT_EQ(notes, 0U);
    EXPECT_EQ(page->ProfileList().Count(), 0);
    Create();
    EXPECT_EQ(notes, 1U);
    EXPECT_EQ(page->Session().ConnectionState(), HXConnected);
    EXPECT_EQ(page->ProfileList().SelectedName(), L"Own");
    page->OnDeselected();
    Arrive(HXNotConnected);
    EXPECT_EQ(notes, 2U);
    EXPECT_EQ(page->Session().ConnectionState(), HXConnected) << "forgotten while another page is shown";
    SetDebuggerOutput(nullptr);
}

// Of the scanner API that was there first.
TEST_F(MeasurementPage, ForgetsTheStateOfAnotherScannerThatCameBeforeItsWindow) {
    New();
    page->OnSelected();
    page->SetApi(api);
    script.failures["GetConnectionState"] = {E_FAIL, 0};
    page->SetApi(Make<scripted::Api>(script).as<IHXApi>());
    script.calls.clear();
    Create();
    EXPECT_EQ(script.Calls(), "");
    EXPECT_EQ(page->Session().ConnectionState(), HXNotConnected);
}

}  // namespace
}  // namespace hx
