// Whole sessions with the simulated scanner API, call by call.
#include "tests/controls/simulated_page.h"

namespace {

using simulated::kSelection;
using simulated::Page;
using Session = simulated::WithPages;

// Once for each kind of page.
class WholeSession : public Session, public testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Of, WholeSession, testing::Range(0, 2));

const hx::SessionTarget kInitialised = {true, L"HXScanner", L"HX", L"$DARK"};

const std::string kAdvise = R"(
events.Advise(observer)
api.GetConnectionState())";
// A new handle while nothing is connected, while something is, and the first one then.
const std::string kCreate = R"(
api.GetConnectionState()
api.CreateCalibrationHandle(HXScanner))";
const std::string kProperties = R"(
api.GetDeviceManager()
devices.GetDriverProperties(CategoryScanner, HXScanner))";
const std::string kCreateConnected = kSelection + R"(
api.CreateCalibrationHandle(HXScanner))";
const std::string kCreateFirst = kSelection + kProperties + R"(
api.CreateCalibrationHandle(HXScanner))";
const std::string kAcquire = R"(
api.GetConnectionState()
page.cursor(true)
handle.AcquireHandle()
api.GetConnectionState()
recorder.StartTrackingDataRecording()
handle.InitialiseScanner(0, 0, 1)
handle.RegisterTrackingCycleObserver(observer)
api.GetConnectionState())";
const std::string kLoad = R"(
handle.EnumerateDynamicSettingsPresets(HX)
handle.GetSelectedDynamicSettingsPreset(HX)
handle.GetDynamicSettingsPreset(HX, $DEFAULT)
handle.GetDynamicSettingsPreset(HX, $SHINY)
handle.GetDynamicSettingsPreset(HX, $DARK)
handle.GetDynamicSettingsPreset(HX, $SHEETMETAL))";
const std::string kFill = R"(
page.cursor(false)
handle.CreateDynamicSettingsPreset()
handle.CreateDynamicSettingsPreset()
page.presets()
page.gains()
handle.GetMaxExposureTime(HX)
page.range(5000)
page.finish()
page.enable(true)
page.rate())";
const std::string kStop = R"(
recorder.StopTrackingDataRecording()
handle.DisableScanner())";
const std::string kRest = R"(
page.wait(50)
handle.RegisterTrackingCycleObserver(null)
handle.ReleaseHandle())";
const std::string kReselected = kAcquire + R"(
page.cursor(false)
page.enable(true)
page.cursor(true))";
const std::string kLeave = "\npage.leave()";

