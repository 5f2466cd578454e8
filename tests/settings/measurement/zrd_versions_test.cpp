// What old versions of the ZRD settings have that the current one does not, and the trigger settings in them.
#include <gtest/gtest.h>

#include "core/filer/MInFilerTaggedOptionalXml.h"
#include "settings/measurement/MTriggerSettings.h"
#include "settings/measurement/ZRDMeasurementSettings.h"
#include "tests/settings/record_text.h"

namespace {

using hx::MTriggerSettings;
using hx::ZRDMeasurementSettings;

std::wstring Window(int32_t width, int32_t height) {
    return Child(L"VideoWin_x1", L"int", L"5") + Child(L"VideoWin_y1", L"int", L"6") +
           Child(L"VideoWin_W", L"int", std::to_wstring(width)) +
           Child(L"VideoWin_H", L"int", std::to_wstring(height));
}

const std::wstring kTrigger = L"<TriggerSettingsFromLocaliser>" + Child(L"Version", L"uint", L"5") +
                              Child(L"PolarityActiveHigh", L"bool", L"1") +
                              Child(L"MinTriggerAssertTime_us", L"uint", L"4") +
                              L"</TriggerSettingsFromLocaliser>";

// What the current version writes, up to `child` and from it on.
std::wstring UpTo(std::wstring_view child) {
    const std::wstring all = Written(ZRDMeasurementSettings());
    const size_t behind_version = all.find(L'\n') + 1;
    return all.substr(behind_version, all.find(L"<" + std::wstring(child)) - behind_version);
}
std::wstring From(std::wstring_view child) {
    const std::wstring all = Written(ZRDMeasurementSettings());
    return all.substr(all.find(L"<" + std::wstring(child)));
}

TEST(ZRDMeasurementSettings, RetiredChildrenMayBeMissingButNotStrayIntoLaterVersions) {
    struct Row {
        int32_t version;
        bool trigger;
        const wchar_t* retired;  // null: none
        const wchar_t* type;
        const wchar_t* in_front_of;
        bool read;
        uint32_t first_lost = 41;  // the first flag from which on nothing is valid
    };
    const wchar_t* const kSingle = L"TrigrSinglePulseDelay_mcs";
    const wchar_t* const kRepeat = L"TrigrRepeatPulseDelay_mcs";
    const Row rows[] = {
        {8, false, nullptr, nullptr, L"IntensityLUTType", true},
        {2, true, nullptr, nullptr, L"IntensityLUTType", true},
        {-3, true, nullptr, nullptr, L"IntensityLUTType", true},
        {-3, false, nullptr, nullptr, L"IntensityLUTType", false},
        {7, true, nullptr, nullptr, L"IntensityLUTType", false, 0},
        {6, true, L"TrigrMode", L"uint", kSingle, false, 9},
        {7, false, L"TrigrActiveState", L"bool", kSingle, false, 9},
        {7, false, L"TrigrSinglePulseWidth_mcs", L"uint", kRepeat, false, 10},
        {5, true, L"TrigrSkipCount", L"uint", L"SubsamplMode", false, 13},
        {4, true, L"TrigrSkipCount", L"int", L"SubsamplMode", false, 13},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << "version " << row.version << ", " << testing::PrintToString(row.retired));
        std::wstring front = UpTo(row.in_front_of);
        if (row.version < 2) front = Window(600, 1024) + front.substr(UpTo(L"IntensityLUTType").size());
        if (row.trigger) front.insert(0, kTrigger);
        if (row.retired != nullptr) front += Child(row.retired, row.type, L"1");
        ZRDMeasurementSettings record;
        EXPECT_EQ(
            ReadFrom(Child(L"Version", L"int", std::to_wstring(row.version)) + front + From(row.in_front_of),
                     record, {}),
            row.read);
        for (uint32_t flag = 0; flag <= 40; ++flag) {
            EXPECT_EQ(record.IsValid(flag), flag != 8 && flag < row.first_lost) << "flag " << flag;
        }
    }
}

