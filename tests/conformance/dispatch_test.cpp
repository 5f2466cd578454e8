// Calls by name and number: what the members are, what is taken for them, and what is refused and how.
#include <algorithm>
#include <cwctype>
#include <numeric>

#include "hxapi/DHXConfigCtrl.h"
#include "platform/com/safearray.h"
#include "platform/com/typeinfo.h"
#include "tests/conformance/conformance.h"

namespace {

using hx::ComPtr;

// Of a call, as they come: the named ones lead, the others come last one first.
struct Arguments {
    std::vector<VARIANT> values;
    std::vector<DISPID> named;
};

// What the members' parameters take, and what they do not.
class Samples {
public:
    Samples() {
        SAFEARRAYBOUND one{1, 0};
        m_array.attach(SafeArrayCreate(VT_VARIANT, 1, &one));
        LONG first = 0;
        EXPECT_EQ(SafeArrayPutElement(m_array.get(), &first, const_cast<VARIANT*>(&m_name.get())), S_OK);
        m_array_place = m_array.get();
    }

    VARIANT Right(VARTYPE type) {
        VARIANT value{};
        value.vt = type;
        switch (type) {
            case VT_R8:
                value.dblVal = 5;
                break;
            case VT_BSTR:
                value.bstrVal = m_text.get();
                break;
            case VT_BYREF | VT_I4:
                value.byref = &m_number;
                break;
            case VT_BYREF | VT_ARRAY | VT_VARIANT:
                value.byref = &m_array_place;
                break;
            default:
                EXPECT_EQ(type, VT_UNKNOWN) << "no sample";
        }
        return value;
    }
    static VARIANT Wrong(VARTYPE type) {
        VARIANT value{};
        value.vt = type == VT_UNKNOWN ? VT_I4 : VT_UNKNOWN;
        return value;
    }
    static VARIANT Omitted() {
        VARIANT value{};
        value.vt = VT_ERROR;
        value.scode = DISP_E_PARAMNOTFOUND;
        return value;
    }
    Arguments Of(const MemberRow& member) {
        Arguments all;
        for (const ParameterRow& each : member.parameters) all.values.push_back(Right(each.type));
        std::ranges::reverse(all.values);
        if (member.kind == DISPATCH_PROPERTYPUT) all.named = {DISPID_PROPERTYPUT};
        return all;
    }

private:
    hx::Variant m_name{std::wstring_view(L"$DEFAULT")};
    hx::Bstr m_text{L"text"};
    hx::SafeArray m_array;
    SAFEARRAY* m_array_place = nullptr;
    int32_t m_number = 0;
};

constexpr UINT kNoArgument = 77;

struct Outcome {
    HRESULT result;
    UINT bad_argument = kNoArgument;
    bool operator==(const Outcome&) const = default;
};
void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << std::hex << static_cast<uint32_t>(outcome.result) << " at " << outcome.bad_argument;
}

// What a call gives; one that fails leaves no result, and an exception only if it says so.
Outcome Call(IDispatch& object, DISPID id, WORD flags, Arguments arguments, REFIID reserved = IID_NULL,
             VARTYPE expected = VT_EMPTY) {
    DISPPARAMS given{arguments.values.data(), arguments.named.data(),
                     static_cast<UINT>(arguments.values.size()), static_cast<UINT>(arguments.named.size())};
    VARIANT result{};
    EXCEPINFO exception{};
    exception.scode = S_FALSE;
    Outcome outcome{S_OK};
    outcome.result =
        object.Invoke(id, reserved, 0, flags, &given, &result, &exception, &outcome.bad_argument);
    EXPECT_EQ(result.vt, SUCCEEDED(outcome.result) ? expected : VARTYPE{VT_EMPTY});
    hx::Variant().attach(result);
    const bool is_filled = exception.scode != S_FALSE;
    EXPECT_EQ(is_filled, outcome.result == DISP_E_EXCEPTION);
    if (is_filled) outcome.result = exception.scode;
    for (const BSTR text : {exception.bstrSource, exception.bstrDescription, exception.bstrHelpFile}) {
        SysFreeString(text);
    }
    return outcome;
}

// For each member of each class, on an object of its own.
class Dispatch : public Conformance {
protected:
    template <class Rule>
    static void ForEachMember(const Rule& rule) {
        ForEachClass([&](const ClassPromises& row) {
            EXPECT_EQ(row.members.empty(), !Has(row, IID_IDispatch));
            for (const MemberRow& member : row.members) {
                SCOPED_TRACE(testing::PrintToString(std::wstring(member.name)) + std::to_string(member.kind));
                const auto object = Create<IDispatch>(row.clsid);
                ASSERT_TRUE(object);
                rule(row, *object, member);
                EXPECT_EQ(CountOf(*object), 1u);
            }
        });
    }
};

