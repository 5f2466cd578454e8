// The session with a scanner: what each operation calls, in order.
#include "tests/controls/stub_page.h"

namespace {

using scripted::Raised;
using Session = scripted::WithPage;

const std::string kCreate =
    "GetConnectionState, GetCurrentProfile, GetDriverSelection, GetConnectionState, GetDeviceManager, "
    "GetDriverProperties CategoryScanner driver, CreateCalibrationHandle driver, ";
const std::string kStart =
    "GetConnectionState, wait cursor, AcquireHandle, GetConnectionState, Start, InitialiseScanner 001, "
    "RegisterTrackingCycleObserver, GetConnectionState, ";
const std::string kLoad =
    "EnumerateDynamicSettingsPresets device, GetSelectedDynamicSettingsPreset, "
    "GetDynamicSettingsPreset $DEFAULT, GetDynamicSettingsPreset Own, no cursor, ";
const std::string kShow =
    "CreateDynamicSettingsPreset, CreateDynamicSettingsPreset, presets, gains, GetMaxExposureTime device, "
    "range 8000, finish, enable, frame rate";
const std::string kRelease =
    "Stop, DisableScanner, wait 50, RegisterTrackingCycleObserver null, ReleaseHandle";

TEST_F(Session, OpensAndClosesInOrder) {
    for (const auto* rules : {&hx::kHandheldSession, &hx::kMeasurementSession}) {
        hx::ScannerSession& session = Open(*rules);
        EXPECT_EQ(m_script.Calls(),
                  "FindConnectionPoint, GetConnectionState, " + kCreate + kStart + kLoad + kShow);
        EXPECT_TRUE(session.IsHandleAcquired() && session.IsDeviceCurrent());
        EXPECT_EQ(session.Target().driver_internal_name + session.Target().device_internal_name +
                      session.Target().profile_name,
                  L"driverdevice$DEFAULT");
        session.OnDeselected();
        EXPECT_EQ(m_script.Calls(), kRelease + ", leave");
        EXPECT_FALSE(session.IsHandleAcquired() || session.IsSelected());
        session.OnSelected();
        EXPECT_EQ(m_script.Calls(),
                  kStart + "no cursor, enable, wait cursor, ActivateDynamicSettings, rows, no cursor");
        session.OnDestroy();
        EXPECT_EQ(m_script.Calls(), "CloseHandle, FindConnectionPoint, " + kRelease);
        // Nothing is done from now on.
        session.OnDestroy();
        session.OnSelected();
        session.OnDeselected();
        session.OnConnectionStateChange(0);
        session.SetApi(hx::Make<scripted::Api>(m_script));
        session.ApplyGlobalScanningSettings({});
        EXPECT_EQ(m_script.Calls(), "");
    }
}

TEST_F(Session, WithoutAConnectionTheProfilesAreLoadedAndNothingIsSent) {
    m_script.state = HXNotConnected;
    hx::ScannerSession& session = Open(hx::kMeasurementSession, {true, L"driver", L"device", L""});
    EXPECT_EQ(m_script.Calls(),
              "FindConnectionPoint, GetConnectionState, GetConnectionState, CreateCalibrationHandle driver, "
              "GetConnectionState, wait cursor, " +
                  kLoad + kShow);
    EXPECT_EQ(session.Target().profile_name, L"$DEFAULT");
    session.OnDeselected();
    EXPECT_EQ(m_script.Calls(), "wait 50, RegisterTrackingCycleObserver null, ReleaseHandle, leave");
}

TEST_F(Session, TheScannerIsStartedForItsOwnPageOnly) {
    struct Row {
        hx::SessionTarget target;
        const char* called;
        const char* not_called;
    };
    const Row rows[] = {
        {{true, L"another", L"device", L""},
         "wait cursor, EnumerateDynamicSettingsPresets device",
         "Acquire"},
        {{true, L"driver", L"another", L""}, "AcquireHandle, GetConnectionState, Enumerate", "Start"},
        {{false, L"driver", L"another", L""}, "AcquireHandle, GetConnectionState, Start", "box"},
    };
    for (const Row& row : rows) {
        hx::ScannerSession& session = Open(hx::kHandheldSession, row.target);
        const std::string calls = m_script.Calls();
        EXPECT_NE(calls.find(row.called), std::string::npos) << calls;
        EXPECT_EQ(calls.find(row.not_called), std::string::npos) << calls;
        session.ApplySettingsToHardware(m_page->working, true);
        EXPECT_EQ(m_script.Calls(), "");
        // Recording is stopped all the same.
        session.OnDeselected();
        EXPECT_EQ(m_script.Calls(), kRelease + ", leave");
    }
}

TEST_F(Session, TheCustomPresetGoesWithThePage) {
    hx::ScannerSession& session = Open(hx::kHandheldSession, {true, L"driver", L"device", L"$CUSTOM"});
    EXPECT_NE(m_script.Calls().find("SaveDynamicSettingsPresets device [$DEFAULT, Own, $CUSTOM]"),
              std::string::npos);
    const hx::PresetsReference another_page;
    EXPECT_TRUE(another_page->FindPresetExactly(L"$CUSTOM"));
    session.OnDestroy();
    EXPECT_EQ(another_page->Count(), 2u);
    EXPECT_FALSE(another_page->FindPresetExactly(L"$CUSTOM"));
    another_page->SetHandle(nullptr);
}

TEST_F(Session, AStoredCustomPresetStaysOnlyIfItIsAskedFor) {
    m_script.names[0] = L"$CUSTOM";
    for (const wchar_t* const profile : {L"Own", L"$custom"}) {
        hx::ScannerSession& session = Open(hx::kHandheldSession, {true, L"driver", L"device", profile});
        EXPECT_EQ(session.Presets().Count(), profile[0] == L'$' ? 2u : 1u);
    }
}

// A failing call ends the set-up, and the operator is told once.
TEST_F(Session, FailuresOfOpeningAreShown) {
    struct Row {
        const char* call;
        int32_t after;
        const char* told;
    };
    const Row rows[] = {
        {"CreateCalibrationHandle", 0, "CreateCalibrationHandle:CreateCalibrationHandle"},
        {"GetConnectionState", 3, "AcquireCalibrationHandle:GetConnectionState"},
        {"RegisterTrackingCycleObserver", 0, "AcquireCalibrationHandle:RegisterTrackingCycleObserver"},
        {"EnumerateDynamicSettingsPresets", 0, "Load:EnumerateDynamicSettingsPresets"},
        {"CreateDynamicSettingsPreset", 1, "CreateNewPreset:CreateDynamicSettingsPreset"},
        {"GetMaxExposureTime", 0, "OnConnectionStateChange:GetMaxExposureTime"},
        {"finish", 0, "finish"},
    };
    for (const Row& row : rows) {
        m_script.failures = {{row.call, {E_FAIL, row.after}}};
        Open();
        const std::string calls = m_script.Calls();
        EXPECT_TRUE(calls.ends_with(std::string("box ") + row.told + ", disable, frame rate")) << calls;
        EXPECT_EQ(calls.find("box "), calls.rfind("box "));
        m_script.failures.clear();
    }
    // Neither recording nor a silent API is a reason not to open.
    for (const char* const call : {"Start", "FindConnectionPoint"}) {
        m_script.failures = {{call, {E_FAIL, 0}}};
        EXPECT_TRUE(Open().IsHandleAcquired());
    }
}

TEST_F(Session, AnEnumerationOutcomeIsShownAndThePresetsAreLoadedAgain) {
    m_script.failures["EnumerateDynamicSettingsPresets"] = {E_FAIL, 0};
    m_script.chain_code = kHXPresetsCustomRestored;
    m_while_box_is_open = [&] { m_script.failures.clear(); };
    Open();
    EXPECT_TRUE(
        m_script.Calls().ends_with("EnumerateDynamicSettingsPresets device, box "
                                   "Load:EnumerateDynamicSettingsPresets, " +
                                   kLoad + kShow));
}

TEST_F(Session, AFailureOfReleasingSkipsTheRestOfIt) {
    for (const std::string call :
         {"Stop", "DisableScanner", "RegisterTrackingCycleObserver", "ReleaseHandle"}) {
        hx::ScannerSession& session = Open();
        m_script.calls.clear();
        m_script.failures = {{call, {E_FAIL, 0}}, {"CloseHandle", {E_FAIL, 0}}};
        const size_t end = kRelease.find(',', kRelease.find(call));
        session.OnDeselected();
        EXPECT_EQ(m_script.Calls(), kRelease.substr(0, end) + ", leave");
        EXPECT_FALSE(session.IsHandleAcquired());
        session.OnDestroy();
        EXPECT_EQ(m_script.Calls(), "CloseHandle, FindConnectionPoint, " + kRelease.substr(0, end));
        m_script.failures.clear();
    }
}

TEST_F(Session, SelectionThatFailsDisablesTheControls) {
    hx::ScannerSession& session = Open();
    session.OnDeselected();
    m_script.calls.clear();
    m_script.failures = {{"AcquireHandle", {E_FAIL, 0}}, {"ActivateDynamicSettings", {E_FAIL, 0}}};
    session.OnSelected();
    EXPECT_EQ(m_script.Calls(),
              "GetConnectionState, wait cursor, AcquireHandle, no cursor, disable, box "
              "AcquireCalibrationHandle:AcquireHandle, wait cursor, ActivateDynamicSettings, no cursor, box "
              "ApplySettingsToHardware:ActivateDynamicSettings");
    EXPECT_TRUE(session.IsSelected());
}

TEST_F(Session, SettingsAreAppliedToTheScannerThatIsThere) {
    hx::ScannerSession& session = Open();
    m_script.calls.clear();
    session.ApplySettingsToHardware(m_page->working, false);
    EXPECT_EQ(m_script.Calls(), "ActivateDynamicSettings, rows");
    session.ApplySettingsToHardware(nullptr, true);
    session.OnConnectionStateChange(HXSuspended);
    session.ApplySettingsToHardware(m_page->working, true);
    EXPECT_EQ(m_script.Calls(), "");
    // The field of view is applied in any state, while the scanner rests.
    m_script.failures = {{"DisableScanner", {E_FAIL, 0}}};
    session.ApplyGlobalScanningSettings({1, 2, 0, 0, 3});
    EXPECT_EQ(m_script.Calls(),
              "DisableScanner, RegisterTrackingCycleObserver null, reset preview, "
              "ActivateGlobalScanningSettings 123, InitialiseScanner 001, RegisterTrackingCycleObserver");
    // What an older failure left behind is not the cause of this one.
    m_script.chain_code = L"Another.Failure:Cause";
    session.Handle()->DisableScanner();
    m_script.chain_code.clear();
    m_script.calls.clear();
    m_script.failures = {{"RegisterTrackingCycleObserver", {E_FAIL, 0}}};
    EXPECT_EQ(Raised([&] { session.ApplyGlobalScanningSettings({}); }),
              "MErrorCom.MErrorCom:, CHandheldMeasSettingsDlg.ApplyGlobalScanningSettings:"
              "RegisterTrackingCycleObserver");
    EXPECT_EQ(m_script.Calls(), "DisableScanner, RegisterTrackingCycleObserver null");
}

TEST(Recorder, OneForAllWhetherOrNotItIsInstalled) {
    const auto recorder = hx::libReplayCapture::GetInstance();
    EXPECT_EQ(recorder, hx::libReplayCapture::GetInstance());
    EXPECT_EQ(recorder->StopTrackingDataRecording(), ReplayCaptureSuccess);
    hx::libReplayCapture none(nullptr);
    EXPECT_TRUE(none.StartTrackingDataRecording() == 0 && none.StopTrackingDataRecording() == 0);
}

}  // namespace
