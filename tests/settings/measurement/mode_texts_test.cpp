// The texts of frequencies and measurement areas.
#include <gtest/gtest.h>

#include <utility>

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
    struct Row {
        void (*call)();
        std::wstring_view raised;
    };
    const Row rows[] = {
        {[] { Frequency::GetFrequencySelectionEnumFromString(L"75 %"); },
         L"FrequencySelectionHelper.GetFrequencySelectionEnumFromString:WrongStringForFrequencySelection "
         L"mode=75 %"},
        {[] { Frequency::GetFrequencySelectionFromEnum(FrequencySelection{-1}); },
         L"FrequencySelectionHelper.GetFrequencySelectionFromEnum:WrongEnumForFrequencySelection mode=-1"},
        {[] { Frequency::GetFrequencySelectionEnumValue(FrequencySelection{4}); },
         L"FrequencySelectionHelper.GetFrequencySelectionEnumValue:WrongEnumForFrequencySelection mode=4"},
        {[] { Area::GetMeasurementAreaDepthEnumFromString(L"near 50%"); },
         L"MeasurementAreaHX.GetMeasurementAreaDepthEnumFromString:WrongStringForMeasurementArea "
         L"mode=near 50%"},
        {[] { Area::GetMeasurementAreaDepthStringFromEnum(MeasurementAreaDepth{4}); },
         L"MeasurementAreaHX.GetMeasurementAreaDepthStringFromEnum:WrongEnumForMeasurementArea mode=4"},
        {[] { Area::GetMeasurementAreaWidthEnumFromString(L"Far 50%"); },
         L"MeasurementAreaHX.GetMeasurementAreaWidthEnumFromString:WrongStringForMeasurementArea "
         L"mode=Far 50%"},
        {[] { Area::GetMeasurementAreaWidthStringFromEnum(MeasurementAreaWidth{2}); },
         L"MeasurementAreaHX.GetMeasurementAreaWidthStringFromEnum:WrongEnumForMeasurementArea mode=2"},
    };
    for (const Row& row : rows) EXPECT_EQ(RaisedBy(row.call), row.raised);
}

}  // namespace
