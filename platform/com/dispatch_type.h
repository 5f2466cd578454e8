// The members of a dispatch interface, one row each, and the services that IDispatch owes from them: numbers
// for names, calls by number, and the description of the interface. Each component library links its own
// (target hxmodule).
//     constexpr DispatchMember kMembers[] = {
//         DispatchMembersOf<IThing>::Method<&IThing::SetSpeed>(3, L"SetSpeed", L"speed"),
//     };
//     const DispatchType kThing{L"IThing", IID_IThing, kMembers};
// Usable on any thread; members are called on the thread that calls.
#pragma once

#include <array>
#include <span>
#include <type_traits>
#include <utility>

#include "platform/com/typeinfo.h"

namespace hx {

inline constexpr size_t kMostDispatchParameters = 4;

struct DispatchParameter {
    const wchar_t* name;
    VARTYPE type;
};

struct DispatchMember {
    DISPID id;
    const wchar_t* name;
    UINT count;  // of parameters; their own ids are 0, 1, ...
    std::array<DispatchParameter, kMostDispatchParameters> parameters;
    // `object` is the described interface; the arguments are in the parameters' order and of their types.
    HRESULT (*call)(void* object, const VARIANT* arguments);
};

// What is described lives as long as the library.
struct DispatchType {
    const wchar_t* name;
    IID iid;
    std::span<const DispatchMember> members;
};

// How a parameter of type T travels.
template <class T>
struct DispatchKind;

template <VARTYPE type, auto member>
struct DispatchValue {
    static constexpr VARTYPE kType = type;
    static auto Get(const VARIANT& argument) { return argument.*member; }
};
template <>
struct DispatchKind<int32_t> : DispatchValue<VT_I4, &VARIANT::lVal> {};
template <>
struct DispatchKind<double> : DispatchValue<VT_R8, &VARIANT::dblVal> {};
template <>
struct DispatchKind<VARIANT_BOOL> : DispatchValue<VT_BOOL, &VARIANT::boolVal> {};
template <>
struct DispatchKind<BSTR> : DispatchValue<VT_BSTR, &VARIANT::bstrVal> {};
template <>
struct DispatchKind<IUnknown*> : DispatchValue<VT_UNKNOWN, &VARIANT::punkVal> {};
// The caller's variable.
template <class T>
struct DispatchKind<T*> {
    static constexpr VARTYPE kType = VT_BYREF | DispatchKind<T>::kType;
    static T* Get(const VARIANT& argument) { return static_cast<T*>(argument.byref); }
};

// Rows for interface I; its methods may be inherited.
template <class I>
class DispatchMembersOf {
public:
    template <auto method, class... Names>
    static constexpr DispatchMember Method(DISPID id, const wchar_t* name, Names... names) {
        return Row<method>(method, id, name, names...);
    }

private:
    template <auto method, class Owner, class... Parameters, class... Names>
    static constexpr DispatchMember Row(HRESULT (Owner::*)(Parameters...), DISPID id, const wchar_t* name,
                                        Names... names) {
        static_assert(sizeof...(Names) == sizeof...(Parameters), "a name for each parameter");
        static_assert(sizeof...(Parameters) <= kMostDispatchParameters);
        return {id,
                name,
                sizeof...(Parameters),
                {DispatchParameter{names, DispatchKind<Parameters>::kType}...},
                [](void* object, const VARIANT* arguments) {
                    return Call<method, Parameters...>(object, arguments,
                                                       std::index_sequence_for<Parameters...>());
                }};
    }
    template <auto method, class... Parameters, size_t... index>
    static HRESULT Call(void* object, [[maybe_unused]] const VARIANT* arguments,
                        std::index_sequence<index...>) {
        return (static_cast<I*>(object)->*method)(DispatchKind<Parameters>::Get(arguments[index])...);
    }
};

// Names are compared without case. DISP_E_UNKNOWNNAME if one is unknown, and its id is then DISPID_UNKNOWN;
// E_POINTER; E_INVALIDARG for no name at all.
HRESULT IdsOfNames(const DispatchType& type, const LPOLESTR* names, UINT count, DISPID* ids);

// Calls a member. Arguments are converted as VariantChangeType does; parameters by reference take exactly
// their type. `*result` becomes empty, since methods give nothing but their HRESULT; a failed one becomes
// DISP_E_EXCEPTION, with `*exception` [caller owns strings] made of it and of the error information that the
// method left. DISP_E_MEMBERNOTFOUND also for anything but a call as a method; DISP_E_BADPARAMCOUNT; with
// `*bad_argument` as an index into the arguments as they came: DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW,
// DISP_E_PARAMNOTFOUND for an unknown named one, DISP_E_PARAMNOTOPTIONAL for an omitted one.
HRESULT InvokeMember(const DispatchType& type, void* object, DISPID member, WORD flags,
                     const DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception, UINT* bad_argument);

// The description as an object, [caller owns]. It keeps the library loaded. `*info` is null on failure:
// E_POINTER, E_OUTOFMEMORY.
HRESULT DescribeType(const DispatchType& type, ITypeInfo** info);

}  // namespace hx
