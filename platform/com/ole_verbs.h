// Verbs: what a component offers to be asked for through IOleObject::DoVerb, as IOleObject::EnumVerbs gives
// them to containers, which put them into menus. On the thread of the user interface.
#pragma once

#include <string>
#include <vector>

#include "platform/com/ole_object.h"

struct OLEVERB {
    LONG lVerb;
    LPOLESTR lpszVerbName;  // to be freed with CoTaskMemFree
    DWORD fuFlags;          // of a menu's entry
    DWORD grfAttribs;       // OLEVERBATTRIB_...
};

inline constexpr DWORD OLEVERBATTRIB_NEVERDIRTIES = 1;
inline constexpr DWORD OLEVERBATTRIB_ONCONTAINERMENU = 2;

HX_IID(IEnumOLEVERB, "00000104-0000-0000-C000-000000000046")
struct IEnumOLEVERB : IUnknown {
    // Up to `count` of them, [caller frees each name]; S_FALSE if there were fewer. `fetched` may be null for
    // one.
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, OLEVERB* verbs, ULONG* fetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumOLEVERB** copy) = 0;
};

namespace hx {

struct Verb {
    LONG number;
    std::wstring name;  // for people
    DWORD flags;
    DWORD attributes;
};

// E_POINTER, E_OUTOFMEMORY; OLEOBJ_E_NOVERBS for none.
HRESULT EnumerateVerbs(std::vector<Verb> verbs, IEnumOLEVERB** enumeration) noexcept;

}  // namespace hx
