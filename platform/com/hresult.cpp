#include "platform/com/hresult.h"

namespace hx {
namespace {

struct Name {
    HRESULT result;
    std::string_view text;
};

// The text is the constant's own spelling, so the two cannot drift apart.
#define HX_NAME(constant) \
    { constant, #constant }
constexpr Name names[] = {
    HX_NAME(S_OK),
    HX_NAME(S_FALSE),
    HX_NAME(E_UNEXPECTED),
    HX_NAME(E_NOTIMPL),
    HX_NAME(E_NOINTERFACE),
    HX_NAME(E_POINTER),
    HX_NAME(E_ABORT),
    HX_NAME(E_FAIL),
    HX_NAME(E_ACCESSDENIED),
    HX_NAME(E_HANDLE),
    HX_NAME(E_OUTOFMEMORY),
    HX_NAME(E_INVALIDARG),
    HX_NAME(OLE_E_ADVISENOTSUPPORTED),
    HX_NAME(OLE_E_INVALIDHWND),
    HX_NAME(OLE_E_NOT_INPLACEACTIVE),
    HX_NAME(DV_E_DVASPECT),
    HX_NAME(OLEOBJ_E_NOVERBS),
    HX_NAME(OLEOBJ_S_INVALIDVERB),
    HX_NAME(OLEOBJ_S_CANNOT_DOVERB_NOW),
    HX_NAME(STG_E_WRITEFAULT),
    HX_NAME(STG_E_READFAULT),
    HX_NAME(CLASS_E_NOAGGREGATION),
    HX_NAME(CLASS_E_CLASSNOTAVAILABLE),
    HX_NAME(REGDB_E_CLASSNOTREG),
    HX_NAME(CO_E_CLASSSTRING),
    HX_NAME(CO_E_DLLNOTFOUND),
    HX_NAME(CO_E_ERRORINDLL),
    HX_NAME(SELFREG_E_TYPELIB),
    HX_NAME(SELFREG_E_CLASS),
    HX_NAME(CONNECT_E_CANNOTCONNECT),
    HX_NAME(DISP_E_UNKNOWNINTERFACE),
    HX_NAME(DISP_E_MEMBERNOTFOUND),
    HX_NAME(DISP_E_PARAMNOTFOUND),
    HX_NAME(DISP_E_TYPEMISMATCH),
    HX_NAME(DISP_E_UNKNOWNNAME),
    HX_NAME(DISP_E_NONAMEDARGS),
    HX_NAME(DISP_E_BADVARTYPE),
    HX_NAME(DISP_E_EXCEPTION),
    HX_NAME(DISP_E_OVERFLOW),
    HX_NAME(DISP_E_BADINDEX),
    HX_NAME(DISP_E_UNKNOWNLCID),
    HX_NAME(DISP_E_ARRAYISLOCKED),
    HX_NAME(DISP_E_BADPARAMCOUNT),
    HX_NAME(DISP_E_PARAMNOTOPTIONAL),
    HX_NAME(DISP_E_BADCALLEE),
    HX_NAME(DISP_E_NOTACOLLECTION),
    HX_NAME(DISP_E_DIVBYZERO),
    HX_NAME(TYPE_E_REGISTRYACCESS),
    HX_NAME(TYPE_E_LIBNOTREGISTERED),
    HX_NAME(TYPE_E_ELEMENTNOTFOUND),
    HX_NAME(TYPE_E_CANTLOADLIBRARY),
};
#undef HX_NAME

}  // namespace

std::string_view HresultName(HRESULT result) {
    for (const Name& name : names) {
        if (name.result == result) return name.text;
    }
    return {};
}

bool HresultOfName(std::string_view text, HRESULT& result) {
    for (const Name& name : names) {
        if (name.text != text) continue;
        result = name.result;
        return true;
    }
    return false;
}

}  // namespace hx
