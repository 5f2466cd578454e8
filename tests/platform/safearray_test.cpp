#include "platform/com/safearray.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

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
        EXPECT_EQ(type, row.type);
        EXPECT_EQ(SafeArrayGetElemsize(array.get()), row.size) << row.type;
        EXPECT_EQ(SafeArrayGetDim(array.get()), 1u);
    }
}

TEST(SafeArray, BoundsAreInclusive) {
    SAFEARRAYBOUND bounds[] = {{2, -5}, {0, 7}, {1, 2147483647}};
    const hx::SafeArray array(SafeArrayCreate(VT_I4, 3, bounds));
    ASSERT_TRUE(array);
    const LONG expected[][2] = {{-5, -4}, {7, 6}, {2147483647, 2147483647}};
    for (UINT dimension = 1; dimension <= 3; ++dimension) {
        LONG lower = 0;
        LONG upper = 0;
        EXPECT_EQ(SafeArrayGetLBound(array.get(), dimension, &lower), S_OK);
        EXPECT_EQ(SafeArrayGetUBound(array.get(), dimension, &upper), S_OK);
        EXPECT_TRUE(lower == expected[dimension - 1][0] && upper == expected[dimension - 1][1]) << dimension;
    }
    LONG bound = 0;
    EXPECT_EQ(SafeArrayGetLBound(array.get(), 0, &bound), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 4, &bound), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 1, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetLBound(nullptr, 1, &bound), E_INVALIDARG);
}

TEST(SafeArray, SizesThatCannotBeFail) {
    EXPECT_EQ(SafeArrayCreateVector(VT_VARIANT, 1, 0xFFFFFFFF), nullptr);  // upper bound
    EXPECT_EQ(SafeArrayCreateVector(VT_I4, 2147483647, 2), nullptr);       // upper bound
    EXPECT_EQ(SafeArrayCreateVector(VT_I4, -2147483647 - 1, 0), nullptr);  // upper bound, below
    // 2^31 * 2^31 * 4 wraps to zero in 64 bits, with an empty dimension as well.
    SAFEARRAYBOUND huge[] = {{0x80000000, -1}, {0x80000000, -1}, {4, 0}, {0, 0}};
    EXPECT_EQ(SafeArrayCreate(VT_UI1, 3, huge), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_UI1, 4, huge), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_R8, 2, huge), nullptr);

    SAFEARRAYBOUND bound{1, 0};
    EXPECT_EQ(SafeArrayCreate(VT_I4, 0, &bound), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 1, nullptr), nullptr);
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
    struct Row {
        LONG indices[2];
        int32_t value;
    };
    Row rows[] = {{{10, 20}, 100}, {{11, 20}, 101}, {{10, 21}, 102}, {{11, 22}, 105}};
    for (Row& row : rows) {
        int32_t value = 0;
        EXPECT_EQ(SafeArrayGetElement(array.get(), row.indices, &value), S_OK);
        EXPECT_EQ(value, row.value);
    }
    Row outside[] = {{{9, 20}, 0}, {{12, 20}, 0}, {{10, 19}, 0}, {{10, 23}, 0}, {{-2147483647 - 1, 20}, 0}};
    for (Row& row : outside) {
        int32_t value = 7;
        EXPECT_EQ(SafeArrayGetElement(array.get(), row.indices, &value), DISP_E_BADINDEX);
        EXPECT_EQ(SafeArrayPutElement(array.get(), row.indices, &value), DISP_E_BADINDEX);
        EXPECT_EQ(value, 7);
    }
}

TEST(SafeArray, OwnsItsStrings) {
    hx::SafeArray array(SafeArrayCreateVector(VT_BSTR, 0, 2));
    LONG index = 0;
    {
        const hx::Bstr text(L"a\0b"sv);
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, text.get()), S_OK);
    }
    hx::Bstr out;
    EXPECT_EQ(SafeArrayGetElement(array.get(), &index, out.put()), S_OK);
    EXPECT_EQ(out.view(), L"a\0b"sv);

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
        hx::SafeArray array(SafeArrayCreateVector(VT_UNKNOWN, 1, 2));
        LONG index = 2;
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &object), S_OK);
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &object), S_OK);
        EXPECT_EQ(object.held, 1u);
        IUnknown* out = nullptr;
        EXPECT_EQ(SafeArrayGetElement(array.get(), &index, &out), S_OK);
        EXPECT_EQ(out, &object);
        EXPECT_EQ(object.held, 2u);
        out->Release();
        hx::SafeArray copy;
        EXPECT_EQ(array.copy_to(copy.put()), S_OK);
        EXPECT_EQ(object.held, 2u);
        const hx::SafeArray moved = std::move(copy);
        EXPECT_EQ(object.held, 2u);
    }
    EXPECT_EQ(object.held, 0u);
}

TEST(SafeArray, OwnsItsVariants) {
    Counted object;
    {
        hx::SafeArray array(SafeArrayCreateVector(VT_VARIANT, 0, 2));
        LONG index = 0;
        hx::Variant value(&object);
        VARIANT raw = value.detach();
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &raw), S_OK);
        EXPECT_EQ(VariantClear(&raw), S_OK);
        EXPECT_EQ(object.held, 1u);
        EXPECT_EQ(SafeArrayGetElement(array.get(), &index, value.put()), S_OK);
        EXPECT_EQ(object.held, 2u);

        VARIANT bad{};
        bad.vt = 15;
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &bad), DISP_E_BADVARTYPE);
        EXPECT_EQ(object.held, 2u) << "the element stays on failure";
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, nullptr), E_INVALIDARG);

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

TEST(SafeArray, ACopyHasTheSameShape) {
    SAFEARRAYBOUND bounds[] = {{2, 10}, {3, 20}};
    const hx::SafeArray array(SafeArrayCreate(VT_I2, 2, bounds));
    LONG indices[] = {11, 22};
    int16_t value = 77;
    EXPECT_EQ(SafeArrayPutElement(array.get(), indices, &value), S_OK);
    hx::SafeArray copy;
    EXPECT_EQ(array.copy_to(copy.put()), S_OK);
    LONG lower = 0;
    EXPECT_EQ(SafeArrayGetLBound(copy.get(), 1, &lower), S_OK);
    EXPECT_EQ(lower, 10);
    value = 0;
    EXPECT_EQ(SafeArrayGetElement(copy.get(), indices, &value), S_OK);
    EXPECT_EQ(value, 77);
    EXPECT_EQ(hx::SafeArray().copy_to(copy.put()), S_OK);
    EXPECT_FALSE(copy);
    EXPECT_EQ(array.copy_to(nullptr), E_POINTER);
}

TEST(SafeArray, StaysWhileItsDataAreAccessed) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 1);
    void* first = nullptr;
    void* second = nullptr;
    EXPECT_EQ(SafeArrayUnaccessData(array), E_UNEXPECTED);
    EXPECT_EQ(SafeArrayAccessData(array, &first), S_OK);
    EXPECT_EQ(SafeArrayAccessData(array, &second), S_OK);
    EXPECT_EQ(first, second);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    EXPECT_EQ(SafeArrayDestroy(nullptr), S_OK);
    EXPECT_EQ(SafeArrayAccessData(nullptr, &first), E_INVALIDARG);
    EXPECT_EQ(first, nullptr);
}

}  // namespace
