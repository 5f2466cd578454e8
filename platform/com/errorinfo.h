// Error information: the text behind a failed HRESULT, kept per thread between the object that failed and its
// caller. An object that fails calls SetErrorInfo just before it returns; its caller, on the same thread,
// calls GetErrorInfo right after, if the object's ISupportErrorInfo vouches for the interface that was
// called.
#pragma once

#include <string_view>

#include "platform/com/bstr.h"
#include "platform/com/unknown.h"

HX_IID(IErrorInfo, "1CF2B120-547D-101B-8E65-08002B2BD119")
struct IErrorInfo : IUnknown {
    // The interface whose method failed.
    virtual HRESULT STDMETHODCALLTYPE GetGUID(GUID* guid) = 0;
    // Strings are [caller owns], null if never set. Source is the ProgID of the class that failed.
    virtual HRESULT STDMETHODCALLTYPE GetSource(BSTR* source) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDescription(BSTR* description) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* help_file) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD* help_context) = 0;
};

HX_IID(ICreateErrorInfo, "22F03340-547D-101B-8E65-08002B2BD119")
struct ICreateErrorInfo : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SetGUID(REFGUID guid) = 0;
    // Texts are copied; null unsets.
    virtual HRESULT STDMETHODCALLTYPE SetSource(LPOLESTR source) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetDescription(LPOLESTR description) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetHelpFile(LPOLESTR help_file) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetHelpContext(DWORD help_context) = 0;
};

HX_IID(ISupportErrorInfo, "DF0B3D60-548F-101B-8E65-08002B2BD119")
struct ISupportErrorInfo : IUnknown {
    // S_OK if a failure of this interface leaves error information behind, else S_FALSE.
    virtual HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) = 0;
};

// A new, empty error information, [caller owns]; its IErrorInfo comes through QueryInterface. Null on
// failure.
HX_PLATFORM_API HRESULT CreateErrorInfo(ICreateErrorInfo** info);

// This thread's error information becomes `info` (null: none); a reference is taken. `reserved` is 0.
HX_PLATFORM_API HRESULT SetErrorInfo(ULONG reserved, IErrorInfo* info);

// Hands this thread's error information to the caller and forgets it; S_FALSE and null if there is none.
HX_PLATFORM_API HRESULT GetErrorInfo(ULONG reserved, IErrorInfo** info);

namespace hx {

// This thread's error information becomes a new one of that source and description; without memory, none: an
// older failure's must not pass for this one's.
HX_PLATFORM_API void LeaveErrorInfo(std::wstring_view source, std::wstring_view description) noexcept;

}  // namespace hx