TEST_P(WholeSession, CallByCall) {
    struct Step {
        const char* what;
        std::function<void(Page&)> run;
        std::string calls;
    };
    const Step steps[] = {
        {"selected before there is anything", [](Page& page) { page.session.OnSelected(); }, ""},
        {"handed over, without a scanner", [&](Page& page) { page.session.SetApi(m_api); },
         kAdvise + kCreate + "\napi.GetConnectionState()\npage.cursor(true)" + kLoad + kFill},
        {"nothing can be sent", [](Page& page) { page.session.ApplySettingsToHardware(page.working, true); },
         ""},
        {"plugged in",
         [&](Page&) {
             m_hands->Connect();
             Handle();
         },
         "\nevents.Raise(0)\nevents.Raise(2)\nevents.Raise(1)" + kRest + kCreateFirst + kAcquire + kFill},
        {"edited",
         [](Page& page) {
             EXPECT_TRUE(page.session.IsHandleAcquired() && page.session.IsDeviceCurrent());
             EXPECT_EQ(page.working->SetLaserPower(42), S_OK);
             page.session.ApplySettingsToHardware(page.working, false);
         },
         "\npreset:.SetLaserPower(42)\nhandle.ActivateDynamicSettings()\npage.rows()"},
        {"another field of view",
         [](Page& page) {
             page.session.ApplyGlobalScanningSettings({1, 2, 30, 4, 3});
         },
         R"(
handle.DisableScanner()
handle.RegisterTrackingCycleObserver(null)
page.preview()
handle.ActivateGlobalScanningSettings({"FovIndicator":30,"FrequencySelection":3,"HorizontalFov":1,)"
         R"("ScanningMode":4,"VerticalFov":2})
handle.InitialiseScanner(0, 0, 1)
handle.RegisterTrackingCycleObserver(observer))"},
        {"another page", [](Page& page) { page.session.OnDeselected(); }, kStop + kRest + kLeave},
        {"this one again", [](Page& page) { page.session.OnSelected(); },
         kReselected + "\nhandle.ActivateDynamicSettings()\npage.rows()\npage.cursor(false)"},
        {"suspended", [&](Page&) { Arrive(2); }, "\nevents.Raise(2)"},
        {"resumed by itself", [&](Page&) { Arrive(1); },
         "\nevents.Raise(1)" + kRest + kCreateConnected + kAcquire + kFill},
        {"unplugged",
         [&](Page& page) {
             m_hands->Disconnect();
             Handle();
             EXPECT_FALSE(page.session.IsHandleAcquired() || page.session.Handle());
         },
         "\nevents.Raise(1)\nevents.Raise(0)" + kStop + kRest},
        {"and back", [&](Page&) { Arrive(1); }, "\nevents.Raise(1)" + kCreateConnected + kAcquire + kFill},
        {"another hand-over", [&](Page& page) { page.session.SetApi(m_api); },
         "\nevents.Unadvise(1)\nevents.Advise(observer)\napi.GetConnectionState()"},
        {"the window goes", [](Page& page) { page.session.OnDestroy(); },
         "\nhandle.CloseHandle()\nevents.Unadvise(2)" + kStop + kRest},
        {"nothing is done from now on",
         [&](Page& page) {
             page.session.OnDestroy();
             page.session.OnSelected();
             page.session.OnDeselected();
             page.session.OnConnectionStateChange(0);
             page.session.SetApi(m_api);
             page.session.ApplyGlobalScanningSettings({});
             Arrive(0);
         },
         "\nevents.Raise(0)"},
    };
    Page& page = NewPage(*kBothRules[GetParam()], kInitialised);
    Lines();
    for (const Step& step : steps) {
        step.run(page);
        EXPECT_EQ(Text(), step.calls + "\n") << step.what;
    }
    EXPECT_TRUE(page.boxes.empty());
}

// A page whose host has not said what it is to edit takes what is connected.
TEST_P(WholeSession, OfAPageThatTheHostDidNotInitialise) {
    auto& session = Open(HXConnected, *kBothRules[GetParam()]).session;
    EXPECT_EQ(Text(), kAdvise + kCreateFirst + kAcquire + kLoad + kFill + "\n");
    EXPECT_EQ(session.Target().driver_internal_name + L" " + session.Target().device_internal_name + L" " +
                  session.Target().profile_name,
              L"HXScanner HX $DEFAULT");
    // Without one there is nothing to be taken.
    auto& without = Open(HXNotConnected, *kBothRules[GetParam()]).session;
    EXPECT_TRUE(without.IsHandleAcquired());
    EXPECT_EQ(without.Target().device_internal_name, L"");
    EXPECT_EQ(without.Presets().Count(), 0u);
}

TEST_P(WholeSession, WithASuspendedScanner) {
    const std::string resume = GetParam() == 1 ? "\napi.Resume()" : "";
    Page& page = Open(HXSuspended, *kBothRules[GetParam()], kInitialised);
    EXPECT_EQ(Text(), kAdvise + kCreate + "\napi.GetConnectionState()" + resume + "\npage.cursor(true)" +
                          kLoad + kFill + "\n");
    Arrive(HXConnected);
    EXPECT_EQ(Text(), "\nevents.Raise(1)" + kRest + kCreateFirst + kAcquire + kFill + "\n");
    Arrive(HXSuspended);
    // The scanner is given back without being stopped.
    page.session.OnDeselected();
    EXPECT_EQ(Text(), "\nevents.Raise(2)" + kRest + kLeave + "\n");
}

// They share the presets manager, and with it what is known of the scanner.
TEST_F(Session, TwoPages) {
    const std::string close = "\nhandle.CloseHandle()\nevents.Unadvise(";
    for (const bool first_goes_first : {true, false}) {
        Page& first = Open(HXConnected, hx::kMeasurementSession, kInitialised);
        Lines();
        first.session.OnDeselected();
        Page& second = NewPage(hx::kHandheldSession, kInitialised);
        second.session.OnSelected();
        second.session.SetApi(m_api);
        EXPECT_EQ(Text(), kStop + kRest + kLeave + kAdvise + kCreateConnected + kAcquire + kFill + "\n");
        EXPECT_NE(first.session.Handle(), second.session.Handle());
        EXPECT_EQ(&first.session.Presets(), &second.session.Presets());
        EXPECT_EQ(second.session.Presets().Handle(), second.session.Handle());
        Page& goes = first_goes_first ? first : second;
        Page& stays = first_goes_first ? second : first;
        const std::string cookies = first_goes_first ? "12" : "43";
        goes.session.OnDestroy();
        EXPECT_EQ(Text(), close + cookies[0] + ")" + kStop + kRest + "\n");
        EXPECT_EQ(stays.session.Presets().Count(), 4u);
        Arrive(HXSuspended);
        Arrive(HXConnected);
        Lines();
        stays.session.OnDestroy();
        EXPECT_EQ(Text(), close + cookies[1] + ")" + kStop + kRest + "\n");
        EndPages();
    }
}

// The scanner is started for the page of the device that is connected, the recording stopped for any.
TEST_F(Session, OfAPageForAnotherDevice) {
    struct Row {
        hx::SessionTarget target;
        bool acquires, starts;
    };
    // The simulated API knows the driver by the device's name, too, but tells no properties of it.
    const Row rows[] = {
        {{true, L"HX", L"HX", L""}, false, false},
        {{true, L"HXScanner", L"Other", L""}, true, false},
        {{false, L"HXScanner", L"Other", L""}, true, true},
    };
    for (const Row& row : rows) {
        Page& known = Open();
        Page& page = NewPage(hx::kHandheldSession, row.target);
        known.session.OnDeselected();
        page.session.OnSelected();
        Lines();
        page.session.SetApi(m_api);
        const std::string calls = Text();
        EXPECT_EQ(calls.find("AcquireHandle") != std::string::npos, row.acquires) << calls;
        EXPECT_EQ(calls.find("Start") != std::string::npos, row.starts) << calls;
        EXPECT_TRUE(page.session.IsHandleAcquired());
        page.session.ApplySettingsToHardware(page.working, true);
        EXPECT_EQ(Text(), "\n");
        page.session.OnDeselected();
        EXPECT_EQ(Text(), kStop + kRest + kLeave + "\n");
    }
}

}  // namespace
