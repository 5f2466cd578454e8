// Numbers as text against the standard library's own conversions, under the "C" locale and beside a foreign
// one.
#include "core/filer/CNumberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cwchar>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

class CommaPunctuation : public std::numpunct<wchar_t> {
    wchar_t do_decimal_point() const override { return L','; }
    wchar_t do_thousands_sep() const override { return L'.'; }
    std::string do_grouping() const override { return "\3"; }
};

// What a host may have set for itself must not reach the files.
class NumberText : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        if (GetParam()) m_before = std::locale::global(std::locale(std::locale(), new CommaPunctuation));
    }
    void TearDown() override { std::locale::global(m_before); }

private:
    std::locale m_before;
};

INSTANTIATE_TEST_SUITE_P(Locale, NumberText, testing::Bool(),
                         [](const auto& row) { return row.param ? "Comma" : "Classic"; });

// The texts between the bars.
std::vector<std::wstring> Texts(std::wstring_view list) {
    std::vector<std::wstring> texts(1);
    for (const wchar_t c : list) c == L'|' ? (void)texts.emplace_back() : texts.back().push_back(c);
    return texts;
}

template <class T>
void ExpectAsStream(const std::wstring& text) {
    std::wistringstream stream(text);
    stream.imbue(std::locale::classic());
    T expected{};
    const bool good = !(stream >> expected).fail();
    T value = 42;
    ASSERT_EQ(hx::ParseNumber(text, value), good) << testing::PrintToString(text);
    ASSERT_EQ(value, good ? expected : T{42}) << testing::PrintToString(text);
}

void ExpectAllAsStream(const std::wstring& text) {
    ExpectAsStream<uint16_t>(text);
    ExpectAsStream<int16_t>(text);
    ExpectAsStream<uint32_t>(text);
    ExpectAsStream<int32_t>(text);
    ExpectAsStream<uint64_t>(text);
}

TEST_P(NumberText, IntegersAreReadAsAStreamExtractsThem) {
    for (const std::wstring& text :
         Texts(L"| |-|+|- 1|+-1| "
               L"\t\n\v\f\r7|\u00A07|\u20037|12abc|0x10|010|+5|-0|1,234|1.5|1e3|abc|--1|\u0661|\uFF11|"
               L"00000000000000000000000000000000000000001|18446744073709551615|18446744073709551616|"
               L"-18446744073709551615|-18446744073709551616|99999999999999999999999999|65535 |-65535|-65536|"
               L"-65537|-32768|-32769|32768")) {
        ExpectAllAsStream(text);
    }
    std::mt19937_64 random(1);
    for (int round = 0; round < 60'000; ++round) {
        // Around every power of two, where the limits of all types lie.
        const uint64_t magnitude = (uint64_t{1} << random() % 64) + random() % 5 - 2;
        const wchar_t* const signs[] = {L"", L"-", L"+"};
        ExpectAllAsStream(signs[random() % 3] + std::to_wstring(magnitude) +
                          (random() % 4 == 0 ? L"0" : L""));
    }
}

void ExpectAsWcstod(const std::wstring& text) {
    wchar_t* end = nullptr;
    const double expected = std::wcstod(text.c_str(), &end);
    bool good = end != text.c_str();
    for (const wchar_t* rest = end; rest != text.c_str() + text.size(); ++rest) {
        good = good && (*rest == L' ' || (*rest >= L'\t' && *rest <= L'\r'));
    }
    double value = 42;
    ASSERT_EQ(hx::ParseNumber(text, value), good) << testing::PrintToString(text);
    if (!good) {
        ASSERT_EQ(value, 42);
    } else {
        ASSERT_TRUE(std::isnan(expected) ? std::isnan(value) : value == expected)
            << testing::PrintToString(text);
        ASSERT_EQ(std::signbit(value), std::signbit(expected)) << testing::PrintToString(text);
    }
}

