#include "platform/com/variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "platform/com/comptr.h"
#include "platform/com/safearray.h"
#include "tests/platform/counted.h"

namespace {

using namespace std::string_view_literals;

VARIANT Plain(VARTYPE type, uint64_t bits) {
    VARIANT value{};
    value.vt = type;
    value.ullVal = bits;
    return value;
}

hx::Variant Text(std::wstring_view text) {
    return hx::Variant(text);
}
hx::Variant Of(VARTYPE type, uint64_t bits) {
    hx::Variant value;
    value.attach(Plain(type, bits));
    return value;
}
std::wstring_view TextOf(const hx::Variant& value) {
    return {value->bstrVal ? value->bstrVal : L"", SysStringLen(value->bstrVal)};
}

TEST(Variant, CopiesOwnWhatTheyHold) {
    Counted object;
    {
        const hx::Variant held(&object);
        hx::Variant copy;
        EXPECT_EQ(VariantCopy(copy.put(), &held.get()), S_OK);
        EXPECT_EQ(object.held, 2u);
        EXPECT_EQ(VariantCopy(copy.put(), &held.get()), S_OK);
        EXPECT_EQ(object.held, 2u);
    }
    EXPECT_EQ(object.held, 0u);

    hx::Variant text = Text(L"a\0b"sv);
    VARIANT raw{};
    EXPECT_EQ(text.copy_to(&raw), S_OK);
    EXPECT_NE(raw.bstrVal, text->bstrVal);
    text = hx::Variant();
    hx::Variant back;
    back.attach(raw);
    EXPECT_EQ(TextOf(back), L"a\0b"sv);

    VARIANT null_string = Plain(VT_BSTR, 0);
    EXPECT_EQ(VariantCopy(back.put(), &null_string), S_OK);
    EXPECT_EQ(back->bstrVal, nullptr);
    EXPECT_EQ(back.copy_to(nullptr), E_POINTER);
}

TEST(Variant, ReferencesAreNotOwned) {
    BSTR string = SysAllocString(L"theirs");
    VARIANT reference = Plain(VT_BYREF | VT_BSTR, 0);
    reference.pbstrVal = &string;
    hx::Variant copy;
    EXPECT_EQ(VariantCopy(copy.put(), &reference), S_OK);
    EXPECT_EQ(copy->pbstrVal, &string);
    EXPECT_EQ(VariantClear(copy.put()), S_OK);
    EXPECT_EQ(VariantClear(&reference), S_OK);
    EXPECT_EQ(std::wstring_view(string), L"theirs"sv);
    SysFreeString(string);
}

TEST(Variant, UnknownKindsAreRefusedAndKept) {
    const int bad_kinds[] = {15, 24, 99, 36, VT_VARIANT, VT_ARRAY, VT_BYREF | VT_NULL, 0x8000 | VT_I4};
    for (const int bad : bad_kinds) {
        VARIANT value = Plain(static_cast<VARTYPE>(bad), 7);
        EXPECT_EQ(VariantClear(&value), DISP_E_BADVARTYPE) << bad;
        EXPECT_TRUE(value.vt == bad && value.llVal == 7) << bad;
        hx::Variant target(int32_t{5});
        VARIANT kept = target.detach();
        EXPECT_EQ(VariantCopy(&kept, &value), DISP_E_BADVARTYPE) << bad;
        EXPECT_TRUE(kept.vt == VT_I4 && kept.lVal == 5) << bad;
    }
    VARIANT value{};
    EXPECT_EQ(VariantClear(nullptr), E_INVALIDARG);
    EXPECT_EQ(VariantCopy(nullptr, &value), E_INVALIDARG);
    EXPECT_EQ(VariantCopy(&value, nullptr), E_INVALIDARG);
}

TEST(Variant, ALockedArrayStays) {
    VARIANT value = Plain(VT_ARRAY | VT_I4, 0);
    value.parray = SafeArrayCreateVector(VT_I4, 0, 1);
    void* data = nullptr;
    EXPECT_EQ(SafeArrayAccessData(value.parray, &data), S_OK);
    EXPECT_EQ(VariantClear(&value), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(value.vt, VT_ARRAY | VT_I4);
    const VARIANT number = Plain(VT_I4, 1);
    EXPECT_EQ(VariantCopy(&value, &number), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnaccessData(value.parray), S_OK);
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(value.vt, VT_EMPTY);
}

TEST(Variant, TheSourceMayLieInsideTheTarget) {
    hx::Variant inner = Text(L"inner");
    VARIANT outer = Plain(VT_ARRAY | VT_VARIANT, 0);
    outer.parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    LONG index = 0;
    EXPECT_EQ(SafeArrayPutElement(outer.parray, &index, const_cast<VARIANT*>(&inner.get())), S_OK);
    EXPECT_EQ(VariantCopy(&outer, static_cast<const VARIANT*>(outer.parray->pvData)), S_OK);
    inner.attach(outer);
    EXPECT_EQ(TextOf(inner), L"inner"sv);
}

TEST(Variant, OwnersMove) {
    Counted object;
    hx::Variant first(&object);
    hx::Variant second = std::move(first);
    EXPECT_EQ(first.type(), VT_EMPTY);  // NOLINT: emptied by the move, which is what is checked
    first = std::move(second);
    EXPECT_EQ(object.taken, 1u);
    first = hx::Variant(true);
    EXPECT_EQ(object.held, 0u);
    EXPECT_TRUE(first.type() == VT_BOOL && first->boolVal == VARIANT_TRUE);
    EXPECT_EQ(hx::Variant(L"pointer").type(), VT_BSTR);
    EXPECT_EQ(hx::Variant(0.5)->dblVal, 0.5);
}

constexpr uint64_t Bits(int64_t value) {
    return static_cast<uint64_t>(value);
}
uint64_t RealBits(double value) {
    return hx::Variant(value)->ullVal;
}

TEST(VariantConvert, IntegersKeepTheirValueOrOverflow) {
    struct Row {
        VARTYPE from;
        VARTYPE to;
        HRESULT result;
        uint64_t value;
        int64_t converted;
    };
    const Row rows[] = {
        {VT_I4, VT_I2, S_OK, Bits(-1), -1},
        {VT_I4, VT_I2, DISP_E_OVERFLOW, 70000, 0},
        {VT_I4, VT_I1, DISP_E_OVERFLOW, Bits(-129), 0},
        {VT_I4, VT_I1, S_OK, Bits(-128), -128},
        {VT_I4, VT_UI1, S_OK, 255, 255},
        {VT_I4, VT_UI1, DISP_E_OVERFLOW, 256, 0},
        {VT_I4, VT_UI4, DISP_E_OVERFLOW, Bits(-1), 0},
        {VT_UI4, VT_I4, DISP_E_OVERFLOW, 0xFFFFFFFF, 0},
        {VT_UI4, VT_I8, S_OK, 0xFFFFFFFF, 0xFFFFFFFF},
        {VT_UI8, VT_I8, DISP_E_OVERFLOW, UINT64_MAX, 0},
        {VT_I8, VT_UI8, DISP_E_OVERFLOW, Bits(INT64_MIN), 0},
        {VT_INT, VT_UINT, S_OK, 5, 5},
        {VT_EMPTY, VT_I4, S_OK, 0, 0},
        {VT_NULL, VT_I4, DISP_E_TYPEMISMATCH, 0, 0},
        {VT_BOOL, VT_I4, S_OK, 0xFFFF, -1},
        {VT_BOOL, VT_UI1, S_OK, 0xFFFF, 255},
        {VT_BOOL, VT_UI4, S_OK, 0xFFFF, 0xFFFFFFFF},
        {VT_I4, VT_BOOL, S_OK, 7, 0xFFFF},
        {VT_I4, VT_BOOL, S_OK, 0, 0},
        {VT_R8, VT_BOOL, S_OK, RealBits(0.25), 0xFFFF},
        {VT_R8, VT_I4, S_OK, RealBits(0.5), 0},
        {VT_R8, VT_I4, S_OK, RealBits(1.5), 2},
        {VT_R8, VT_I4, S_OK, RealBits(2.5), 2},
        {VT_R8, VT_I4, S_OK, RealBits(-1.5), -2},
        {VT_R8, VT_I4, S_OK, RealBits(2147483647.4), 2147483647},
        {VT_R8, VT_I4, DISP_E_OVERFLOW, RealBits(2147483647.5), 0},
        {VT_R8, VT_UI4, DISP_E_OVERFLOW, RealBits(-0.6), 0},
        {VT_R8, VT_I8, DISP_E_OVERFLOW, RealBits(0x1p63), 0},
        {VT_R8, VT_I8, S_OK, RealBits(-0x1p63), INT64_MIN},
        {VT_R8, VT_UI8, S_OK, RealBits(0x1p63), INT64_MIN},
        {VT_R8, VT_UI8, DISP_E_OVERFLOW, RealBits(0x1p64), 0},
        {VT_R8, VT_I4, DISP_E_OVERFLOW, RealBits(std::nan("")), 0},
        {VT_R8, VT_I8, DISP_E_OVERFLOW, RealBits(INFINITY), 0},
        {VT_I4, VT_UNKNOWN, DISP_E_TYPEMISMATCH, 5, 0},
        {VT_UNKNOWN, VT_I4, DISP_E_TYPEMISMATCH, 0, 0},
    };
    for (const Row& row : rows) {
        const VARIANT source = Plain(row.from, row.value);
        VARIANT target = Plain(VT_I2, 99);
        EXPECT_EQ(VariantChangeType(&target, &source, 0, row.to), row.result) << &row - rows;
        if (FAILED(row.result)) {
            EXPECT_TRUE(target.vt == VT_I2 && target.iVal == 99) << "written on failure, row " << &row - rows;
            continue;
        }
        const VARIANT expected = Plain(row.to, Bits(row.converted));
        EXPECT_EQ(target.vt, row.to);
        const bool is_byte = row.to == VT_I1 || row.to == VT_UI1;
        const bool is_word = row.to == VT_I2 || row.to == VT_BOOL;
        const bool is_wide = row.to == VT_I8 || row.to == VT_UI8;
        const size_t size = is_byte ? 1 : is_word ? 2 : is_wide ? 8 : 4;
        EXPECT_EQ(std::memcmp(&target.llVal, &expected.llVal, size), 0) << &row - rows;
    }
}

TEST(VariantConvert, NumbersBecomeText) {
    struct Row {
        hx::Variant source;
        USHORT flags;
        std::wstring_view text;
    };
    VARIANT third = Plain(VT_R4, 0);
    third.fltVal = 0.1f;
    const Row rows[] = {
        {hx::Variant(int32_t{-42}), 0, L"-42"},
        {Of(VT_I8, Bits(INT64_MIN)), 0, L"-9223372036854775808"},
        {Of(VT_UI8, UINT64_MAX), 0, L"18446744073709551615"},
        {hx::Variant(true), 0, L"-1"},
        {hx::Variant(false), 0, L"0"},
        {hx::Variant(true), VARIANT_ALPHABOOL, L"True"},
        {hx::Variant(false), VARIANT_ALPHABOOL, L"False"},
        {hx::Variant(0.1), 0, L"0.1"},
        {hx::Variant(-2.0), 0, L"-2"},
        {hx::Variant(1234567.875), 0, L"1234567.875"},
        {hx::Variant(1e20), 0, L"1E+20"},
        {hx::Variant(1.0 / 3), 0, L"0.333333333333333"},
        {Of(VT_R4, third.ullVal), 0, L"0.1"},
        {hx::Variant(), 0, L""},
    };
    for (const Row& row : rows) {
        hx::Variant target;
        EXPECT_EQ(VariantChangeType(target.put(), &row.source.get(), row.flags, VT_BSTR), S_OK);
        ASSERT_EQ(target.type(), VT_BSTR);
        EXPECT_NE(target->bstrVal, nullptr);
        EXPECT_EQ(TextOf(target), row.text);
    }
}

TEST(VariantConvert, TextBecomesNumbers) {
    struct Row {
        std::wstring_view text;
        HRESULT result;
        double value;
    };
    const Row rows[] = {
        {L"1.5"sv, S_OK, 1.5},
        {L"  -2\t"sv, S_OK, -2},
        {L"+7"sv, S_OK, 7},
        {L".5"sv, S_OK, 0.5},
        {L"5."sv, S_OK, 5},
        {L"1e3"sv, S_OK, 1000},
        {L"-1.5E-1"sv, S_OK, -0.15},
        {L"18446744073709551616"sv, S_OK, 0x1p64},
        {L"1e999"sv, DISP_E_OVERFLOW, 0},
        {L""sv, DISP_E_TYPEMISMATCH, 0},
        {L" "sv, DISP_E_TYPEMISMATCH, 0},
        {L"."sv, DISP_E_TYPEMISMATCH, 0},
        {L"1,5"sv, DISP_E_TYPEMISMATCH, 0},
        {L"1 5"sv, DISP_E_TYPEMISMATCH, 0},
        {L"1e"sv, DISP_E_TYPEMISMATCH, 0},
        {L"e5"sv, DISP_E_TYPEMISMATCH, 0},
        {L"+-1"sv, DISP_E_TYPEMISMATCH, 0},
        {L"0x10"sv, DISP_E_TYPEMISMATCH, 0},
        {L"inf"sv, DISP_E_TYPEMISMATCH, 0},
        {L"nan"sv, DISP_E_TYPEMISMATCH, 0},
        {L"1\0"sv, DISP_E_TYPEMISMATCH, 0},
        {L"\uFF11"sv, DISP_E_TYPEMISMATCH, 0},
        {L"true"sv, DISP_E_TYPEMISMATCH, 0},
    };
    for (const Row& row : rows) {
        const hx::Variant source = Text(row.text);
        hx::Variant target;
        EXPECT_EQ(VariantChangeType(target.put(), &source.get(), 0, VT_R8), row.result) << &row - rows;
        if (SUCCEEDED(row.result)) {
            EXPECT_EQ(target->dblVal, row.value) << &row - rows;
        }
    }
}

TEST(VariantConvert, TextKeepsAll64Bits) {
    struct Row {
        std::wstring_view text;
        VARTYPE type;
        uint64_t bits;
    };
    const Row rows[] = {
        {L"9223372036854775807", VT_I8, INT64_MAX},     {L"-9223372036854775808", VT_I8, Bits(INT64_MIN)},
        {L"18446744073709551615", VT_UI8, UINT64_MAX},  {L"2.5", VT_I8, 2},
        {L"9007199254740993", VT_I8, 9007199254740993},
    };
    for (const Row& row : rows) {
        const hx::Variant source = Text(row.text);
        hx::Variant target;
        EXPECT_EQ(VariantChangeType(target.put(), &source.get(), 0, row.type), S_OK) << &row - rows;
        EXPECT_EQ(target->ullVal, row.bits) << &row - rows;
    }
}

TEST(VariantConvert, TextBecomesTruth) {
    struct Row {
        std::wstring_view text;
        HRESULT result;
        VARIANT_BOOL value;
    };
    const Row rows[] = {
        {L"True", S_OK, VARIANT_TRUE}, {L"FALSE", S_OK, VARIANT_FALSE}, {L"-1", S_OK, VARIANT_TRUE},
        {L"0.0", S_OK, VARIANT_FALSE}, {L"2", S_OK, VARIANT_TRUE},      {L"yes", DISP_E_TYPEMISMATCH, 0},
        {L"", DISP_E_TYPEMISMATCH, 0},
    };
    for (const Row& row : rows) {
        const hx::Variant source = Text(row.text);
        hx::Variant target;
        EXPECT_EQ(VariantChangeType(target.put(), &source.get(), 0, VT_BOOL), row.result) << &row - rows;
        if (SUCCEEDED(row.result)) {
            EXPECT_EQ(target->boolVal, row.value) << &row - rows;
        }
    }
}

TEST(VariantConvert, InPlace) {
    VARIANT value{};
    VARIANT text = Text(L"12").detach();
    EXPECT_EQ(VariantChangeType(&text, &text, 0, VT_I4), S_OK);
    EXPECT_TRUE(text.vt == VT_I4 && text.lVal == 12);
    EXPECT_EQ(VariantChangeType(&text, &text, 0, VT_BSTR), S_OK);
    EXPECT_EQ(VariantChangeType(&text, &text, 0, VT_BSTR), S_OK);
    hx::Variant owner;
    owner.attach(text);
    EXPECT_EQ(TextOf(owner), L"12"sv);
    EXPECT_EQ(VariantChangeType(nullptr, &value, 0, VT_I4), E_INVALIDARG);
    EXPECT_EQ(VariantChangeType(&value, nullptr, 0, VT_I4), E_INVALIDARG);
}

}  // namespace
