// HRESULT: the result of every interface method, and the codes that this library gives or understands.
// Negative means failure. Usable on any thread.
#pragma once

#include <string_view>

#include "platform/api.h"
#include "platform/com/types.h"

using HRESULT = int32_t;
using SCODE = int32_t;

constexpr bool SUCCEEDED(HRESULT result) {
    return result >= 0;
}
constexpr bool FAILED(HRESULT result) {
    return result < 0;
}

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;

inline constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFF);
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003);
inline constexpr HRESULT E_ABORT = static_cast<HRESULT>(0x80004004);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005);
inline constexpr HRESULT E_ACCESSDENIED = static_cast<HRESULT>(0x80070005);
inline constexpr HRESULT E_HANDLE = static_cast<HRESULT>(0x80070006);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000E);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057);

inline constexpr HRESULT OLE_E_ADVISENOTSUPPORTED = static_cast<HRESULT>(0x80040003);
inline constexpr HRESULT OLE_E_INVALIDHWND = static_cast<HRESULT>(0x8004000F);
inline constexpr HRESULT OLE_E_NOT_INPLACEACTIVE = static_cast<HRESULT>(0x80040010);
inline constexpr HRESULT DV_E_DVASPECT = static_cast<HRESULT>(0x8004006B);
inline constexpr HRESULT OLEOBJ_E_NOVERBS = static_cast<HRESULT>(0x80040180);
inline constexpr HRESULT OLEOBJ_S_INVALIDVERB = 0x00040180;
inline constexpr HRESULT OLEOBJ_S_CANNOT_DOVERB_NOW = 0x00040181;

inline constexpr HRESULT STG_E_WRITEFAULT = static_cast<HRESULT>(0x8003001D);
inline constexpr HRESULT STG_E_READFAULT = static_cast<HRESULT>(0x8003001E);

inline constexpr HRESULT CLASS_E_NOAGGREGATION = static_cast<HRESULT>(0x80040110);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = static_cast<HRESULT>(0x80040111);
inline constexpr HRESULT REGDB_E_CLASSNOTREG = static_cast<HRESULT>(0x80040154);
inline constexpr HRESULT CO_E_CLASSSTRING = static_cast<HRESULT>(0x800401F3);
inline constexpr HRESULT CO_E_DLLNOTFOUND = static_cast<HRESULT>(0x800401F8);
inline constexpr HRESULT CO_E_ERRORINDLL = static_cast<HRESULT>(0x800401F9);
inline constexpr HRESULT CONNECT_E_NOCONNECTION = static_cast<HRESULT>(0x80040200);
inline constexpr HRESULT CONNECT_E_CANNOTCONNECT = static_cast<HRESULT>(0x80040202);
inline constexpr HRESULT SELFREG_E_TYPELIB = static_cast<HRESULT>(0x80040200);
inline constexpr HRESULT SELFREG_E_CLASS = static_cast<HRESULT>(0x80040201);

inline constexpr HRESULT DISP_E_UNKNOWNINTERFACE = static_cast<HRESULT>(0x80020001);
inline constexpr HRESULT DISP_E_MEMBERNOTFOUND = static_cast<HRESULT>(0x80020003);
inline constexpr HRESULT DISP_E_PARAMNOTFOUND = static_cast<HRESULT>(0x80020004);
inline constexpr HRESULT DISP_E_TYPEMISMATCH = static_cast<HRESULT>(0x80020005);
inline constexpr HRESULT DISP_E_UNKNOWNNAME = static_cast<HRESULT>(0x80020006);
inline constexpr HRESULT DISP_E_NONAMEDARGS = static_cast<HRESULT>(0x80020007);
inline constexpr HRESULT DISP_E_BADVARTYPE = static_cast<HRESULT>(0x80020008);
inline constexpr HRESULT DISP_E_EXCEPTION = static_cast<HRESULT>(0x80020009);
inline constexpr HRESULT DISP_E_OVERFLOW = static_cast<HRESULT>(0x8002000A);
inline constexpr HRESULT DISP_E_BADINDEX = static_cast<HRESULT>(0x8002000B);
inline constexpr HRESULT DISP_E_UNKNOWNLCID = static_cast<HRESULT>(0x8002000C);
inline constexpr HRESULT DISP_E_ARRAYISLOCKED = static_cast<HRESULT>(0x8002000D);
inline constexpr HRESULT DISP_E_BADPARAMCOUNT = static_cast<HRESULT>(0x8002000E);
inline constexpr HRESULT DISP_E_PARAMNOTOPTIONAL = static_cast<HRESULT>(0x8002000F);
inline constexpr HRESULT DISP_E_BADCALLEE = static_cast<HRESULT>(0x80020010);
inline constexpr HRESULT DISP_E_NOTACOLLECTION = static_cast<HRESULT>(0x80020011);
inline constexpr HRESULT DISP_E_DIVBYZERO = static_cast<HRESULT>(0x80020012);

inline constexpr HRESULT TYPE_E_REGISTRYACCESS = static_cast<HRESULT>(0x8002801C);
inline constexpr HRESULT TYPE_E_LIBNOTREGISTERED = static_cast<HRESULT>(0x8002801D);
inline constexpr HRESULT TYPE_E_ELEMENTNOTFOUND = static_cast<HRESULT>(0x8002802B);
inline constexpr HRESULT TYPE_E_CANTLOADLIBRARY = static_cast<HRESULT>(0x80029C4A);

namespace hx {

// The constant's name, as "E_FAIL"; empty for a code that has no name above. The text lives for ever.
HX_PLATFORM_API std::string_view HresultName(HRESULT result);
// The code of that name; false for any other text, and `result` is then unchanged.
HX_PLATFORM_API bool HresultOfName(std::string_view name, HRESULT& result);

}  // namespace hx
