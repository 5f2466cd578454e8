#include "platform/com/bstr.h"

#include <gtest/gtest.h>

#include <new>

namespace {

using namespace std::string_view_literals;

// One character more than a 32-bit count of bytes can say.
constexpr UINT too_long = 0x40000000;

TEST(Bstr, KeepsEveryCharacter) {
    const std::wstring_view texts[] = {L""sv, L"a"sv, L"Scanner \u00e9\U0001F600"sv, L"a\0b\0"sv, L"\0"sv};
    for (const auto text : texts) {
        BSTR string = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        ASSERT_NE(string, nullptr);
        EXPECT_EQ(SysStringByteLen(string), text.size() * sizeof(wchar_t));
        EXPECT_EQ(std::wstring_view(string, SysStringLen(string)), text);
        EXPECT_EQ(string[text.size()], L'\0');
        SysFreeString(string);
        EXPECT_EQ(hx::Bstr(text).view(), text);
    }
}

TEST(Bstr, NullIsNotEmpty) {
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    EXPECT_EQ(SysStringByteLen(nullptr), 0u);
    SysFreeString(nullptr);

    const hx::Bstr null;
    const hx::Bstr empty(L""sv);
    EXPECT_TRUE(null.is_null() && hx::Bstr(null).is_null());
    EXPECT_FALSE(empty.is_null() || hx::Bstr(empty).is_null());
    EXPECT_EQ(null.view(), empty.view());
}

TEST(Bstr, LengthBeyond32BitsFails) {
    EXPECT_EQ(SysAllocStringLen(nullptr, 0xFFFFFFFF), nullptr);
    // Nothing of the text is read before its length is refused.
    EXPECT_THROW(hx::Bstr(std::wstring_view(L"short", too_long)), std::bad_alloc);

    hx::Bstr string(L"kept"sv);
    BSTR raw = string.detach();
    EXPECT_EQ(SysReAllocStringLen(&raw, L"short", too_long), FALSE);
    string.attach(raw);
    EXPECT_EQ(string.view(), L"kept"sv);
}

TEST(Bstr, ReallocationTakesPartsOfItself) {
    BSTR string = nullptr;
    EXPECT_EQ(SysReAllocStringLen(&string, L"abcdef", 6), TRUE);
    EXPECT_EQ(SysReAllocStringLen(&string, string + 2, 3), TRUE);
    EXPECT_EQ(std::wstring_view(string, SysStringLen(string)), L"cde"sv);
    EXPECT_EQ(SysReAllocStringLen(&string, nullptr, 4), TRUE);
    EXPECT_EQ(SysStringLen(string), 4u);
    EXPECT_EQ(std::wstring_view(string, 3), L"cde"sv);
    EXPECT_EQ(string[4], L'\0');
    SysFreeString(string);
}

TEST(Bstr, OwnersShareNothing) {
    hx::Bstr first(L"text"sv);
    hx::Bstr second = first;
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(second.view(), L"text"sv);
    BSTR const raw = first.get();
    hx::Bstr third = std::move(first);
    EXPECT_EQ(third.get(), raw);
    EXPECT_TRUE(first.is_null());  // NOLINT: emptied by the move, which is what is checked
    *third.put() = SysAllocString(L"other");
    BSTR out = nullptr;
    EXPECT_EQ(third.copy_to(&out), S_OK);
    EXPECT_NE(out, third.get());
    first.attach(out);
    EXPECT_EQ(first.view(), L"other"sv);
    EXPECT_EQ(hx::Bstr().copy_to(&out), S_OK);
    EXPECT_EQ(out, nullptr);
}

}  // namespace
