// The page for handheld scanners as its operator and its host have it: its dialog on no screen, with a
// scripted scanner.
#include "controls/handheld/CHandheldMeasSettingsDlg.h"
#include "tests/controls/settings_page/scripted_page.h"

namespace hx {
namespace {

// Keys of the registry
constexpr uint32_t kEdgeFilterKey = 77;
constexpr uint32_t kGainKey = 79;

constexpr char kRange[] = "Enter an integer between 1 and 100.";

class HandheldPage : public ScriptedPage<CHandheldMeasSettingsDlg> {
protected:
    // Sliders with their edits, flags, threshold; width, height, indicator, frame rate.
    std::string State() {
        std::string state;
        for (const auto& [slider, edit] : {std::pair(207, 210), std::pair(204, 206)}) {
            state += std::to_string(Position(slider)) + "/" + TextOf(edit) + " ";
        }
        for (const uint32_t box : {224, 225, 253}) state += At<ui::CheckBox>(box).IsChecked() ? 'x' : '-';
        return state + " " + std::to_string(At<ui::ComboBox>(282).Selected());
    }
    std::string FieldOfView() {
        return std::to_string(Position(277)) + " " + std::to_string(Position(276)) +
               (At<ui::CheckBox>(275).IsChecked() ? " x " : " - ") + TextOf(228);
    }
    static std::string Applied(const std::string& settings) {
        return "DisableScanner, RegisterTrackingCycleObserver, ActivateGlobalScanningSettings " + settings +
               ", InitialiseScanner, RegisterTrackingCycleObserver";
    }
    std::string TextsOfBoxes() {
        std::string texts;
        for (const auto& box : boxes.TakeBoxes()) texts += ToUtf8(box.text);
        return texts;
    }
};

TEST_F(HandheldPage, ThresholdsWithoutARowAreWrittenAnew) {
    const struct {
        uint32_t stored;
        int32_t row;
        uint32_t written;
    } kRows[] = {{5, 0, 5}, {4, 1, 4},  {1, 4, 1},   {6, 1, 4},   {7, 2, 3},   {8, 3, 2},
                 {9, 4, 1}, {0, -1, 6}, {10, -1, 6}, {11, -1, 6}, {100, -1, 6}};
    for (const auto& row : kRows) {
        script.values[L"Own"].signal_threshold = row.stored;
        Open();
        EXPECT_EQ(At<ui::ComboBox>(282).Selected(), row.row) << row.stored;
        EXPECT_EQ(Working().signal_threshold, row.stored) << "shown, and not touched";
        EXPECT_FALSE(page->IsModified());
        User().Scroll(At<ui::TrackBar>(207), TB_LINEUP);
        EXPECT_EQ(Working().signal_threshold, row.written) << row.stored;
    }
    EXPECT_EQ(At<ui::ComboBox>(282).Items(), (std::vector<std::wstring>{L"5%", L"4%", L"3%", L"2%", L"1%"}));
    for (int32_t row = 0; row < 5; ++row) {
        EXPECT_TRUE(User().Choose(At<ui::ComboBox>(282), row));
        EXPECT_EQ(Working().signal_threshold, static_cast<uint32_t>(5 - row));
    }
}

TEST_F(HandheldPage, TheUpperEndOfASliderIsItsMost) {
    Open();
    EXPECT_EQ(State(), "71/30 8850/12 --x 0");
    const struct {
        std::function<void()> acts;
        const char* state;
        double exposure_us;
    } kRows[] = {
        {[&] { User().Scroll(At<ui::TrackBar>(207), TB_TOP); }, "1/100 8850/12 --x 0", 1250},
        {[&] { User().Scroll(At<ui::TrackBar>(207), TB_PAGEDOWN); }, "11/90 8850/12 --x 0", 1250},
        {[&] { SetTrackBar(User(), At<ui::TrackBar>(204), 10000); }, "11/90 10000/1 --x 0", 100},
        {[&] { User().Scroll(At<ui::TrackBar>(204), TB_LINEUP); }, "11/90 9900/2 --x 0", 200},
        {[&] { User().Type(At<ui::Edit>(210), L"50"); }, "51/50 9900/2 --x 0", 200},
        {[&] { User().Type(At<ui::Edit>(210), L"0"); }, "51/0 9900/2 --x 0", 200},
        {[&] { User().Paste(At<ui::Edit>(210), L"101"); }, "51/101 9900/2 --x 0", 200},
        {[&] { User().Paste(At<ui::Edit>(206), L"100"); }, "51/50 100/100 --x 0", 10000},
        {[&] { User().Paste(At<ui::Edit>(206), L"0"); }, "51/50 100/0 --x 0", 10000},
        {[&] { User().Focus(At(6000)); }, "51/50 100/100 --x 0", 10000},
    };
    for (const auto& row : kRows) {
        row.acts();
        EXPECT_EQ(State(), row.state);
        EXPECT_EQ(Working().exposure_us, row.exposure_us) << row.state;
    }
    EXPECT_EQ(TextsOfBoxes(), kRange) << "of the laser power alone, when it was left";
}

TEST_F(HandheldPage, ALaserPowerOutOfRangeIsComplainedOfOnce) {
    const struct {
        const char* what;
        const wchar_t* typed;
        std::function<void()> acts;
        const char *state, *calls;
        bool reconnects = false;
    } kRows[] = {
        {"left", L"0", [&] { User().Focus(At(6000)); }, "71/30 8850/12 --x 0", "ActivateDynamicSettings 30"},
        {"emptied", L"", [&] { User().Focus(At(6000)); }, "71/30 8850/12 --x 0",
         "ActivateDynamicSettings 30"},
        {"no number", L"x", [&] { User().Focus(At(204)); }, "71/30 8850/12 --x 0",
         "ActivateDynamicSettings 30"},
        {"a click", L"101", [&] { User().Click(At<ui::CheckBox>(253)); }, "71/30 8850/12 --- 0",
         "ActivateDynamicSettings 30, ActivateDynamicSettings 30"},
        // As a renderer may do that lets the focus be where it is.
        {"a click without the focus", L"101", [&] { At<ui::CheckBox>(225).UserClick(); },
         "71/30 8850/12 -xx 0", "ActivateDynamicSettings 30", true},
        {"automatic", L"101", [&] { At<ui::CheckBox>(224).UserClick(); }, "71/30 8850/12 x-x 0",
         "ActivateDynamicSettings 30"},
        {"the indicator", L"101", [&] { At<ui::CheckBox>(275).UserClick(); }, "71/30 8850/12 --x 0",
         "DisableScanner, RegisterTrackingCycleObserver, ActivateGlobalScanningSettings 0 0 100 0 0, "
         "InitialiseScanner, RegisterTrackingCycleObserver",
         true},
    };
    for (const auto& row : kRows) {
        Open();
        User().Paste(At<ui::Edit>(210), row.typed);
        EXPECT_EQ(TextsOfBoxes() + script.Calls(), "") << row.what;
        // What comes meanwhile waits until the click was followed.
        if (row.reconnects) boxes.while_box = [&] { Arrive(HXSuspended), Arrive(HXConnected); };
        row.acts();
        boxes.while_box = nullptr;
        EXPECT_EQ(TextsOfBoxes(), kRange) << row.what;
        EXPECT_EQ(State(), row.state) << row.what;
        EXPECT_TRUE(script.Calls().starts_with(row.calls)) << row.what;
    }
    // It is closed, or left, while that is there.
    for (const bool closed : {true, false}) {
        for (const bool clicked : {true, false}) {
            Open();
            User().Paste(At<ui::Edit>(210), L"101");
            boxes.while_box = [&] { closed ? page.reset() : page->OnDeselected(); };
            clicked ? At<ui::CheckBox>(224).UserClick() : static_cast<void>(User().Focus(At(6000)));
            boxes.while_box = nullptr;
            EXPECT_EQ(TextsOfBoxes(), kRange);
            EXPECT_EQ(script.Calls().find("Activate"), std::string::npos);
        }
    }
    for (const uint32_t box : {224, 253, 275}) {
        Open();
        const bool ticked = At<ui::CheckBox>(box).IsChecked();
        User().Paste(At<ui::Edit>(210), L"101");
        boxes.while_box = [&] { page->OnDeselected(), page->OnSelected(); };
        At<ui::CheckBox>(box).UserClick();
        boxes.while_box = nullptr;
        EXPECT_EQ(At<ui::CheckBox>(box).IsChecked(), ticked) << box << " was not followed";
        EXPECT_EQ(TextsOfBoxes(), kRange);
    }
}

TEST_F(HandheldPage, ReadsAndAppliesTheFieldOfView) {
    const struct {
        int32_t managed;
        MGlobalScanningSettings settings;
        const char* shown;
    } kRows[] = {{0, {1, 2, 100, 7, 0}, "0 0 - Frame rate: 50 Hz"},
                 {1, {1, 2, 100, 7, 0}, "1 1 x Frame rate: 50 Hz"},
                 {-1, {0, 2, 0, 7, 0}, "0 1 - Frame rate: 50 Hz"},
                 {2, {1, 3, 40, 7, 2}, "1 0 x Frame rate: 50 Hz"}};
    for (const auto& row : kRows) {
        script.field_of_view = row.managed;
        script.scanning = row.settings;
        Open();
        EXPECT_EQ(FieldOfView(), row.shown) << row.managed;
    }
    const std::string profile = ", ActivateDynamicSettings 30, GetFrameRate";
    User().Scroll(At<ui::TrackBar>(277), TB_LINEUP);
    EXPECT_EQ(script.Calls(), Applied("0 0 100 7 2") + profile);
    User().Click(At<ui::CheckBox>(275));
    EXPECT_EQ(script.Calls(), Applied("0 0 0 7 2"));
    script.failures["GetFrameRate"] = {E_FAIL, 0};
    User().Scroll(At<ui::TrackBar>(276), TB_LINEDOWN);
    EXPECT_EQ(script.Calls(), Applied("0 2 0 7 2") + profile);
    EXPECT_EQ(FieldOfView(), "0 1 - Frame rate: 0 Hz");
    // While a slider is being followed.
    bool came = false;
    script.during = [&](const std::string& call) {
        if (call == "InitialiseScanner" && !std::exchange(came, true)) User().Click(At<ui::CheckBox>(275));
    };
    User().Scroll(At<ui::TrackBar>(276), TB_LINEUP);
    EXPECT_EQ(script.Calls(), Applied("0 0 0 7 2") + profile + ", " + Applied("0 0 100 7 2"));
    EXPECT_EQ(TextsOfBoxes(), "");
}

TEST_F(HandheldPage, EnablesWhatCanBeUsedInEachState) {
    for (const uint32_t key : {kDetectKey, kEdgeFilterKey}) SwitchOn(key);
    constexpr uint32_t kControls[] = {108, 204, 207, 210, 224, 225, 253, 269, 275, 276, 277, 282, 6000};
    const Ids all(std::begin(kControls), std::end(kControls));
    const auto enabled = [&] { return EnabledOf(kControls); };
    const auto but = [&](const Ids& disabled) {
        Ids ids = all;
        for (const uint32_t id : disabled) ids.erase(id);
        return ids;
    };
    New();
    Create();
    EXPECT_EQ(enabled(), Ids{6000});
    EXPECT_EQ(At<ui::ComboBox>(282).Selected(), 0) << "as long as no profile is shown";
    Open(HXNotConnected);
    EXPECT_EQ(enabled(), but({269, 275, 276, 277}));
    EXPECT_EQ(Reason(275), "2903");
    EXPECT_EQ(TextOf(228), "Frame rate: 0 Hz");
    Open();
    EXPECT_EQ(enabled(), all);
    User().Click(At<ui::CheckBox>(224));
    EXPECT_EQ(enabled(), but({207, 210}));
    User().Click(At<ui::CheckBox>(224));
    EXPECT_FALSE(page->IsModified());
    // Left while a slider is held: its place counts, and nothing is sent.
    User().Drag(At<ui::TrackBar>(207), 41);
    At<ui::TrackBar>(207).SetPosition(40);
    script.calls.clear();
    page->OnDeselected();
    EXPECT_EQ(enabled(), Ids{6000});
    EXPECT_EQ(Working().laser_power, 61);
    EXPECT_EQ(script.Calls().find("Activate"), std::string::npos);
    page->OnSelected();
    EXPECT_EQ(enabled(), all);
    EXPECT_TRUE(script.Calls().ends_with("ActivateDynamicSettings 61"));
    // Connected anew, with the edits.
    Arrive(HXNotConnected);
    EXPECT_EQ(enabled(), but({269, 275, 276, 277}));
    EXPECT_EQ(Reason(275), "2903");
    EXPECT_EQ(TextOf(228), "Frame rate: 0 Hz");
    Arrive(HXConnected);
    EXPECT_EQ(State(), "40/61 8850/12 --x 0");
    EXPECT_TRUE(page->IsModified());
    EXPECT_TRUE(script.Calls().ends_with("ActivateDynamicSettings 61, GetFrameRate"));
    EXPECT_EQ(enabled(), all);
    User().Paste(At<ui::Edit>(210), L"101");
    page->OnDeselected();
    EXPECT_EQ(TextOf(210) + TextsOfBoxes(), "61") << "an edit that can be used no more shows what counts";
    page->OnSelected();
    // The scanner of a profile whose laser power is not set by hand.
    User().Click(At<ui::CheckBox>(224));
    script.calls.clear();
    Arrive(HXSuspended);
    EXPECT_EQ(enabled(), but({207, 210, 269, 275, 276, 277}));
    EXPECT_EQ(Reason(277) + " " + Reason(207) + " " + TextOf(228), "2903 2902 Frame rate: 0 Hz");
    EXPECT_EQ(script.Calls(), "");
    Arrive(HXConnected);
    EXPECT_EQ(TextOf(228), "Frame rate: 50 Hz");
    // It goes while another page is shown.
    page->OnDeselected();
    Arrive(HXNotConnected);
    page->OnSelected();
    EXPECT_EQ(TextOf(228), "Frame rate: 0 Hz");
}

TEST_F(HandheldPage, ShowsWhatTheRegistryAndTheScannerAllow) {
    const auto shown = [&] {
        std::string text;
        for (const uint32_t id : {269, 225, 286, 287}) text += At(id).IsVisible() ? 'x' : '-';
        return text;
    };
    Open();
    EXPECT_EQ(shown(), "----");
    for (const uint32_t key : {kDetectKey, kEdgeFilterKey, kGainKey}) SwitchOn(key);
    Open();
    EXPECT_EQ(shown(), "xx--") << "one gain is no choice";
    script.gains = {L"1", L"2"};
    script.detected_exposure_us = 2000;
    script.detected_power = 44.5;
    Open();
    EXPECT_EQ(shown(), "xxxx");
    User().Choose(At<ui::ComboBox>(286), 1);
    EXPECT_EQ(Working().gain, 2U);
    User().Click(At<ui::Button>(269));
    EXPECT_EQ(State(), "56/45 8000/21 --x 0");
    EXPECT_EQ(script.Calls(),
              "ActivateDynamicSettings 30, DetectExposureTime, ActivateDynamicSettings 30, "
              "DetectLaserPower, ActivateDynamicSettings 45, ActivateDynamicSettings 45");
}

TEST_F(HandheldPage, AFailingProfileLeavesEverythingAsItWas) {
    auto& other = script.values[L"$DEFAULT"];
    other.signal_threshold = 2;
    other.edge_filter_3d = TRUE;
    script.field_of_view = 1;
    for (const char* const call : {"GetFovManagementConfig", "GetGlobalScanningSettings",
                                   "ActivateDynamicSettings", "GetMaxInclination"}) {
        Open();
        const std::string before = State() + FieldOfView();
        script.failures[call] = {E_FAIL, 0};
        User().ClickRow(page->ProfileList(), page->ProfileList().FindByName(L"$DEFAULT"));
        script.failures.clear();
        EXPECT_EQ(boxes.TakeBoxes().size(), 1U) << call;
        EXPECT_EQ(State() + FieldOfView(), before) << call;
        EXPECT_EQ(page->ProfileList().SelectedName(), L"Own") << call;
    }
}

}  // namespace
}  // namespace hx