WORD KindsOf(const ClassPromises& row, DISPID id) {
    WORD kinds = 0;
    for (const MemberRow& each : row.members)
        kinds = static_cast<WORD>(kinds | (each.id == id ? each.kind : 0));
    return kinds;
}

TEST_F(Dispatch, MembersAndParametersHaveTheirNumbers) {
    ForEachMember([](const ClassPromises&, IDispatch& object, const MemberRow& member) {
        std::wstring name = member.name;
        std::wstring unknown = name + L"s";
        std::vector<LPOLESTR> names = {name.data()};
        std::vector<DISPID> expected = {member.id};
        for (const ParameterRow& each : member.parameters) {
            if (!each.name) continue;
            names.push_back(const_cast<wchar_t*>(each.name));
            expected.push_back(static_cast<DISPID>(expected.size()) - 1);
        }
        std::vector<DISPID> ids(names.size() + 1, 99);
        const auto ask = [&](REFIID reserved = IID_NULL) {
            ids.assign(names.size(), 99);
            return object.GetIDsOfNames(reserved, names.data(), static_cast<UINT>(names.size()), 0,
                                        ids.data());
        };
        EXPECT_EQ(ask(), S_OK);
        EXPECT_EQ(ids, expected);
        std::ranges::transform(name, name.begin(), [](wchar_t c) {
            return static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
        });
        EXPECT_EQ(ask(), S_OK);
        EXPECT_EQ(ids, expected);
        EXPECT_EQ(ask(IID_IDispatch), DISP_E_UNKNOWNINTERFACE);
        EXPECT_EQ(object.GetIDsOfNames(IID_NULL, names.data(), 1, 0, nullptr), E_POINTER);
        EXPECT_EQ(object.GetIDsOfNames(IID_NULL, nullptr, 1, 0, ids.data()), E_POINTER);
        EXPECT_EQ(object.GetIDsOfNames(IID_NULL, names.data(), 0, 0, ids.data()), E_INVALIDARG);
        names.push_back(unknown.data());
        expected.push_back(DISPID_UNKNOWN);
        EXPECT_EQ(ask(), DISP_E_UNKNOWNNAME);
        EXPECT_EQ(ids, expected);
        names[0] = unknown.data();
        EXPECT_EQ(ask(), DISP_E_UNKNOWNNAME);
        EXPECT_EQ(ids, std::vector<DISPID>(names.size(), DISPID_UNKNOWN));
    });
}

TEST_F(Dispatch, OtherNumbersAreOfNoMember) {
    ForEachClass([](const ClassPromises& row) {
        if (!Has(row, IID_IDispatch)) return;
        const auto object = Create<IDispatch>(row.clsid);
        for (DISPID id = -1100; id < 1100; ++id) {
            const WORD others = static_cast<WORD>(0xF & ~KindsOf(row, id));
            EXPECT_EQ(Call(*object, id, others, {}), Outcome{DISP_E_MEMBERNOTFOUND}) << id;
        }
        for (const DISPID id : {INT32_MIN, INT32_MAX}) {
            EXPECT_EQ(Call(*object, id, 0xF, {}), Outcome{DISP_E_MEMBERNOTFOUND});
        }
    });
}

TEST_F(Dispatch, WellFormedCallsArriveInEveryForm) {
    Samples samples;
    ForEachMember([&](const ClassPromises&, IDispatch& object, const MemberRow& member) {
        const bool reads = member.kind == DISPATCH_PROPERTYGET;
        const Outcome answer{member.answer};
        Arguments arguments = samples.Of(member);
        EXPECT_EQ(Call(object, member.id, member.kind, arguments, IID_NULL, reads ? VT_BSTR : VT_EMPTY),
                  answer);
        DISPPARAMS given{arguments.values.data(), arguments.named.data(),
                         static_cast<UINT>(arguments.values.size()),
                         static_cast<UINT>(arguments.named.size())};
        EXPECT_EQ(object.Invoke(member.id, IID_NULL, 0, member.kind, &given, nullptr, nullptr, nullptr),
                  FAILED(member.answer) ? DISP_E_EXCEPTION : S_OK);
        if (member.kind != DISPATCH_METHOD) return;
        arguments.named.resize(arguments.values.size());
        std::iota(arguments.named.rbegin(), arguments.named.rend(), 0);
        EXPECT_EQ(Call(object, member.id, member.kind, arguments), answer);
    });
}

