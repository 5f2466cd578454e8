// ITypeInfo: what an object's IDispatch tells of its members to clients that look before they call, with the
// structures in which it does. Given out by IDispatch::GetTypeInfo. Usable on any thread.
#pragma once

#include "platform/com/dispatch.h"

struct ITypeComp;
struct ITypeLib;

using MEMBERID = DISPID;
using HREFTYPE = DWORD;
inline constexpr MEMBERID MEMBERID_NIL = DISPID_UNKNOWN;

enum TYPEKIND : int32_t { TKIND_INTERFACE = 3, TKIND_DISPATCH = 4, TKIND_COCLASS = 5 };
enum FUNCKIND : int32_t { FUNC_DISPATCH = 4 };
enum CALLCONV : int32_t { CC_STDCALL = 4 };
enum INVOKEKIND : int32_t {
    INVOKE_FUNC = DISPATCH_METHOD,
    INVOKE_PROPERTYGET = DISPATCH_PROPERTYGET,
    INVOKE_PROPERTYPUT = DISPATCH_PROPERTYPUT,
};

inline constexpr WORD TYPEFLAG_FCANCREATE = 0x2;
inline constexpr WORD TYPEFLAG_FCONTROL = 0x20;
// A vtable and an IDispatch that do the same.
inline constexpr WORD TYPEFLAG_FDUAL = 0x40;
inline constexpr WORD TYPEFLAG_FDISPATCHABLE = 0x1000;

// What an interface is to a class: the one that is meant by its name; one that the class calls.
inline constexpr INT IMPLTYPEFLAG_FDEFAULT = 0x1;
inline constexpr INT IMPLTYPEFLAG_FSOURCE = 0x2;

inline constexpr USHORT PARAMFLAG_FIN = 0x1;

// The type of a parameter, or what a VT_PTR points at, or of what a VT_SAFEARRAY is.
struct TYPEDESC {
    union {
        TYPEDESC* lptdesc;
        void* lpadesc;
        HREFTYPE hreftype;
    };
    VARTYPE vt;
};
struct PARAMDESC {
    void* pparamdescex;
    USHORT wParamFlags;
};
struct ELEMDESC {
    TYPEDESC tdesc;
    PARAMDESC paramdesc;
};

struct IDLDESC {
    uintptr_t dwReserved;
    USHORT wIDLFlags;
};
struct TYPEATTR {
    GUID guid;
    LCID lcid;
    DWORD dwReserved;
    MEMBERID memidConstructor;
    MEMBERID memidDestructor;
    LPOLESTR lpstrSchema;
    ULONG cbSizeInstance;
    TYPEKIND typekind;
    WORD cFuncs;
    WORD cVars;
    WORD cImplTypes;
    WORD cbSizeVft;
    WORD cbAlignment;
    WORD wTypeFlags;
    WORD wMajorVerNum;
    WORD wMinorVerNum;
    TYPEDESC tdescAlias;
    IDLDESC idldescType;
};
struct FUNCDESC {
    MEMBERID memid;
    SCODE* lprgscode;
    ELEMDESC* lprgelemdescParam;
    FUNCKIND funckind;
    INVOKEKIND invkind;
    CALLCONV callconv;
    int16_t cParams;
    int16_t cParamsOpt;
    int16_t oVft;
    int16_t cScodes;
    ELEMDESC elemdescFunc;
    WORD wFuncFlags;
};
struct VARDESC;

HX_IID(ITypeInfo, "00020401-0000-0000-C000-000000000046")
struct ITypeInfo : IUnknown {
    // What is given out as a pointer is [caller gives back] through the Release method of its kind; on
    // failure it is null.
    virtual HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** attributes) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp** compiler) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT index, FUNCDESC** description) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetVarDesc(UINT index, VARDESC** description) = 0;
    // The member's name, then those of its parameters, as many as there is room for. [caller owns each]
    virtual HRESULT STDMETHODCALLTYPE GetNames(MEMBERID member, BSTR* names, UINT room, UINT* count) = 0;
    // Of a class: its interfaces, as numbers for GetRefTypeInfo, and IMPLTYPEFLAG_...
    virtual HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT index, HREFTYPE* type) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT index, INT* flags) = 0;
    // As IDispatch has them; `instance` is the described interface of an object.
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(void* instance, MEMBERID member, WORD flags,
                                             DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                             UINT* bad_argument) = 0;
    // Of a member, or of the type itself for MEMBERID_NIL. Each argument may be null. [caller owns strings]
    virtual HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID member, BSTR* name, BSTR* text,
                                                       DWORD* help_context, BSTR* help_file) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID member, INVOKEKIND kind, BSTR* library, BSTR* name,
                                                  WORD* ordinal) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE type, ITypeInfo** info) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID member, INVOKEKIND kind, void** address) = 0;
    // Of a class: a new object, as CoCreateInstance makes it.
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMops(MEMBERID member, BSTR* mops) = 0;
    // The library that lists the type, and where. [caller owns *library]
    virtual HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib** library, UINT* index) = 0;
    virtual void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR* attributes) = 0;
    virtual void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC* description) = 0;
    virtual void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC* description) = 0;
};
