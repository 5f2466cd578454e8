// The types and classes of one component library as a table, and its ITypeLib. Each component library links
// its own (target hxmodule), and names its table by one object of static storage:
//     constexpr hx::TypeLibrary kAcme{LIBID_Acme, L"Acme", L"Acme 1.0 Types", 1, 0, kTypes, kClasses};
//     const hx::ModuleTypes g_types(kAcme);
// The ITypeInfo of a type with an IID of the table then gives this library for its own. Usable on any thread.
#pragma once

#include "platform/com/dispatch_type.h"
#include "platform/com/typelib.h"

namespace hx {

struct ImplementedType {
    const DispatchType* type;  // of the same library
    INT flags;                 // IMPLTYPEFLAG_...
};

// It need not be registered, or implemented at all.
struct LibraryClass {
    const wchar_t* name;
    CLSID clsid;
    WORD flags;  // TYPEFLAG_...
    std::span<const ImplementedType> interfaces;
};

// Its parts live as long as the component library. A class's index follows those of the types.
struct TypeLibrary {
    GUID libid;
    const wchar_t* name;
    const wchar_t* description;
    WORD major_version;
    WORD minor_version;
    std::span<const DispatchType* const> types;
    std::span<const LibraryClass> classes;
};

// Makes the table known in its component library, while that is loaded.
class ModuleTypes {
public:
    explicit ModuleTypes(const TypeLibrary& library) noexcept;
};

// The library that lists the type or class `guid`, and its index there; each output may be omitted, and is
// null or 0 on failure: E_NOTIMPL for a type without a library, E_OUTOFMEMORY. [caller owns *library]
HRESULT ContainingLibrary(REFGUID guid, ITypeLib** library, UINT* index);

// The type or class at `index`; null on failure: TYPE_E_ELEMENTNOTFOUND, E_POINTER, E_OUTOFMEMORY.
// [caller owns]
HRESULT DescribeAt(const TypeLibrary& library, UINT index, ITypeInfo** info);

}  // namespace hx
