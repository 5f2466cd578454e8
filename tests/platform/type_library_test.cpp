// A table of types and classes as ITypeLib gives it: places, names in any case, and what is not there.
#include "platform/com/type_library.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/com/class_table.h"

HX_IID(IFold, "A0000000-0000-0000-0000-000000000020")
HX_IID(ISheet, "A0000000-0000-0000-0000-000000000021")
struct ISheet : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE Fold() = 0;
};

namespace {

using hx::ComPtr;

constexpr GUID kLibId = hx::MakeGuid("A0000000-0000-0000-0000-000000000022");
constexpr CLSID kEnvelopeId = hx::MakeGuid("A0000000-0000-0000-0000-000000000023");
constexpr hx::DispatchMember kMembers[] = {hx::DispatchMembersOf<ISheet>::Method<&ISheet::Fold>(5, L"Fold")};
constexpr hx::DispatchType kSheet{L"ISheet", IID_ISheet, kMembers};
constexpr hx::DispatchType kFold{L"FOLD", IID_IFold, {}, TKIND_INTERFACE, 0};
constexpr const hx::DispatchType* kTypes[] = {&kFold, &kSheet};
constexpr hx::ImplementedType kInterfaces[] = {{&kSheet, IMPLTYPEFLAG_FDEFAULT}, {&kFold, 0}};
constexpr hx::LibraryClass kClasses[] = {{L"Envelope", kEnvelopeId, TYPEFLAG_FCANCREATE, kInterfaces}};
constexpr hx::TypeLibrary kPaper{kLibId, L"Paper", L"Paper 3.7", 3, 7, kTypes, kClasses};
const hx::ModuleTypes g_types(kPaper);

class TypeLibrary : public testing::Test {
protected:
    void SetUp() override {
        ComPtr<ITypeInfo> sheet;
        ASSERT_EQ(hx::DescribeType(kSheet, sheet.put()), S_OK);
        UINT index = 0;
        ASSERT_EQ(sheet->GetContainingTypeLib(m_library.put(), &index), S_OK);
        EXPECT_EQ(index, 1u);
    }
    ComPtr<ITypeLib> m_library;
};

TEST_F(TypeLibrary, NamesOfTypesAndMembersAreFoundInAnyCase) {
    const struct {
        std::wstring asked;
        USHORT room;
        std::wstring spelled;
        std::vector<MEMBERID> found;
        BOOL is_name;
    } rows[] = {
        {L"fold", 3, L"FOLD", {MEMBERID_NIL, 5}, 1},
        {L"fold", 1, L"FOLD", {MEMBERID_NIL}, 1},
        {L"fold", 0, L"fold", {}, 1},
        {L"ENVELOPE", 3, L"Envelope", {MEMBERID_NIL}, 1},
        {L"Paper", 3, L"Paper", {}, 0},
        {L"isheets", 3, L"isheets", {}, 0},
    };
    for (const auto& row : rows) {
        std::wstring name = row.asked;
        USHORT count = row.room;
        ComPtr<ITypeInfo> infos[3];
        ITypeInfo* raw[3] = {};
        MEMBERID members[3] = {};
        EXPECT_EQ(m_library->FindName(name.data(), 0, raw, members, &count), S_OK);
        for (size_t i = 0; i < 3; ++i) infos[i].attach(raw[i]);
        EXPECT_EQ(name, row.spelled) << &row - rows;
        EXPECT_EQ(std::vector(members, members + count), row.found) << &row - rows;
        BOOL is_name = 7;
        EXPECT_EQ(m_library->IsName(name.data(), 0, &is_name), S_OK);
        EXPECT_EQ(is_name, row.is_name) << &row - rows;
    }
}

TEST_F(TypeLibrary, WhatIsNotListedIsNullAndWhatIsHeldKeepsTheLibrary) {
    const hx::ModuleClasses classes({});
    ComPtr<ITypeInfo> envelope;
    ASSERT_EQ(m_library->GetTypeInfoOfGuid(kEnvelopeId, envelope.put()), S_OK);
    auto* other = reinterpret_cast<ITypeInfo*>(this);
    EXPECT_EQ(m_library->GetTypeInfo(3, &other), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(m_library->GetTypeInfoOfGuid(kLibId, &other), TYPE_E_ELEMENTNOTFOUND);
    HREFTYPE type = 9;
    EXPECT_EQ(envelope->GetRefTypeOfImplType(2, &type), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(type, 0u);
    EXPECT_EQ(envelope->Invoke(this, 5, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(m_library->GetLibAttr(&attributes), S_OK);
    EXPECT_TRUE(attributes->guid == kLibId && attributes->wMajorVerNum == 3 && attributes->wMinorVerNum == 7);
    m_library->ReleaseTLibAttr(attributes);

    m_library.reset();
    EXPECT_EQ(classes.CanUnloadNow(), S_FALSE);
    ASSERT_EQ(envelope->GetContainingTypeLib(m_library.put(), nullptr), S_OK);
    envelope.reset();
    EXPECT_EQ(classes.CanUnloadNow(), S_FALSE);
    m_library.reset();
    EXPECT_EQ(classes.CanUnloadNow(), S_OK);
}

}  // namespace
