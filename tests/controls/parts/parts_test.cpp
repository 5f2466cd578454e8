// What the settings pages share, with the measurement page's dialog and a scanner that does what the test
// says: which gains, sliders and readouts there are, what they show, and how a detection goes.
#include "controls/measurement/FieldOfViewLayout.h"

#include <limits>

#include "controls/measurement/MeasurementSpeed.h"
#include "controls/parts/ExposureDetection.h"
#include "controls/parts/FieldOfView.h"
#include "controls/parts/GainChooser.h"
#include "controls/parts/PageControls.h"
#include "controls/parts/RegistrySwitch.h"
#include "controls/parts/ScannerReadouts.h"
#include "tests/controls/editor/editor_page.h"

namespace editing {
namespace {

using Switch = hx::RegistrySwitch;

hx::MErrorLocation g_location("Page", "Operation");

void Set(Switch which, bool on) {
    using Orvel::RegistryKeys::MRegistryKeyLib;
    EXPECT_TRUE(MRegistryKeyLib::GetRegistryKey(static_cast<uint32_t>(which)).Set(on));
}

class PageParts : public testing::Test {
protected:
    hx::ui::Control& At(uint32_t id) { return *page.Find(id); }
    std::string TextAt(uint32_t id) { return Narrow(At(id).Text()); }
    // "1" for each that is to be seen, else "0".
    std::string Seen(std::initializer_list<uint32_t> ids) {
        std::string seen;
        for (const uint32_t id : ids) seen += At(id).IsVisible() ? '1' : '0';
        return seen;
    }

