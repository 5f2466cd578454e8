#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>

#include "core/locale/CFormattedText.h"

namespace {

using hx::FormatText;

// Where the C library means the same by a format, it is the judge.
TEST(FormattedText, NumbersReadAsPrintfWritesThem) {
    const char* const formats[] = {"%d",    "%i",   "%5d",   "%-5d|", "%05d", "%+d", "% d",   "%.3d",
                                   "%8.3d", "%.0d", "%-+6d", "%04d",  "%x",   "%X",  "%#06x", "%u"};
    for (const char* const format : formats) {
        for (const int value :
             {0, 1, -1, 42, -4711, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
            char expected[64];
            std::snprintf(expected, sizeof expected, format, value);
            const std::string narrow(format);
            EXPECT_EQ(FormatText(L'.', std::wstring(narrow.begin(), narrow.end()), {value}),
                      std::wstring(expected, expected + std::char_traits<char>::length(expected)))
                << format << " of " << value;
        }
    }
    const char* const real_formats[] = {"%.15e", "%.8e", "%f", "%10.2f|", "%-10.1f|", "%010.3f",
                                        "%+.0f", "%G",   "%g", "%E",      "%.0e"};
    for (const char* const format : real_formats) {
        for (const double value :
             {0.0, -0.0, 0.1, -1.5, 2.5, 1e300, -1e-300, 123456789.0, HUGE_VAL, -HUGE_VAL}) {
            char expected[400];
            std::snprintf(expected, sizeof expected, format, value);
            const std::string narrow(format);
            EXPECT_EQ(FormatText(L'.', std::wstring(narrow.begin(), narrow.end()), {value}),
                      std::wstring(expected, expected + std::char_traits<char>::length(expected)))
                << format << " of " << value;
        }
    }
}

TEST(FormattedText, ReadsFormatsOfOtherSystems) {
    struct Row {
        std::wstring formatted;
        const wchar_t* expected;
    };
    const std::wstring text = L"\u00E4\u4E2D";
    const Row rows[] = {
        {FormatText(L'.', L"'%s'", {text}), L"'\u00E4\u4E2D'"},  // wide, whatever "%s" is to the C library
        {FormatText(L'.', L"%ls|%5s|%-5s|%.1s", {text, text, text, text}),
         L"\u00E4\u4E2D|   \u00E4\u4E2D|\u00E4\u4E2D   |\u00E4"},
        {FormatText(L'.', L"%c%c", {L'\u4E2D', 'x'}), L"\u4E2Dx"},
        {FormatText(L'.', L"%lu %llu %I64d", {UINT32_MAX, UINT64_MAX, INT64_MIN}),
         L"4294967295 18446744073709551615 -9223372036854775808"},
        {FormatText(L'.', L"%lu|%I64u", {-1, -1}), L"4294967295|18446744073709551615"},
        {FormatText(L',', L"%.*f %d,%d", {2, 1.5, 1, 2}), L"1,50 1,2"},
        {FormatText(L'.', L"100 %%", {}), L"100 %"},
    };
    for (const Row& row : rows) EXPECT_EQ(row.formatted, row.expected);
}

// Formats come from translated resources: a bad one shows itself and harms nothing.
TEST(FormattedText, LeavesWhatItCannotConvert) {
    const std::wstring formats[] = {L"%",   L"%s",   L"a%",     L"%q",     L"%5", L"%.",
                                    L"%*d", L"%.*f", L"%lllld", L"%-+ #0", L"%n", L"%d %d %s"};
    for (const std::wstring& format : formats) EXPECT_EQ(FormatText(L'.', format, {}), format);
    EXPECT_EQ(FormatText(L'.', L"%d %s %f", {L"text", 1, 2}), L"%d %s %f") << "of the wrong types";
    EXPECT_EQ(FormatText(L'.', L"%s %s", {L"one"}), L"one %s");
    EXPECT_EQ(FormatText(L'.', L"%999999999999d", {1}).size(), 4096u);
}

}  // namespace
