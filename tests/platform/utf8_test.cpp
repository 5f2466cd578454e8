#include "platform/system/utf8.h"

#include <gtest/gtest.h>

#include "platform/system/one_line.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(Utf8, EveryCharacterComesBack) {
    for (uint32_t code = 0; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) continue;
        const std::wstring text(1, static_cast<wchar_t>(code));
        const std::string bytes = hx::ToUtf8(text);
        ASSERT_EQ(hx::FromUtf8(bytes), text) << code;
        ASSERT_EQ(bytes.size(), code < 0x80 ? 1u : code < 0x800 ? 2u : code < 0x10000 ? 3u : 4u) << code;
    }
}

TEST(Utf8, MarksNulsAndMixedTextsStay) {
    const std::wstring_view text = L"\uFEFFa\0b seven.. \u00E4\u20AC\U0001F600 more than eight again"sv;
    const std::string_view bytes =
        "\xEF\xBB\xBF\x61\0b seven.. \xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80 more than eight again"sv;
    EXPECT_EQ(hx::ToUtf8(text), bytes);
    EXPECT_EQ(hx::FromUtf8(bytes), text);
}

TEST(Utf8, WhatIsNoCharacterBecomesTheReplacement) {
    for (const uint32_t code : {0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu}) {
        const std::wstring text = {L'a', static_cast<wchar_t>(code), L'b'};
        EXPECT_EQ(hx::ToUtf8(text), "a\xEF\xBF\xBD\x62") << code;
    }
}

TEST(Utf8, BadSequencesAreRefusedWhereTheyStart) {
    // clang-format off
    const std::string_view bad[] = {
        "\x80"sv, "\xBF"sv,                                                       // no lead
        "\xC2"sv, "\xC2\x41"sv, "\xC2\xC2"sv, "\xE2\x82"sv, "\xE2\x82\x41"sv,     // cut short
        "\xE2\x41\xAC"sv, "\xF0\x9F\x98"sv, "\xF0\x9F\x98\x41"sv,
        "\xC0\x80"sv, "\xC1\xBF"sv, "\xE0\x80\x80"sv, "\xE0\x9F\xBF"sv,           // overlong
        "\xF0\x80\x80\x80"sv, "\xF0\x8F\xBF\xBF"sv,
        "\xED\xA0\x80"sv, "\xED\xBF\xBF"sv,                                       // surrogates
        "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xF8\x88\x80\x80\x80"sv,      // beyond U+10FFFF
        "\xFE"sv, "\xFF"sv,
    };
    // clang-format on
    // In front, after more than one block of ASCII, and after other characters; at the end and followed by
    // more.
    for (const std::string& before : {""s, "0123456789abcdefghi"s, "\xC3\xA4"s, "\xF0\x9F\x98\x80"s}) {
        for (const std::string& after : {""s, "x"s, "0123456789"s}) {
            for (const std::string_view sequence : bad) {
                size_t offset = 999;
                std::string bytes = before;
                bytes.append(sequence).append(after);
                EXPECT_FALSE(hx::FromUtf8(bytes, &offset)) << &sequence - bad;
                EXPECT_EQ(offset, before.size()) << &sequence - bad;
                // What is good around it stays.
                const std::wstring text = hx::FromDamagedUtf8(bytes);
                EXPECT_TRUE(text.starts_with(*hx::FromUtf8(before) + L'\xFFFD')) << &sequence - bad;
                EXPECT_TRUE(text.ends_with(*hx::FromUtf8(after))) << &sequence - bad;
                EXPECT_LE(text.size(), bytes.size());
            }
        }
    }
}

TEST(OneLine, HasOneBlankForManyAndNothingThatSteers) {
    const struct {
        const wchar_t* text;
        const wchar_t* line;
    } rows[] = {
        {L"\n AB\t \r\n12\v", L"AB 12"},
        {L"AB12\u00A0", L"AB12"},
        {L"a\u0085b\u2028c\u2029d\u3000", L"a b c d"},
        {L"a\u202Eb\u2066c\u200Fd\uFEFF", L"abcd"},
        {L" \u202E\n\u202C ", L""},
        {L"1\u2044\u00E4\U0001F600", L"1\u2044\u00E4\U0001F600"},
    };
    for (const auto& row : rows) EXPECT_EQ(hx::OneLine(row.text), row.line);
}

}  // namespace
