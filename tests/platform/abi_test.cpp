// Sizes, offsets, identifiers and slots that code compiled elsewhere relies on.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "platform/com/dispatch.h"
#include "platform/com/errorinfo.h"
#include "platform/com/implements.h"
#include "platform/com/safearray.h"

namespace {

static_assert(std::is_same_v<HRESULT, int32_t>);
static_assert(sizeof(GUID) == 16 && std::is_aggregate_v<GUID> && std::is_trivial_v<GUID>);
static_assert(offsetof(GUID, Data2) == 4 && offsetof(GUID, Data3) == 6 && offsetof(GUID, Data4) == 8);

static_assert(sizeof(VARIANT) == 24 && alignof(VARIANT) == 8 && std::is_trivial_v<VARIANT>);
static_assert(offsetof(VARIANT, vt) == 0 && offsetof(VARIANT, wReserved3) == 6);
static_assert(offsetof(VARIANT, lVal) == 8 && offsetof(VARIANT, bstrVal) == 8);
static_assert(offsetof(VARIANT, dblVal) == 8 && offsetof(VARIANT, parray) == 8);
static_assert(VARIANT_TRUE == -1 && sizeof(VARIANT_BOOL) == 2 && sizeof(VARTYPE) == 2);
static_assert(VT_BSTR == 8 && VT_DISPATCH == 9 && VT_BOOL == 11 && VT_VARIANT == 12 && VT_UNKNOWN == 13);
static_assert(VT_UI1 == 17 && VT_UI8 == 21 && VT_UINT == 23 && VT_ARRAY == 0x2000 && VT_BYREF == 0x4000);

static_assert(sizeof(SAFEARRAY) == 32 && sizeof(SAFEARRAYBOUND) == 8);
static_assert(offsetof(SAFEARRAY, fFeatures) == 2 && offsetof(SAFEARRAY, cbElements) == 4);
static_assert(offsetof(SAFEARRAY, cLocks) == 8 && offsetof(SAFEARRAY, pvData) == 16);
static_assert(offsetof(SAFEARRAY, rgsabound) == 24 && offsetof(SAFEARRAYBOUND, lLbound) == 4);

static_assert(sizeof(DISPPARAMS) == 24 && offsetof(DISPPARAMS, cArgs) == 16);
static_assert(sizeof(EXCEPINFO) == 64 && offsetof(EXCEPINFO, bstrSource) == 8);
static_assert(offsetof(EXCEPINFO, dwHelpContext) == 32 && offsetof(EXCEPINFO, scode) == 56);

// An interface is a vtable pointer and nothing else.
static_assert(sizeof(IUnknown) == 8 && sizeof(IDispatch) == 8 && sizeof(IErrorInfo) == 8);
static_assert(!std::has_virtual_destructor_v<IUnknown> && !std::has_virtual_destructor_v<IDispatch>);

TEST(Abi, InterfacesHaveTheirPublishedIds) {
    struct Row {
        const IID& iid;
        uint8_t bytes[16];  // as they lie in memory
    };
    const Row rows[] = {
        {IID_IUnknown, {0, 0, 0, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46}},
        {IID_IClassFactory, {1, 0, 0, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46}},
        {IID_IDispatch, {0, 4, 2, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46}},
        {IID_IErrorInfo,
         {0x20, 0xB1, 0xF2, 0x1C, 0x7D, 0x54, 0x1B, 0x10, 0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}},
        {IID_ICreateErrorInfo,
         {0x40, 0x33, 0xF0, 0x22, 0x7D, 0x54, 0x1B, 0x10, 0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}},
        {IID_ISupportErrorInfo,
         {0x60, 0x3D, 0x0B, 0xDF, 0x8F, 0x54, 0x1B, 0x10, 0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(std::memcmp(&row.iid, row.bytes, 16), 0) << &row - rows;
    }
    EXPECT_EQ(hx::uuid_of<IErrorInfo>(), IID_IErrorInfo);
}

// A pointer to a virtual member holds the byte offset of its slot; the lowest bit only says that it is
// virtual.
template <class Method>
size_t SlotOf(Method method) {
    static_assert(sizeof(method) >= sizeof(uintptr_t));
    uintptr_t offset = 0;
    std::memcpy(&offset, &method, sizeof(offset));
    return (offset & ~uintptr_t{1}) / sizeof(void*);
}

TEST(Abi, MethodsHaveTheirPublishedSlots) {
    struct Row {
        const char* method;
        size_t slot;
        size_t published;
    };
// NOLINTBEGIN(bugprone-macro-parentheses): a member's name takes none
#define SLOT(method, published) \
    { #method, SlotOf(&method), (published) }
    // NOLINTEND(bugprone-macro-parentheses)
    const Row rows[] = {
        SLOT(IUnknown::QueryInterface, 0),
        SLOT(IUnknown::AddRef, 1),
        SLOT(IUnknown::Release, 2),
        SLOT(IClassFactory::CreateInstance, 3),
        SLOT(IClassFactory::LockServer, 4),
        SLOT(IDispatch::GetTypeInfoCount, 3),
        SLOT(IDispatch::GetTypeInfo, 4),
        SLOT(IDispatch::GetIDsOfNames, 5),
        SLOT(IDispatch::Invoke, 6),
        SLOT(IErrorInfo::GetGUID, 3),
        SLOT(IErrorInfo::GetSource, 4),
        SLOT(IErrorInfo::GetDescription, 5),
        SLOT(IErrorInfo::GetHelpFile, 6),
        SLOT(IErrorInfo::GetHelpContext, 7),
        SLOT(ICreateErrorInfo::SetGUID, 3),
        SLOT(ICreateErrorInfo::SetSource, 4),
        SLOT(ICreateErrorInfo::SetDescription, 5),
        SLOT(ICreateErrorInfo::SetHelpFile, 6),
        SLOT(ICreateErrorInfo::SetHelpContext, 7),
        SLOT(ISupportErrorInfo::InterfaceSupportsErrorInfo, 3),
    };
#undef SLOT
    for (const Row& row : rows) EXPECT_EQ(row.slot, row.published) << row.method;
}

class Supporting final : public hx::Implements<Supporting, hx::FreeThreaded, ISupportErrorInfo> {
public:
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == IID_IDispatch ? S_OK : S_FALSE;
    }
};

TEST(Abi, AnObjectIsCallableThroughItsBareTable) {
    const auto object = hx::Make<Supporting>();
    ISupportErrorInfo* const self = object.get();
    void** table = nullptr;
    std::memcpy(&table, static_cast<void*>(self), sizeof(table));
    using Count = ULONG (*)(void*);
    using Supports = HRESULT (*)(void*, const IID*);
    EXPECT_EQ(reinterpret_cast<Count>(table[1])(self), 2u);
    EXPECT_EQ(reinterpret_cast<Count>(table[2])(self), 1u);
    EXPECT_EQ(reinterpret_cast<Supports>(table[3])(self, &IID_IDispatch), S_OK);
    EXPECT_EQ(reinterpret_cast<Supports>(table[3])(self, &IID_IUnknown), S_FALSE);
}

TEST(Abi, AStringHasItsLengthInFrontAndANulBehind) {
    const hx::Bstr string(std::wstring_view(L"a\0b", 3));
    uint32_t bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const char*>(string.get()) - 4, 4);
    EXPECT_EQ(bytes, 3 * sizeof(wchar_t));
    EXPECT_EQ(string.get()[3], L'\0');
}

TEST(Abi, AnArrayHasItsTypeInFrontAndItsBoundsReversed) {
    SAFEARRAYBOUND bounds[] = {{2, 10}, {3, 20}};
    const hx::SafeArray array(SafeArrayCreate(VT_I2, 2, bounds));
    uint32_t type = 0;
    std::memcpy(&type, reinterpret_cast<const char*>(array.get()) - 4, 4);
    EXPECT_EQ(type, VT_I2);
    EXPECT_EQ(array.get()->rgsabound[0].cElements, 3u);
    EXPECT_EQ(array.get()->rgsabound[0].lLbound, 20);
}

}  // namespace
