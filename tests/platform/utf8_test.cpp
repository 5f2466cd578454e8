#include "platform/system/utf8.h"

#include <gtest/gtest.h>

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

TEST(Utf8, KnownSequences) {
    struct Row {
        std::wstring_view text;
        std::string_view bytes;
    };
    const Row rows[] = {
        {L""sv, ""sv},
        {L"plain"sv, "plain"sv},
        {L"a\0b"sv, "a\0b"sv},
        {L"\u00E4\u20AC\U0001F600"sv, "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"sv},
        {L"\uFEFFx"sv, "\xEF\xBB\xBFx"sv},
        {L"seven..\u00E4 more than eight again"sv, "seven..\xC3\xA4 more than eight again"sv},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(hx::ToUtf8(row.text), row.bytes);
        EXPECT_EQ(hx::FromUtf8(row.bytes), row.text);
    }
}

TEST(Utf8, WhatIsNoCharacterBecomesTheReplacement) {
    for (const uint32_t code : {0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu}) {
        const std::wstring text = {L'a', static_cast<wchar_t>(code), L'b'};
        EXPECT_EQ(hx::ToUtf8(text),
                  "a\xEF\xBF\xBD"
                  "b")
            << code;
    }
}

TEST(Utf8, BadSequencesAreRefusedWhereTheyStart) {
    const std::string_view bad[] = {
        "\x80"sv,  // trailing byte without a lead
        "\xBF"sv,
        "\xC0\x80"sv,  // overlong NUL
        "\xC1\xBF"sv,
        "\xC2"sv,  // cut short
        "\xC2\x41"sv,
        "\xC2\xC2"sv,
        "\xE0\x80\x80"sv,  // overlong
        "\xE0\x9F\xBF"sv,
        "\xE2\x82"sv,  // cut short
        "\xE2\x82\x41"sv,
        "\xE2\x41\xAC"sv,
        "\xED\xA0\x80"sv,      // first surrogate
        "\xED\xBF\xBF"sv,      // last surrogate
        "\xF0\x80\x80\x80"sv,  // overlong
        "\xF0\x8F\xBF\xBF"sv,
        "\xF0\x9F\x98"sv,  // cut short
        "\xF0\x9F\x98\x41"sv,
        "\xF4\x90\x80\x80"sv,  // U+110000
        "\xF5\x80\x80\x80"sv,
        "\xF8\x88\x80\x80\x80"sv,
        "\xFE"sv,
        "\xFF"sv,
    };
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
            }
        }
    }
    EXPECT_FALSE(hx::FromUtf8("\xFF"));
}

// A character cut off anywhere is bad at its start; whole characters before the cut are good.
TEST(Utf8, EveryPrefixIsGoodOrCut) {
    const std::string bytes = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
    const size_t starts[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10};
    const bool whole[] = {true, true, false, true, false, false, true, false, false, false, true};
    for (size_t length = 0; length <= bytes.size(); ++length) {
        size_t offset = 0;
        EXPECT_EQ(hx::FromUtf8(bytes.substr(0, length), &offset).has_value(), whole[length]) << length;
        if (!whole[length]) {
            EXPECT_EQ(offset, starts[length]) << length;
        }
    }
}

}  // namespace
