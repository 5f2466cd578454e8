#include "platform/com/variant.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>

#include "platform/com/comptr.h"
#include "platform/com/safearray.h"
#include "tests/platform/counted.h"

namespace {

using namespace std::string_view_literals;

hx::Variant Of(VARTYPE type, int64_t bits = 0) {
    VARIANT value{};
    value.vt = type;
    value.llVal = bits;
    hx::Variant owner;
    owner.attach(value);
    return owner;
}
VARIANT Plain(int type, int64_t bits) {
    return Of(static_cast<VARTYPE>(type), bits).detach();
}
hx::Variant Text(std::wstring_view text) {
    return hx::Variant(text);
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
}

TEST(Variant, ReferencesAreNotOwned) {
    const hx::Bstr string(L"theirs"sv);
    BSTR raw = string.get();
    VARIANT reference = Plain(VT_BYREF | VT_BSTR, 0);
    reference.pbstrVal = &raw;
    hx::Variant copy;
    EXPECT_EQ(VariantCopy(copy.put(), &reference), S_OK);
    EXPECT_EQ(copy->pbstrVal, &raw);
    EXPECT_EQ(VariantClear(&reference), S_OK);
    EXPECT_EQ(string.view(), L"theirs"sv);
}

TEST(Variant, UnknownKindsAreRefusedAndKept) {
    for (const int bad : {15, 24, 36, +VT_VARIANT, +VT_ARRAY, VT_BYREF | VT_NULL, 0x8000 | VT_I4}) {
        VARIANT value = Plain(bad, 7);
        EXPECT_EQ(VariantClear(&value), DISP_E_BADVARTYPE) << bad;
        EXPECT_TRUE(value.vt == bad && value.llVal == 7) << bad;
        VARIANT kept = Plain(VT_I4, 5);
        EXPECT_EQ(VariantCopy(&kept, &value), DISP_E_BADVARTYPE) << bad;
        EXPECT_TRUE(kept.vt == VT_I4 && kept.lVal == 5) << bad;
    }
}

TEST(Variant, ALockedArrayStays) {
    VARIANT value = Plain(VT_ARRAY | VT_I4, 0);
    value.parray = SafeArrayCreateVector(VT_I4, 0, 1);
    void* data = nullptr;
    EXPECT_EQ(SafeArrayAccessData(value.parray, &data), S_OK);
    EXPECT_EQ(VariantClear(&value), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(value.vt, VT_ARRAY | VT_I4);
    EXPECT_EQ(VariantCopy(&value, &hx::Variant(true).get()), DISP_E_ARRAYISLOCKED);
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
    EXPECT_TRUE(object.held == 0 && first.type() == VT_BOOL && first->boolVal == VARIANT_TRUE);
    EXPECT_EQ(hx::Variant(L"a pointer is no bool").type(), VT_BSTR);
}

// True if the two are of the same kind and value. What lies behind a short value does not matter.
bool Same(const hx::Variant& left, const hx::Variant& right) {
    const VARTYPE type = left.type();
    if (type != right.type()) return false;
    if (type == VT_BSTR) return left->bstrVal && TextOf(left) == TextOf(right);
    const bool is_byte = type == VT_I1 || type == VT_UI1;
    const bool is_word = type == VT_I2 || type == VT_BOOL;
    const bool is_wide = type == VT_I8 || type == VT_UI8 || type == VT_R8;
    return std::memcmp(&left->llVal, &right->llVal, is_byte ? 1 : is_word ? 2 : is_wide ? 8 : 4) == 0;
}

TEST(Variant, ConvertsOrSaysWhyNot) {
    using hx::Variant;
    struct Row {
        Variant source;
        Variant expected;  // on failure, the kind asked for
        HRESULT result = S_OK;
        USHORT flags = 0;
    };
    // clang-format off
    const Row rows[] = {
        // Integers keep their value or overflow.
        {Of(VT_I4, -1), Of(VT_I2, -1)}, {Of(VT_I4, 70000), Of(VT_I2), DISP_E_OVERFLOW},
        {Of(VT_I4, -128), Of(VT_I1, -128)}, {Of(VT_I4, -129), Of(VT_I1), DISP_E_OVERFLOW},
        {Of(VT_I4, 255), Of(VT_UI1, 255)}, {Of(VT_I4, 256), Of(VT_UI1), DISP_E_OVERFLOW},
        {Of(VT_I4, -1), Of(VT_UI4), DISP_E_OVERFLOW}, {Of(VT_UI4, 0xFFFFFFFF), Of(VT_I4), DISP_E_OVERFLOW},
        {Of(VT_UI4, 0xFFFFFFFF), Of(VT_I8, 0xFFFFFFFF)}, {Of(VT_UI8, -1), Of(VT_I8), DISP_E_OVERFLOW},
        {Of(VT_I8, INT64_MIN), Of(VT_UI8), DISP_E_OVERFLOW}, {Of(VT_INT, 5), Of(VT_UINT, 5)},
        {Of(VT_EMPTY), Of(VT_I4, 0)}, {Of(VT_NULL), Of(VT_I4), DISP_E_TYPEMISMATCH},
        {Of(VT_I4, 5), Of(VT_UNKNOWN), DISP_E_TYPEMISMATCH}, {Of(VT_UNKNOWN), Of(VT_I4), DISP_E_TYPEMISMATCH},
        // True is -1, and anything but zero is true.
        {Variant(true), Of(VT_I4, -1)}, {Variant(true), Of(VT_UI1, 255)},
        {Variant(true), Of(VT_UI4, 0xFFFFFFFF)}, {Of(VT_I4, 7), Variant(true)},
        {Of(VT_I4, 0), Variant(false)}, {Variant(0.25), Variant(true)},
        // Fractions round half to even.
        {Variant(0.5), Of(VT_I4, 0)}, {Variant(1.5), Of(VT_I4, 2)}, {Variant(-2.5), Of(VT_I4, -2)},
        {Variant(2147483647.4), Of(VT_I4, 2147483647)}, {Variant(2147483647.5), Of(VT_I4), DISP_E_OVERFLOW},
        {Variant(-0.6), Of(VT_UI4), DISP_E_OVERFLOW}, {Variant(0x1p63), Of(VT_I8), DISP_E_OVERFLOW},
        {Variant(-0x1p63), Of(VT_I8, INT64_MIN)}, {Variant(0x1p63), Of(VT_UI8, INT64_MIN)},
        {Variant(0x1p64), Of(VT_UI8), DISP_E_OVERFLOW}, {Variant(std::nan("")), Of(VT_I4), DISP_E_OVERFLOW},
        {Variant(INFINITY), Of(VT_I8), DISP_E_OVERFLOW},
        // To text.
        {Of(VT_I8, INT64_MIN), Text(L"-9223372036854775808")},
        {Of(VT_UI8, -1), Text(L"18446744073709551615")}, {Variant(true), Text(L"-1")},
        {Variant(false), Text(L"0")}, {Variant(true), Text(L"True"), S_OK, VARIANT_ALPHABOOL},
        {Variant(false), Text(L"False"), S_OK, VARIANT_ALPHABOOL}, {Variant(-2.0), Text(L"-2")},
        {Variant(1234567.875), Text(L"1234567.875")}, {Variant(1e20), Text(L"1E+20")},
        {Variant(1.0 / 3), Text(L"0.333333333333333")},
        {Of(VT_R4, std::bit_cast<int32_t>(0.1f)), Text(L"0.1")}, {Of(VT_EMPTY), Text(L"")},
        // From text, with all 64 bits.
        {Text(L"  -2.5\t"), Variant(-2.5)}, {Text(L"+7"), Variant(7.0)}, {Text(L".5"), Variant(0.5)},
        {Text(L"5."), Variant(5.0)}, {Text(L"-1.5E-1"), Variant(-0.15)},
        {Text(L"18446744073709551616"), Variant(0x1p64)}, {Text(L"1e999"), Of(VT_R8), DISP_E_OVERFLOW},
        {Text(L"2.5"), Of(VT_I8, 2)}, {Text(L"9007199254740993"), Of(VT_I8, 9007199254740993)},
        {Text(L"-9223372036854775808"), Of(VT_I8, INT64_MIN)},
        {Text(L"18446744073709551615"), Of(VT_UI8, -1)}, {Text(L"tRUE"), Variant(true)},
        {Text(L"FALSE"), Variant(false)}, {Text(L"2"), Variant(true)}, {Text(L"0.0"), Variant(false)},
        {Text(L"yes"), Of(VT_BOOL), DISP_E_TYPEMISMATCH},
    };
    // clang-format on
    const Variant kept = Of(VT_I2, 99);
    for (const Row& row : rows) {
        VARIANT raw = Plain(VT_I2, 99);
        EXPECT_EQ(VariantChangeType(&raw, &row.source.get(), row.flags, row.expected.type()), row.result)
            << &row - rows;
        Variant target;
        target.attach(raw);
        EXPECT_TRUE(Same(target, FAILED(row.result) ? kept : row.expected)) << &row - rows;
    }
    for (const auto text : {L""sv, L" "sv, L"."sv, L"1,5"sv, L"1 5"sv, L"1e"sv, L"e5"sv, L"+-1"sv, L"0x10"sv,
                            L"inf"sv, L"nan"sv, L"1\0"sv, L"\uFF11"sv, L"true"sv}) {
        Variant target;
        EXPECT_EQ(VariantChangeType(target.put(), &Text(text).get(), 0, VT_R8), DISP_E_TYPEMISMATCH);
    }
}

TEST(Variant, ConvertsInPlace) {
    VARIANT value = Text(L"12").detach();
    EXPECT_EQ(VariantChangeType(&value, &value, 0, VT_I4), S_OK);
    EXPECT_TRUE(value.vt == VT_I4 && value.lVal == 12);
    EXPECT_EQ(VariantChangeType(&value, &value, 0, VT_BSTR), S_OK);
    EXPECT_EQ(VariantChangeType(&value, &value, 0, VT_BSTR), S_OK);
    hx::Variant owner;
    owner.attach(value);
    EXPECT_EQ(TextOf(owner), L"12"sv);
}

}  // namespace
