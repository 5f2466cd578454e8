#include "platform/com/guid.h"

#include <gtest/gtest.h>

#include "platform/com/hresult.h"

namespace {

constexpr GUID sample = hx::MakeGuid("{12345678-9abc-DEF0-1122-334455667788}");
static_assert(sample.Data1 == 0x12345678 && sample.Data2 == 0x9ABC && sample.Data3 == 0xDEF0);
static_assert(sample.Data4[0] == 0x11 && sample.Data4[1] == 0x22 && sample.Data4[7] == 0x88);

TEST(Guid, TextIsReadStrictlyAndWrittenInUpperCase) {
    EXPECT_EQ(hx::GuidToText(sample), L"{12345678-9ABC-DEF0-1122-334455667788}");
    struct Row {
        std::wstring_view text;
        bool good;
    };
    const Row rows[] = {
        {L"{12345678-9ABC-def0-1122-334455667788}", true},
        {L"12345678-9ABC-DEF0-1122-334455667788", true},
        {L"{12345678-9ABC-DEF0-1122-334455667788", false},
        {L"12345678-9ABC-DEF0-1122-334455667788}", false},
        {L" {12345678-9ABC-DEF0-1122-334455667788}", false},
        {L"{12345678-9ABC-DEF0-1122-3344556677889}", false},
        {L"{1234567-89ABC-DEF0-1122-334455667788}", false},
        {L"{12345678-9ABC-DEF0-1122-33445566778G}", false},
        {L"{12345678-9ABC-DEF0-1122-33445566778\uFF18}", false},
        {L"123456789ABCDEF01122334455667788", false},
    };
    for (const Row& row : rows) {
        GUID guid = row.good ? GUID_NULL : sample;
        EXPECT_EQ(hx::GuidFromText(row.text, guid), row.good) << &row - rows;
        EXPECT_EQ(guid, sample) << &row - rows;
    }
}

TEST(Guid, EveryByteCounts) {
    for (size_t i = 0; i < sizeof(GUID); ++i) {
        GUID other = sample;
        reinterpret_cast<uint8_t*>(&other)[i] ^= 1;
        EXPECT_FALSE(other == sample) << i;
        GUID back{};
        EXPECT_TRUE(hx::GuidFromText(hx::GuidToText(other), back) && back == other) << i;
    }
}

TEST(Hresult, NamesAreTheConstants) {
    EXPECT_EQ(hx::HresultName(S_FALSE), "S_FALSE");
    EXPECT_EQ(hx::HresultName(static_cast<HRESULT>(0x80070057)), "E_INVALIDARG");
    EXPECT_EQ(hx::HresultName(static_cast<HRESULT>(0x80040154)), "REGDB_E_CLASSNOTREG");
    EXPECT_EQ(hx::HresultName(static_cast<HRESULT>(0x80020005)), "DISP_E_TYPEMISMATCH");
    EXPECT_EQ(hx::HresultName(static_cast<HRESULT>(0x80040202)), "CONNECT_E_CANNOTCONNECT");
    EXPECT_EQ(hx::HresultName(static_cast<HRESULT>(0x80004006)), "");
    HRESULT result = S_FALSE;
    for (const char* unknown : {"", "E_", "e_fail"}) EXPECT_FALSE(hx::HresultOfName(unknown, result));
    EXPECT_EQ(result, S_FALSE);
    EXPECT_TRUE(hx::HresultOfName("DISP_E_TYPEMISMATCH", result));
    EXPECT_EQ(result, DISP_E_TYPEMISMATCH);
}

}  // namespace
