#include "platform/com/guid.h"

#include <gtest/gtest.h>

#include "platform/com/hresult.h"

namespace {

constexpr GUID sample = hx::MakeGuid("12345678-9abc-DEF0-1122-334455667788");
static_assert(sample.Data1 == 0x12345678 && sample.Data2 == 0x9ABC && sample.Data3 == 0xDEF0);
static_assert(sample.Data4[0] == 0x11 && sample.Data4[1] == 0x22 && sample.Data4[7] == 0x88);
static_assert(hx::MakeGuid("{12345678-9ABC-DEF0-1122-334455667788}") == sample);

TEST(Guid, TextIsBracedAndUpperCase) {
    EXPECT_EQ(hx::GuidToText(sample), L"{12345678-9ABC-DEF0-1122-334455667788}");
    EXPECT_EQ(hx::GuidToText(GUID_NULL), L"{00000000-0000-0000-0000-000000000000}");
}

TEST(Guid, TextIsReadStrictly) {
    const std::wstring_view good[] = {
        L"{12345678-9ABC-DEF0-1122-334455667788}",
        L"{12345678-9abc-def0-1122-334455667788}",
        L"12345678-9ABC-DEF0-1122-334455667788",
    };
    for (const auto text : good) {
        GUID guid{};
        EXPECT_TRUE(hx::GuidFromText(text, guid)) << text.data();
        EXPECT_EQ(guid, sample);
    }
    const std::wstring_view bad[] = {
        L"",
        L"{}",
        L"{12345678-9ABC-DEF0-1122-334455667788",
        L"12345678-9ABC-DEF0-1122-334455667788}",
        L"(12345678-9ABC-DEF0-1122-334455667788)",
        L" {12345678-9ABC-DEF0-1122-334455667788}",
        L"{12345678-9ABC-DEF0-1122-334455667788} ",
        L"{12345678-9ABC-DEF0-1122-33445566778}",
        L"{12345678-9ABC-DEF0-1122-3344556677889}",
        L"{1234567-89ABC-DEF0-1122-334455667788}",
        L"{12345678-9ABC-DEF0-1122-33445566778G}",
        L"{12345678-9ABC-DEF0-1122-33445566778\uFF18}",
        L"{12345678+9ABC-DEF0-1122-334455667788}",
        L"123456789ABCDEF01122334455667788",
        L"{{2345678-9ABC-DEF0-1122-33445566778}}",
    };
    for (const auto text : bad) {
        GUID guid = sample;
        EXPECT_FALSE(hx::GuidFromText(text, guid)) << hx::GuidToText(guid).c_str() << " from " << text.data();
        EXPECT_EQ(guid, sample) << "written on failure";
    }
}

TEST(Guid, EveryByteCounts) {
    for (size_t i = 0; i < sizeof(GUID); ++i) {
        GUID other = sample;
        reinterpret_cast<uint8_t*>(&other)[i] ^= 1;
        EXPECT_FALSE(other == sample) << i;
        GUID back{};
        EXPECT_TRUE(hx::GuidFromText(hx::GuidToText(other), back));
        EXPECT_EQ(back, other) << i;
    }
}

TEST(Hresult, FailureIsNegative) {
    EXPECT_TRUE(SUCCEEDED(S_FALSE) && !FAILED(S_OK));
    EXPECT_TRUE(FAILED(E_FAIL) && !SUCCEEDED(E_OUTOFMEMORY));
}

TEST(Hresult, NamesAreTheConstants) {
    EXPECT_EQ(hx::HresultName(S_OK), "S_OK");
    EXPECT_EQ(hx::HresultName(S_FALSE), "S_FALSE");
    EXPECT_EQ(hx::HresultName(static_cast<HRESULT>(0x80004005)), "E_FAIL");
    EXPECT_EQ(hx::HresultName(static_cast<HRESULT>(0x80070057)), "E_INVALIDARG");
    EXPECT_EQ(hx::HresultName(static_cast<HRESULT>(0x80040154)), "REGDB_E_CLASSNOTREG");
    EXPECT_EQ(hx::HresultName(static_cast<HRESULT>(0x80020005)), "DISP_E_TYPEMISMATCH");
    EXPECT_EQ(hx::HresultName(2), "");
    EXPECT_EQ(hx::HresultName(static_cast<HRESULT>(0x80004006)), "");
}

}  // namespace
