#include "core/errors/MErrorCom.h"

#include <charconv>

#include "core/errors/MDiagnosticsRegistry.h"
#include "core/errors/MErrorLocation.h"
#include "platform/system/message_table.h"

namespace hx {
namespace {

// Registered even if no component ever fails.
const MDynClass& kComKind = MErrorCom::Class();

MErrorLocation& Location() {
    static MErrorLocation location("MErrorCom", "MErrorCom");
    return location;
}

// The thread's error information about `iid`, if the component vouches for it. It is taken from the thread in
// any case: it must not be found later and taken for that of another failure.
ComPtr<IErrorInfo> TakeErrorInformation(IUnknown* component, REFIID iid) {
    ComPtr<IErrorInfo> information;
    const auto support = ComPtr<IUnknown>(component).as<ISupportErrorInfo>();
    if (!support || support->InterfaceSupportsErrorInfo(iid) != S_OK) return information;
    GUID about{};
    if (GetErrorInfo(0, information.put()) != S_OK || FAILED(information->GetGUID(&about)) ||
        !(about == iid)) {
        information.reset();
    }
    return information;
}

std::wstring DescriptionOf(IErrorInfo& information) {
    Bstr description;
    const HRESULT result = information.GetDescription(description.put());
    if (result == E_OUTOFMEMORY) throw MException(MErrorOutOfMemory());
    if (FAILED(result)) throw MException(MErrorCom(result == E_INVALIDARG ? E_INVALIDARG : E_FAIL));
    return std::wstring(description.view());
}

std::wstring FallbackMessage(HRESULT result) {
    constexpr uint32_t kDispatchFirst = 0x80040201;
    constexpr uint32_t kDispatchLast = 0x8004FFFF;
    const auto code = static_cast<uint32_t>(result);
    if (code >= kDispatchFirst && code <= kDispatchLast) {
        return L"IDispatch error #" + std::to_wstring(code - (kDispatchFirst - 1));
    }
    char digits[8];
    const char* const end = std::to_chars(digits, digits + sizeof digits, code, 16).ptr;
    std::wstring text = L"Unknown error 0x";
    for (const char* digit = digits; digit != end; ++digit) {
        text += static_cast<wchar_t>(*digit >= 'a' ? *digit - 'a' + 'A' : *digit);
    }
    return text;
}

}  // namespace

const MDynClass& MErrorCom::Class() {
    static const MDynClass klass(L"MErrorCom", &MError::Class());
    return klass;
}

MErrorCom::MErrorCom() : MError(kCode) {}

MErrorCom::MErrorCom(HRESULT result) : MError(kCode), m_result(result) {
    Location().Set(this, 28);
    DiagnosticsRegistry().OnReturnedError(Location(), result);
    AddResultParameters();
}

MErrorCom::MErrorCom(HRESULT result, IUnknown* component, REFIID iid) : MError(kCode), m_result(result) {
    Location().Set(this, 50);
    DiagnosticsRegistry().OnReturnedError(Location(), result);
    if (FAILED(result) && component != nullptr) {
        m_error_information = TakeErrorInformation(component, iid);
        if (m_error_information) m_description = DescriptionOf(*m_error_information);
    }
    AddResultParameters();
}

void MErrorCom::AddResultParameters() {
    AddParameter(L"hresult", static_cast<uint32_t>(m_result), true);
    AddParameter(L"message", GetSystemMessage());
}

const std::wstring& MErrorCom::GetSystemMessage() const {
    if (!m_system_message) {
        m_system_message = SystemMessage(m_result);
        if (!m_system_message) {
            m_system_message = FallbackMessage(m_result);
        } else if (m_system_message->ends_with(L'\n')) {
            // The system ends its texts with one line break.
            m_system_message->pop_back();
            if (m_system_message->ends_with(L'\r')) m_system_message->pop_back();
        }
    }
    return *m_system_message;
}

}  // namespace hx
