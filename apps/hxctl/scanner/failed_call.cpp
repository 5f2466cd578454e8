#include "apps/hxctl/scanner/failed_call.h"

#include "apps/hxctl/command.h"
#include "core/errors/MErrorCom.h"
#include "core/errors/MException.h"
#include "core/messages/MErrorFormatter.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

[[noreturn]] void Fail(const char* operation, HRESULT result, std::wstring_view description) {
    std::string reason = std::string(operation) + " answered " + NamedResult(result);
    if (!description.empty()) reason += ": " + hx::ToUtf8(description);
    throw FailedCall(reason);
}

}  // namespace

void CheckCall(const char* operation, HRESULT result, IErrorInfo* detail) {
    if (SUCCEEDED(result)) return;
    hx::Bstr description;
    if (detail != nullptr) detail->GetDescription(description.put());
    Fail(operation, result, description.view());
}

void CheckCall(const char* operation, HRESULT result, IUnknown& object, REFIID iid) {
    if (SUCCEEDED(result)) return;
    const hx::MErrorCom error(result, &object, iid);
    hx::MException chain;
    if (!hx::ReadChainDocument(error.GetDescription(), chain))
        Fail(operation, result, error.GetDescription());
    chain.Append(error);
    const hx::MErrorFormatter::Formatted told = hx::MErrorFormatter::Get().Format(chain);
    Fail(operation, result, told.message + L"\nError codes:\n" + told.error_codes);
}

}  // namespace hxctl
