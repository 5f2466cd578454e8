// The texts of frequencies and measurement areas.
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "settings/measurement/FrequencySelectionHelper.h"
#include "settings/measurement/MeasurementAreaHX.h"
#include "tests/settings/raised.h"

namespace {

using Frequency = hx::FrequencySelectionHelper;
using Area = hx::MeasurementAreaHX;
using hx::FrequencySelection;
using hx::MeasurementAreaDepth;
using hx::MeasurementAreaWidth;

TEST(ModeTexts, EachValueHasItsText) {
    struct Row {
        int32_t value;
        const wchar_t* frequency;
        double percent;
        const wchar_t* depth;
    };
    const Row rows[] = {
        {0, L"100%", 100.0, L"100%"},
        {1, L"75%", 75.0, L"Near 50%"},
        {2, L"50%", 50.0, L"50%"},
        {3, L"25%", 25.0, L"Far 50%"},
    };
    for (const Row& row : rows) {
        const FrequencySelection selection{row.value};
        EXPECT_EQ(Frequency::GetFrequencySelectionEnumFromString(row.frequency), selection);
        EXPECT_EQ(Frequency::GetFrequencySelectionFromEnum(selection), row.frequency);
        EXPECT_EQ(Frequency::GetFrequencySelectionEnumValue(selection), row.percent);
        const MeasurementAreaDepth depth{row.value};
        EXPECT_EQ(Area::GetMeasurementAreaDepthEnumFromString(row.depth), depth);
        EXPECT_EQ(Area::GetMeasurementAreaDepthStringFromEnum(depth), row.depth);
    }
    for (const auto& [value, text] : {std::pair(0, L"100%"), std::pair(1, L"50%")}) {
        const MeasurementAreaWidth width{value};
        EXPECT_EQ(Area::GetMeasurementAreaWidthEnumFromString(text), width);
        EXPECT_EQ(Area::GetMeasurementAreaWidthStringFromEnum(width), text);
    }
}

TEST(ModeTexts, WhatIsUnknownIsRaised) {
    struct Text {
        void (*parse)(std::wstring_view text);
        std::wstring code;
        std::vector<std::wstring> texts;
    };
    const Text texts[] = {
        {[](std::wstring_view text) { Frequency::GetFrequencySelectionEnumFromString(text); },
         L"FrequencySelectionHelper.GetFrequencySelectionEnumFromString:WrongStringForFrequencySelection",
         {L"", L"75 %", L" 75%", L"75", L"100%%", L"Near 50%"}},
        {[](std::wstring_view text) { Area::GetMeasurementAreaDepthEnumFromString(text); },
         L"MeasurementAreaHX.GetMeasurementAreaDepthEnumFromString:WrongStringForMeasurementArea",
         {L"", L"near 50%", L"Near  50%", L"25%"}},
        {[](std::wstring_view text) { Area::GetMeasurementAreaWidthEnumFromString(text); },
         L"MeasurementAreaHX.GetMeasurementAreaWidthEnumFromString:WrongStringForMeasurementArea",
         {L"", L"Far 50%", L"75%"}},
    };
    for (const Text& row : texts) {
        for (const std::wstring& text : row.texts) {
            EXPECT_EQ(RaisedBy([&] { row.parse(text); }), row.code + L" mode=" + text);
        }
    }
    struct Value {
        void (*tell)(int32_t value);
        std::wstring code;
        int32_t beyond;
    };
    const Value values[] = {
        {[](int32_t value) { Frequency::GetFrequencySelectionFromEnum(FrequencySelection{value}); },
         L"FrequencySelectionHelper.GetFrequencySelectionFromEnum:WrongEnumForFrequencySelection", 4},
        {[](int32_t value) { Frequency::GetFrequencySelectionEnumValue(FrequencySelection{value}); },
         L"FrequencySelectionHelper.GetFrequencySelectionEnumValue:WrongEnumForFrequencySelection", 4},
        {[](int32_t value) { Area::GetMeasurementAreaDepthStringFromEnum(MeasurementAreaDepth{value}); },
         L"MeasurementAreaHX.GetMeasurementAreaDepthStringFromEnum:WrongEnumForMeasurementArea", 4},
        {[](int32_t value) { Area::GetMeasurementAreaWidthStringFromEnum(MeasurementAreaWidth{value}); },
         L"MeasurementAreaHX.GetMeasurementAreaWidthStringFromEnum:WrongEnumForMeasurementArea", 2},
    };
    for (const Value& row : values) {
        for (const int32_t value : {-1, row.beyond, std::numeric_limits<int32_t>::min()}) {
            EXPECT_EQ(RaisedBy([&] { row.tell(value); }), row.code + L" mode=" + std::to_wstring(value));
        }
    }
}

}  // namespace
