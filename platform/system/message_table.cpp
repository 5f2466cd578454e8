#include "platform/system/message_table.h"

#include <atomic>

namespace hx {
namespace {

struct Message {
    HRESULT result;
    const wchar_t* text;
};

constexpr Message messages[] = {
    {S_OK, L"The operation completed successfully."},
    {S_FALSE, L"Incorrect function."},
    {E_UNEXPECTED, L"Catastrophic failure"},
    {E_NOTIMPL, L"Not implemented"},
    {E_NOINTERFACE, L"No such interface supported"},
    {E_POINTER, L"Invalid pointer"},
    {E_ABORT, L"Operation aborted"},
    {E_FAIL, L"Unspecified error"},
    {E_ACCESSDENIED, L"Access is denied."},
    {E_HANDLE, L"The handle is invalid."},
    {E_OUTOFMEMORY, L"Not enough memory resources are available to complete this operation."},
    {E_INVALIDARG, L"The parameter is incorrect."},
    {OLE_E_ADVISENOTSUPPORTED, L"This implementation doesn't take advises"},
    {OLE_E_INVALIDHWND, L"Invalid window handle"},
    {OLE_E_NOT_INPLACEACTIVE, L"Object is not in any of the inplace active states"},
    {DV_E_DVASPECT, L"Invalid aspect(s)"},
    {OLEOBJ_S_INVALIDVERB, L"Invalid verb for OLE object"},
    {OLEOBJ_S_CANNOT_DOVERB_NOW, L"Verb number is valid but verb cannot be done now"},
    {CLASS_E_NOAGGREGATION, L"Class does not support aggregation (or class object is remote)"},
    {CLASS_E_CLASSNOTAVAILABLE, L"ClassFactory cannot supply requested class"},
    {REGDB_E_CLASSNOTREG, L"Class not registered"},
    {CO_E_CLASSSTRING, L"Invalid class string"},
    {CO_E_DLLNOTFOUND, L"DLL for class not found"},
    {CO_E_ERRORINDLL, L"Error in the DLL"},
    {CONNECT_E_CANNOTCONNECT, L"Connection attempt failed"},
    {DISP_E_UNKNOWNINTERFACE, L"Unknown interface."},
    {DISP_E_MEMBERNOTFOUND, L"Member not found."},
    {DISP_E_PARAMNOTFOUND, L"Parameter not found."},
    {DISP_E_TYPEMISMATCH, L"Type mismatch."},
    {DISP_E_UNKNOWNNAME, L"Unknown name."},
    {DISP_E_NONAMEDARGS, L"No named arguments."},
    {DISP_E_BADVARTYPE, L"Bad variable type."},
    {DISP_E_EXCEPTION, L"Exception occurred."},
    {DISP_E_OVERFLOW, L"Out of present range."},
    {DISP_E_BADINDEX, L"Invalid index."},
    {DISP_E_UNKNOWNLCID, L"Unknown language."},
    {DISP_E_ARRAYISLOCKED, L"Memory is locked."},
    {DISP_E_BADPARAMCOUNT, L"Invalid number of parameters."},
    {DISP_E_PARAMNOTOPTIONAL, L"Parameter not optional."},
    {DISP_E_BADCALLEE, L"Invalid callee."},
    {DISP_E_NOTACOLLECTION, L"Does not support a collection."},
    {DISP_E_DIVBYZERO, L"Division by zero."},
    {static_cast<HRESULT>(0x80070002), L"The system cannot find the file specified."},
    {static_cast<HRESULT>(0x80070070), L"There is not enough space on the disk."},
    {static_cast<HRESULT>(0x800700AA), L"The requested resource is in use."},
    {static_cast<HRESULT>(0x800703F1), L"The configuration registry database is corrupt."},
    {static_cast<HRESULT>(0x800703F8), L"An I/O operation initiated by the registry failed unrecoverably."},
    {TYPE_E_REGISTRYACCESS, L"Error accessing the OLE registry."},
    {TYPE_E_LIBNOTREGISTERED, L"Library not registered."},
    {TYPE_E_ELEMENTNOTFOUND, L"Element not found."},
    {TYPE_E_CANTLOADLIBRARY, L"Error loading type library/DLL."},
};

std::optional<std::wstring> FromTable(HRESULT result) {
    for (const Message& message : messages) {
        if (message.result == result) return message.text + std::wstring(L"\r\n");
    }
    return std::nullopt;
}

std::atomic<SystemMessageSource> g_source{nullptr};

}  // namespace

std::optional<std::wstring> SystemMessage(HRESULT result) {
    const SystemMessageSource source = g_source.load();
    return source ? source(result) : FromTable(result);
}

SystemMessageSource SetSystemMessageSource(SystemMessageSource source) {
    return g_source.exchange(source);
}

}  // namespace hx