TEST_P(NumberText, DoublesAreReadAsTheCLibraryReadsThem) {
    for (const std::wstring& text : Texts(
             L"| |1| 1.5|1.5 "
             L"\n|1.5x|1,5|+1.5|-1.5|+-1|.5|5.|.|-.|1e|1e+|1e5|1E-5|1e5.5|0x10|0x1.8p3|0x|inf|-INF|"
             L"infinity|infinit|nan|-nan|nan(1)|nan(|1e400|-1e400|1e-400|-1e-400|4.9e-324|2e-324|-0|1 2|"
             L"1.7976931348623157e308|1.7976931348623159e308|2.2250738585072011e-308|\u0661|1\u00A0|1\u2003|"
             L"9007199254740993|9007199254740992.99999999999|"
             L"1.00000000000000011102230246251565404236316680908203124|"
             L"1.00000000000000011102230246251565404236316680908203125|"
             L"1.00000000000000011102230246251565404236316680908203126")) {
        ExpectAsWcstod(text);
        ExpectAsWcstod(std::wstring(60, L' ') + text + std::wstring(60, L' '));
        ExpectAsWcstod(text + std::wstring(L"\0", 1));
        ExpectAsWcstod(text + std::wstring(800, L'9'));
    }
    std::mt19937_64 random(2);
    const std::wstring_view alphabet = L"0123456789.eE+-x ";
    for (int round = 0; round < 100'000; ++round) {
        std::wstring text(random() % 12, L'0');
        for (wchar_t& c : text) c = alphabet[random() % alphabet.size()];
        ExpectAsWcstod(text);
        ExpectAsWcstod(std::to_wstring(random()) + L"." + std::to_wstring(random()) + L"e" +
                       std::to_wstring(static_cast<int>(random() % 700) - 350));
    }
}

template <class T>
void ExpectAsScanf(const wchar_t* format, const std::wstring& text) {
    T expected = 42;
    const bool good = std::swscanf(text.c_str(), format, &expected) == 1;
    T value = 42;
    ASSERT_EQ(hx::ScanNumber(text, value), good) << testing::PrintToString(text);
    ASSERT_TRUE(std::isnan(expected) ? std::isnan(value) : value == expected) << testing::PrintToString(text);
}

TEST_P(NumberText, NumbersAreScannedAsTheCLibraryScansThem) {
    const auto expect = [](const std::wstring& text) {
        ExpectAsScanf<double>(L"%lf", text);
        ExpectAsScanf<float>(L"%f", text);
    };
    for (const std::wstring& text :
         Texts(L"| |\t 12|1.5abc|1.5 "
               L"2|1,5|abc|1e|1e+|.|-.5|+5|--1|0x10|0x.8p1|nan|NAN|-inf|infinity|1e400|1e39|"
               L"-1e39|1e-400|1e-50|\u0661|1.000000059604644775390625|1.000000059604644775390626")) {
        expect(text);
    }
    std::mt19937_64 random(4);
    const std::wstring_view alphabet = L"0123456789.eE+- ,";
    for (int round = 0; round < 50'000; ++round) {
        std::wstring text(random() % 12, L'0');
        for (wchar_t& c : text) c = alphabet[random() % alphabet.size()];
        expect(text);
        expect(std::to_wstring(random()) + L"e" + std::to_wstring(static_cast<int>(random() % 100) - 60));
    }
}

void ExpectAsPrintf(double value) {
    for (const int precision : {15, 14, 8, 6}) {
        wchar_t expected[64];
        std::swprintf(expected, std::size(expected), L"%.*e", precision, value);
        ASSERT_EQ(hx::CNumberText(value, precision).View(), expected);
    }
}

TEST_P(NumberText, DoublesAreWrittenAsPrintfWritesThem) {
    using Limits = std::numeric_limits<double>;
    for (const double value :
         {0.0, 1.0, 0.1, 0.1 + 0.2, 150.0, 2.5, 1e22, 1e23, 1e100, Limits::max(), Limits::min(),
          Limits::denorm_min(), Limits::infinity(), Limits::quiet_NaN(), 9.9999999999999995e15,
          static_cast<double>(0.1f), static_cast<double>(std::numeric_limits<float>::denorm_min())}) {
        ExpectAsPrintf(value);
        ExpectAsPrintf(-value);
    }
    std::mt19937_64 random(3);
    for (int round = 0; round < 250'000; ++round) {
        ExpectAsPrintf(std::bit_cast<double>(random()));
        // Exactly half way between two texts of nine digits.
        ExpectAsPrintf(static_cast<double>(random() % 1'000'000'000) + 0.5);
    }
}

TEST_P(NumberText, IntegersAreWrittenInDecimal) {
    EXPECT_EQ(hx::CNumberText(uint64_t{0}).View(), L"0");
    EXPECT_EQ(hx::CNumberText(std::numeric_limits<uint64_t>::max()).View(), L"18446744073709551615");
    EXPECT_EQ(hx::CNumberText(std::numeric_limits<int64_t>::min()).View(), L"-9223372036854775808");
    EXPECT_EQ(hx::CNumberText(int64_t{-1234567}).View(), L"-1234567");
}

}  // namespace
