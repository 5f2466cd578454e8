#include "apps/hxctl/scanner/failed_call.h"

#include "apps/hosting/HowToRegister.h"
#include "apps/hxctl/command.h"
#include "core/messages/MErrorFormatter.h"
#include "core/messages/MErrorFormatterResource.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

[[noreturn]] void Fail(const char* operation, HRESULT result, const std::string& description) {
    std::string reason =
        std::string(operation) + " answered " + NamedResult(result) + hosting::HowToRegister(result);
    if (!description.empty()) reason += ": " + description;
    throw FailedCall(reason);
}

}  // namespace

std::string MessageOf(const hx::MException& exception) {
    static const bool has_own_texts = [] {
        hx::MErrorFormatter::Get().AddRule(hx::MErrorFormatterResource::Get());
        return true;
    }();
    static_cast<void>(has_own_texts);
    return hx::ToUtf8(hx::MErrorFormatter::Get().Format(exception).message);
}

void CheckCall(const char* operation, HRESULT result, IErrorInfo* detail) {
    if (SUCCEEDED(result)) return;
    hx::Bstr description;
    if (detail != nullptr) detail->GetDescription(description.put());
    Fail(operation, result, hx::ToUtf8(description.view()));
}

void FailCall(const char* operation, const hx::MErrorCom& error) {
    hx::MException chain;
    if (!hx::ReadChainDocument(error.GetDescription(), chain)) {
        Fail(operation, error.GetResult(), hx::ToUtf8(error.GetDescription()));
    }
    chain.Append(error);
    Fail(operation, error.GetResult(),
         MessageOf(chain) + "\nError codes:\n" + hx::ToUtf8(hx::ErrorCodesText(chain)));
}

void CheckCall(const char* operation, HRESULT result, IUnknown& object, REFIID iid) {
    if (FAILED(result)) FailCall(operation, hx::MErrorCom(result, &object, iid));
}

}  // namespace hxctl
