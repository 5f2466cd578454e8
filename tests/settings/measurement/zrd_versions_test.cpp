// What of old versions of the ZRD settings documents of whole versions do not show.
#include <gtest/gtest.h>

#include "settings/measurement/ZRDMeasurementSettings.h"
#include "tests/settings/record_text.h"

namespace {

using hx::ZRDMeasurementSettings;

TEST(ZRDMeasurementSettings, RetiredChildrenDoNotStrayIntoLaterVersions) {
    struct Row {
        int32_t version;
        const wchar_t* retired;
        const wchar_t* type;
        const wchar_t* in_front_of;
        uint32_t first_lost;  // the first flag from which on nothing is valid
    };
    const Row rows[] = {
        {6, L"TrigrMode", L"uint", L"TrigrSinglePulseDelay_mcs", 9},
        {7, L"TrigrActiveState", L"bool", L"TrigrSinglePulseDelay_mcs", 9},
        {7, L"TrigrSinglePulseWidth_mcs", L"uint", L"TrigrRepeatPulseDelay_mcs", 10},
        {5, L"TrigrSkipCount", L"uint", L"SubsamplMode", 13},
        {4, L"TrigrSkipCount", L"int", L"SubsamplMode", 13},
    };
    const std::wstring current = Written(ZRDMeasurementSettings());
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << "version " << row.version << ", " << testing::PrintToString(row.retired));
        std::wstring children = Version(row.version) + current.substr(Version(8).size());
        children.insert(children.find(L"<" + std::wstring(row.in_front_of)), Child(row.retired, row.type, 1));
        ZRDMeasurementSettings record;
        EXPECT_FALSE(ReadFrom(children, record));
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
        {449, 378, 50, 24},  {450, 379, 100, 50}, {451, 650, 100, 50}, {451, 651, 100, 77},
        {451, 906, 100, 77}, {0, 907, 50, 100},   {-600, -1, 50, 24},  {9999, 9999, 100, 100},
    };
    for (const Row& row : rows) {
        ZRDMeasurementSettings record;
        ReadFrom(Version(1) + Child(L"VideoWin_x1", L"int", 5) + Child(L"VideoWin_y1", L"int", 6) +
                     Child(L"VideoWin_W", L"int", row.width) + Child(L"VideoWin_H", L"int", row.height),
                 record);
        EXPECT_EQ(record.VideoWin_ROIPercentX, row.percent_x) << row.width;
        EXPECT_EQ(record.VideoWin_ROIPercentY, row.percent_y) << row.height;
    }
}

}  // namespace