TEST_F(Dispatch, MalformedCallsAreRefusedWhereTheyAreWrong) {
    Samples samples;
    ForEachMember([&](const ClassPromises& row, IDispatch& object, const MemberRow& member) {
        const Arguments right = samples.Of(member);
        const auto refuses = [&](Outcome expected, const auto& change) {
            Arguments arguments = right;
            change(arguments);
            EXPECT_EQ(Call(object, member.id, member.kind, arguments), expected);
        };
        refuses({DISP_E_BADPARAMCOUNT}, [&](Arguments& all) { all.values.push_back(Samples::Omitted()); });
        EXPECT_EQ(Call(object, member.id, member.kind, right, IID_IDispatch),
                  Outcome{DISP_E_UNKNOWNINTERFACE});
        const auto others = static_cast<WORD>(0xF & ~KindsOf(row, member.id));
        EXPECT_EQ(Call(object, member.id, others, right), Outcome{DISP_E_MEMBERNOTFOUND});
        EXPECT_EQ(object.Invoke(member.id, IID_NULL, 0, member.kind, nullptr, nullptr, nullptr, nullptr),
                  E_INVALIDARG);
        DISPPARAMS nothing_there{nullptr, nullptr, static_cast<UINT>(right.values.size()), 1};
        EXPECT_EQ(
            object.Invoke(member.id, IID_NULL, 0, member.kind, &nothing_there, nullptr, nullptr, nullptr),
            E_INVALIDARG);
        if (right.values.empty()) return;

        refuses({DISP_E_BADPARAMCOUNT}, [](Arguments& all) {
            all.values.pop_back();
            all.named.clear();
        });
        const auto last = static_cast<UINT>(right.values.size() - 1);
        for (UINT i = 0; i <= last; ++i) {
            const VARTYPE type = member.parameters[last - i].type;
            refuses({DISP_E_TYPEMISMATCH, i}, [&](Arguments& all) { all.values[i] = Samples::Wrong(type); });
            refuses({DISP_E_PARAMNOTOPTIONAL, i},
                    [&](Arguments& all) { all.values[i] = Samples::Omitted(); });
        }
        refuses({DISP_E_PARAMNOTFOUND, 0}, [](Arguments& all) { all.named = {99}; });
        if (member.kind == DISPATCH_PROPERTYPUT) {
            refuses({DISP_E_PARAMNOTFOUND, 0}, [](Arguments& all) { all.named.clear(); });
        } else if (last > 0) {
            refuses({DISP_E_PARAMNOTFOUND, 1}, [](Arguments& all) {
                all.named = {0, 0};
                all.values[0] = all.values[1];
            });
        }
    });
}

TEST_F(Dispatch, TheTypeInformationTellsTheSameMembers) {
    ForEachClass([](const ClassPromises& row) {
        if (!Has(row, IID_IDispatch)) return;
        auto object = Create<IDispatch>(row.clsid);
        UINT count = 0;
        EXPECT_EQ(object->GetTypeInfoCount(nullptr), E_POINTER);
        EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
        EXPECT_EQ(count, 1u);
        ComPtr<ITypeInfo> info;
        EXPECT_EQ(object->GetTypeInfo(0, 0, nullptr), E_POINTER);
        auto* none = reinterpret_cast<ITypeInfo*>(&count);
        EXPECT_EQ(object->GetTypeInfo(1, 0, &none), DISP_E_BADINDEX);
        EXPECT_EQ(none, nullptr);
        ASSERT_EQ(object->GetTypeInfo(0, 0, info.put()), S_OK);
        object.reset();
        CoFreeUnusedLibraries();
        EXPECT_TRUE(IsLoaded(row.library)) << "the description keeps it";
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->guid, row.dispatch);
        EXPECT_EQ(attributes->cFuncs, row.members.size());
        info->ReleaseTypeAttr(attributes);
        for (UINT i = 0; i < row.members.size(); ++i) {
            const MemberRow& member = row.members[i];
            FUNCDESC* function = nullptr;
            ASSERT_EQ(info->GetFuncDesc(i, &function), S_OK);
            EXPECT_EQ(function->memid, member.id);
            EXPECT_EQ(function->invkind, member.kind);
            EXPECT_EQ(static_cast<size_t>(function->cParams), member.parameters.size());
            info->ReleaseFuncDesc(function);
            hx::Bstr name;
            EXPECT_EQ(info->GetDocumentation(member.id, name.put(), nullptr, nullptr, nullptr), S_OK);
            EXPECT_EQ(name.view(), member.name);
        }
    });
}

}  // namespace
