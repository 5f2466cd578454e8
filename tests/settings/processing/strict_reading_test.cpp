#include <gtest/gtest.h>

#include "settings/processing/MDualQuaternionInterpolatorSettings.h"
#include "settings/processing/MProcessingSettings.h"
#include "settings/processing/MSpoilerSettings.h"
#include "tests/settings/record_text.h"

namespace {

// Each line of `text` that a value fills, and the text without it.
struct Shortened {
    std::wstring line;
    std::wstring text;
};
std::vector<Shortened> WithoutEachValue(const std::wstring& text) {
    std::vector<Shortened> all;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = text.find(L'\n', begin) + 1;
        const std::wstring line = text.substr(begin, end - begin);
        if (line.find(L" type=") != std::wstring::npos) {
            all.push_back({line, std::wstring(text).erase(begin, end - begin)});
        }
        begin = end;
    }
    return all;
}

// In a record within a record it counts there, and so in the end for all of them.
template <class R>
void EveryMissingValueCountsIfStrict() {
    const std::wstring whole = Written(R());
    for (const Shortened& each : WithoutEachValue(whole)) {
        SCOPED_TRACE(testing::PrintToString(each.line));
        R record;
        EXPECT_EQ(ReadFrom(each.text, record, record), each.line.starts_with(L"<DynamicBlackLevel"));
        EXPECT_EQ(Written(record), whole) << "it is its own defaults";
        record.SetStrict(false);
        EXPECT_EQ(ReadFrom(each.text, record), each.text.starts_with(L"<Version"));
    }
}

TEST(StrictReading, EveryMissingValueCounts) {
    EveryMissingValueCountsIfStrict<hx::MProcessingSettings>();
    EveryMissingValueCountsIfStrict<hx::MSpoilerSettings>();
    EveryMissingValueCountsIfStrict<hx::MDualQuaternionInterpolatorSettings>();
}

TEST(StrictReading, WhatIsMissingIsOnesOwnOrElseTheDefaults) {
    hx::MProcessingSettings defaults;
    defaults.InterpolatorSettings.ImageInterpolatorSettings.SpeckleSettings.DeltaMax = 0.7;
    defaults.InterpolatorSettings.MaxIntensitySettings->Columns = 70;
    defaults.FilterSettings.Speckle3DSettings.Degree = 7;
    const std::wstring nested = Group(
        L"InterpolatorSettings", Group(L"MaxIntensitySettings", L"") +
                                     Group(L"ImageInterpolatorSettings", Group(L"SpeckleSettings", L"")));
    struct Row {
        const char* what;
        bool strict;
        std::wstring body;
        bool read;
        double delta_max;
        int32_t columns;
        int32_t degree;
    };
    const Row rows[] = {
        {"no filters", false, Version(1) + nested, true, 0.7, 70, 9},
        {"no interpolators", false, Version(1) + Group(L"FilterSettings", Group(L"Speckle3DSettings", L"")),
         true, 0.9, 90, 7},
        {"no version", false, nested, false, 0.7, 70, 9},
        {"no filters, strict", true, Version(1) + nested, false, 0.9, 90, 9},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        hx::MProcessingSettings record;
        record.InterpolatorSettings.ImageInterpolatorSettings.SpeckleSettings.DeltaMax = 0.9;
        record.InterpolatorSettings.MaxIntensitySettings->Columns = 90;
        record.FilterSettings.Speckle3DSettings.Degree = 9;
        record.SetStrict(row.strict);
        EXPECT_EQ(ReadFrom(row.body, record, defaults), row.read);
        EXPECT_EQ(record.InterpolatorSettings.ImageInterpolatorSettings.SpeckleSettings.DeltaMax,
                  row.delta_max);
        EXPECT_EQ(record.InterpolatorSettings.MaxIntensitySettings->Columns, row.columns);
        EXPECT_EQ(record.FilterSettings.Speckle3DSettings.Degree, row.degree);
    }
}

}  // namespace
