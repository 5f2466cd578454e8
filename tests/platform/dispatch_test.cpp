// Calls by name and by number through a table of members, and what the table tells of itself.
#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/com/class_table.h"
#include "platform/com/errorinfo.h"
#include "platform/com/implements_dispatch.h"
#include "platform/com/ole_control.h"
#include "platform/com/safearray.h"
#include "tests/platform/counted.h"

HX_IID(IPlotter, "A0000000-0000-0000-0000-000000000011")
struct IPlotter : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE Draw(double length, int32_t pen, BSTR label, VARIANT_BOOL* more) = 0;
    virtual HRESULT STDMETHODCALLTYPE Attach(IUnknown* paper) = 0;
    virtual HRESULT STDMETHODCALLTYPE Fail() = 0;
    virtual HRESULT STDMETHODCALLTYPE Load(SAFEARRAY** pens) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Title(BSTR* title) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Title(BSTR title) = 0;
};

namespace {

using hx::ComPtr;
using hx::Variant;

class Plotter final : public hx::ImplementsDispatch<Plotter, hx::SingleThreaded, IPlotter, IDispatch> {
public:
    static const hx::DispatchType kDispatchType;

    HRESULT STDMETHODCALLTYPE Draw(double length, int32_t pen, BSTR label, VARIANT_BOOL* more) override {
        drawn = std::to_wstring(length) + L" " + std::to_wstring(pen) + L" " + label;
        *more = VARIANT_TRUE;
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Attach(IUnknown* paper) override {
        attached = paper;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Fail() override {
        if (!tell) return E_ABORT;
        ComPtr<ICreateErrorInfo> information;
        EXPECT_EQ(CreateErrorInfo(information.put()), S_OK);
        std::wstring text = L"no ink";
        EXPECT_EQ(information->SetDescription(text.data()), S_OK);
        EXPECT_EQ(information->SetSource(text.data() + 3), S_OK);
        EXPECT_EQ(information->SetHelpFile(text.data() + 1), S_OK);
        EXPECT_EQ(information->SetHelpContext(7), S_OK);
        EXPECT_EQ(SetErrorInfo(0, information.as<IErrorInfo>().get()), S_OK);
        return E_ACCESSDENIED;
    }

    HRESULT STDMETHODCALLTYPE Load(SAFEARRAY** pens) override {
        if (!*pens) throw std::runtime_error("no pens");
        return SafeArrayDestroy(std::exchange(*pens, nullptr));
    }
    HRESULT STDMETHODCALLTYPE get_Title(BSTR* text) override { return title.copy_to(text); }
    HRESULT STDMETHODCALLTYPE put_Title(BSTR text) override {
        if (SysStringLen(text) > 9) return E_INVALIDARG;
        title = hx::Bstr(std::wstring_view(text, SysStringLen(text)));
        return S_OK;
    }

    hx::Bstr title;
    std::wstring drawn;
    IUnknown* attached = nullptr;
    bool tell = false;
};

constexpr hx::DispatchMember kMembers[] = {
    hx::DispatchMembersOf<IPlotter>::Method<&IPlotter::Draw>(7, L"Draw", L"length", L"pen", L"label",
                                                             L"more"),
    hx::DispatchMembersOf<IPlotter>::Method<&IPlotter::Attach>(8, L"Attach", L"paper"),
    hx::DispatchMembersOf<IPlotter>::Method<&IPlotter::Fail>(-5, L"Fail"),
    hx::DispatchMembersOf<IPlotter>::Method<&IPlotter::Load>(9, L"Load", L"pens"),
    hx::DispatchMembersOf<IPlotter>::PropertyGet<&IPlotter::get_Title>(DISPID_CAPTION, L"Title"),
    hx::DispatchMembersOf<IPlotter>::PropertyPut<&IPlotter::put_Title>(DISPID_CAPTION, L"Title"),
};
const hx::DispatchType Plotter::kDispatchType{L"IPlotter", IID_IPlotter, kMembers};

Variant Reference(int type, const void* target) {
    VARIANT value{};
    value.vt = static_cast<VARTYPE>(VT_BYREF | type);
    value.byref = const_cast<void*>(target);
    Variant owner;
    owner.attach(value);
    return owner;
}
Variant Of(int type, int32_t value = 0) {
    Variant owner;
    owner.put()->vt = static_cast<VARTYPE>(type);
    const_cast<VARIANT&>(owner.get()).lVal = value;
    return owner;
}

class Dispatch : public testing::Test {
protected:
    // Arguments as they travel: the named ones, then the others, last one first.
    HRESULT Invoke(DISPID member, const std::vector<const Variant*>& given, std::vector<DISPID> named = {},
                   WORD flags = DISPATCH_METHOD) {
        std::vector<VARIANT> raw;
        for (const Variant* each : given) raw.push_back(each->get());
        DISPPARAMS arguments{raw.data(), named.data(), static_cast<UINT>(raw.size()),
                             static_cast<UINT>(named.size())};
        m_bad = kNone;
        m_plotter->drawn.clear();
        return m_plotter->Invoke(member, IID_NULL, 0, flags, &arguments, m_result.put(), &m_exception,
                                 &m_bad);
    }

    static constexpr UINT kNone = 99;
    const ComPtr<Plotter> m_plotter = hx::Make<Plotter>();
    EXCEPINFO m_exception{};
    Variant m_result;
    UINT m_bad = kNone;
};

TEST_F(Dispatch, GivesNumbersForNames) {
    struct Row {
        std::vector<const wchar_t*> names;
        HRESULT result;
        std::vector<DISPID> ids;
    };
    const Row rows[] = {
        {{L"Draw"}, S_OK, {7}},
        {{L"fAIL"}, S_OK, {-5}},
        {{L"draw", L"LABEL", L"length", L"more"}, S_OK, {7, 2, 0, 3}},
        {{L"Draw", L"paper", L"pen"}, DISP_E_UNKNOWNNAME, {7, -1, 1}},
        {{L"Draw", nullptr}, DISP_E_UNKNOWNNAME, {7, -1}},
        {{L"length", L"pen"}, DISP_E_UNKNOWNNAME, {-1, -1}},
        {{L"title"}, S_OK, {DISPID_CAPTION}},
        {{L"Title", L""}, DISP_E_UNKNOWNNAME, {DISPID_CAPTION, -1}},
        {{L"Dra"}, DISP_E_UNKNOWNNAME, {-1}},
        {{L"Draw "}, DISP_E_UNKNOWNNAME, {-1}},
        {{}, E_INVALIDARG, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        std::vector<LPOLESTR> names;
        for (const wchar_t* name : row.names) names.push_back(const_cast<LPOLESTR>(name));
        names.push_back(nullptr);
        std::vector<DISPID> ids(row.ids.size() + 1, 55);
        const auto count = static_cast<UINT>(row.names.size());
        EXPECT_EQ(m_plotter->GetIDsOfNames(IID_NULL, names.data(), count, 0, ids.data()), row.result);
        EXPECT_EQ(ids.back(), 55);
        ids.pop_back();
        EXPECT_EQ(ids, row.ids);
        EXPECT_EQ(m_plotter->GetIDsOfNames(IID_IDispatch, names.data(), count, 0, ids.data()),
                  DISP_E_UNKNOWNINTERFACE);
        EXPECT_EQ(m_plotter->GetIDsOfNames(IID_NULL, nullptr, count, 0, ids.data()), E_POINTER);
        EXPECT_EQ(m_plotter->GetIDsOfNames(IID_NULL, names.data(), count, 0, nullptr), E_POINTER);
    }
}

TEST_F(Dispatch, ArgumentsAreConvertedOrTheWrongOneIsNamed) {
    VARIANT_BOOL more = VARIANT_FALSE;
    const double real = 2.5;
    const Variant length(1.5), pen(int32_t{4}), label(std::wstring_view(L"x"));
    const Variant out = Reference(VT_BOOL, &more);
    const Variant text(std::wstring_view(L" 2.5")), word(std::wstring_view(L"two")), yes(true);
    const Variant seen = Reference(VT_R8, &real), inside = Reference(VT_VARIANT, &seen);
    const Variant twice = Reference(VT_VARIANT, &inside), nowhere = Reference(VT_R8, nullptr);
    const Variant omitted = Of(VT_ERROR, DISP_E_PARAMNOTFOUND), null = Of(VT_NULL), strange = Of(15);
    const Variant big(3e9), out_int = Reference(VT_I2, &more);
    const Variant out_nowhere = Reference(VT_BOOL, nullptr);
    struct Row {
        std::vector<const Variant*> given;
        std::vector<DISPID> named;
        HRESULT result;
        const wchar_t* drawn;
        UINT bad;
    };
    const Row rows[] = {
        {{&out, &label, &pen, &length}, {}, S_OK, L"1.500000 4 x", kNone},
        {{&out, &pen, &text, &text}, {}, S_OK, L"2.500000 2 4", kNone},
        {{&out, &yes, &yes, &yes}, {}, S_OK, L"-1.000000 -1 -1", kNone},
        {{&out, &label, &pen, &seen}, {}, S_OK, L"2.500000 4 x", kNone},
        {{&out, &label, &pen, &inside}, {}, S_OK, L"2.500000 4 x", kNone},
        {{&label, &out, &pen, &length}, {2, 3}, S_OK, L"1.500000 4 x", kNone},
        {{&length, &label, &pen, &out}, {0, 2, 1, 3}, S_OK, L"1.500000 4 x", kNone},
        {{&out, &label, &pen}, {}, DISP_E_BADPARAMCOUNT, L"", kNone},
        {{&out, &out, &label, &pen, &length}, {}, DISP_E_BADPARAMCOUNT, L"", kNone},
        {{}, {}, DISP_E_BADPARAMCOUNT, L"", kNone},
        {{&out, &label, &pen, &word}, {}, DISP_E_TYPEMISMATCH, L"", 3},
        {{&out, &label, &null, &length}, {}, DISP_E_TYPEMISMATCH, L"", 2},
        {{&out, &label, &big, &length}, {}, DISP_E_OVERFLOW, L"", 2},
        {{&out, &label, &pen, &strange}, {}, DISP_E_TYPEMISMATCH, L"", 3},
        {{&out, &label, &pen, &omitted}, {}, DISP_E_PARAMNOTOPTIONAL, L"", 3},
        {{&out, &label, &pen, &twice}, {}, E_INVALIDARG, L"", 3},
        {{&out, &label, &pen, &nowhere}, {}, E_INVALIDARG, L"", 3},
        {{&yes, &label, &pen, &length}, {}, DISP_E_TYPEMISMATCH, L"", 0},
        {{&out_int, &label, &pen, &length}, {}, DISP_E_TYPEMISMATCH, L"", 0},
        {{&out_nowhere, &label, &pen, &length}, {}, DISP_E_TYPEMISMATCH, L"", 0},
        {{&label, &out, &pen, &length}, {4, 3}, DISP_E_PARAMNOTFOUND, L"", 0},
        {{&out, &label, &pen, &length}, {3, DISPID_PROPERTYPUT}, DISP_E_PARAMNOTFOUND, L"", 1},
        {{&length, &label, &pen, &length}, {0}, DISP_E_PARAMNOTFOUND, L"", 3},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        more = VARIANT_FALSE;
        EXPECT_EQ(Invoke(7, row.given, row.named), row.result);
        EXPECT_EQ(m_plotter->drawn, row.drawn);
        EXPECT_EQ(m_bad, row.bad);
        EXPECT_EQ(more, SUCCEEDED(row.result) ? VARIANT_TRUE : VARIANT_FALSE);
    }
}

TEST_F(Dispatch, ObjectsPassThrough) {
    Counted paper;
    const Variant plain(&paper);
    EXPECT_EQ(Invoke(8, {&plain}), S_OK);
    EXPECT_EQ(m_plotter->attached, &paper);
    EXPECT_EQ(paper.held, 1u) << "the argument's own";
    Variant self = Of(VT_DISPATCH);
    const_cast<VARIANT&>(self.get()).pdispVal = m_plotter.as<IDispatch>().detach();
    EXPECT_EQ(Invoke(8, {&self}), S_OK);
    EXPECT_EQ(m_plotter->attached, m_plotter.as<IUnknown>().get());
    const Variant number(1.0);
    EXPECT_EQ(Invoke(8, {&number}), DISP_E_TYPEMISMATCH);
}

TEST_F(Dispatch, OnlyMethodsThatThereAreAreCalled) {
    EXPECT_EQ(Invoke(99, {}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Invoke(DISPID_UNKNOWN, {}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Invoke(-5, {}, {}, DISPATCH_PROPERTYGET), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Invoke(-5, {}, {}, DISPATCH_PROPERTYPUT), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Invoke(-5, {}, {}, DISPATCH_METHOD | DISPATCH_PROPERTYGET), DISP_E_EXCEPTION);
    DISPPARAMS none{};
    EXPECT_EQ(m_plotter->Invoke(-5, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(m_plotter->Invoke(-5, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              E_INVALIDARG);
    // More of the arguments are named than there are, and none are there.
    DISPID first[] = {0, 0};
    VARIANT argument = Of(VT_UNKNOWN).detach();
    for (DISPPARAMS bad : {DISPPARAMS{nullptr, nullptr, 1, 0}, DISPPARAMS{nullptr, nullptr, 0, 1},
                           DISPPARAMS{&argument, first, 1, 2}}) {
        EXPECT_EQ(m_plotter->Invoke(8, IID_NULL, 0, DISPATCH_METHOD, &bad, nullptr, nullptr, nullptr),
                  E_INVALIDARG);
    }
}

TEST_F(Dispatch, PropertiesAreReadAndWritten) {
    const Variant two(int32_t{2}), longer(std::wstring_view(L"ten letters"));
    constexpr DISPID kTitle = DISPID_CAPTION, kValue = DISPID_PROPERTYPUT;
    constexpr WORD kGet = DISPATCH_PROPERTYGET, kPut = DISPATCH_PROPERTYPUT;
    EXPECT_EQ(Invoke(kTitle, {&two}, {kValue}, kPut | DISPATCH_PROPERTYPUTREF), S_OK);
    EXPECT_EQ(m_result.type(), VT_EMPTY);
    EXPECT_EQ(Invoke(kTitle, {&longer}, {kValue}, kPut), DISP_E_EXCEPTION);
    EXPECT_EQ(Invoke(kTitle, {&longer}, {}, kPut), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(Invoke(kTitle, {&two, &two}, {kValue}, kPut), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Invoke(kTitle, {&two}, {}, kGet), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Invoke(kTitle, {}, {}, DISPATCH_METHOD), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Invoke(kTitle, {}, {}, kGet | DISPATCH_METHOD), S_OK);
    ASSERT_EQ(m_result.type(), VT_BSTR);
    EXPECT_EQ(m_result->bstrVal, std::wstring_view(L"2"));
}

TEST_F(Dispatch, AnArrayOfTheCallersIsPassedAndAThrownExceptionEndsHere) {
    SAFEARRAY* pens = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    const Variant array = Reference(VT_ARRAY | VT_VARIANT, &pens);
    const Variant texts = Reference(VT_ARRAY | VT_BSTR, &pens);
    EXPECT_EQ(Invoke(9, {&texts}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Invoke(9, {&array}), S_OK);
    EXPECT_EQ(pens, nullptr);
    EXPECT_EQ(Invoke(9, {&array}), DISP_E_EXCEPTION);
    EXPECT_EQ(m_exception.scode, E_FAIL);
}

TEST_F(Dispatch, AFailureIsToldAsAnException) {
    m_plotter->tell = true;
    EXPECT_EQ(Invoke(-5, {}), DISP_E_EXCEPTION);
    EXPECT_EQ(m_exception.scode, E_ACCESSDENIED);
    hx::Bstr description, source, help_file;
    description.attach(m_exception.bstrDescription);
    source.attach(m_exception.bstrSource);
    help_file.attach(m_exception.bstrHelpFile);
    EXPECT_EQ(description.view(), L"no ink");
    EXPECT_EQ(source.view(), L"ink");
    EXPECT_EQ(help_file.view(), L"o ink");
    EXPECT_EQ(m_exception.dwHelpContext, 7u);
    // What an earlier call left behind is not taken for this one's.
    EXPECT_EQ(m_plotter->Fail(), E_ACCESSDENIED);
    m_plotter->tell = false;
    EXPECT_EQ(Invoke(-5, {}), DISP_E_EXCEPTION);
    EXPECT_EQ(m_exception.scode, E_ABORT);
    EXPECT_EQ(m_exception.bstrDescription, nullptr);

    DISPPARAMS none{};
    VARIANT result{};
    result.vt = 0x1234;
    EXPECT_EQ(m_plotter->Invoke(-5, IID_NULL, 0, DISPATCH_METHOD, &none, &result, nullptr, nullptr),
              DISP_E_EXCEPTION);
    EXPECT_EQ(result.vt, VT_EMPTY);
}

TEST_F(Dispatch, TheInterfaceDescribesItself) {
    UINT count = 0;
    EXPECT_EQ(m_plotter->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(m_plotter->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(m_plotter->GetTypeInfo(0, 0, nullptr), E_POINTER);
    auto* other = reinterpret_cast<ITypeInfo*>(&count);
    EXPECT_EQ(m_plotter->GetTypeInfo(1, 0, &other), DISP_E_BADINDEX);
    EXPECT_EQ(other, nullptr);
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(m_plotter->GetTypeInfo(0, 0, info.put()), S_OK);

    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, IID_IPlotter);
    EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
    EXPECT_EQ(attributes->wTypeFlags, TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE);
    EXPECT_EQ(attributes->cFuncs, std::size(kMembers));
    info->ReleaseTypeAttr(attributes);

    FUNCDESC* function = nullptr;
    ASSERT_EQ(info->GetFuncDesc(0, &function), S_OK);
    EXPECT_EQ(function->memid, 7);
    ASSERT_EQ(function->cParams, 4);
    EXPECT_EQ(function->lprgelemdescParam[2].tdesc.vt, VT_BSTR);
    EXPECT_EQ(function->lprgelemdescParam[3].tdesc.vt, VT_PTR);
    EXPECT_EQ(function->lprgelemdescParam[3].tdesc.lptdesc->vt, VT_BOOL);
    info->ReleaseFuncDesc(function);

    ASSERT_EQ(info->GetFuncDesc(3, &function), S_OK);
    const TYPEDESC& pens = function->lprgelemdescParam[0].tdesc;
    ASSERT_TRUE(pens.vt == VT_PTR && pens.lptdesc->vt == VT_SAFEARRAY);
    EXPECT_EQ(pens.lptdesc->lptdesc->vt, VT_VARIANT);
    info->ReleaseFuncDesc(function);
    ASSERT_EQ(info->GetFuncDesc(4, &function), S_OK);
    EXPECT_TRUE(function->invkind == INVOKE_PROPERTYGET && function->elemdescFunc.tdesc.vt == VT_BSTR);
    info->ReleaseFuncDesc(function);
    ASSERT_EQ(info->GetFuncDesc(5, &function), S_OK);
    EXPECT_TRUE(function->invkind == INVOKE_PROPERTYPUT && function->cParams == 1);
    info->ReleaseFuncDesc(function);

    hx::Bstr names[2];
    BSTR raw[3] = {};
    EXPECT_EQ(info->GetNames(7, raw, 2, &count), S_OK);
    ASSERT_EQ(count, 2u);
    for (UINT i = 0; i < count; ++i) names[i].attach(raw[i]);
    EXPECT_TRUE(names[0].view() == L"Draw" && names[1].view() == L"length" && raw[2] == nullptr);

    for (const auto& [member, name] : {std::pair(MEMBERID_NIL, L"IPlotter"), {8, L"Attach"}}) {
        hx::Bstr documented;
        EXPECT_EQ(info->GetDocumentation(member, documented.put(), nullptr, nullptr, nullptr), S_OK);
        EXPECT_EQ(documented.view(), name);
    }
}

// Any output that is a pointer; it holds something.
struct Output {
    void* value = &value;
    template <class T>
    operator T**() {
        return reinterpret_cast<T**>(&value);
    }
};

TEST_F(Dispatch, WhatIsNotDescribedIsNull) {
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(m_plotter->GetTypeInfo(0, 0, info.put()), S_OK);
    DISPPARAMS none{};
    EXPECT_EQ(info->Invoke(nullptr, -5, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr), E_INVALIDARG);
    constexpr HRESULT kAbsent = TYPE_E_ELEMENTNOTFOUND;
    UINT count = 9;
    Output o[14];
    const struct {
        HRESULT result;
        HRESULT expected;
    } rows[] = {
        {info->GetFuncDesc(std::size(kMembers), o[0]), kAbsent},
        {info->GetVarDesc(0, o[1]), kAbsent},
        {info->GetRefTypeInfo(0, o[2]), kAbsent},
        {info->GetNames(1, o[3], 1, &count), kAbsent},
        {info->GetNames(7, o[4], 1, nullptr), E_POINTER},
        {info->GetDocumentation(1, o[5], nullptr, nullptr, nullptr), kAbsent},
        {info->GetDocumentation(1, nullptr, o[6], nullptr, nullptr), kAbsent},
        {info->GetTypeComp(o[7]), E_NOTIMPL},
        {info->GetDllEntry(7, INVOKE_FUNC, o[8], nullptr, nullptr), E_NOTIMPL},
        {info->GetDllEntry(7, INVOKE_FUNC, nullptr, o[9], nullptr), E_NOTIMPL},
        {info->AddressOfMember(7, INVOKE_FUNC, o[10]), E_NOTIMPL},
        {info->CreateInstance(nullptr, IID_IPlotter, o[11]), E_NOTIMPL},
        {info->GetMops(7, o[12]), E_NOTIMPL},
        {info->GetContainingTypeLib(o[13], nullptr), E_NOTIMPL},
    };
    static_assert(std::size(rows) == std::size(o));
    for (size_t i = 0; i < std::size(rows); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(rows[i].result, rows[i].expected);
        EXPECT_EQ(o[i].value, nullptr);
    }
    EXPECT_EQ(count, 0u);
    // So many base types can be asked for as it says it has.
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    HREFTYPE base = 9;
    EXPECT_EQ(info->GetRefTypeOfImplType(attributes->cImplTypes, &base), kAbsent);
    EXPECT_EQ(base, 0u);
    info->ReleaseTypeAttr(attributes);
}

TEST_F(Dispatch, ADescriptionKeepsTheLibrary) {
    const hx::ModuleClasses classes({});
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(m_plotter->GetTypeInfo(0, 0, info.put()), S_OK);
    EXPECT_EQ(classes.CanUnloadNow(), S_FALSE);
    info.reset();
    EXPECT_EQ(classes.CanUnloadNow(), S_OK);
}

}  // namespace
