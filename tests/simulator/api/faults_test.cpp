// Failures on demand, what they leave behind, and the log of calls.
#include <algorithm>
#include <set>
#include <thread>
#include <tuple>

#include "core/errors/MErrorCom.h"
#include "core/errors/MException.h"
#include "core/messages/MErrorFormatter.h"
#include "tests/simulator/api/every_operation.h"

namespace {

using hx::ComPtr;

constexpr HRESULT kSpecial = static_cast<HRESULT>(0x8004ABCD);

class Faults : public SimulatorTest {
protected:
    void SetUp() override {
        SimulatorTest::SetUp();
        EXPECT_EQ(m_hands->SetConnectionState(HXConnected, FALSE), S_OK);
        m_on.emplace(m_api, Create<IReplayCapture>(kProgIdReplayCapture),
                     Create<ICtrlsInitialiser>(kProgIdCtrlsInitialiser));
        ApiCallPlaces places{*m_on};
        const auto save = std::ranges::find(
            EveryOperation(), std::wstring_view(L"ICalibrationHandle.SaveDynamicSettingsPresets"),
            &ApiCall::name);
        EXPECT_EQ(save->call(places), S_OK);
        Calls();
    }
    void TearDown() override {
        m_on.reset();
        SimulatorTest::TearDown();
    }

    static HXSimulatorFault Fault(BSTR operation, HRESULT result, int32_t times = 1) {
        HXSimulatorFault fault{};
        fault.operation = operation;
        fault.result = result;
        fault.times = times;
        return fault;
    }

