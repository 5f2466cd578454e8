#include <gtest/gtest.h>

#include <limits>

#include "settings/processing/MProcessingSettings.h"
#include "settings/processing/MSpoilerSettings.h"
#include "tests/settings/record_text.h"

namespace {

using Column = hx::MColumnInterpolatorSettings;
using MaxIntensity = hx::MColumnInterpolatorMaxIntensitySettings;
using WeighedAverage = hx::MColumnInterpolatorWeighedAverageSettings;

// `text` with what stands from `from` up to the line that begins with `to` replaced.
std::wstring Replaced(std::wstring text, std::wstring_view from, std::wstring_view to,
                      const std::wstring& by) {
    const size_t begin = text.find(L"<" + std::wstring(from));
    return text.replace(begin, text.find(L"<" + std::wstring(to) + L" ", begin) - begin, by);
}

TEST(MultiplePeaks, AListHoldsWhatWasFoundOfIt) {
    const auto size = [](int count) { return Child(L"Size", L"int", count); };
    const auto entry = [](int index, double value) {
        return Child(L"Weight2DCog" + std::to_wstring(index), L"float", value);
    };
    const auto list = [](const std::wstring& content) { return Group(L"Weight2DCog", content); };
    const std::vector<double> own = {7.0, 8.0, 9.0};
    const std::vector<double> defaults = {5.0, 6.0};
    struct Row {
        const char* what;
        std::wstring list;
        bool read;
        std::vector<double> weights;
        bool has_size = true;
    };
    const Row rows[] = {
        {"two", list(size(2) + entry(0, 1) + entry(1, 2)), true, {1, 2}},
        {"more than before",
         list(size(4) + entry(0, 1) + entry(1, 2) + entry(2, 3) + entry(3, 4)),
         true,
         {1, 2, 3, 4}},
        {"none", list(size(0)), true, {}},
        {"less than none", list(size(-5) + entry(0, 1)), true, {}},
        {"more than the size", list(size(1) + entry(0, 1) + entry(1, 2)), true, {1}},
        {"a gap", list(size(3) + entry(0, 1) + entry(2, 3)), false, {1}},
        {"two milliards", list(size(2'000'000'000) + entry(0, 1)), false, {1}},
        {"no size", list(entry(0, 1)), false, {}, false},
        {"no list", L"", false, {}, false},
    };
    hx::MMultiplePeakDetectionSettings written;
    written.CoGOrder = 77;
    const std::wstring text = Written(written);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const std::wstring element = Replaced(text, L"Weight2DCog>", L"MinPeakOverlapRatio2DCoG", row.list);
        hx::MMultiplePeakDetectionSettings others;
        others.Weight2DCog = defaults;
        hx::MMultiplePeakDetectionSettings record;
        record.Weight2DCog = own;
        EXPECT_EQ(ReadFrom(element, record, others), row.read);
        EXPECT_EQ(record.Weight2DCog, row.has_size ? row.weights : own);
        EXPECT_EQ(record.CoGOrder, 77) << "what stands behind is found";

        record.Weight2DCog = own;
        record.SetStrict(false);
        EXPECT_TRUE(ReadFrom(element, record, others));
        EXPECT_EQ(record.Weight2DCog, row.has_size ? row.weights : defaults);

        record.Weight2DCog = own;
        EXPECT_TRUE(ReadFrom<hx::MInFilerTaggedOptionalXml>(element, record, others));
        EXPECT_EQ(record.Weight2DCog, row.has_size ? row.weights : defaults);
    }
}

TEST(MultiplePeaks, AListIsReadAsItWasWritten) {
    hx::MMultiplePeakDetectionSettings record;
    const double infinity = std::numeric_limits<double>::infinity();
    record.Weight2DCog = {0.0, -1.5, 3.0, infinity, -infinity, 5e-324, 6, 7, 8, 9, 10, 11};
    hx::MMultiplePeakDetectionSettings read;
    EXPECT_TRUE(ReadFrom(Written(record), read));
    EXPECT_EQ(read.Weight2DCog, record.Weight2DCog);
}

TEST(Spoiler, TheOrientationIsToldInEitherForm) {
    using Form = hx::MSpoilerSettings::Orientation;
    const std::wstring angle = Child(L"OrientAngle", L"float", 12.0);
    const std::wstring cosine = Child(L"CosOrientAngle", L"float", 0.25);
    struct Row {
        const char* what;
        std::wstring orientation;
        bool read;
        Form form;
        double angle;
        double cosine;
        bool buffer_read = true;
    };
    const Row rows[] = {
        {"angle", angle, true, Form::kAngle, 12.0, 0.5},
        {"cosine", cosine, true, Form::kCosine, 60.0, 0.25},
        {"none", L"", false, Form::kCosine, 60.0, 0.5},
        {"angle that is no number", L"<OrientAngle type='float'>x</OrientAngle>", false, Form::kCosine, 60.0,
         0.5},
        {"angle of another type", Child(L"OrientAngle", L"int", 12), false, Form::kCosine, 60.0, 0.5, false},
        {"both", angle + cosine, false, Form::kAngle, 12.0, 0.5, false},
    };
    hx::MSpoilerSettings written;
    written.StripeBufferSize = 200;
    const std::wstring text = Written(written);
    EXPECT_NE(text.find(L"<OrientAngle"), std::wstring::npos) << "a new record tells the angle";
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const std::wstring element = Replaced(text, L"OrientAngle", L"StripeBufferSize", row.orientation);
        hx::MSpoilerSettings record;
        record.OrientationForm = Form::kCosine;
        record.OrientAngle = 60.0;
        record.CosOrientAngle = 0.5;
        EXPECT_EQ(ReadFrom(element, record), row.read);
        EXPECT_EQ(record.OrientationForm, row.form);
        EXPECT_EQ(record.OrientAngle, row.angle);
        EXPECT_EQ(record.CosOrientAngle, row.cosine);
        EXPECT_EQ(record.StripeBufferSize, row.buffer_read ? 200 : 3);
        const std::wstring again = Written(record);
        EXPECT_EQ(again.find(L"<OrientAngle") != std::wstring::npos, row.form == Form::kAngle);
        EXPECT_EQ(again.find(L"<CosOrientAngle") != std::wstring::npos, row.form == Form::kCosine);

        hx::MSpoilerSettings other;
        EXPECT_TRUE(ReadFrom<hx::MInFilerTaggedOptionalXml>(element, other));
        EXPECT_EQ(other.OrientationForm, row.orientation == cosine ? Form::kCosine : Form::kAngle);
    }
}

TEST(ColumnInterpolator, OldReleasesToldTheThresholdAsAByte) {
    struct Row {
        const char* type;
        const wchar_t* word;
        int told;
        bool read;
        uint16_t threshold;
    };
    const Row rows[] = {
        {"wide", L"uint", 300, true, 300},
        {"narrow", L"byte", 44, true, 44},
        {"neither", L"int", 44, false, 20},
    };
    const std::wstring text = Written(MaxIntensity());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        MaxIntensity record;
        EXPECT_EQ(
            ReadFrom(Replaced(text, L"MinThreshold", L"TruePeak", Child(L"MinThreshold", row.word, row.told)),
                     record, record),
            row.read);
        EXPECT_EQ(record.MinThreshold, row.threshold);
        const std::wstring again = L"<MinThreshold type=\"uint\">" + std::to_wstring(row.threshold) + L"<";
        EXPECT_NE(Written(record).find(again), std::wstring::npos);
    }
}

TEST(ColumnInterpolator, TheClassOfTheRecordTellsWhatIsRead) {
    hx::MInterpolatorSettings weighed;
    weighed.MaxIntensitySettings = hx::Cloned<Column>(std::make_unique<WeighedAverage>());
    hx::MInterpolatorSettings plain;
    plain.MaxIntensitySettings = hx::Cloned<Column>(std::make_unique<Column>());
    plain.MaxIntensitySettings->Columns = 5;
    plain.MaxIntensitySettings->SetStrict(false);

    hx::MInterpolatorSettings copy = weighed;
    copy.MaxIntensitySettings->Columns = 9;
    EXPECT_EQ(copy.MaxIntensitySettings->Ref().type, &WeighedAverage::kType);
    EXPECT_EQ(weighed.MaxIntensitySettings->Columns, 1) << "a copy shares nothing";
    EXPECT_EQ(Written(plain).find(L"MinThreshold"), std::wstring::npos);

    // Defaults of another class give what both have.
    copy.SetStrict(false);
    const std::wstring empty = Version(4) + Group(L"MaxIntensitySettings", Version(1));
    EXPECT_TRUE(ReadFrom(empty, copy, plain));
    auto& column = dynamic_cast<WeighedAverage&>(*copy.MaxIntensitySettings);
    EXPECT_EQ(column.Columns, 5);
    EXPECT_EQ(column.MinThreshold, 20);
    copy = plain;
    EXPECT_EQ(copy.MaxIntensitySettings->Ref().type, &Column::kType) << "an assignment brings the class";
}

}  // namespace
