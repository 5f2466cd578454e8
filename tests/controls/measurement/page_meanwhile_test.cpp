// What comes in while the measurement page works, and when it is not to be seen.
#include "tests/controls/measurement/scripted_page.h"

namespace hx {
namespace {

// What comes in while the scanner is called: never in the middle of what runs, and never lost.
TEST_F(MeasurementPage, WhatIsMovedMeanwhileIsFollowedAfterwards) {
    SwitchOn(kDetectKey);
    SwitchOn(kSpeedKey);
    script.field_of_view = 3;
    script.reduces_frequency = 1;
    script.detected_exposure_us = 2000;
    script.detected_power = 44.5;
    const auto applied = [](const std::string& settings, bool failed = false) {
        return "DisableScanner, RegisterTrackingCycleObserver, ActivateGlobalScanningSettings " + settings +
               (failed ? ""
                       : ", InitialiseScanner, RegisterTrackingCycleObserver, ActivateDynamicSettings 30, "
                         "GetFrameRate");
    };
    const struct {
        std::string what, when;
        bool fails;
        std::function<void()> acts, comes;
        std::string calls, state;  // width, speed, laser power; boxes
    } kRows[] = {
        {"a slider", "ActivateDynamicSettings", false, [&] { User().Drag(At<ui::TrackBar>(207), 60); },
         [&] { User().Drag(At<ui::TrackBar>(207), 70); },
         "ActivateDynamicSettings 60, ActivateDynamicSettings 70", "0 2 70 0"},
        {"a slider whose place is refused", "ActivateDynamicSettings", true,
         [&] { User().Drag(At<ui::TrackBar>(207), 60); }, [&] { User().Drag(At<ui::TrackBar>(207), 70); },
         "ActivateDynamicSettings 60, ActivateDynamicSettings 70", "0 2 70 1"},
        {"another one", "ActivateGlobalScanningSettings", false,
         [&] { User().Scroll(At<ui::TrackBar>(289), TB_LINEUP); },
         [&] { User().Scroll(At<ui::TrackBar>(277), TB_LINEDOWN); },
         applied("0 0 0 0 2") + ", " + applied("1 0 0 0 2"), "1 1 30 0"},
        {"the speed that is refused", "ActivateGlobalScanningSettings", true,
         [&] { User().Scroll(At<ui::TrackBar>(289), TB_LINEUP); },
         [&] { User().Scroll(At<ui::TrackBar>(289), TB_LINEUP); },
         applied("0 0 0 0 2", true) + ", " + applied("0 0 0 0 3"), "0 0 30 1"},
        {"a profile, and a close", "DetectExposureTime", false, [&] { User().Click(At<ui::Button>(269)); },
         [&] {
             User().ClickRow(page->ProfileList(), 0);
             EXPECT_EQ(page->ProfileList().SelectedName(), L"Own");
             page->DeletePreset();
             EXPECT_FALSE(page->CommitOnClose());
         },
         "DetectExposureTime, ActivateDynamicSettings 30, DetectLaserPower, ActivateDynamicSettings 45, "
         "ActivateDynamicSettings 45",
         "0 2 45 0"},
    };
    for (const auto& row : kRows) {
        script.scanning = {0, 0, 0, 0, 1};
        Open();
        bool came = false;
        if (row.fails) script.failures[row.when] = {E_FAIL, 0};
        script.fails_once = true;
        script.during = [&](const std::string& call) {
            if (call.starts_with(row.when) && !std::exchange(came, true)) row.comes();
        };
        row.acts();
        EXPECT_EQ(script.Calls(), row.calls) << row.what;
        EXPECT_EQ(std::to_string(Position(277)) + " " + std::to_string(Position(289)) + " " + TextOf(210) +
                      " " + std::to_string(boxes.TakeBoxes().size()),
                  row.state)
            << row.what;
        EXPECT_EQ(page->GetCurrentPresetName(), L"Own");
        script.during = nullptr;
    }
}

TEST_F(MeasurementPage, APageThatIsLeftTellsTheScannerNothing) {
    Open();
    ASSERT_TRUE(User().Type(At<ui::Edit>(212), L"17"));
    User().Type(At<ui::Edit>(212), L"x");
    page->OnDeselected();
    script.calls.clear();
    script.failures["ActivateDynamicSettings"] = {E_FAIL, 0};
    ASSERT_TRUE(User().Focus(page->ProfileList()));
    EXPECT_EQ(script.Calls(), "");
    EXPECT_TRUE(boxes.TakeBoxes().empty());
    EXPECT_EQ(TextOf(212), "17") << "the last value that was one";
    // A key that is held in a slider is not followed until it is let go.
    for (const uint32_t slider : {204, 207}) {
        script.failures.clear();
        Open();
        At<ui::TrackBar>(slider).SetPosition(50);
        static_cast<ui::Dialog&>(*page).OnScroll(At<ui::TrackBar>(slider), TB_LINEDOWN, 50);
        EXPECT_FALSE(page->IsModified());
        page->OnDeselected();
        EXPECT_TRUE(page->IsModified()) << slider;
        EXPECT_TRUE(page->ProfileList().Row(page->ProfileList().Selected()).modified);
    }
    EXPECT_EQ(Working().laser_power, 50);
}

TEST_F(MeasurementPage, APageWithoutAProfileStaysDisabled) {
    SwitchOn(kDetectKey);
    SwitchOn(kSpeedKey);
    script.field_of_view = 3;
    script.reduces_frequency = 1;
    script.state = HXConnected;
    New();
    Create();
    page->Show(true);
    page->OnSelected();
    script.failures["GetMaxExposureTime"] = {E_FAIL, 0};
    page->SetApi(api);
    script.failures.clear();
    page->OnDeselected();
    page->OnSelected();
    EXPECT_EQ(Enabled(), Ids{6000});
    EXPECT_FALSE(At(277).IsEnabled());
    EXPECT_EQ(boxes.TakeBoxes().size(), 1U);
}

}  // namespace
}  // namespace hx
