// IDispatch: calling an object's members by name or number, with the structures that such a call carries.
// Implemented by objects that scripts and event sources talk to; called on the object's own thread.
#pragma once

#include "platform/com/unknown.h"
#include "platform/com/variant.h"

struct ITypeInfo;

using LCID = DWORD;
using DISPID = LONG;

inline constexpr DISPID DISPID_VALUE = 0;
inline constexpr DISPID DISPID_UNKNOWN = -1;
inline constexpr DISPID DISPID_PROPERTYPUT = -3;

inline constexpr WORD DISPATCH_METHOD = 0x1;
inline constexpr WORD DISPATCH_PROPERTYGET = 0x2;
inline constexpr WORD DISPATCH_PROPERTYPUT = 0x4;
inline constexpr WORD DISPATCH_PROPERTYPUTREF = 0x8;

// The arguments, last one first; the named ones lead. Owned by the caller throughout.
struct DISPPARAMS {
    VARIANTARG* rgvarg;
    DISPID* rgdispidNamedArgs;
    UINT cArgs;
    UINT cNamedArgs;
};

// What went wrong inside a call that ends in DISP_E_EXCEPTION; the caller frees the strings.
struct EXCEPINFO {
    WORD wCode;
    WORD wReserved;
    BSTR bstrSource;
    BSTR bstrDescription;
    BSTR bstrHelpFile;
    DWORD dwHelpContext;
    void* pvReserved;
    HRESULT(STDAPICALLTYPE* pfnDeferredFillIn)(EXCEPINFO*);
    SCODE scode;
};

HX_IID(IDispatch, "00020400-0000-0000-C000-000000000046")
struct IDispatch : IUnknown {
    // 1 if the object describes its members, else 0.
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) = 0;

    // A member's name, then names of its parameters; DISP_E_UNKNOWNNAME if one is unknown (its id
    // DISPID_UNKNOWN).
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                                    DISPID* ids) = 0;

    // `result`, `exception` and `bad_argument` may be null; `*result` is the caller's to clear.
    virtual HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                             DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                             UINT* bad_argument) = 0;
};
