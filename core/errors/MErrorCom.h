// An error that a component reported through an HRESULT, with the error information that it left behind. Not
// shared between threads.
#pragma once

#include <optional>
#include <string>

#include "core/errors/MError.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"

namespace hx {

class MErrorCom : public MError {
public:
    // Always "MErrorCom.MErrorCom:", with the colon.
    static constexpr const wchar_t* kCode = L"MErrorCom.MErrorCom:";

    MErrorCom();
    // Parameters: "hresult" (eight hexadecimal digits, "h") and "message", the system's text for it.
    explicit MErrorCom(HRESULT result);
    // As well, for a failure of `component`: takes the thread's error information, if the component vouches
    // for `iid`, and keeps it if it is about `iid`; its description is then the record's. Throws an
    // MException (out of memory, invalid argument or generic failure) if the description cannot be had.
    MErrorCom(HRESULT result, IUnknown* component, REFIID iid);

    const MDynClass& GetDynClass() const override { return Class(); }
    std::unique_ptr<MDynObject> Clone() const override { return std::make_unique<MErrorCom>(*this); }
    std::unique_ptr<MDynObject> CreateNew() const override { return std::make_unique<MErrorCom>(); }
    std::wstring GetDescription() const override { return m_description; }

    HRESULT GetResult() const { return m_result; }
    IErrorInfo* GetErrorInformation() const { return m_error_information.get(); }
    // The system's text, or "IDispatch error #5", or "Unknown error 0x80040200". Looked up once.
    const std::wstring& GetSystemMessage() const;

    static const MDynClass& Class();

private:
    void AddResultParameters();

    HRESULT m_result = 0;
    ComPtr<IErrorInfo> m_error_information;
    mutable std::optional<std::wstring> m_system_message;
    std::wstring m_description;
};

}  // namespace hx
