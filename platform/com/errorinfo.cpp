#include "platform/com/errorinfo.h"

#include <string>
#include <utility>

#include "platform/com/boundary.h"
#include "platform/com/implements.h"

namespace {

// Filled in by its creator, then only read; so it needs no lock, though its references may go to any thread.
class ErrorInfo final : public hx::Implements<ErrorInfo, hx::FreeThreaded, ICreateErrorInfo, IErrorInfo> {
public:
    HRESULT STDMETHODCALLTYPE SetGUID(REFGUID guid) override {
        m_guid = guid;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetSource(LPOLESTR source) override { return Set(m_source, source); }
    HRESULT STDMETHODCALLTYPE SetDescription(LPOLESTR description) override {
        return Set(m_description, description);
    }
    HRESULT STDMETHODCALLTYPE SetHelpFile(LPOLESTR help_file) override { return Set(m_help_file, help_file); }
    HRESULT STDMETHODCALLTYPE SetHelpContext(DWORD help_context) override {
        m_help_context = help_context;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetGUID(GUID* guid) override {
        if (!guid) return E_POINTER;
        *guid = m_guid;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetSource(BSTR* source) override { return m_source.copy_to(source); }
    HRESULT STDMETHODCALLTYPE GetDescription(BSTR* description) override {
        return m_description.copy_to(description);
    }
    HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* help_file) override { return m_help_file.copy_to(help_file); }
    HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD* help_context) override {
        if (!help_context) return E_POINTER;
        *help_context = m_help_context;
        return S_OK;
    }

private:
    static HRESULT Set(hx::Bstr& member, const OLECHAR* text) {
        BSTR copy = SysAllocString(text);
        if (text && !copy) return E_OUTOFMEMORY;
        member.attach(copy);
        return S_OK;
    }

    GUID m_guid{};
    hx::Bstr m_source;
    hx::Bstr m_description;
    hx::Bstr m_help_file;
    DWORD m_help_context = 0;
};

thread_local hx::ComPtr<IErrorInfo> t_error_info;

}  // namespace

HRESULT CreateErrorInfo(ICreateErrorInfo** info) {
    if (!info) return E_INVALIDARG;
    *info = nullptr;
    return hx::AtBoundary([&] {
        *info = hx::Make<ErrorInfo>().detach();
        return S_OK;
    });
}

HRESULT SetErrorInfo(ULONG reserved, IErrorInfo* info) {
    if (reserved != 0) return E_INVALIDARG;
    // The old one goes only after the new one is in place: its destructor may ask for error information.
    hx::ComPtr<IErrorInfo> old(info);
    std::swap(t_error_info, old);
    return S_OK;
}

HRESULT GetErrorInfo(ULONG reserved, IErrorInfo** info) {
    if (!info) return E_INVALIDARG;
    *info = nullptr;
    if (reserved != 0) return E_INVALIDARG;
    *info = t_error_info.detach();
    return *info ? S_OK : S_FALSE;
}

void hx::LeaveErrorInfo(std::wstring_view source, std::wstring_view description) noexcept {
    const HRESULT left = AtBoundary([&] {
        const auto info = Make<ErrorInfo>();
        HRESULT result = info->SetSource(std::wstring(source).data());
        if (SUCCEEDED(result)) result = info->SetDescription(std::wstring(description).data());
        if (SUCCEEDED(result)) result = SetErrorInfo(0, info.get());
        return result;
    });
    if (FAILED(left)) SetErrorInfo(0, nullptr);
}