TEST(ZRDMeasurementSettings, AWindowInPixelsBecomesPortions) {
    struct Row {
        int32_t width;
        int32_t height;
        int percent_x;
        int percent_y;
    };
    const Row rows[] = {
        {300, 512, 50, 50},  {600, 1024, 100, 100}, {449, 300, 50, 24},     {450, 378, 100, 24},
        {450, 379, 100, 50}, {451, 650, 100, 50},   {451, 651, 100, 77},    {451, 906, 100, 77},
        {0, 907, 50, 100},   {-600, -1, 50, 24},    {9999, 9999, 100, 100},
    };
    const std::wstring front = Child(L"Version", L"int", L"1") + kTrigger;
    for (const Row& row : rows) {
        ZRDMeasurementSettings record;
        EXPECT_TRUE(ReadFrom(front + Window(row.width, row.height) + From(L"IntensityLUTType"), record, {}));
        EXPECT_EQ(record.VideoWin_ROIPercentX, row.percent_x) << row.width;
        EXPECT_EQ(record.VideoWin_ROIPercentY, row.percent_y) << row.height;
    }
    // With one edge missing the window stays as it was before the read, and the rest is read nonetheless.
    for (const wchar_t* const missing : {L"VideoWin_x1", L"VideoWin_y1", L"VideoWin_W", L"VideoWin_H"}) {
        SCOPED_TRACE(testing::PrintToString(missing));
        std::wstring window = Window(300, 300);
        const size_t begin = window.find(L"<" + std::wstring(missing));
        window.erase(begin, window.find(L'\n', begin) + 1 - begin);
        ZRDMeasurementSettings record;
        record.VideoWin_ROIPercentX = 1;
        record.VideoWin_ROIPercentY = 2;
        EXPECT_FALSE(ReadFrom(front + window + From(L"IntensityLUTType"), record, {}));
        EXPECT_TRUE(record.VideoWin_ROIPercentX == 1 && record.VideoWin_ROIPercentY == 2);
        EXPECT_TRUE(!record.IsValid(0) && !record.IsValid(1) && record.IsValid(2) && record.IsValid(40));
        EXPECT_TRUE(ReadFrom<hx::MInFilerTaggedOptionalXml>(front + window, record, {}))
            << "a lenient reader";
        EXPECT_EQ(record.VideoWin_ROIPercentX, missing[9] == L'W' ? 100 : 50);
        EXPECT_EQ(record.VideoWin_ROIPercentY, missing[9] == L'H' ? 100 : 24);
    }
}

TEST(TriggerSettings, EveryValueIsAttempted) {
    const std::wstring old_edge = Child(L"ActiveTriggerEdgeOrPolarity", L"bool", L"0");
    const std::wstring old_time = Child(L"MinTriggerAssertTime_microsec", L"uint", L"3");
    const std::wstring old_delay = Child(L"RelativeTriggerDelay_microsec", L"int", L"-4");
    const std::wstring edge = Child(L"PolarityActiveHigh", L"bool", L"0");
    const std::wstring periods =
        Child(L"MinTriggerPeriod_us", L"uint", L"1") + Child(L"MaxTriggerPeriod_us", L"uint", L"2");
    const std::wstring time = Child(L"MinTriggerAssertTime_us", L"uint", L"3");
    // Before, there are false and 1; the defaults are true and 2; the documents have false and 3.
    struct Row {
        const char* what;
        const wchar_t* version;
        std::wstring children;
        bool read;
        bool edge;
        uint32_t time;
    };
    const Row rows[] = {
        {"version 1 without periods", L"1", old_edge + old_time + old_delay, false, false, 3},
        {"version 1 without delay", L"1", old_edge + old_time, false, false, 3},
        {"later names in version 1", L"1", edge + periods + time, false, true, 2},
        {"without edge", L"2", periods + time, false, true, 3},
        {"version 4 without periods", L"4", edge + time, false, false, 3},
        {"version 5 with periods", L"5", edge + periods + time, false, false, 2},
        {"version 5", L"5", edge + time, true, false, 3},
        {"newer", L"6", edge + time, false, false, 1},
        {"negative, which is large", L"-1", edge + time, false, false, 1},
    };
    MTriggerSettings defaults;
    EXPECT_TRUE(defaults.ActiveTriggerEdgeOrPolarity && defaults.MinTriggerAssertTime_us == 0);
    defaults.MinTriggerAssertTime_us = 2;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        MTriggerSettings record;
        record.ActiveTriggerEdgeOrPolarity = false;
        record.MinTriggerAssertTime_us = 1;
        EXPECT_EQ(ReadFrom(Child(L"Version", L"uint", row.version) + row.children, record, defaults),
                  row.read);
        EXPECT_EQ(record.ActiveTriggerEdgeOrPolarity, row.edge);
        EXPECT_EQ(record.MinTriggerAssertTime_us, row.time);
    }
    hx::MOutFilerTaggedXml writer(L"R");
    hx::MFilerTaggedPair filer(writer);
    EXPECT_FALSE(MTriggerSettings::kType.write(&defaults, filer, L"E")) << "nothing writes it any more";
}

}  // namespace
