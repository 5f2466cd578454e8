// What the handheld page asks of the scanner API in a whole session, call by call.
#include "platform/system/sleep.h"
#include "tests/controls/settings_page/page_session.h"
#include "tests/controls/simulated_page.h"

namespace hx {
namespace {

using simulated::kSelection;

std::string Times(int32_t times, const std::string& calls) {
    std::string all;
    for (int32_t i = 0; i < times; ++i) all += calls;
    return all;
}
std::string Activated(const std::string& name) {
    return "\nhandle.ActivateDynamicSettings(" + name + ")\nhandle.GetExposureTimeInRows()";
}
std::string Shown(const std::string& name) {
    return "\nhandle.GetFovManagementConfig()\nhandle.GetGlobalScanningSettings(HXHandheld)" +
           Activated(name);
}
std::string Saved(const std::string& selected, const std::string& more = "") {
    const std::string names = R"(["$DEFAULT","$SHINY","$DARK","$FEATURESSHEETMETAL")" + more + "]";
    return "\nhandle.SaveDynamicSettingsPresets(HXHandheld, " + names + ", " + names + ", " + selected + ")";
}
std::string Scanned(int32_t width, int32_t height, int32_t indicator) {
    return "\nhandle.DisableScanner()\nhandle.RegisterTrackingCycleObserver(null)"
           "\nhandle.ActivateGlobalScanningSettings({\"FovIndicator\":" +
           std::to_string(indicator) + R"(,"FrequencySelection":0,"HorizontalFov":)" + std::to_string(width) +
           R"(,"ScanningMode":0,"VerticalFov":)" + std::to_string(height) +
           "})\nhandle.InitialiseScanner(0, 0, 1)\nhandle.RegisterTrackingCycleObserver(observer)";
}

const std::string kAdvise = "\nevents.Advise(observer)\napi.GetConnectionState()";
const std::string kState = "\napi.GetConnectionState()";
const std::string kCreate = "\napi.CreateCalibrationHandle(HXHandheldScanner)";
const std::string kLoad = R"(
handle.EnumerateDynamicSettingsPresets(HXHandheld)
handle.GetSelectedDynamicSettingsPreset(HXHandheld)
handle.GetDynamicSettingsPreset(HXHandheld, $DEFAULT)
handle.GetDynamicSettingsPreset(HXHandheld, $SHINY)
handle.GetDynamicSettingsPreset(HXHandheld, $DARK)
handle.GetDynamicSettingsPreset(HXHandheld, $FEATURESSHEETMETAL))";
const std::string kFresh = Times(2, "\nhandle.CreateDynamicSettingsPreset()");
const std::string kGains = "\nhandle.GetSupportedAnalogImagerGains()";
const std::string kRange = "\nhandle.GetMaxExposureTime(HXHandheld)";
const std::string kRate = "\nhandle.GetFrameRate()";
// What is asked of the scanner once.
const std::string kProperties = R"(
api.GetDeviceManager()
devices.GetDriverProperties(CategoryScanner, HXHandheldScanner))";
const std::string kAcquire = R"(
api.GetConnectionState()
handle.AcquireHandle()
api.GetConnectionState()
recorder.StartTrackingDataRecording()
handle.InitialiseScanner(0, 0, 1)
handle.RegisterTrackingCycleObserver(observer)
api.GetConnectionState())";
const std::string kStop = "\nrecorder.StopTrackingDataRecording()\nhandle.DisableScanner()";
const std::string kRest = R"(
page.wait(50)
handle.RegisterTrackingCycleObserver(null)
handle.ReleaseHandle())";

// The profile is shown as it is stored, and when it was loaded again.
std::string Prepared(const std::string& name, const std::string& more = "") {
    return kFresh + kGains + kRange + Shown(name) + Saved(name, more) + Shown(name) + kRate;
}

class HandheldCalls : public PageSession {
protected:
    void SetUp() override {
        PageSession::SetUp();
        s_hands = m_hands.get();
        SetSleeper([](uint32_t time_ms) { simulated::LogOfPage(*s_hands, "wait", std::to_string(time_ms)); });
    }
    const PageKind& Kind() const override { return kPageKinds[kHandheld]; }

    // Without those of presets, which no scanner sees.
    std::string Text() {
        std::string text = "\n";
        for (const std::string& line : simulated::LinesOf(*m_hands)) {
            if (!line.starts_with("preset")) text += line + "\n";
        }
        return text;
    }

    inline static IHXSimulator* s_hands = nullptr;
};

TEST_F(HandheldCalls, OfAWholeSession) {
    const std::string own = R"(,"Own")";
    const std::string reopened = kSelection + kCreate + kAcquire + Prepared("$DEFAULT", own);
    // Dragged, dropped, and the end of it.
    const auto moved = [](const std::string& calls) { return Times(3, calls + Activated("$DARK") + kRate); };
    const std::map<std::string, std::string> kCalls = {
        {"create", ""},
        {"initialise", ""},
        {"select", ""},
        {"api", kAdvise + kState + kCreate + kState + kLoad + kFresh + kRange + Saved("$DARK")},
        {"connect", kRest + kSelection + kProperties + kCreate + kAcquire + Prepared("$DARK")},
        {"first edit", Activated("$DARK")},
        {"slider", Times(3, Activated("$DARK"))},
        {"gain", Activated("$DARK")},
        {"threshold", Activated("$DARK")},
        {"width", moved(Scanned(1, 0, 0))},
        {"height", moved(Scanned(1, 2, 0))},
        {"indicator", Scanned(1, 2, 100)},
        {"detect", "\nhandle.DetectExposureTime()" + Activated("$DARK") + "\nhandle.DetectLaserPower()" +
                       Times(2, Activated("$DARK"))},
        {"another profile, without the edits", Shown("$SHINY") + Saved("$SHINY") + Shown("$SHINY")},
        {"another profile, with the edits", Shown("$DEFAULT") + Saved("$DEFAULT", own) + Shown("$DEFAULT")},
        {"deselect", kStop + kRest},
        {"select again", kAcquire + Activated("$DEFAULT")},
        {"unplug", kStop + kRest},
        {"plug", kState + kCreate + kState + "\napi.Resume()" + kFresh + kRange + Saved("$DEFAULT", own) +
                     kRest + reopened},
        {"suspend", ""},
        {"leave it so", kRest},
        {"return to it", kState + "\napi.Resume()"},
        {"resumed", kRest + reopened},
        {"close", "\nhandle.CloseHandle()\nevents.Unadvise(1)" + kStop + kRest},
    };
    Begin();
    Text();
    size_t known = 0;
    for (const Step& step : Steps()) {
        EXPECT_EQ(Run(step), 0u) << step.name;
        const std::string calls = Text();
        const auto expected = kCalls.find(step.name);
        if (expected == kCalls.end()) continue;
        ++known;
        EXPECT_EQ(calls, expected->second + "\n") << step.name;
    }
    EXPECT_EQ(known, kCalls.size());
}

}  // namespace
}  // namespace hx
