#include "platform/com/dispatch_type.h"

#include <algorithm>

#include "platform/com/boundary.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"
#include "platform/system/case_fold.h"

namespace hx {
namespace {

using Arguments = std::array<Variant, kMostDispatchParameters>;

bool IsNamed(const wchar_t* name, const OLECHAR* asked) {
    return name && asked && EqualsWithoutCase(name, asked);
}

DISPID ParameterId(const DispatchMember& member, const OLECHAR* name) {
    for (UINT i = 0; i < member.count; ++i) {
        if (IsNamed(member.parameters[i].name, name)) return static_cast<DISPID>(i);
    }
    return DISPID_UNKNOWN;
}

bool IsOmitted(const VARIANT& argument) {
    return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

bool IsTaken(const DispatchParameter& parameter, VARTYPE given) {
    constexpr VARTYPE kArrays = VT_BYREF | VT_ARRAY;
    if (given == parameter.type) return true;
    switch (parameter.taking) {
        case DispatchTaking::half:
            return given == (VT_BYREF | VT_BOOL);
        case DispatchTaking::any_array:
            return (given & kArrays) == kArrays;
        case DispatchTaking::exact:
            break;
    }
    return false;
}

HRESULT Convert(const VARIANT& argument, const DispatchParameter& parameter, Variant& converted) {
    if (IsOmitted(argument)) return DISP_E_PARAMNOTOPTIONAL;
    if (!(parameter.type & VT_BYREF)) {
        return VariantChangeType(converted.put(), &argument, 0, parameter.type);
    }
    if (!IsTaken(parameter, argument.vt)) return DISP_E_TYPEMISMATCH;
    if (!argument.byref && !parameter.takes_null) return DISP_E_TYPEMISMATCH;
    // What a member writes through a reference must reach the caller's own variable.
    VARIANT reference{};
    reference.vt = parameter.type;
    reference.byref = argument.byref;
    converted.attach(reference);
    return S_OK;
}

// The parameter that an argument is for: the named ones lead, the others come last one first.
DISPID ParameterOf(const DispatchMember& member, const DISPPARAMS& given, UINT index) {
    if (member.kind == INVOKE_PROPERTYPUT) {
        const bool is_value =
            index < given.cNamedArgs && given.rgdispidNamedArgs[index] == DISPID_PROPERTYPUT;
        return is_value ? 0 : DISPID_UNKNOWN;
    }
    return index < given.cNamedArgs ? given.rgdispidNamedArgs[index]
                                    : static_cast<DISPID>(given.cArgs - 1 - index);
}

// As many arguments as parameters; so two for one parameter leave another without.
HRESULT TakeArgument(const DispatchMember& member, const DISPPARAMS& given, UINT index, Arguments& arguments,
                     std::array<bool, kMostDispatchParameters>& taken) {
    const auto parameter = static_cast<UINT>(ParameterOf(member, given, index));
    if (parameter >= member.count || taken[parameter]) return DISP_E_PARAMNOTFOUND;
    taken[parameter] = true;
    return Convert(given.rgvarg[index], member.parameters[parameter], arguments[parameter]);
}

HRESULT TakeArguments(const DispatchMember& member, const DISPPARAMS& given, Arguments& arguments,
                      UINT* bad_argument) {
    if (given.cNamedArgs > given.cArgs || (given.cArgs > 0 && !given.rgvarg) ||
        (given.cNamedArgs > 0 && !given.rgdispidNamedArgs)) {
        return E_INVALIDARG;
    }
    if (given.cArgs != member.count) return DISP_E_BADPARAMCOUNT;
    std::array<bool, kMostDispatchParameters> taken{};
    for (UINT i = 0; i < given.cArgs; ++i) {
        const HRESULT result = TakeArgument(member, given, i, arguments, taken);
        if (SUCCEEDED(result)) continue;
        if (bad_argument) *bad_argument = i;
        return result;
    }
    return S_OK;
}

// What failed, as the member itself told it.
void Describe(HRESULT result, EXCEPINFO& exception) {
    exception = {};
    exception.scode = result;
    ComPtr<IErrorInfo> information;
    if (GetErrorInfo(0, information.put()) != S_OK) return;
    information->GetSource(&exception.bstrSource);
    information->GetDescription(&exception.bstrDescription);
    information->GetHelpFile(&exception.bstrHelpFile);
    information->GetHelpContext(&exception.dwHelpContext);
}

}  // namespace

HRESULT IdsOfNames(const DispatchType& type, const LPOLESTR* names, UINT count, DISPID* ids) {
    if (!names || !ids) return E_POINTER;
    if (count == 0) return E_INVALIDARG;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const auto member = std::ranges::find_if(
        type.members, [&](const DispatchMember& each) { return IsNamed(each.name, names[0]); });
    if (member == type.members.end()) return DISP_E_UNKNOWNNAME;
    ids[0] = member->id;
    for (UINT i = 1; i < count; ++i) ids[i] = ParameterId(*member, names[i]);
    return std::find(ids + 1, ids + count, DISPID_UNKNOWN) == ids + count ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT InvokeMember(const DispatchType& type, void* object, DISPID member, WORD flags,
                     const DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) {
    if (result) VariantInit(result);
    const auto row = std::ranges::find_if(
        type.members, [&](const DispatchMember& each) { return each.id == member && (each.kind & flags); });
    if (row == type.members.end()) return DISP_E_MEMBERNOTFOUND;
    if (!object || !arguments) return E_INVALIDARG;
    Arguments converted;
    const HRESULT taken = TakeArguments(*row, *arguments, converted, bad_argument);
    if (FAILED(taken)) return taken;
    std::array<VARIANT, kMostDispatchParameters> values;
    std::ranges::transform(converted, values.begin(), &Variant::get);
    // An older failure's information must not pass for this one's.
    SetErrorInfo(0, nullptr);
    VARIANT value{};
    const HRESULT called = AtBoundary([&] { return row->call(object, values.data(), &value); });
    if (SUCCEEDED(called)) {
        Variant owner;
        owner.attach(value);
        if (result) *result = owner.detach();
        return S_OK;
    }
    if (exception) Describe(called, *exception);
    return DISP_E_EXCEPTION;
}

}  // namespace hx
