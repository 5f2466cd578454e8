#include "platform/com/text_array.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "platform/com/comptr.h"
#include "tests/platform/counted.h"

namespace {

using namespace std::string_view_literals;

TEST(SafeArray, ElementsHaveTheSizeOfTheirType) {
    struct Row {
        VARTYPE type;
        UINT size;  // zero: cannot be an element
    };
    // clang-format off
    const Row rows[] = {
        {VT_I1, 1}, {VT_UI1, 1}, {VT_BOOL, 2}, {VT_I2, 2}, {VT_UI2, 2}, {VT_I4, 4}, {VT_UI4, 4},
        {VT_INT, 4}, {VT_UINT, 4}, {VT_R4, 4}, {VT_ERROR, 4}, {VT_I8, 8}, {VT_UI8, 8}, {VT_R8, 8},
        {VT_CY, 8}, {VT_DATE, 8}, {VT_BSTR, 8}, {VT_UNKNOWN, 8}, {VT_DISPATCH, 8}, {VT_VARIANT, 24},
        {VT_EMPTY, 0}, {VT_NULL, 0}, {15, 0}, {36, 0}, {VT_ARRAY | VT_I4, 0}, {VT_BYREF | VT_I4, 0},
    };
    // clang-format on
    for (const Row& row : rows) {
        const hx::SafeArray array(SafeArrayCreateVector(row.type, 0, 3));
        EXPECT_EQ(static_cast<bool>(array), row.size != 0) << row.type;
        if (!array) continue;
        VARTYPE type = VT_EMPTY;
        EXPECT_EQ(SafeArrayGetVartype(array.get(), &type), S_OK);
        EXPECT_TRUE(type == row.type && SafeArrayGetElemsize(array.get()) == row.size) << row.type;
    }
}

TEST(SafeArray, BoundsAreInclusive) {
    SAFEARRAYBOUND bounds[] = {{2, -5}, {0, 7}, {1, 2147483647}};
    const hx::SafeArray array(SafeArrayCreate(VT_I4, 3, bounds));
    ASSERT_TRUE(array);
    const LONG expected[][2] = {{-5, -4}, {7, 6}, {2147483647, 2147483647}};
    LONG bound = 0;
    for (UINT i = 0; i < 3; ++i) {
        EXPECT_TRUE(SafeArrayGetLBound(array.get(), i + 1, &bound) == S_OK && bound == expected[i][0]) << i;
        EXPECT_TRUE(SafeArrayGetUBound(array.get(), i + 1, &bound) == S_OK && bound == expected[i][1]) << i;
    }
    EXPECT_EQ(SafeArrayGetLBound(array.get(), 0, &bound), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 4, &bound), DISP_E_BADINDEX);
}

TEST(SafeArray, SizesThatCannotBeFail) {
    EXPECT_EQ(SafeArrayCreateVector(VT_VARIANT, 1, 0xFFFFFFFF), nullptr);  // upper bound
    EXPECT_EQ(SafeArrayCreateVector(VT_I4, -2147483647 - 1, 0), nullptr);  // upper bound, below
    // 2^31 * 2^31 * 4 wraps to zero in 64 bits, with an empty dimension as well.
    SAFEARRAYBOUND huge[] = {{0x80000000, -1}, {0x80000000, -1}, {4, 0}, {0, 0}};
    EXPECT_EQ(SafeArrayCreate(VT_UI1, 3, huge), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_UI1, 4, huge), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_R8, 2, huge), nullptr);

    SAFEARRAYBOUND bound{1, 0};
    EXPECT_EQ(SafeArrayCreate(VT_I4, 0, &bound), nullptr);
    std::vector<SAFEARRAYBOUND> many(65536, bound);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 65536, many.data()), nullptr);
    EXPECT_TRUE(hx::SafeArray(SafeArrayCreate(VT_I4, 65535, many.data())));
}

TEST(SafeArray, LeftmostIndexVariesFastest) {
    SAFEARRAYBOUND bounds[] = {{2, 10}, {3, 20}};
    const hx::SafeArray array(SafeArrayCreate(VT_I4, 2, bounds));
    ASSERT_TRUE(array);
    void* data = nullptr;
    ASSERT_EQ(SafeArrayAccessData(array.get(), &data), S_OK);
    auto* numbers = static_cast<int32_t*>(data);
    EXPECT_EQ(numbers[5], 0);
    std::iota(numbers, numbers + 6, 100);
    EXPECT_EQ(SafeArrayUnaccessData(array.get()), S_OK);
    LONG inside[][2] = {{10, 20}, {11, 20}, {10, 21}, {11, 21}, {10, 22}, {11, 22}};
    for (int32_t i = 0; i < 6; ++i) {
        int32_t value = 0;
        EXPECT_EQ(SafeArrayGetElement(array.get(), inside[i], &value), S_OK);
        EXPECT_EQ(value, 100 + i);
    }
    LONG outside[][2] = {{9, 20}, {12, 20}, {10, 19}, {10, 23}, {-2147483647 - 1, 20}};
    for (LONG* indices : outside) {
        int32_t value = 7;
        EXPECT_EQ(SafeArrayGetElement(array.get(), indices, &value), DISP_E_BADINDEX);
        EXPECT_EQ(SafeArrayPutElement(array.get(), indices, &value), DISP_E_BADINDEX);
        EXPECT_EQ(value, 7);
    }

    hx::SafeArray copy;
    EXPECT_EQ(array.copy_to(copy.put()), S_OK);
    LONG lower = 0;
    int32_t value = 0;
    EXPECT_EQ(SafeArrayGetLBound(copy.get(), 1, &lower), S_OK);
    EXPECT_EQ(SafeArrayGetElement(copy.get(), inside[5], &value), S_OK);
    EXPECT_TRUE(lower == 10 && value == 105) << "a copy has the same shape";
}

