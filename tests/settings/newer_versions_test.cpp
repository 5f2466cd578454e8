// A document of a version that is not known yet: refused, and what the record holds stays.
#include <gtest/gtest.h>

#include <algorithm>

#include "apps/hxctl/record_json.h"
#include "platform/system/utf8.h"
#include "tests/settings/golden_documents.h"

namespace {

// No version is too new for these.
constexpr std::wstring_view kReadAnyVersion[] = {
    L"MColumnInterpolatorMaxIntensitySettings",
    L"MColumnInterpolatorSettings",
    L"MColumnInterpolatorWeighedAverageSettings",
    L"MDualQuaternionInterpolatorSettings",
    L"MFilterSettings",
    L"MImageInterpolatorSettings",
    L"MInterpolatorSettings",
    L"MMultiplePeakDetectionSettings",
    L"MProcessingSettings",
    L"MReflectionFilterSettings",
    L"MScanningMeasurementFacetSettings",
    L"MSpeckle3DSettings",
    L"MSpeckleSettings",
    L"MSpoilerSettings",
};
// Emptied, or set to the defaults, before anything is read.
constexpr std::wstring_view kEmptied[] = {
    L"MDeviceSettingsList",      L"MPropertiesHelper", L"MSupportedConfigurationCapabilities",
    L"MSupportedConfigurations", L"MSupportedDevices",
};

// With the first version that it tells greater by one; those versions have one digit.
std::wstring Newer(std::wstring document) {
    constexpr std::wstring_view kVersion = L"<Version type=";
    const size_t digit = document.find(L'>', document.find(kVersion)) + 1;
    ++document.at(digit);
    return document;
}

TEST(NewerVersions, ChangeNothingInARecord) {
    for (const hx::InventoryRow& row : hx::RecordInventory()) {
        const hx::RecordType& type = *row.type;
        if (type.version.word == hx::RecordVersion::kNone) continue;
        SCOPED_TRACE(hx::ToUtf8(type.name));
        const std::wstring document = CurrentDocument(row);
        const auto fresh = type.make();
        const auto record = type.make();
        ASSERT_TRUE(ReadRecord(row, document, record.get(), fresh.get()).read);
        // A record may say which version it was that it did not know.
        const auto listed = [&](void* of) {
            auto fields = hxctl::FieldsOf(type, of);
            fields.erase("Version");
            return fields;
        };
        const auto before = listed(record.get());
        ASSERT_NE(before, listed(fresh.get()));
        const bool any_version = std::ranges::count(kReadAnyVersion, type.name) != 0;
        const bool emptied = std::ranges::count(kEmptied, type.name) != 0;
        EXPECT_EQ(ReadRecord(row, Newer(document), record.get(), fresh.get()).read, any_version);
        EXPECT_EQ(listed(record.get()), emptied ? listed(fresh.get()) : before);
    }
}

}  // namespace
