// The log of calls: what it loses, and what its texts look like.
#include "simulator/calls/CallLog.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/com/text_array.h"
#include "simulator/calls/Argument.h"
#include "simulator/calls/JsonSyntax.h"
#include "simulator/calls/JsonText.h"

namespace hx::simulator {
namespace {

TEST(CallLogTest, WhatWasLostIsTold) {
    CallLog log(2);
    EXPECT_EQ(log.Take(), L"[]");
    for (const wchar_t* operation : {L"A", L"B", L"C", L"D"}) log.Enter(L"api", operation, L"[]", S_OK);
    EXPECT_EQ(log.Take(),
              LR"([{"on":"log","op":"lost","args":[2],"result":0},
{"on":"api","op":"C","args":[],"result":0},
{"on":"api","op":"D","args":[],"result":0}])");
    log.Enter(L"api", L"E", L"[\"\xE9\"]", -5);
    EXPECT_EQ(log.Take(), L"[{\"on\":\"api\",\"op\":\"E\",\"args\":[\"\xE9\"],\"result\":-5}]");

    CallLog small(10, 100);
    for (const wchar_t* operation : {L"A", L"B", L"C"}) small.Enter(L"api", operation, L"[]", S_OK);
    EXPECT_TRUE(small.Take().starts_with(LR"([{"on":"log","op":"lost","args":[1],"result":0},)"));
    small.Enter(L"api", L"D", L"[" + std::wstring(100, L'1') + L"]", S_OK);
    EXPECT_EQ(small.Take(), LR"([{"on":"log","op":"lost","args":[1],"result":0}])");
}

TEST(CallLogTest, OfLongArraysTheFirstElementsAreTold) {
    for (const size_t count : {100u, 101u}) {
        std::wstring first = L"[\"\"";
        for (int i = 1; i < 100; ++i) first += L",\"\"";
        first += L']';
        std::wstring json;
        Argument(TextArray(std::vector<std::wstring>(count)).get()).AppendTo(json);
        EXPECT_EQ(json, count == 100 ? first : L"{\"count\":101,\"first\":" + first + L"}");
    }
}

TEST(CallLogTest, ValuesAreWrittenAsJson) {
    const std::pair<std::wstring, std::wstring> texts[] = {
        {L"", LR"("")"},
        {L"a\"b\\c/\x7f", L"\"a\\\"b\\\\c/\x7f\""},
        {std::wstring(L"\0\x1f", 2), LR"("\u0000\u001f")"},
        {L"\xE9\x4E2D\x1F600", L"\"\xE9\x4E2D\x1F600\""},
        {std::wstring{static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000)}, L"\"\xFFFD\xFFFD\""},
    };
    for (const auto& [text, expected] : texts) {
        std::wstring json;
        AppendJsonText(json, text);
        EXPECT_EQ(json, expected);
    }
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const std::pair<double, const wchar_t*> numbers[] = {
        {0.1, L"0.1"},
        {-0.0, L"-0"},
        {20, L"20"},
        {1e300, L"1e+300"},
        {kInfinity, L"\"Infinity\""},
        {-kInfinity, L"\"-Infinity\""},
        {std::numeric_limits<double>::quiet_NaN(), L"\"NaN\""},
    };
    for (const auto& [number, expected] : numbers) {
        std::wstring json;
        AppendJsonNumber(json, number);
        EXPECT_EQ(json, expected);
    }
}

TEST(CallLogTest, TextsOfArgumentsAreCharacters) {
    EXPECT_TRUE(IsJsonArray(L"[\"\x1F600\\u00e9\\uD83d\\ude00\"]"));
    for (const std::wstring& bad :
         {std::wstring{wchar_t{0xD800}}, std::wstring{wchar_t{0x7FFFFFFF}}, std::wstring(L"\\ud800"),
          std::wstring(L"\\ude00\\ud83d"), std::wstring(L"\\ud83d\\u0041"), std::wstring(L"\\u12g4")})
        EXPECT_FALSE(IsJsonArray(L"[\"" + bad + L"\"]")) << bad.size();
}

}  // namespace
}  // namespace hx::simulator