TEST(SafeArray, OwnsItsStrings) {
    hx::SafeArray array(SafeArrayCreateVector(VT_BSTR, 0, 2));
    LONG index = 0;
    EXPECT_EQ(SafeArrayPutElement(array.get(), &index, hx::Bstr(L"a\0b"sv).get()), S_OK);
    hx::Bstr out;
    hx::SafeArray copy;
    EXPECT_EQ(array.copy_to(copy.put()), S_OK);
    EXPECT_EQ(SafeArrayPutElement(array.get(), &index, hx::Bstr(L"new"sv).get()), S_OK);
    EXPECT_EQ(SafeArrayGetElement(copy.get(), &index, out.put()), S_OK);
    EXPECT_EQ(out.view(), L"a\0b"sv);
    EXPECT_EQ(SafeArrayPutElement(array.get(), &index, nullptr), S_OK);
    EXPECT_EQ(SafeArrayGetElement(array.get(), &index, out.put()), S_OK);
    EXPECT_TRUE(out.is_null());
}

TEST(SafeArray, OwnsItsObjects) {
    Counted object;
    {
        const hx::SafeArray array(SafeArrayCreateVector(VT_UNKNOWN, 1, 2));
        LONG index = 2;
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &object), S_OK);
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &object), S_OK);
        EXPECT_EQ(object.held, 1u);
        hx::SafeArray copy;
        EXPECT_EQ(array.copy_to(copy.put()), S_OK);
        const hx::SafeArray moved = std::move(copy);
        hx::ComPtr<IUnknown> out;
        EXPECT_EQ(SafeArrayGetElement(moved.get(), &index, out.put()), S_OK);
        EXPECT_EQ(object.held, 3u);
    }
    EXPECT_EQ(object.held, 0u);
}

TEST(SafeArray, OwnsItsVariants) {
    Counted object;
    {
        hx::SafeArray array(SafeArrayCreateVector(VT_VARIANT, 0, 2));
        LONG index = 0;
        const hx::Variant value(&object);
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, const_cast<VARIANT*>(&value.get())), S_OK);
        EXPECT_EQ(object.held, 2u);
        VARIANT bad{};
        bad.vt = 15;
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &bad), DISP_E_BADVARTYPE);
        EXPECT_EQ(object.held, 2u) << "the element stays on failure";

        // A copy that fails half way frees what it has copied so far.
        static_cast<VARIANT*>(array.get()->pvData)[1].vt = 15;
        SAFEARRAY* copy = array.get();
        EXPECT_EQ(SafeArrayCopy(array.get(), &copy), DISP_E_BADVARTYPE);
        EXPECT_EQ(copy, nullptr);
        EXPECT_EQ(object.held, 2u);
        static_cast<VARIANT*>(array.get()->pvData)[1].vt = VT_EMPTY;
    }
    EXPECT_EQ(object.held, 0u);
}

TEST(SafeArray, StaysWhileItsDataAreAccessed) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 1);
    void* data = nullptr;
    EXPECT_EQ(SafeArrayUnaccessData(array), E_UNEXPECTED);
    EXPECT_EQ(SafeArrayAccessData(array, &data), S_OK);
    EXPECT_EQ(SafeArrayAccessData(array, &data), S_OK);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, TextsCrossAndOtherArraysAreTold) {
    const std::vector<std::wstring> texts = {L"one", L"", std::wstring(L"a\0b", 3)};
    const hx::SafeArray array = hx::TextArray(texts);
    EXPECT_EQ(hx::TextsOf(array.get()), texts);
    EXPECT_EQ(hx::TextsOf(hx::TextArray({}).get()), std::vector<std::wstring>());
    EXPECT_EQ(hx::TextsOf(nullptr), std::vector<std::wstring>());
    // Null strings are empty; indices may begin anywhere.
    EXPECT_EQ(hx::TextsOf(hx::SafeArray(SafeArrayCreateVector(VT_BSTR, -2, 1)).get()),
              std::vector<std::wstring>(1));
    EXPECT_FALSE(hx::TextsOf(hx::SafeArray(SafeArrayCreateVector(VT_I4, 0, 1)).get()));
    SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
    EXPECT_FALSE(hx::TextsOf(hx::SafeArray(SafeArrayCreate(VT_BSTR, 2, bounds)).get()));
}

}  // namespace
