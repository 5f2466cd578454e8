// What a scanner refuses out of order, and what it does in any state.
#include <barrier>
#include <thread>

#include "tests/simulator/api/simulator_fixture.h"
#include "tests/simulator/seen_cycles.h"

namespace {

using hx::ComPtr;

VARIANT AddressOf(MGlobalScanningSettings& settings) {
    VARIANT address{};
    address.vt = VT_UI8;
    address.ullVal = reinterpret_cast<uint64_t>(&settings);
    return address;
}

class Order : public SimulatorTest {};

TEST_F(Order, EachOperationAsksForItsState) {
    const ComPtr<IUnknown> observer = hx::Make<SeenCycles>();
    MGlobalScanningSettings settings;
    ComPtr<IDynamicSettingsPreset> preset;
    ASSERT_EQ(NewHandle()->CreateDynamicSettingsPreset(preset.put()), S_OK);
    using Act = std::function<HRESULT(ICalibrationHandle&)>;
    // The results on a handle that never held the scanner, that holds it, that holds it while the scanner is
    // away, and that held it; the last two with nothing connected.
    struct Row {
        const char* name;
        Act act;
        HRESULT never, held, away, released;
    };
    int16_t exposure_us = 0;
    double percent = 0;
    int32_t number = 0;
    FovManagementConfig config;
    const Row rows[] = {
        {"Initialise", [](auto& h) { return h.InitialiseScanner(0, 0, 1); }, HX_E_NOTACQUIRED, S_OK, S_OK,
         HX_E_NOTACQUIRED},
        {"Observe", [&](auto& h) { return h.RegisterTrackingCycleObserver(observer.get()); },
         HX_E_NOTACQUIRED, S_OK, S_OK, HX_E_NOTACQUIRED},
        {"DetectExposureTime", [&](auto& h) { return h.DetectExposureTime(&exposure_us); }, HX_E_NOTACQUIRED,
         S_OK, HX_E_NOTCONNECTED, HX_E_NOTACQUIRED},
        {"DetectLaserPower", [&](auto& h) { return h.DetectLaserPower(&percent); }, HX_E_NOTACQUIRED, S_OK,
         HX_E_NOTCONNECTED, HX_E_NOTACQUIRED},
        {"Activate", [&](auto& h) { return h.ActivateDynamicSettings(preset.get()); }, HX_E_NOTACQUIRED, S_OK,
         S_OK, S_OK},
        {"ActivateGlobal", [&](auto& h) { return h.ActivateGlobalScanningSettings(AddressOf(settings)); },
         HX_E_NOTACQUIRED, S_OK, S_OK, S_OK},
        {"GetGlobal", [&](auto& h) { return h.GetGlobalScanningSettings(nullptr, AddressOf(settings)); },
         S_OK, S_OK, S_OK, S_OK},
        {"GetFov", [&](auto& h) { return h.GetFovManagementConfig(&config); }, S_OK, S_OK, S_OK, S_OK},
        {"GetRows", [&](auto& h) { return h.GetExposureTimeInRows(&number); }, S_OK, S_OK, S_OK, S_OK},
        {"Unobserve", [](auto& h) { return h.RegisterTrackingCycleObserver(nullptr); }, S_OK, S_OK, S_OK,
         S_OK},
        {"Disable", [](auto& h) { return h.DisableScanner(); }, S_OK, S_OK, S_OK, S_OK},
        {"Close", [](auto& h) { return h.CloseHandle(); }, S_OK, S_OK, S_OK, S_OK},
        {"Acquire", [](auto& h) { return h.AcquireHandle(); }, S_OK, S_OK, HX_E_NOTCONNECTED,
         HX_E_NOTCONNECTED},
        {"Release", [](auto& h) { return h.ReleaseHandle(); }, S_OK, S_OK, S_OK, S_OK},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto never = NewHandle();
        const auto held = NewHandle();
        const auto away = NewHandle();
        const auto released = NewHandle();
        EXPECT_EQ(m_hands->SetConnectionState(HXConnected, FALSE), S_OK);
        for (const auto& each : {held, away, released}) EXPECT_EQ(each->AcquireHandle(), S_OK);
        EXPECT_EQ(released->ReleaseHandle(), S_OK);
        EXPECT_EQ(row.act(*never), row.never);
        EXPECT_EQ(row.act(*held), row.held);
        EXPECT_EQ(m_hands->SetConnectionState(HXNotConnected, FALSE), S_OK);
        EXPECT_EQ(row.act(*away), row.away);
        EXPECT_EQ(row.act(*released), row.released);
    }
}

TEST_F(Order, AHandleSurvivesALostConnection) {
    const auto handle = NewHandle();
    ComPtr<SeenCycles> observer;
    const auto prepare = [&] {
        observer = hx::Make<SeenCycles>();
        EXPECT_EQ(handle->InitialiseScanner(0, 0, 1), S_OK);
        EXPECT_EQ(handle->RegisterTrackingCycleObserver(observer.get()), S_OK);
    };
    ConnectAndWait();
    EXPECT_EQ(handle->AcquireHandle(), S_OK);
    prepare();
    observer->WaitFor(1);
    for (const bool prepares_while_away : {false, true}) {
        EXPECT_EQ(m_hands->Disconnect(), S_OK);
        m_hands->WaitForEvents();
        if (prepares_while_away) prepare();
        const size_t seen = observer->Seen().size();
        ConnectAndWait();
        observer->WaitFor(seen + 2);  // one may have been on its way
    }
}

TEST_F(Order, AHandleThatGoesTakesNoOtherObserver) {
    EXPECT_EQ(m_hands->SetConnectionState(HXConnected, FALSE), S_OK);
    const auto stays = NewHandle();
    EXPECT_EQ(stays->AcquireHandle(), S_OK);
    std::barrier<> both(2);
    for (int round = 0; round < 10'000; ++round) {
        auto goes = NewHandle();
        goes->AcquireHandle();
        goes->RegisterTrackingCycleObserver(hx::Make<SeenCycles>().get());
        const auto life = std::make_shared<int>();
        auto observer = hx::Make<SeenCycles>();
        observer->during_cycle = [life] {};
        std::thread other([&] { both.arrive_and_wait(), goes.reset(); });
        both.arrive_and_wait();
        stays->RegisterTrackingCycleObserver(observer.get());
        other.join();
        observer.reset();
        ASSERT_GT(life.use_count(), 1) << "in round " << round;
    }
}

TEST_F(Order, OnlyKnownDevicesAndRecords) {
    hx::Bstr driver, device;
    ASSERT_EQ(m_hands->GetDevice(driver.put(), device.put()), S_OK);
    const auto internal = m_api.as<IHXApiInternal>();
    for (const auto& [name, result] : {std::pair(driver.get(), S_OK),
                                       {device.get(), S_OK},
                                       {Text(""), S_OK},
                                       {Text("HX-NONE"), HX_E_NOTFOUND}}) {
        ComPtr<IUnknown> handle;
        ComPtr<IErrorInfo> detail;
        EXPECT_EQ(internal->CreateCalibrationHandle(name, IID_ICalibrationHandle, handle.put(), detail.put()),
                  result);
        EXPECT_EQ(static_cast<bool>(handle), result == S_OK);
        EXPECT_EQ(static_cast<bool>(detail), result != S_OK);
    }
    ComPtr<IUnknown> none;
    EXPECT_EQ(internal->CreateCalibrationHandle(nullptr, IID_IHXApi, none.put(), nullptr), E_NOINTERFACE);
    const auto handle = NewHandle();
    uint32_t exposure_us = 7;
    EXPECT_EQ(handle->GetMaxExposureTime(Text("HX-NONE"), &exposure_us), HX_E_NOTFOUND);
    EXPECT_EQ(exposure_us, 7u);
    VARIANT number{};
    number.vt = VT_I4;
    VARIANT nowhere{};
    nowhere.vt = VT_UI8;
    ASSERT_EQ(m_hands->SetConnectionState(HXConnected, FALSE), S_OK);
    EXPECT_EQ(handle->AcquireHandle(), S_OK);
    for (const VARIANT& bad : {number, nowhere}) {
        EXPECT_EQ(handle->GetGlobalScanningSettings(device.get(), bad), E_INVALIDARG);
        EXPECT_EQ(handle->ActivateGlobalScanningSettings(bad), E_INVALIDARG);
    }
}

TEST_F(Order, TheDriverReportsTheDocumentThatWasSet) {
    ComPtr<IDeviceManager> devices;
    ASSERT_EQ(m_api->GetDeviceManager(devices.put(), nullptr), S_OK);
    const auto reported = [&](const char* category) {
        hx::Bstr driver, device, document;
        EXPECT_EQ(m_hands->GetDevice(driver.put(), device.put()), S_OK);
        const HRESULT result =
            devices->GetDriverProperties(Text(category), driver.get(), document.put(), nullptr);
        return result == S_OK ? hx::ToUtf8(document.view()) : "refused";
    };
    const std::string category = hx::ToUtf8(kHXCategoryScanner);
    const std::string own = reported(category.c_str());
    for (const std::string text : {"<Properties>", "", "no document\n"}) {
        EXPECT_EQ(m_hands->SetProperties(Text(text)), S_OK);
        EXPECT_EQ(reported(category.c_str()), text);
        EXPECT_EQ(reported("Other"), "refused");
        EXPECT_EQ(m_hands->SetModel(Text("T820")), S_OK);
        EXPECT_EQ(reported(category.c_str()), text);
        EXPECT_EQ(m_hands->SetProperties(nullptr), S_OK);
        EXPECT_NE(reported(category.c_str()).find("60deg"), std::string::npos);
        EXPECT_EQ(m_hands->SetModel(Text("HX")), S_OK);
        EXPECT_EQ(reported(category.c_str()), own);
    }
}

TEST_F(Order, TheModelIsChangedWhileNothingIsConnected) {
    const auto handle = NewHandle();
    hx::SafeArray models;
    ASSERT_EQ(m_hands->GetModels(models.put()), S_OK);
    LONG last = 0;
    ASSERT_EQ(SafeArrayGetUBound(models.get(), 1, &last), S_OK);
    hx::Bstr name, found;
    ASSERT_EQ(SafeArrayGetElement(models.get(), &last, name.put()), S_OK);
    EXPECT_EQ(m_hands->SetModel(Text("no such model")), HX_E_NOTFOUND);
    EXPECT_EQ(m_hands->SetConnectionState(HXSuspended, FALSE), S_OK);
    EXPECT_EQ(m_hands->SetModel(name.get()), E_UNEXPECTED);
    EXPECT_EQ(m_hands->SetConnectionState(HXNotConnected, FALSE), S_OK);
    EXPECT_EQ(m_hands->SetModel(name.get()), S_OK);
    EXPECT_EQ(m_hands->GetModel(found.put()), S_OK);
    EXPECT_EQ(found.view(), name.view());
    double frame_rate_hz = 0;
    EXPECT_EQ(handle->GetFrameRate(&frame_rate_hz), S_OK) << "an old handle leads to the new scanner";
}

}  // namespace
