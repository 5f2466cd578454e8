// The record that holds either a device's settings or a device catalogue.
#include <gtest/gtest.h>

#include "settings/device/MScanningMeasurementFacetSettings.h"
#include "tests/settings/raised.h"
#include "tests/settings/record_text.h"

namespace {

using Facet = hx::MScanningMeasurementFacetSettings;
using Text = std::wstring;

const Text kDevice =
    L"<DeviceMeasurementSettings><Version type='int'>1</Version></DeviceMeasurementSettings>";
const Text kBadDevice = L"<DeviceMeasurementSettings/>";
const Text kList =
    L"<DeviceSettingsList><Version type='uint'>1</Version><DeviceType><Version type='uint'>1</Version>"
    L"<InternalName type='string'>A</InternalName><DeviceSettings/><SupportedDevices>"
    L"<Version type='uint'>1</Version><DeviceModel><Version type='uint'>1</Version>"
    L"<InternalName type='string'>B</InternalName><DeviceSettings/><SupportedCapabilities>"
    L"<Version type='uint'>1</Version><Capability><Version type='uint'>1</Version>"
    L"<InternalName type='string'>C</InternalName><SupportedConfigurations><Version type='uint'>1</Version>"
    L"<Configuration><Version type='uint'>1</Version><InternalName type='string'>D</InternalName>"
    L"<DeviceSettings/></Configuration></SupportedConfigurations></Capability></SupportedCapabilities>"
    L"</DeviceModel></SupportedDevices></DeviceType></DeviceSettingsList>";
const Text kEmptyList = L"<DeviceSettingsList><Version type='uint'>1</Version></DeviceSettingsList>";

enum class Outcome { kRead, kFailed, kRaised };

Outcome Read(Facet& record, const Text& body) {
    bool read = false;
    const Text raised = RaisedBy([&] { read = ReadFrom(body, record); });
    if (raised.empty()) return read ? Outcome::kRead : Outcome::kFailed;
    EXPECT_EQ(raised, L"MDeviceSettingsList.ReadImpTagged:Read category=DeviceType");
    return Outcome::kRaised;
}

TEST(ScanningMeasurementFacet, TheVersionTellsWhichBodyThereIs) {
    // The device of the documents has version 1, and a new one version 2.
    struct Row {
        const char* what;
        Text body;
        Outcome outcome;
        int32_t version;
        int32_t device;
        size_t types;
    };
    const Row rows[] = {
        {"device", Version(1) + kDevice, Outcome::kRead, 1, 1, 0},
        {"catalogue", Version(2) + kList, Outcome::kRead, 2, 2, 1},
        {"no version: a device, and a failure", kDevice, Outcome::kFailed, 1, 1, 0},
        {"no version, with a catalogue", kList, Outcome::kFailed, 1, 2, 0},
        {"version of another type", Version(2, L"uint") + kDevice + kList, Outcome::kFailed, 1, 1, 0},
        {"version 0", Version(0) + kDevice + kList, Outcome::kRead, 0, 2, 1},
        {"version 3", Version(3) + kList, Outcome::kRead, 3, 2, 1},
        {"negative version", Version(-7) + kList, Outcome::kRead, -7, 2, 1},
        {"no device", Version(1) + kList, Outcome::kFailed, 1, 2, 0},
        {"bad device", Version(1) + kBadDevice, Outcome::kFailed, 1, 2, 0},
        {"no catalogue", Version(2) + kDevice, Outcome::kFailed, 2, 2, 0},
        {"empty catalogue", Version(2) + kEmptyList, Outcome::kRaised, 2, 2, 0},
        {"nothing", L"", Outcome::kFailed, 1, 2, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Facet record;
        EXPECT_EQ(Read(record, row.body), row.outcome);
        EXPECT_EQ(record.Version, row.version);
        EXPECT_EQ(record.DeviceMeasurementSettings.Version, row.device);
        EXPECT_EQ(record.DeviceSettingsList.Members.size(), row.types);
        const Text written = Written(record);
        EXPECT_TRUE(written.starts_with(Version(2)));
        EXPECT_EQ(written.find(L"<DeviceMeasurementSettings>") != Text::npos, row.version == 1);
        EXPECT_EQ(written.find(L"<DeviceSettingsList>") != Text::npos, row.version != 1);
    }
}

TEST(ScanningMeasurementFacet, WhatIsWrittenIsReadBackIfTheCatalogueIsNotEmpty) {
    Facet device, catalogue;
    Read(device, Version(1) + kDevice);
    Read(catalogue, Version(2) + kList);
    Facet again;
    EXPECT_EQ(Read(again, Written(Facet())), Outcome::kRaised) << "a new record has an empty catalogue";
    EXPECT_EQ(Read(again, Written(device)), Outcome::kFailed) << "told as version 2";
    EXPECT_EQ(Read(again, Written(catalogue)), Outcome::kRead);
}

}  // namespace
