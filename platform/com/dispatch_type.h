// The members of a dispatch interface, one row each, and the services that IDispatch owes from them: numbers
// for names, calls by number, and the description of the interface. Each component library links its own
// (target hxmodule).
//     constexpr DispatchMember kMembers[] = {
//         DispatchMembersOf<IThing>::Method<&IThing::SetSpeed>(3, L"SetSpeed", L"speed"),
//         DispatchMembersOf<IThing>::PropertyGet<&IThing::get_Name>(4, L"Name"),
//         DispatchMembersOf<IThing>::PropertyPut<&IThing::put_Name>(4, L"Name"),
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

// What is taken for a parameter by reference, beside a reference to its type.
enum class DispatchTaking : uint8_t {
    exact,     // nothing
    half,      // one to a boolean for one to a number: the member writes no more than 16 bits
    any_array  // one to any array for one to an array: the member looks at its kind
};

struct DispatchParameter {
    const wchar_t* name;
    VARTYPE type;
    DispatchTaking taking = DispatchTaking::exact;
    bool takes_null = false;  // the member answers a null reference itself
};

// A property that can be read and written has two rows, with one number.
struct DispatchMember {
    DISPID id;
    const wchar_t* name;
    INVOKEKIND kind;
    UINT count;  // of parameters; their own ids are 0, 1, ... - that of a property's new value has no name
    std::array<DispatchParameter, kMostDispatchParameters> parameters;
    VARTYPE result;  // VT_VOID but for reading
    // `object` is the described interface; the arguments are in the parameters' order and of their types.
    // `*result` is empty, and stays so on failure.
    HRESULT (*call)(void* object, const VARIANT* arguments, VARIANT* result);
};

// What is described lives as long as the library. An interface that is a vtable only has the kind
// TKIND_INTERFACE and no flags; its members are not described.
struct DispatchType {
    const wchar_t* name;
    IID iid;
    std::span<const DispatchMember> members;
    TYPEKIND kind = TKIND_DISPATCH;
    WORD flags = TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE;
};

// How a parameter of type T travels.
template <class T>
struct DispatchKind;

template <VARTYPE type, auto member>
struct DispatchValue {
    static constexpr VARTYPE kType = type;
    static auto Get(const VARIANT& argument) { return argument.*member; }
    static auto& Place(VARIANT& result) { return result.*member; }
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
// Of VARIANTs.
template <>
struct DispatchKind<SAFEARRAY*> : DispatchValue<VT_ARRAY | VT_VARIANT, &VARIANT::parray> {};
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
    // `get` is HRESULT (T* value), `put` HRESULT (T value).
    template <auto get>
    static constexpr DispatchMember PropertyGet(DISPID id, const wchar_t* name) {
        return ReadingRow<get>(get, id, name);
    }
    template <auto put>
    static constexpr DispatchMember PropertyPut(DISPID id, const wchar_t* name) {
        DispatchMember row = Row<put>(put, id, name, nullptr);
        row.kind = INVOKE_PROPERTYPUT;
        return row;
    }

private:
    template <auto method, class Owner, class... Parameters, class... Names>
    static constexpr DispatchMember Row(HRESULT (Owner::*)(Parameters...), DISPID id, const wchar_t* name,
                                        Names... names) {
        static_assert(sizeof...(Names) == sizeof...(Parameters), "a name for each parameter");
        static_assert(sizeof...(Parameters) <= kMostDispatchParameters);
        return {id,
                name,
                INVOKE_FUNC,
                sizeof...(Parameters),
                {DispatchParameter{names, DispatchKind<Parameters>::kType, {}, {}}...},
                VT_VOID,
                [](void* object, const VARIANT* arguments, VARIANT*) {
                    return Call<method, Parameters...>(object, arguments,
                                                       std::index_sequence_for<Parameters...>());
                }};
    }
    template <auto get, class Owner, class Value>
    static constexpr DispatchMember ReadingRow(HRESULT (Owner::*)(Value*), DISPID id, const wchar_t* name) {
        using Kind = DispatchKind<Value>;
        return {id,
                name,
                INVOKE_PROPERTYGET,
                0,
                {},
                Kind::kType,
                [](void* object, const VARIANT*, VARIANT* result) {
                    const HRESULT read = (static_cast<I*>(object)->*get)(&Kind::Place(*result));
                    if (SUCCEEDED(read)) result->vt = Kind::kType;
                    return read;
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

// Calls, reads or writes a member, whichever of its rows `flags` name. Arguments are converted as
// VariantChangeType does; parameters by reference take what their row says. A new value comes as the one
// argument, named DISPID_PROPERTYPUT. `*result` [caller clears] is empty but for a property that is read. A
// failure of the member, or an exception that leaves it, becomes DISP_E_EXCEPTION, with `*exception` [caller
// owns strings] made of it and of the error information that the member left. DISP_E_MEMBERNOTFOUND also for
// a member that cannot be used in this way; DISP_E_BADPARAMCOUNT; with `*bad_argument` as an index into the
// arguments as they came: DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW, DISP_E_PARAMNOTFOUND for an unknown named
// one, DISP_E_PARAMNOTOPTIONAL for an omitted one.
HRESULT InvokeMember(const DispatchType& type, void* object, DISPID member, WORD flags,
                     const DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception, UINT* bad_argument);

// The description as an object, [caller owns]. It keeps the library loaded. `*info` is null on failure:
// E_POINTER, E_OUTOFMEMORY.
HRESULT DescribeType(const DispatchType& type, ITypeInfo** info);

}  // namespace hx
