// ITypeLib: the types and classes of a component library, listed for clients that look before they create.
// Given out by ITypeInfo::GetContainingTypeLib. Usable on any thread.
#pragma once

#include "platform/com/typeinfo.h"

enum SYSKIND : int32_t { SYS_WIN64 = 3 };

struct TLIBATTR {
    GUID guid;
    LCID lcid;
    SYSKIND syskind;
    WORD wMajorVerNum;
    WORD wMinorVerNum;
    WORD wLibFlags;
};

HX_IID(ITypeLib, "00020402-0000-0000-C000-000000000046")
struct ITypeLib : IUnknown {
    virtual UINT STDMETHODCALLTYPE GetTypeInfoCount() = 0;
    // Null or 0 on failure: TYPE_E_ELEMENTNOTFOUND, E_POINTER. [caller owns *info]
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, ITypeInfo** info) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoType(UINT index, TYPEKIND* kind) = 0;
    // An interface by its IID, a class by its CLSID.
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoOfGuid(REFGUID guid, ITypeInfo** info) = 0;
    // [caller gives back] through ReleaseTLibAttr.
    virtual HRESULT STDMETHODCALLTYPE GetLibAttr(TLIBATTR** attributes) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp** compiler) = 0;
    // Of a type, or of the library itself for -1. Each output may be omitted. [caller owns strings]
    virtual HRESULT STDMETHODCALLTYPE GetDocumentation(INT index, BSTR* name, BSTR* text, DWORD* help_context,
                                                       BSTR* help_file) = 0;
    // Whether a type or a member of one has this name, in any case; `name` is then spelled as there. `hash`
    // is not needed.
    virtual HRESULT STDMETHODCALLTYPE IsName(LPOLESTR name, ULONG hash, BOOL* is_name) = 0;
    // The types that have this name, with MEMBERID_NIL, or a member of this name, with its id: at most
    // `*count`, which becomes their number. `name` is spelled as there. [caller owns each]
    virtual HRESULT STDMETHODCALLTYPE FindName(LPOLESTR name, ULONG hash, ITypeInfo** infos,
                                               MEMBERID* members, USHORT* count) = 0;
    virtual void STDMETHODCALLTYPE ReleaseTLibAttr(TLIBATTR* attributes) = 0;
};