    Bench bench;
    Page& page = *bench.page;
    scripted::Script& script = bench.script;
    hx::ui::Script boxes;
};

TEST_F(PageParts, GainsAreNumbersAndOfferedAsTheScannerHasThem) {
    const auto gain_of = [](const std::wstring& text) {
        std::string gain;
        return scripted::Raised([&] { gain = std::to_string(hx::GainOfText(text, g_location)); }) + gain;
    };
    const std::pair<const wchar_t*, std::string> kNumbers[] = {{L" \t+08x", "8"},
                                                               {L"2.9", "2"},
                                                               {L"0x10", "0"},
                                                               {L"-1", "4294967295"},
                                                               {L"4294967295", "4294967295"}};
    for (const auto& [text, number] : kNumbers) EXPECT_EQ(gain_of(text), number);
    for (const wchar_t* const text : {L"", L" ", L"+-1", L"x1", L"\x0664"}) {
        EXPECT_EQ(gain_of(text), "Page.Operation:invalid stoul argument");
    }
    for (const wchar_t* const text : {L"4294967296", L"-4294967296", L"99999999999999999999999"}) {
        EXPECT_EQ(gain_of(text), "Page.Operation:stoul argument out of range");
    }
    const struct {
        std::wstring gains, device;
        bool allowed, fails;
        // List, label, High ISO mode; how many are in the list; what is chosen of them when the gain is 4.
        std::string state;
    } kRows[] = {
        {L"124", L"device", true, false, "110 3 4"},     {L"12", L"device", true, false, "110 2 1"},
        {L"12", L"device", false, false, "000 2 1"},     {L"1", L"device", true, false, "000 1 1"},
        {L"", L"device", true, false, "000 0 none"},     {L"14", L"KT05FxR3PA", true, false, "001 2 4"},
        {L"14", L"KT05FxR3PTB", true, false, "001 2 4"}, {L"14", L"KT05FxR3W", false, false, "001 2 4"},
        {L"14", L"KT05FxR3W", true, true, "001 1 none"}, {L"14", L"KT05FxR3w", true, false, "110 2 4"},
        {L"14", L"device", true, true, "000 1 none"}};
    hx::GainChooser chooser(page, page, g_location);
    chooser.Hide();
    EXPECT_EQ(Seen({286, 287, 288}), "000");
    for (const auto& row : kRows) {
        Set(Switch::kAllowHardwareDialogGainDropDown, row.allowed);
        page.Session().Target().device_internal_name = row.device;
        script.gains.clear();
        for (const wchar_t gain : row.gains) script.gains.emplace_back(1, gain);
        script.failures.clear();
        if (row.fails) script.failures["GetSupportedAnalogImagerGains"] = {E_FAIL, 0};
        chooser.Fill();
        page.Data().gain = 4;
        chooser.ShowGain();
        const std::string chosen = chooser.TakeChosen() ? std::to_string(page.Data().gain) : "none";
        const size_t items = page.FindAs<hx::ui::ComboBox>(286)->Items().size();
        EXPECT_EQ(Seen({286, 287, 288}) + " " + std::to_string(items) + " " + chosen, row.state);
        EXPECT_TRUE(chooser.TakeHighIso());
        EXPECT_EQ(page.Data().gain, 4U);
    }
    Set(Switch::kAllowHardwareDialogGainDropDown, false);
    bench.Do("unplug");
    chooser.Fill();
    chooser.ShowGain();
    EXPECT_EQ(Seen({286, 287, 288}), "000") << "of the scanner that was there";
    EXPECT_TRUE(page.FindAs<hx::ui::ComboBox>(286)->Items().empty() && page.SupportedGains().empty());
}

TEST_F(PageParts, TheSpeedIsShownReversedWithItsLabels) {
    const struct {
        double frame_rate_hz;
        int32_t selection;
        std::string labels;
    } kRows[] = {{100, 0, "100 Hz, 75 Hz, 50 Hz, 25 Hz"}, {75, 1, "100 Hz, 75 Hz, 50 Hz, 25 Hz"},
                 {31.2, 2, "65 Hz, 45 Hz, 30 Hz, 15 Hz"}, {25, 3, "100 Hz, 75 Hz, 50 Hz, 25 Hz"},
                 {51.9, 0, "50 Hz, 40 Hz, 25 Hz, 15 Hz"}, {1.9, 0, "0 Hz, 0 Hz, 0 Hz, 0 Hz"}};
    hx::MeasurementSpeed speed(page, page, g_location);
    auto& slider = *page.FindAs<hx::ui::TrackBar>(289);
    const auto shown = [&] {
        const std::string error = scripted::Raised([&] { speed.Show(); });
        return Seen({289, 229, 290, 291, 292, 293}) + std::to_string(speed.SelectionToScanWith()) + error;
    };
    EXPECT_EQ(shown(), "0000000");
    for (const auto& row : kRows) {
        script.frame_rate_hz = row.frame_rate_hz;
        speed.Set(true, row.selection);
        speed.ForgetLabels();
        EXPECT_EQ(shown(), "111111" + std::to_string(row.selection));
        EXPECT_EQ(slider.Position(), 3 - row.selection);
        EXPECT_EQ(scripted::Joined({TextAt(290), TextAt(291), TextAt(292), TextAt(293)}), row.labels);
    }
    slider.SetPosition(0);
    EXPECT_EQ(speed.TakeSlider(), 0);
    script.failures["GetFrameRate"] = {E_FAIL, 0};
    EXPECT_EQ(shown(), "1111113");  // the labels stay, nobody is asked
    speed.ForgetLabels();
    EXPECT_NE(shown().find("Page.Operation:GetFrameRate"), std::string::npos);
    script.failures.clear();
    for (const int32_t wild : {std::numeric_limits<int32_t>::min(), 4}) {
        speed.Set(true, wild);
        speed.ForgetLabels();
        EXPECT_NE(shown().find(":WrongEnumForFrequencySelection"), std::string::npos);
        speed.ShowPlace();
        EXPECT_EQ(slider.Position(), wild < 0 ? 3 : 0);
    }
    speed.Set(true, -1);
    EXPECT_NE(shown().find(":WrongEnumForFrequencySelection"), std::string::npos);
    speed.Set(false, 2);
    EXPECT_EQ(shown(), "0000000");
}

TEST_F(PageParts, TheFieldOfViewIsLaidOutAsItCanBeChosen) {
    page.SetAnchors({{106, 0, 0, 1, 1}, {276, 1, 0, 1, 1}, {228, 0, 1, 0, 1}});
    const struct {
        int32_t config, wider;
        std::string seen;  // width, height, frame rate
        bool to_slider, over_row;
    } kRows[] = {
        {3, 0, "1111111", false, false},  {0, 0, "0000000", true, true},    {-1, 0, "0000000", true, true},
        {3, 0, "1111111", false, false},  {1, 0, "1110001", true, false},   {2, 0, "0001111", true, false},
        {4, 0, "0001111", true, false},   {0, 40, "0000000", true, true},   {3, 0, "1111111", false, false},
        {1, -15, "1110001", true, false}, {-1, 8, "1110001", false, false}, {2, 0, "0001111", true, false}};
    hx::FieldOfViewLayout layout(page);
    hx::ui::Rectangle place = At(106).Bounds();
    for (const auto& row : kRows) {
        hx::ui::Rectangle window = page.Bounds();
        window.right += row.wider;
        place.right += row.wider;
        page.Move(window);
        layout.LayOut(row.config);
        hx::ui::Rectangle expected = place;
        if (row.to_slider) expected.right = At(276).Bounds().left;
        if (row.over_row) expected.bottom = At(228).Bounds().bottom;
        EXPECT_EQ(Seen({277, 113, 114, 276, 115, 116, 228}), row.seen) << row.config;
        EXPECT_TRUE(At(106).Bounds() == expected) << row.config << " " << row.wider;
    }
    hx::FieldOfView sliders(page);
    for (int32_t setting = 0; setting < 4; ++setting) {
        MGlobalScanningSettings settings{setting, setting, 7, 8, 9};
        sliders.Initialise(settings);
        sliders.TakeInto(settings);
        EXPECT_EQ(settings.HorizontalFov, setting == 1 ? 1 : 0);
        EXPECT_EQ(settings.VerticalFov, setting == 2 ? 2 : 0);
    }
}

TEST_F(PageParts, ReadoutsAreThoseOfTheConnectedScanner) {
    script.frame_rate_hz = 49.99;
    script.exposure_rows = -3;
    Set(Switch::kOutputExposureInRows, true);
    hx::ScannerReadouts readouts(page, page, g_location);
    Set(Switch::kOutputExposureInRows, false);
    readouts.ShowExposureRows();
    readouts.ShowFrameRate();
    EXPECT_EQ(TextAt(285) + TextAt(228), "RSW rows: -3   \nFrame rate: 49 Hz");
    bench.Do("unplug");
    script.frame_rate_hz = 7;
    readouts.ShowFrameRate();
    EXPECT_EQ(TextAt(228), "Frame rate: 49 Hz");
}

TEST(PageDetection, FindsShowsAndActivates) {
    const std::string exposure = "DetectExposureTime", power = "DetectLaserPower";
    const std::string activate = "ActivateDynamicSettings", then = ", " + activate + " ";
    const std::string e50 = exposure + then + "50", e50p = e50 + ", " + power;
    const std::string left = ", DisableScanner, RegisterTrackingCycleObserver, ReleaseHandle";
    const struct {
        int16_t exposure_us;
        double power;
        std::string failing, meanwhile, when;  // meanwhile: messages are dispatched
        std::string calls, values;             // exposure and power; how many boxes
    } kRows[] = {
        {1000, 42.5, "", "", "", e50p + then + "43" + then + "43", "1100 43 0"},
        {-5, 0.4, "", "", "", e50p + then + "1" + then + "1", "200 1 0"},
        {9950, 1e9, "", "", "", e50p + then + "100" + then + "100", "10000 100 0"},
        {32767, 10, "", "automatic", exposure, e50 + then + "50", "10000 50 0"},
        {2000, 10, exposure, "", "", e50, "1000 50 1"},
        {2000, 10, power, "", "", e50p + then + "50", "2100 50 1"},
        {2000, 10, activate, "", "", e50 + then + "50", "2100 50 2"},
        {2000, 7, "", "leave", exposure, exposure + left, "1000 50 0"},
        {2000, 7, power, "leave", power, e50p + left, "2100 50 1"},
        {2000, 7, "", "unplug", exposure, e50p + then + "7" + then + "7" + left, "2100 7 0"},
        {2000, 7, "", "end", exposure, exposure + ", CloseHandle" + left, "0"},
        {2000, 7, power, "end", power, e50p + ", CloseHandle" + left, "0"},
    };
    for (const auto& row : kRows) {
        Bench bench;
        Page& page = *bench.page;
        hx::ui::Script boxes;
        auto& renderer = dynamic_cast<hx::ui::HeadlessRenderer&>(*hx::ui::CurrentRenderer());
        bench.script.detected_exposure_us = row.exposure_us;
        bench.script.detected_power = row.power;
        bench.script.failures[row.failing] = {E_FAIL, 0};
        hx::ExposureDetection detection(page, g_location);
        const std::function<bool()> shown = [&] {
            page.laser_power.SetPosition(page.Data().laser_power);
            return page.OnSettingChanged(true), true;
        };
        bench.script.during = [&](const std::string& call) {
            if (call != exposure && call != power) return;
            EXPECT_EQ(renderer.WaitCursors(), 1);
            detection.Run(shown);  // pressed again
            renderer.User().QueueClick(*page.Find(224));
            if (call != row.when) return;
            if (row.meanwhile == "automatic") page.Data().automatic_laser_power = TRUE;
            if (row.meanwhile == "leave") page.Session().OnDeselected();
            if (row.meanwhile == "unplug") page.Session().OnConnectionStateChange(0);
            if (row.meanwhile == "end") bench.page.reset();
        };
        boxes.while_box = [&] { EXPECT_EQ(renderer.WaitCursors(), 0); };
        detection.Run(shown);
        EXPECT_EQ(bench.script.Calls(), row.calls);
        EXPECT_GT(renderer.DiscardedMouseMessages(), 0U);
        std::string values;
        if (bench.page)
            values = PowerText(page.Data().exposure) + " " + PowerText(page.Data().laser_power) + " ";
        values += std::to_string(boxes.TakeBoxes().size());
        EXPECT_EQ(values, row.values) << row.calls;
        bench.script.during = nullptr;
    }
}

}  // namespace
}  // namespace editing
