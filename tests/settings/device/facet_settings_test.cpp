// The record that holds either a device's settings or a device catalogue.
#include <gtest/gtest.h>

#include "core/errors/MException.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "settings/device/MScanningMeasurementFacetSettings.h"

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

Text Version(const Text& version) {
    return L"<Version type='int'>" + version + L"</Version>";
}
Text Document(const Text& body) {
    return L"<R><S>" + body + L"</S></R>";
}

enum class Outcome { kRead, kFailed, kRaised };

Outcome Read(Facet& record, const Text& document) {
    hx::MInFilerTaggedXml reader(document, L"R");
    hx::MFilerTaggedPair filer(reader);
    try {
        return record.ReadTagged(filer, L"S", Facet()) ? Outcome::kRead : Outcome::kFailed;
    } catch (const hx::MException& exception) {
        EXPECT_EQ(exception.GetChain().front()->GetCode(), L"MDeviceSettingsList.ReadImpTagged:Read");
        return Outcome::kRaised;
    }
}

Text Written(const Facet& record) {
    hx::MOutFilerTaggedXml writer(L"R");
    hx::MFilerTaggedPair filer(writer);
    EXPECT_TRUE(record.WriteTagged(filer, L"S"));
    return writer.TakeText();
}

TEST(ScanningMeasurementFacet, TheVersionTellsWhichBodyThereIs) {
    // The device of the documents has version 1, and a new one version 2.
    struct Row {
        const char* what;
        Text document;
        Outcome outcome;
        int32_t version;
        int32_t device;
        size_t types;
    };
    const Row rows[] = {
        {"device", Document(Version(L"1") + kDevice), Outcome::kRead, 1, 1, 0},
        {"catalogue", Document(Version(L"2") + kList), Outcome::kRead, 2, 2, 1},
        {"no version: a device, and a failure", Document(kDevice), Outcome::kFailed, 1, 1, 0},
        {"no version, with a catalogue", Document(kList), Outcome::kFailed, 1, 2, 0},
        {"version of another type", Document(L"<Version type='uint'>2</Version>" + kDevice + kList),
         Outcome::kFailed, 1, 1, 0},
        {"version 0", Document(Version(L"0") + kDevice + kList), Outcome::kRead, 0, 2, 1},
        {"version 3", Document(Version(L"3") + kList), Outcome::kRead, 3, 2, 1},
        {"negative version", Document(Version(L"-7") + kList), Outcome::kRead, -7, 2, 1},
        {"no device", Document(Version(L"1") + kList), Outcome::kFailed, 1, 2, 0},
        {"bad device", Document(Version(L"1") + kBadDevice), Outcome::kFailed, 1, 2, 0},
        {"no catalogue", Document(Version(L"2") + kDevice), Outcome::kFailed, 2, 2, 0},
        {"empty catalogue", Document(Version(L"2") + kEmptyList), Outcome::kRaised, 2, 2, 0},
        {"nothing", Document(L""), Outcome::kFailed, 1, 2, 0},
        {"no group", L"<R/>", Outcome::kFailed, 0, 2, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Facet record;
        EXPECT_EQ(Read(record, row.document), row.outcome);
        EXPECT_EQ(record.Version, row.version);
        EXPECT_EQ(record.DeviceMeasurementSettings.Version, row.device);
        EXPECT_EQ(record.DeviceSettingsList.Members.size(), row.types);
        const Text written = Written(record);
        EXPECT_NE(written.find(L"<S>\n<Version type=\"int\">2</Version>\n"), Text::npos);
        EXPECT_EQ(written.find(L"<DeviceMeasurementSettings>") != Text::npos, row.version == 1);
        EXPECT_EQ(written.find(L"<DeviceSettingsList>") != Text::npos, row.version != 1);
    }
}

TEST(ScanningMeasurementFacet, WhatIsWrittenIsReadBackIfTheCatalogueIsNotEmpty) {
    struct Row {
        const char* what;
        Text document;
        Outcome again;
    };
    const Row rows[] = {
        {"new record: an empty catalogue", L"<R/>", Outcome::kRaised},
        {"device, told as version 2", Document(Version(L"1") + kDevice), Outcome::kFailed},
        {"catalogue", Document(Version(L"2") + kList), Outcome::kRead},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Facet first;
        Read(first, row.document);
        Facet second;
        EXPECT_EQ(Read(second, Written(first)), row.again);
    }
}

}  // namespace
