#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <utility>

#include "core/errors/MException.h"
#include "core/locale/MLocale.h"
#include "platform/system/locale_data.h"

namespace {

using namespace std::string_literals;
using hx::MLocale;

TEST(Locale, TagsAreKnownWholeOrNotAtAll) {
    struct Row {
        std::string tag;
        wchar_t separator;  // 0: unknown
        std::wstring date;
    };
    const Row rows[] = {
        {"C", L'.', L"2024-01-31"},
        {"en-US", L'.', L"1/31/24"},
        {"de-DE", L',', L"31.01.24"},
        {"fr-FR", L',', L"31/01/2024"},
        {"es-ES", L',', L"31/1/24"},
        {"ja-JP", L'.', L"2024/01/31"},
        {"de", L',', L"31.01.24"},
        {"fa-IR", L'.', L"2024/1/31"},  // Latin digits, and the calendar of files
        {"de-DE-u-nu-arab", L',', L"31.01.24"},
        {"", 0, L""},
        {"und", 0, L""},
        {"xx-invalid", 0, L""},
        {"../../etc", 0, L""},
        {"de_DE", 0, L""},
        {"de-DE-", 0, L""},
        {"de-DE\0evil"s, 0, L""},
        {std::string(5000, 'a'), 0, L""},
        {"\xFF", 0, L""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(hx::IsKnownLocale(row.tag), row.separator != 0) << row.tag;
        EXPECT_EQ(hx::DecimalSeparatorOf(row.tag).value_or(0), row.separator) << row.tag;
        EXPECT_EQ(hx::ShortDate(row.tag, {2024, 1, 31}).value_or(L""), row.date) << row.tag;
    }
    EXPECT_TRUE(hx::ShortDate("C", {2024, 2, 29}));
    for (const hx::GregorianDate& none :
         {hx::GregorianDate{2023, 2, 29}, {2024, 13, 1}, {2024, 0, 1}, {2024, 1, 0}, {0, 1, 1}, {-5, 1, 1}}) {
        EXPECT_FALSE(hx::ShortDate("C", none)) << none.year << "-" << none.month << "-" << none.day;
    }
}

TEST(Locale, TagsHaveTheSystemsNumbers) {
    const std::pair<const char*, uint32_t> rows[] = {
        {"en-US", 0x409}, {"de-DE", 0x407}, {"es-ES", 0xC0A}, {"fr-FR", 0x40C}, {"ja-JP", 0x411}, {"de", 0x7},
    };
    for (const auto& [tag, lcid] : rows) {
        EXPECT_EQ(hx::LcidOf(tag), lcid) << tag;
        EXPECT_EQ(hx::LocaleOfLcid(lcid), tag) << tag;
    }
    EXPECT_EQ(hx::LcidOf("de-DE-u-nu-arab"), 0x407u);
    for (const char* tag : {"C", "", "und", "xx-invalid", "de_DE"}) EXPECT_FALSE(hx::LcidOf(tag)) << tag;
    for (const uint32_t lcid : {0u, 0x800u, 0x1000u, 0x7FFFFu, 0xFFFFFFFFu}) {
        EXPECT_FALSE(hx::LocaleOfLcid(lcid)) << lcid;
    }
}

TEST(Locale, WritesNumbersByItsSeparatorAlone) {
    const MLocale german("de-DE");
    EXPECT_EQ(german.GetName(), "de-DE");
    EXPECT_EQ(german.GetDecimalSeparator(), L',');
    EXPECT_EQ(german.Format(L"%.2f mm, %d", 1234567.5, 1000000), L"1234567,50 mm, 1000000");
    EXPECT_EQ(MLocale::C().Format(L"%.15e", 0.1), L"1.000000000000000e-01");

    std::wostringstream stream;
    stream.imbue(german.GetStreamLocale());
    stream << 1234567.5 << L' ' << 1000000;
    EXPECT_EQ(stream.str(), L"1,23457e+06 1000000");

    struct Row {
        double value;
        int decimals;
        bool trim;
        const wchar_t* text;
    };
    const Row rows[] = {
        {1.0, 3, true, L"1"},      {1.25, -2, false, L"1"},     {2.5, 3, true, L"2,5"},
        {3.0, 3, false, L"3,000"}, {100, 0, true, L"100"},      {0.0, 2, true, L"0"},
        {-0.5, 1, true, L"-0,5"},  {HUGE_VAL, 3, true, L"inf"},
    };
    for (const Row& row : rows) EXPECT_EQ(german.ToString(row.value, row.decimals, row.trim), row.text);
}

TEST(Locale, ReadsNumbersByItsSeparatorAlone) {
    const MLocale german("de-DE");
    struct Row {
        const wchar_t* text;
        bool german;
        bool c;
    };
    const Row rows[] = {
        {L"15", true, true},        {L" -1e2 \n", true, true}, {L"1,5", true, false}, {L"1.5", false, true},
        {L"1e999", true, true},     {L"", false, false},       {L" ", false, false},  {L"1 2", false, false},
        {L"1.000,5", false, false}, {L"mm", false, false},     {L",", false, false},
    };
    for (const Row& row : rows) {
        double value = 7;
        EXPECT_EQ(german.ToDouble(row.text, value), row.german)
            << testing::PrintToString(std::wstring(row.text));
        EXPECT_EQ(value == 7, !row.german) << "unchanged on failure";
        EXPECT_EQ(MLocale::C().ToDouble(row.text, value), row.c)
            << testing::PrintToString(std::wstring(row.text));
    }
    double value = 0;
    EXPECT_TRUE(german.ToDouble(L"-2,25", value));
    EXPECT_EQ(value, -2.25);
    EXPECT_TRUE(german.ToDouble(L"1e999", value));
    EXPECT_EQ(value, HUGE_VAL);
}

TEST(Locale, ABadNameIsAnError) {
    try {
        MLocale locale("xx-invalid");
        FAIL();
    } catch (const hx::MException& exception) {
        EXPECT_EQ(hx::ErrorCodesText(exception),
                  L"MLocale.MLocale:BadCppLocale ($errorMessage=\"bad locale name\", $name=\"xx-invalid\")");
    }
}

}  // namespace
