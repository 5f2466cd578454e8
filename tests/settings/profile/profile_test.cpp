// Profiles beyond what their documents show: names, ranges, and what a failed read leaves.
#include <gtest/gtest.h>

#include <cmath>

#include "settings/profile/MLaserProfileSettings.h"
#include "tests/settings/raised.h"
#include "tests/settings/record_text.h"

namespace {

using Profile = hx::MLaserProfileSettings;

TEST(Profile, OnlyNamesOfUsersAreValid) {
    const std::wstring starts_with = L"StartsWith invalidCharacter=";
    struct Row {
        std::wstring name;
        std::wstring raised;  // behind the common beginning; the name is added
    };
    const Row rows[] = {
        {L"", L"Empty"},
        {L"$DEFAULT", L"Reserved"},
        {L"$default", L"Reserved"},
        {L"@SelectedProfileName", L"Reserved"},
        {L"$CUSTOM", L"Reserved"},
        {L"$PlateQualification", L"Reserved"},
        {L"$SphereCalibration", L"Reserved"},
        {L"$SheetMetal", L"Reserved"},
        {L"$FeaturesSheetMetal", L"Reserved"},
        {L"$DarkMatte", L"Reserved"},
        {L"$DarkGlossy", L"Reserved"},
        {L"$DarkEasy", L"Reserved"},
        {L"$Dark\x17Fhiny", L"Reserved"},  // the long s, which folds to s
        {L"$MINE", starts_with + L"$"},
        {L"$DEFAULT ", starts_with + L"$"},
        {L"$", starts_with + L"$"},
        {L"@x", starts_with + L"@"},
        {L"**", starts_with + L"*"},
        {L" ", L""},
        {L"DEFAULT", L""},
        {L" $DEFAULT", L""},
        {L"a$@*/\\<", L""},
    };
    for (const Row& row : rows) {
        std::wstring expected;
        if (!row.raised.empty()) {
            expected = L"MLaserProfileSettings.ValidateProfileName:ProfileName" + row.raised;
            if (row.raised.starts_with(starts_with)) expected += L" invalidCharacters=$@*";
            if (!row.name.empty()) expected += L" profileName=" + row.name;
        }
        EXPECT_EQ(RaisedBy([&] { Profile().ValidateProfileName(row.name); }), expected);
        const bool reserved = row.raised == L"Reserved";
        EXPECT_EQ(Profile::IsReservedProfileName(row.name, true), reserved);
        EXPECT_EQ(Profile::IsReservedProfileName(row.name, false), reserved && row.name != L"$CUSTOM");
    }
}

TEST(Profile, OnlyTheLaserPowerHasARange) {
    struct Row {
        double value;
        bool in_range;
    };
    const Row rows[] = {{-0.0, true},  {0.0, true},       {100.0, true}, {std::nan(""), true},
                        {-0.1, false}, {100.0001, false}, {-1e9, false}, {INFINITY, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.value);
        Profile profile;
        EXPECT_EQ(RaisedBy([&] { profile.SetLaserPowerPercentage(row.value); }),
                  row.in_range ? L"" : L"MLaserProfileSettings.SetLaserPowerPercentage:OutOfRange");
        const auto same = [](double one, double other) {
            return one == other || (std::isnan(one) && std::isnan(other));
        };
        EXPECT_TRUE(same(profile.LaserPower, row.in_range ? row.value : 20.0));
        profile.SetExposureTimeInMicrosSeconds(row.value);
        EXPECT_TRUE(same(profile.ExposureTime, row.value));
    }
}

// The children of a version up to DLPCEnabled, which is on.
std::wstring Children(uint32_t version, std::wstring_view power) {
    std::wstring children = Version(version, L"uint") + Child(L"ProfileName", L"string", L"read") +
                            Child(L"LocalisationResourceID", L"uint", L"7") +
                            Child(L"LaserPower", L"float", power) + Child(L"ExposureTime", L"float", L"5");
    if (version >= 3) {
        children += Child(L"SignalThreshold", version == 3 ? L"byte" : L"uint", L"77") +
                    Child(L"MaxInclination", L"float", L"7") + Child(L"EdgeFilter3DEnabled", L"bool", L"1") +
                    Child(L"EdgeFilter", L"float", L"7");
    }
    return children + Child(L"DLPCEnabled", L"bool", L"1");
}

const std::wstring kFilter = Child(L"RFEnabled", L"bool", L"1");
const std::wstring kGain = Child(L"Gain", L"uint", L"7");

// Every value differs from a new record's and from a document's.
Profile Before() {
    Profile profile;
    profile.ProfileName = L"before";
    profile.LaserPower = profile.ExposureTime = profile.MaxInclination = profile.EdgeFilter = 1.5;
    profile.SignalThreshold = 1;
    profile.EdgeFilter3DEnabled = profile.DLPCEnabled = profile.RFEnabled = false;
    profile.Gain = profile.LocalisationResourceID = 3;
    return profile;
}

TEST(Profile, AFailedReadLeavesTheRecordAsItWas) {
    struct Row {
        const char* what;
        std::wstring children;
        uint32_t version;   // that the record then tells
        bool code = false;  // whether the reason is appended
        bool filter = false;
        const wchar_t* name = L"before";
        std::wstring_view raised{};
    };
    const std::wstring_view kOutOfRange = L"MLaserProfileSettings.SetLaserPowerPercentage:OutOfRange";
    const Row rows[] = {
        {"newer", Children(7, L"5") + kFilter + kGain, 7, true},
        {"no version", kFilter, 0, true},
        {"version of another type", Version(6), 0, true},
        {"empty", Version(6, L"uint"), 6},
        {"last child missing", Children(6, L"5") + kFilter, 6},
        {"last but one missing", Children(6, L"5") + kGain, 6},
        {"threshold of version 4 in version 3",
         Version(3, L"uint") + Children(4, L"5").substr(Version(4, L"uint").size()), 3},
        {"version 2 without filter", Children(2, L"5"), 2},
        {"version 1 cut short", Version(1, L"uint"), 1, false, true},
        {"too much power", Children(6, L"120") + kFilter + kGain, 6, false, false, L"read", kOutOfRange},
        {"too much power in version 1", Children(1, L"-1"), 1, false, true, L"read", kOutOfRange},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Profile record = Before();
        const size_t codes = Profile::List().size();
        bool read = false;
        EXPECT_EQ(RaisedBy([&] { read = ReadFrom(row.children, record); }), row.raised);
        EXPECT_FALSE(read);
        EXPECT_EQ(record.Version, row.version);
        EXPECT_EQ(record.ProfileName, row.name);
        EXPECT_EQ(record.RFEnabled, row.filter);
        ASSERT_EQ(Profile::List().size(), codes + row.code);
        EXPECT_TRUE(!row.code || Profile::List().back() == 51);
        // All else.
        record.ProfileName = L"before";
        record.RFEnabled = false;
        EXPECT_EQ(Written(record), Written(Before()));
    }
}

TEST(Profile, WhatIsNotToldComesFromTheDefaults) {
    Profile defaults = Before();
    defaults.SignalThreshold = 300;
    defaults.Gain = 0x10002;
    // A lenient reader lets the threshold of version 3 be missing, which then has a default of its own.
    for (const uint32_t version : {1u, 3u, 4u}) {
        Profile record;
        EXPECT_TRUE(ReadFrom<hx::MInFilerTaggedOptionalXml>(Version(version, L"uint"), record, defaults));
        EXPECT_EQ(record.SignalThreshold, version == 3 ? 20 : 300);
        EXPECT_EQ(record.Gain, 2u) << "as much as travels";
        EXPECT_FALSE(record.RFEnabled);
        EXPECT_EQ(record.Version, version);
        EXPECT_TRUE(Written(record).starts_with(Version(6, L"uint")));
    }
}

}  // namespace
