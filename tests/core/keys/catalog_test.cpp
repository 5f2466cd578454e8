// What the catalog declares, a selection of its keys checked against what the suite's components rely on.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/errors/MException.h"
#include "core/keys/MRegistryKeyLib.h"
#include "platform/system/case_fold.h"
#include "tests/memory_registry.h"

namespace {

using namespace Orvel::RegistryKeys;

const IRegistryKeyElementBase& Key(uint32_t id) {
    return MRegistryKeyLib::GetRegistryKey(id);
}

// The ids of the keys that a property holds for.
template <class Property>
std::set<uint32_t> KeysWith(Property property) {
    std::set<uint32_t> ids;
    for (const RegistryKeyRow& row : MRegistryKeyLib::Rows()) {
        if (property(row, Key(row.id))) ids.insert(row.id);
    }
    return ids;
}

struct Fact {
    uint32_t id;
    const wchar_t* full_path;
    uint64_t type;
    uint64_t category;
    uint64_t group;
};

// Both roots, every type and category, the oddest names, and the first and last key of the long lists.
constexpr Fact kFacts[] = {
    {0, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Wow6432Node\\Romer\\RDS\\General\\RDS Version", 9, 2, 0},
    {1, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Wow6432Node\\Romer\\RDS\\Directories\\LogFiles", 9, 2, 1},
    {2,
     L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Configuration\\HXScannerDriver\\T820RotationAngleValue",
     0, 0, 2},
    {3, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\PrismUndoFiles\\activate", 5, 0, 3},
    {9, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Configuration\\PlateWidth", 7, 0, 9},
    {10, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Research\\SCI_Logging\\Enable", 5, 1, 10},
    {15, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Research\\SCI_Logging\\UnderSamplingPeriod", 4, 1,
     10},
    {17, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Research\\SCI_Logging\\Version", 3, 1, 10},
    {22, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Logging\\SCI_Logging\\Enable", 5, 0, 22},
    {27, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\SimulatorRecorder\\TargetFolder", 9, 0, 24},
    {29, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\SimulatorRecorder\\ReduceTrackingData", 1, 0, 24},
    {35, L"HKEY_CURRENT_USER\\Software\\Orvel\\SimulatorControl\\ImportQualificationsFromDataSet", 5, 0, 24},
    {43,
     L"HKEY_CURRENT_USER\\Software\\Orvel\\ExternalLocaliserApplication\\SimulatorSettings\\"
     L"MinTriggerFrequency",
     7, 0, 43},
    {56,
     L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Configuration\\Qualification\\Bypass Velocity Sync Check",
     5, 0, 56},
    {63, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Configuration\\Qualification\\HighSpeedThreshold", 7,
     0, 63},
    {70, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Configuration\\ExternalLocaliser\\PulseWidth", 1, 0,
     70},
    {76, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Research\\OutputExposureInRows", 5, 1, 76},
    {77, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Research\\Allow3dFilteringHXHH", 5, 1, 77},
    {78, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Debug\\AllowAutoDetectForHX", 5, 0, 78},
    {79, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Debug\\AllowHardwareDialogGainDropDown", 5, 0, 79},
    {87, L"HKEY_CURRENT_USER\\Software\\Orvel\\HXTray\\DDS\\ShowErrors", 5, 0, 87},
    {88, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Research\\ShowFrequencyReductionSlider", 5, 1, 88},
    {89, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Configuration\\AllowHWDlgFovModification", 5, 0, 89},
    {93, L"HKEY_CURRENT_USER\\Software\\Orvel\\HXApiExample\\UI\\LastDriverSelectionCount", 4, 0, 93},
    {115, L"HKEY_CURRENT_USER\\Software\\Orvel\\HXApiExample\\UI\\DriverConfigDialog\\Second_HXAPI_instance",
     5, 0, 115},
    {119,
     L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Components\\"
     L"Orvel.HXFamilyDrivers.CoMScannerDriverHXFamily.1\\SupportedDevices\\YW F45 LS\\Enabled",
     5, 3, 119},
    {129,
     L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Components\\Orvel.Scanner.Proxy.1\\"
     L"SupportedDevices\\JBX Fx2\\Detected",
     5, 3, 129},
    {135,
     L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Configuration\\HXScannerDriver\\DriverConfigurationXml",
     9, 3, 135},
    {136, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Logging\\DynamicSettingsMaxBackups", 2, 3, 136},
    {137, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXApiExample\\UI\\QualificationPatchOrder", 9, 0, 137},
    {140, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\SimulatorRecorder\\PingRetries", 1, 0, 24},
    {144, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\MLogPublicInterface\\DebugLevel", 1, 0, 144},
    {158, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\InstallConfiguration\\InstalledVersion", 9, 2, 158},
    {161, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Logging\\Temperatures\\IntervalSeconds", 0, 0, 161},
    {169, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Configuration\\ClockSyncOffsetUs", 0, 3, 169},
    {176, L"HKEY_CURRENT_USER\\Software\\Orvel\\HXTray\\MaxShownToasts", 1, 0, 176},
    {189, L"HKEY_LOCAL_MACHINE\\SOFTWARE\\Orvel\\HXAPI4\\Configuration\\ExternalTriggerGeneratorLogFile", 9,
     3, 189},
};

TEST(RegistryKeyCatalog, DeclaresWhatTheSuiteReliesOn) {
    for (const Fact& fact : kFacts) {
        SCOPED_TRACE(fact.id);
        const IRegistryKeyElementBase& key = Key(fact.id);
        EXPECT_EQ(key.GetFullPath(), fact.full_path);
        EXPECT_EQ(key.GetType(), fact.type);
        EXPECT_EQ(key.GetCategory(), fact.category);
        EXPECT_EQ(key.GetKeyGroup(), fact.group);
    }
}

TEST(RegistryKeyCatalog, WhatIsSpecialIsSoForTheseKeysAlone) {
    using Ids = std::set<uint32_t>;
    const auto range = [](uint32_t first, uint32_t last) {
        Ids ids;
        for (uint32_t id = first; id <= last; ++id) ids.insert(id);
        return ids;
    };
    const auto both = [](Ids a, const Ids& b) {
        a.insert(b.begin(), b.end());
        return a;
    };
    EXPECT_EQ(KeysWith([](const auto& row, auto&) { return row.flags & kCreate; }),
              (Ids{87, 90, 91, 92, 153, 183, 184}));
    EXPECT_EQ(KeysWith([](const auto& row, auto&) { return row.flags & kView32; }), (Ids{0, 1}));
    EXPECT_EQ(KeysWith([](const auto& row, auto&) { return row.place.company != L"Orvel"; }), (Ids{0, 1}));
    EXPECT_EQ(KeysWith([](auto&, const auto& key) { return key.GetType() == 2; }), Ids{136});
    EXPECT_EQ(KeysWith([](auto&, const auto& key) { return key.GetCategory() == 2; }),
              (Ids{0, 1, 156, 157, 158}));
    EXPECT_EQ(KeysWith([](auto&, const auto& key) { return key.GetCategory() == 3; }),
              both(both(range(118, 130), {135, 136, 169}), range(185, 189)));
    EXPECT_EQ(KeysWith([](auto&, const auto& key) {
                  return key.GetFullPath().find(L"\\Research\\") != std::wstring::npos &&
                         key.GetCategory() != 1;
              }),
              Ids{});
    EXPECT_EQ(KeysWith([](auto&, const auto& key) { return key.GetKeyGroup() == 10; }), range(10, 18));
    EXPECT_EQ(KeysWith([](auto&, const auto& key) { return key.GetKeyGroup() == 24; }),
              both(range(24, 39), {140, 149}));
    EXPECT_EQ(KeysWith([](const auto& row, const auto& key) {
                  return key.GetKeyGroup() != row.id && key.GetKeyGroup() != 10 && key.GetKeyGroup() != 24;
              }),
              Ids{});
}

TEST(RegistryKeyCatalog, EveryKeyHasAPlaceAndADescriptionOfItsOwn) {
    std::set<std::wstring> paths;
    std::set<std::wstring_view> descriptions;
    for (const RegistryKeyRow& row : MRegistryKeyLib::Rows()) {
        SCOPED_TRACE(row.id);
        const IRegistryKeyElementBase& key = Key(row.id);
        EXPECT_TRUE(paths.insert(hx::FoldCase(key.GetFullPath())).second);
        EXPECT_TRUE(descriptions.insert(key.GetDescription()).second);
        EXPECT_EQ(key.GetDescription().ends_with(L" [true|false]"), key.GetType() == kBoolean);
    }
    const std::pair<uint32_t, const wchar_t*> values[] = {
        {2, L"[0|30|60|90]"}, {29, L"[0]"}, {30, L"[10]"}, {31, L"[]"}, {136, L"[10]"}, {140, L"[30]"},
    };
    for (const auto& [id, ending] : values) EXPECT_TRUE(Key(id).GetDescription().ends_with(ending)) << id;
}

TEST(RegistryKeyCatalog, AnIdWithoutAKeyIsAnError) {
    for (const uint32_t id : {190u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        try {
            Key(id);
            FAIL() << id;
        } catch (const hx::MException& exception) {
            EXPECT_EQ(
                hx::ErrorCodesText(exception),
                L"MRegistryKeyLib.GetRegistryKey:UndefinedKeyId ($keyId=\"" + std::to_wstring(id) + L"\")");
        }
    }
}

}  // namespace
