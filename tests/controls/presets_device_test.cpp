// How the presets manager finds the scanner: the calls, step by step, and what each may answer.
#include "controls/presets/MDynamicSettingsPresets.h"
#include "tests/controls/scripted_api.h"
#include "tests/controls/scripted_device.h"

namespace {

using scripted::Raised;

class PresetsDevice : public testing::Test {
protected:
    PresetsDevice() {
        m_script.properties = scripted::PropertiesOf(L"device");
        m_presets.SetApi(hx::Make<scripted::Api>(m_script));
    }
    std::string Names() const {
        return scripted::Narrow(m_presets.ScannerName() + L" " + m_presets.OwnerName() + L" " +
                                m_presets.ActiveScannerName() + L" " + m_presets.ConnectedOwnerName());
    }

    scripted::Script m_script;
    hx::MDynamicSettingsPresets m_presets;
};

constexpr char kSelection[] = "GetConnectionState, GetCurrentProfile, GetDriverSelection, GetConnectionState";
constexpr char kProperties[] = "GetDeviceManager, GetDriverProperties CategoryScanner ";

TEST_F(PresetsDevice, ConfiguredNamesStay) {
    m_presets.SetNames(L"other driver", L"other");
    EXPECT_TRUE(m_presets.CreateCalibrationHandle());
    EXPECT_EQ(m_script.Calls(), std::string(kSelection) + ", " + kProperties +
                                    "other driver, CreateCalibrationHandle other driver");
    EXPECT_EQ(Names(), "other driver other driver device");
    struct Row {
        const wchar_t* scanner;
        const wchar_t* owner;
        bool updated;  // what the update answers: the device alone counts
        bool active;
    };
    const Row rows[] = {
        {L"driver", L"device", true, true},
        {L"other driver", L"device", true, false},
        {L"driver", L"Device", false, false},
        {L"Driver", L"device", true, false},
    };
    for (const Row& row : rows) {
        m_presets.SetNames(row.scanner, row.owner);
        EXPECT_EQ(m_presets.UpdateActiveDeviceInternalName(), row.updated);
        EXPECT_EQ(m_presets.IsDeviceActive(), row.active);
    }
    m_presets.SetNames(L"driver", L"");
    EXPECT_FALSE(m_presets.IsDeviceActive());
}

TEST_F(PresetsDevice, WithoutAConnectionNobodyIsAskedForNames) {
    for (const int32_t state : {0, 2, 7}) {
        m_script.state = state;
        EXPECT_TRUE(m_presets.CreateCalibrationHandle());
        EXPECT_EQ(m_script.Calls(), "GetConnectionState, CreateCalibrationHandle ");
        EXPECT_FALSE(m_presets.UpdateActiveDeviceInternalName());
        EXPECT_EQ(m_script.Calls(), "GetConnectionState");
    }
    EXPECT_EQ(Names(), "   ");
}

TEST_F(PresetsDevice, FailuresNameTheCallThatFailed) {
    constexpr char kCreate[] = "MDynamicSettingsPresets.CreateCalibrationHandle:";
    constexpr char kUpdate[] = "MDynamicSettingsPresets.UpdateActiveDeviceInternalName:";
    struct Row {
        const char* call;
        int32_t after;
        const char* location;
        bool with_result;
    };
    const Row rows[] = {
        {"GetConnectionState", 0, kCreate, true},      {"GetCurrentProfile", 0, kCreate, true},
        {"GetDriverSelection", 0, kCreate, true},      {"GetConnectionState", 1, kUpdate, true},
        {"GetDeviceManager", 0, kUpdate, false},       {"GetDriverProperties", 0, kUpdate, true},
        {"CreateCalibrationHandle", 0, kCreate, true},
    };
    for (const Row& row : rows) {
        m_script.failures = {{row.call, {E_ABORT, row.after}}};
        EXPECT_EQ(Raised([&] { m_presets.CreateCalibrationHandle(); }),
                  std::string(row.with_result ? "MErrorCom.MErrorCom:, " : "") + row.location + row.call);
    }
    m_script.failures.clear();
    for (const auto& drivers : {std::vector<std::wstring>{L"a", L"b"}, {L"a", L"b", L"c", L"d"}, {}}) {
        m_script.drivers = drivers;
        EXPECT_EQ(Raised([&] { m_presets.CreateCalibrationHandle(); }),
                  std::string(kCreate) + "NoScannerDeviceInternalName");
    }
    m_script.properties = L"<Broken";
    hx::MDynamicSettingsPresets fresh;
    fresh.SetApi(hx::Make<scripted::Api>(m_script));
    EXPECT_EQ(Raised([&] { fresh.UpdateActiveDeviceInternalName(); }),
              "MPropertiesHelper.ReadXML:ReadImpTagged");
    m_presets.SetApi(nullptr);
    EXPECT_EQ(Raised([&] { m_presets.CreateCalibrationHandle(); }), std::string(kCreate) + "NoApi");
}

}  // namespace
