#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "core/errors/MException.h"
#include "settings/properties/MHXFamilyDeviceProperties.h"
#include "settings/properties/MPropertiesHelper.h"
#include "tests/settings/properties/properties_xml.h"

namespace {

using namespace properties_xml;
using namespace std::string_literals;

const std::wstring kNewest = Uint(L"Version", 1);

std::wstring Driver(const std::wstring& lists) {
    return Group(L"Driver", Group(L"CommonDriverProperties",
                                  Uint(L"Version", 2) + Text(L"InternalName", L"d") +
                                      Text(L"DisplayName", L"D") + Text(L"DriverVersion", L"1") + lists));
}
const std::wstring kModels = Group(L"SupportedDevices", Text(L"Model", L"a") + Text(L"Model", L"b"));

std::wstring CommonDevice(const std::wstring& rest = L"") {
    return Group(L"CommonDeviceProperties", kNewest + Text(L"InternalName", L"i") +
                                                Text(L"ConfigurationIdentity", L"c") +
                                                Text(L"DisplayName", L"n") + rest);
}
std::wstring Scanner(const std::wstring& planes, const std::wstring& rest = L"") {
    return Group(L"CommonScannerDeviceProperties",
                 kNewest + Float(L"QualificationTolerance", 0.5) + Group(L"Planes", kNewest + planes) + rest);
}
std::wstring Day(std::wstring_view element, const std::wstring& year = Uint(L"Year", 2020)) {
    return Group(element, year + Uint(L"Month", 2) + Uint(L"Day", 29));
}
std::wstring Family(int64_t version, const std::wstring& manufactured) {
    std::wstring body = Int(L"Version", version) + Text(L"ScannerSerialNumber", L"s") +
                        Text(L"ScannerHardwareVersion", L"h") + manufactured;
    for (const wchar_t* part : {L"Fpga", L"Driver", L"Server"}) {
        const std::wstring firmware = L"Firmware"s + part;
        if (part == L"Fpga"s) body += Text(L"FpgaSerialNumber", L"f");
        body += Text(firmware + L"Version", part) + Day(firmware + L"BuildDate");
    }
    return body + Day(L"CalibrationDate");
}

// By the class that all devices have in common.
bool ReadCommon(const std::wstring& body, hx::MCommonDeviceProperties& device,
                const hx::MCommonDeviceProperties& defaults = {}) {
    return ReadFrom(body, device, defaults);
}

std::string Narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

TEST(PropertiesHelper, ReadsADocumentOfKnownVersionWithItsDriver) {
    const std::wstring version = Uint(L"Version", 2);
    const std::wstring good = Group(L"DeviceList", Group(L"Device", CommonDevice()));
    const std::wstring bad =
        Group(L"DeviceList", Group(L"Device", Group(L"CommonDeviceProperties", Uint(L"Version", 2))));
    struct Row {
        const char* what;
        std::wstring body;
        bool read;
        bool read_if_required;
        std::string told;  // device, then the driver's models
    };
    const Row rows[] = {
        {"driver and device", version + Driver(kModels) + good, true, true, "n:ab"},
        {"version 0", Uint(L"Version", 0) + Driver(kModels) + good, true, true, "n:ab"},
        {"newer version", Uint(L"Version", 3) + Driver(kModels) + good, false, false, ":"},
        {"no version", Driver(kModels) + good, false, false, ":"},
        {"driver alone", version + Driver(kModels), true, true, ":ab"},
        {"no driver", version + good, false, false, ":"},
        {"no models", version + Driver(L"") + good, false, false, ":"},
        {"a model of another type ends them",
         version +
             Driver(
                 Group(L"SupportedDevices", Text(L"Model", L"a") + Int(L"Model", 1) + Text(L"Model", L"b"))) +
             good,
         true, true, "n:a"},
        {"facets", version + Driver(kModels + Group(L"SupportedFacets", Text(L"Facet", L"x"))) + good, true,
         true, "n:abx"},
        {"device of newer version", version + Driver(kModels) + bad, true, false, ":ab"},
        {"list without device", version + Driver(kModels) + Group(L"DeviceList", L""), true, false, ":ab"},
    };
    for (const Row& row : rows) {
        for (const bool required : {false, true}) {
            SCOPED_TRACE(row.what + " required "s + (required ? "1" : "0"));
            hx::MCommonDriverProperties driver;
            hx::MCommonDeviceProperties device;
            std::string codes;
            try {
                hx::MPropertiesHelper(driver, device).ReadXML(Group(L"Properties", row.body), required);
            } catch (const hx::MException& exception) {
                codes = Narrow(hx::ErrorCodesText(exception));
            }
            EXPECT_EQ(codes, (required ? row.read_if_required : row.read)
                                 ? ""
                                 : "MPropertiesHelper.ReadXML:ReadImpTagged ()");
            std::string told = Narrow(device.DisplayName) + ":";
            for (const auto& model : driver.SupportedDevices) told += Narrow(model);
            for (const auto& facet : driver.SupportedFacets) told += Narrow(facet);
            EXPECT_EQ(told, row.told);
        }
    }
}

TEST(DeviceProperties, ButtonsAndConfigurations) {
    const auto button = [](int64_t id, const std::wstring& colour) {
        return Group(L"Button", Int(L"ButtonID", id) + Text(L"ButtonDisplayName", L"b") + colour);
    };
    const std::wstring red = Text(L"ButtonColour", L"red");
    const auto buttons = [](int64_t count, const std::wstring& all) {
        return Group(L"Buttons", Int(L"NumberOfButtons", count) + all);
    };
    const auto capability = [](const wchar_t* name, const wchar_t* chosen) {
        return Group(L"Capability", Text(L"InternalName", name) + Text(L"Configuration", chosen));
    };
    struct Row {
        const char* what;
        std::wstring rest;
        std::string told;  // ids of the buttons, then the configurations
    };
    const Row rows[] = {
        {"absent", L"", "8 old=1 "},
        {"no number", Group(L"Buttons", button(1, red)), "old=1 "},
        {"two of three", buttons(2, button(1, red) + button(2, red) + button(3, red)), "1 2 old=1 "},
        {"one lacks its colour", buttons(3, button(1, red) + button(2, L"") + button(3, red)), "1 3 old=1 "},
        {"number too great", buttons(1 << 30, button(1, red)), "1 old=1 "},
        {"configurations",
         Group(L"ConfigurationList",
               capability(L"a", L"2") + capability(L"own", L"2") + capability(L"a", L"4")),
         "8 a=4 own=2 "},
        {"ended by one that lacks something",
         Group(L"ConfigurationList", capability(L"a", L"2") +
                                         Group(L"Capability", Text(L"InternalName", L"b")) +
                                         capability(L"c", L"5")),
         "8 a=2 own=1 "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        hx::MCommonDeviceProperties device;
        device.Buttons.resize(1);
        device.Buttons[0].ButtonID = 9;
        device.Configurations[L"own"] = L"1";
        hx::MCommonDeviceProperties defaults;
        defaults.Buttons.resize(1);
        defaults.Buttons[0].ButtonID = 8;
        defaults.Configurations[L"old"] = L"1";
        EXPECT_TRUE(ReadFrom(CommonDevice(row.rest), device, defaults));
        std::string told;
        for (const auto& each : device.Buttons) told += std::to_string(each.ButtonID) + " ";
        for (const auto& [name, chosen] : device.Configurations) {
            told += Narrow(name) + "=" + Narrow(chosen) + " ";
        }
        EXPECT_EQ(told, row.told);
    }
}

TEST(DeviceProperties, EveryClassReadsItsElements) {
    const std::wstring plane = Group(L"Plane", kNewest + Uint(L"PlaneNumber", 1));
    std::wstring joint = Int(L"Version", 2);
    for (int i = 0; i < 16; ++i) {
        joint += Float(L"E" + std::to_wstring(i / 4) + std::to_wstring(i % 4), i % 5 == 0 ? 1 : 0);
    }
    const std::wstring reference = Group(L"ReferenceToAutoJoint", joint);
    const std::wstring powered = Child(L"Powered", L"bool", L"1");
    const std::wstring made = Day(L"ScannerManufacturingDate");
    const std::wstring good = CommonDevice() + Scanner(plane, reference + powered);
    struct Row {
        const char* what;
        std::wstring body;
        bool scanner;  // read as a scanner, as one of the family
        bool family;
        std::string told;  // tolerance, powered, serial number, years of manufacturing and calibration
    };
    const Row rows[] = {
        {"all", good + Family(1, made), true, true, "0.5 1 s 2020 2020"},
        {"a scanner of other family", good, true, false, "0.5 1  0 0"},
        {"version 0", good + Family(0, made), true, false, "0.5 1  0 0"},
        {"version 2", good + Family(2, made), true, false, "0.5 1  0 0"},
        {"no manufacturing date: the others are read", good + Family(1, L""), true, false, "0.5 1 s 0 2020"},
        {"year as int", good + Family(1, Day(L"ScannerManufacturingDate", Int(L"Year", 1999))), true, true,
         "0.5 1 s 1999 2020"},
        {"year as byte", good + Family(1, Day(L"ScannerManufacturingDate", Child(L"Year", L"byte", L"99"))),
         true, true, "0.5 1 s 99 2020"},
        {"year as text", good + Family(1, Day(L"ScannerManufacturingDate", Text(L"Year", L"1999"))), true,
         false, "0.5 1 s 0 2020"},
        {"no joint without planes", CommonDevice() + Scanner(L"", powered) + Family(1, made), true, true,
         "0.5 1 s 2020 2020"},
        {"joint missing with planes", CommonDevice() + Scanner(plane, powered) + Family(1, made), false,
         false, "0.5 0  0 0"},
        {"not powered, bad model transforms",
         CommonDevice() + Scanner(L"", Group(L"Scanner3DModelTransforms", Uint(L"Version", 2))) +
             Family(1, made),
         true, true, "0.5 0 s 2020 2020"},
        {"no common part", Scanner(L"", powered) + Family(1, made), false, false, "0.015 0  0 0"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        hx::MCommonScannerDeviceProperties scanner;
        EXPECT_EQ(ReadCommon(row.body, scanner), row.scanner);
        hx::MHXFamilyDeviceProperties device;
        EXPECT_EQ(ReadCommon(row.body, device), row.family);
        std::ostringstream told;
        told << device.QualificationTolerance << ' ' << device.Powered << ' '
             << Narrow(device.ScannerSerialNumber) << ' ' << device.ScannerManufacturingDate.Year << ' '
             << device.CalibrationDate.Year;
        EXPECT_EQ(told.str(), row.told);
    }
    hx::MCommonScannerDeviceProperties scanner;
    scanner.DisablePowered();
    EXPECT_TRUE(ReadCommon(good, scanner));
    EXPECT_FALSE(scanner.Powered);
}

TEST(DeviceProperties, WhatIsMissingIsTakenFromDefaultsOfTheSameClass) {
    hx::MHXFamilyDeviceProperties defaults;
    defaults.ConfigurationIdentity = L"default";
    defaults.QualificationTolerance = 3;
    defaults.CalibrationDate.Day = 4;
    const hx::MCommonDeviceProperties& own = defaults;
    hx::MCommonDeviceProperties lesser;
    lesser.ConfigurationIdentity = L"lesser";
    const std::wstring no_tolerance = CommonDevice() + Group(L"CommonScannerDeviceProperties", kNewest);
    const std::wstring no_dates =
        CommonDevice() + Scanner(L"") + Int(L"Version", 1) + Text(L"ScannerSerialNumber", L"s");
    const std::wstring no_identity = Group(L"CommonDeviceProperties", kNewest + Text(L"InternalName", L"i"));
    for (const auto* given : {&own, static_cast<const hx::MCommonDeviceProperties*>(&lesser)}) {
        hx::MHXFamilyDeviceProperties device;
        device.QualificationTolerance = 8;
        device.CalibrationDate.Day = 8;
        EXPECT_FALSE(ReadCommon(no_identity, device, *given));
        EXPECT_EQ(device.ConfigurationIdentity, given->ConfigurationIdentity);
        EXPECT_FALSE(ReadCommon(no_tolerance, device, *given));
        EXPECT_EQ(device.QualificationTolerance, given == &own ? 3 : 0.015);
        EXPECT_FALSE(ReadCommon(no_dates, device, *given));
        EXPECT_EQ(device.CalibrationDate.Day, given == &own ? 4 : 0);
    }
}

TEST(PropertiesHelper, WritesWhatItReads) {
    std::string bytes;
    std::ifstream file(HX_SOURCE_DIR "/docs/examples/properties_hx.xml");
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    const std::wstring document(bytes.begin(), bytes.end());
    hx::MCommonDriverProperties driver;
    hx::MHXFamilyDeviceProperties device;
    hx::MPropertiesHelper(driver, device).ReadXML(document, true);
    hx::MOutFilerTaggedXml writer(hx::MPropertiesHelper::kRoot);
    hx::MFilerTaggedPair filer(writer);
    EXPECT_TRUE(hx::MPropertiesHelper::WriteDocument(filer, driver, device));
    EXPECT_EQ(writer.GetText(), document);
}

}  // namespace
