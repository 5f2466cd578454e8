// Creating components: from a class's CLSID or ProgID to an object out of its own shared library.
// Called by hosts and by components that use others, on any thread. The library is loaded at the first
// request and stays until CoFreeUnusedLibraries finds it idle. A library's static constructors and
// destructors must not call in here: they run while it is loaded or unloaded, under a lock.
#pragma once

#include <cstddef>
#include <memory>

#include "platform/com/class_lookup.h"
#include "platform/com/unknown.h"

inline constexpr DWORD CLSCTX_INPROC_SERVER = 0x1;
inline constexpr DWORD CLSCTX_LOCAL_SERVER = 0x4;
inline constexpr DWORD CLSCTX_ALL = 0x17;

// A new object of the class, [caller owns]; null on failure. Besides what CoGetClassObject and the class
// itself say: CLASS_E_NOAGGREGATION if `outer` is given to a class that cannot be part of another.
HX_PLATFORM_API HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID iid,
                                         void** object);

// The class's factory, [caller owns]; null on failure: E_POINTER for a null `object`, E_INVALIDARG for no
// context or `reserved` given, REGDB_E_CLASSNOTREG if the class is unknown or not wanted in this process,
// CO_E_DLLNOTFOUND if its library is missing, CO_E_ERRORINDLL if that is no component library, else what its
// DllGetClassObject says.
HX_PLATFORM_API HRESULT CoGetClassObject(REFCLSID clsid, DWORD context, void* reserved, REFIID iid,
                                         void** object);

// `*clsid` is CLSID_NULL on failure: CO_E_CLASSSTRING if no class has that ProgID (with version or without,
// in any case), E_INVALIDARG for a null argument.
HX_PLATFORM_API HRESULT CLSIDFromProgID(LPCOLESTR prog_id, CLSID* clsid);

// The ProgID with version, to be freed with CoTaskMemFree; null on failure: REGDB_E_CLASSNOTREG, also for a
// class without one, E_OUTOFMEMORY, E_INVALIDARG for a null argument.
HX_PLATFORM_API HRESULT ProgIDFromCLSID(REFCLSID clsid, LPOLESTR* prog_id);

HX_PLATFORM_API void* CoTaskMemAlloc(size_t bytes);
HX_PLATFORM_API void CoTaskMemFree(void* memory);

// Unloads each library that has nothing left in use. A host calls it when its other threads hold no component
// that they might be releasing at this moment: the last Release still runs in the library that it makes idle.
HX_PLATFORM_API void CoFreeUnusedLibraries();

namespace hx {

// Where classes are looked up from now on; null brings the usual places back, read anew: the registry, and
// behind it the text tables beside this library.
HX_PLATFORM_API void SetClassLookup(std::shared_ptr<IClassLookup> lookup);

// The lookup in use, never null. Throws std::bad_alloc.
HX_PLATFORM_API std::shared_ptr<IClassLookup> ClassLookup();

}  // namespace hx