    std::optional<ApiObjects> m_on;
};

TEST_F(Faults, EveryListedOperationFailsOnDemand) {
    hx::SafeArray listed;
    ASSERT_EQ(m_hands->GetOperations(listed.put()), S_OK);
    LONG last = 0;
    ASSERT_EQ(SafeArrayGetUBound(listed.get(), 1, &last), S_OK);
    EXPECT_EQ(last + 1, 55);
    ASSERT_EQ(EveryOperation().size(), 55u);
    for (LONG i = 0; i <= last; ++i) {
        hx::Bstr name;
        ASSERT_EQ(SafeArrayGetElement(listed.get(), &i, name.put()), S_OK);
        const std::string utf8 = hx::ToUtf8(name.view());
        SCOPED_TRACE(utf8);
        const auto row = std::ranges::find(EveryOperation(), name.view(), &ApiCall::name);
        ASSERT_NE(row, EveryOperation().end());
        const bool has_information =
            utf8.starts_with("ICalibrationHandle.") || utf8.starts_with("IDynamicSettingsPreset.");
        const IID& iid = utf8.starts_with("ICal") ? IID_ICalibrationHandle : IID_IDynamicSettingsPreset;

        const HXSimulatorFault fault = Fault(name.get(), kSpecial);
        ASSERT_EQ(m_hands->InjectFault(&fault), S_OK);
        SetErrorInfo(0, nullptr);
        Calls();
        ComPtr<IErrorInfo> detail;
        ApiCallPlaces failing{*m_on, detail.put()};
        EXPECT_EQ(row->call(failing), kSpecial);
        EXPECT_FALSE(failing.object);
        EXPECT_FALSE(failing.array);
        EXPECT_TRUE(failing.text.is_null());
        EXPECT_EQ(Description(iid), has_information ? "The scanner failed." : "none");
        const std::set<std::string> with_detail = {"IHXApi.GetConnectionState",
                                                   "IHXApi.Resume",
                                                   "IHXApi.GetDeviceManager",
                                                   "IHXApiInternal.GetCurrentProfile",
                                                   "IHXApiInternal.CreateCalibrationHandle",
                                                   "IDeviceManager.GetDriverProperties"};
        EXPECT_EQ(static_cast<bool>(detail), with_detail.contains(utf8));
        const std::vector<std::string> calls = Calls();
        EXPECT_EQ(
            std::ranges::count_if(calls,
                                  [&](const std::string& call) {
                                      return call.ends_with(",\"result\":" + std::to_string(kSpecial) + "}");
                                  }),
            1);
        ApiCallPlaces working{*m_on};
        EXPECT_EQ(row->call(working), S_OK) << "used up";
    }
}

TEST_F(Faults, AFaultWaitsForItsTurnAndItsPreset) {
    HXSimulatorFault first = Fault(Text("CloseHandle"), E_ABORT, 2);
    first.after = 1;
    const HXSimulatorFault second = Fault(Text("ICalibrationHandle.CloseHandle"), E_HANDLE, -1);
    EXPECT_EQ(m_hands->InjectFault(&first), S_OK);
    EXPECT_EQ(m_hands->InjectFault(&second), S_OK);
    for (const HRESULT result : {S_OK, E_ABORT, E_ABORT, E_HANDLE, E_HANDLE, E_HANDLE})
        EXPECT_EQ(m_on->handle->CloseHandle(), result);
    EXPECT_EQ(m_hands->ClearFaults(), S_OK);
    EXPECT_EQ(m_on->handle->CloseHandle(), S_OK);

    HXSimulatorFault one = Fault(Text("GetLaserPower"), E_FAIL, -1);
    one.preset = Text("other");
    EXPECT_EQ(m_hands->InjectFault(&one), S_OK);
    double percent = 0;
    EXPECT_EQ(m_on->preset->GetLaserPower(&percent), S_OK);
    EXPECT_EQ(m_on->preset->SetName(Text("other")), S_OK);
    EXPECT_EQ(m_on->preset->GetLaserPower(&percent), E_FAIL);
    EXPECT_EQ(m_on->handle->AcquireHandle(), S_OK);
    EXPECT_EQ(m_on->handle->ActivateDynamicSettings(m_on->preset.get()), S_OK) << "is no call of the getter";
}

TEST_F(Faults, WhatCannotFailIsRefused) {
    const std::pair<HXSimulatorFault, HRESULT> rows[] = {
        {Fault(Text("Explode"), E_FAIL), HX_E_NOTFOUND},
        {Fault(Text("IHXApi.CloseHandle"), E_FAIL), HX_E_NOTFOUND},
        {Fault(nullptr, E_FAIL), HX_E_NOTFOUND},
        {Fault(Text("CloseHandle"), S_FALSE), E_INVALIDARG},
        {Fault(Text("StopTrackingDataRecording"), 0), E_INVALIDARG},
        {Fault(Text("StopTrackingDataRecording"), 5), S_OK},
        {Fault(Text("CloseHandle"), S_OK), E_INVALIDARG},
        {{Text("CloseHandle"), S_OK, 1, 0, 1, FALSE, nullptr, nullptr, nullptr}, S_OK},
        {{Text("CloseHandle"), S_FALSE, 1, 0, 1, TRUE, nullptr, nullptr, nullptr}, E_INVALIDARG},
        {{Text("StopTrackingDataRecording"), 0, 1, 0, 0, TRUE, nullptr, nullptr, nullptr}, S_OK},
        {{Text("CloseHandle"), E_FAIL, 1, 0, 0, FALSE, nullptr, nullptr, Text("MINE")}, E_INVALIDARG},
    };
    for (const auto& [fault, result] : rows) EXPECT_EQ(m_hands->InjectFault(&fault), result);
    EXPECT_EQ(m_hands->InjectFault(nullptr), E_POINTER);
    EXPECT_EQ(m_on->recorder->StopTrackingDataRecording(), 5);
}

TEST_F(Faults, AChainTravelsWithItsMessage) {
    HXSimulatorFault fault = Fault(Text("AcquireHandle"), E_FAIL);
    fault.chain_code = Text("Scanner.Acquire:Busy");
    fault.text = Text("Somebody else < holds it.");
    EXPECT_EQ(m_hands->InjectFault(&fault), S_OK);
    const HRESULT result = m_on->handle->AcquireHandle();
    const hx::MException seen(hx::MErrorCom(result, m_on->handle.get(), IID_ICalibrationHandle));
    ASSERT_EQ(seen.GetChain().size(), 2u);
    EXPECT_EQ(seen.GetChain().front()->GetCode(), L"Scanner.Acquire:Busy");
    EXPECT_EQ(hx::MErrorFormatter::Get().Format(seen).message, L"Somebody else < holds it.");

    fault.chain_code = nullptr;
    EXPECT_EQ(m_hands->InjectFault(&fault), S_OK);
    EXPECT_EQ(m_on->handle->AcquireHandle(), E_FAIL);
    EXPECT_EQ(Description(IID_ICalibrationHandle), "Somebody else < holds it.");
}

TEST_F(Faults, TheConnectionCanBeLostDuringACall) {
    const auto listener = m_on->listener;
    DWORD cookie = 0;
    EXPECT_EQ(m_on->events->Advise(listener.as<IUnknown>().get(), &cookie), S_OK);
    // The fault's result and that of the call: without a fault of its own it does what it can without a
    // cable.
    const std::tuple<const char*, HRESULT, HRESULT> rows[] = {{"DetectLaserPower", E_FAIL, E_FAIL},
                                                              {"DetectLaserPower", S_OK, HX_E_NOTCONNECTED},
                                                              {"StartTrackingDataRecording", 3, 3}};
    for (const auto& [operation, asked, expected] : rows) {
        EXPECT_EQ(m_hands->SetConnectionState(HXConnected, FALSE), S_OK);
        EXPECT_EQ(m_on->handle->AcquireHandle(), S_OK);
        HXSimulatorFault fault = Fault(Text(operation), asked);
        fault.hang_up = TRUE;
        ASSERT_EQ(m_hands->InjectFault(&fault), S_OK);
        double percent = -1;
        const int32_t result = asked == 3 ? m_on->recorder->StartTrackingDataRecording()
                                          : m_on->handle->DetectLaserPower(&percent);
        EXPECT_EQ(result, expected);
        EXPECT_EQ(percent, -1);
        int32_t state = -1;
        EXPECT_EQ(m_api->GetConnectionState(&state, nullptr), S_OK);
        EXPECT_EQ(state, HXNotConnected);
        const HRESULT away = m_on->handle->AcquireHandle();
        const hx::MException seen(hx::MErrorCom(away, m_on->handle.get(), IID_ICalibrationHandle));
        EXPECT_EQ(hx::MErrorFormatter::Get().Format(seen).message, L"The scanner is not connected.");
    }
    EXPECT_EQ(m_hands->WaitForEvents(), S_OK);
    EXPECT_EQ(listener->Told(), (std::vector<int32_t>{0, 0, 0}));
}

TEST_F(Faults, CallsAreLoggedWithTheirArguments) {
    MGlobalScanningSettings settings{1, 2, 30, 4, 3};
    VARIANT address{};
    address.vt = VT_UI8;
    address.ullVal = reinterpret_cast<uint64_t>(&settings);
    const auto& on = *m_on;
    on.handle->InitialiseScanner(0, 0, 1);
    on.handle->RegisterTrackingCycleObserver(on.listener.as<IUnknown>().get());
    on.handle->RegisterTrackingCycleObserver(nullptr);
    on.preset->SetName(Text("Gr\xC3\xBC\xC3\x9F\x65 \"\\\n\xF0\x9F\x98\x80"));
    on.preset->SetExposureTime(0.1);
    on.preset->SetRFEnabled(TRUE);
    on.handle->ActivateDynamicSettings(on.preset.get());
    on.handle->ActivateGlobalScanningSettings(address);
    on.handle->SaveDynamicSettingsPresets(Text("owner"), nullptr, nullptr, nullptr);
    on.recorder->StopTrackingDataRecording();
    EXPECT_EQ(m_hands->LogCall(Text("preview"), Text("Reset"), Text("[1, {\"a\": [null, -2.5e3]}]")), S_OK);
    for (const char* bad : {"", "{}", "[1", "[1,]", "[01]", "[\"\n\"]", "[]]", "[nul]"})
        EXPECT_EQ(m_hands->LogCall(Text("x"), Text("y"), Text(bad)), E_INVALIDARG) << bad;
    const std::string name = "Gr\xC3\xBC\xC3\x9F\x65 \\\"\\\\\\u000a\xF0\x9F\x98\x80";
    const std::vector<std::string> expected = {
        Call("handle", "InitialiseScanner", "[0,0,1]", HX_E_NOTACQUIRED),
        Call("handle", "RegisterTrackingCycleObserver", "[\"observer\"]", HX_E_NOTACQUIRED),
        Call("handle", "RegisterTrackingCycleObserver", "[null]"),
        Call("preset:MINE", "SetName", "[\"" + name + "\"]"),
        Call("preset:" + name, "SetExposureTime", "[0.1]"),
        Call("preset:" + name, "SetRFEnabled", "[true]"),
        Call("handle", "ActivateDynamicSettings", "[\"" + name + "\"]", HX_E_NOTACQUIRED),
        Call(
            "handle", "ActivateGlobalScanningSettings",
            R"([{"HorizontalFov":1,"VerticalFov":2,"FovIndicator":30,"ScanningMode":4,"FrequencySelection":3}])",
            HX_E_NOTACQUIRED),
        Call("handle", "SaveDynamicSettingsPresets", R"(["owner",null,null,null])", E_INVALIDARG),
        Call("recorder", "StopTrackingDataRecording", "[]"),
        Call("preview", "Reset", "[1, {\"a\": [null, -2.5e3]}]"),
    };
    EXPECT_EQ(Calls(), expected);
    EXPECT_EQ(Calls(), std::vector<std::string>());
}

// For the thread checker: everything at once, while the cable is plugged and pulled.
TEST_F(Faults, EverythingMayBeCalledOnAnyThread) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([this, i] {
            for (int round = 0; round < 3; ++round) {
                for (const ApiCall& each : EveryOperation()) {
                    ApiCallPlaces places{*m_on};
                    each.call(places);
                }
                if (i == 0) m_hands->Connect();
                if (i == 1) m_hands->Disconnect();
                if (i == 2) Calls();
                m_hands->WaitForEvents();
            }
        });
    }
    for (std::thread& each : threads) each.join();
}

}  // namespace
